#include "app/command_line.h"
#include "app/engine_arguments.h"

#include <iterator>

#include <gtest/gtest.h>

namespace kvo {
namespace {

std::vector<std::string> wordsOf(const std::string& line) {
  std::istringstream each(line);
  return {std::istream_iterator<std::string>(each), std::istream_iterator<std::string>()};
}

TEST(EngineArguments, TakeTheirForms) {
  const auto all = readEngineArguments({"/[1.50-4.00] ", "/P", "12", "/C", "mpeg4", "/S", "4194303", "/J",
                                        "2/3", "/K", "/work", "/W", "/out/my movie.avi", "/x/doc.xtl"});
  ASSERT_TRUE(all) << all.error().text;
  const auto& job = all->job;
  EXPECT_EQ(std::tuple(job.slice->from, job.slice->to, all->profile, all->starter, job.codec),
            std::tuple(1.5, 4.0, 12, 4194303, VideoCodec::Mpeg4));
  EXPECT_EQ(
      std::tuple(job.work->folder, job.work->share->number, job.work->share->of, job.output, all->document,
                 job.work->identity),
      std::tuple("/work", 1U, 3U, "/out/my movie.avi", "/x/doc.xtl", "/[1.50-4.00] \n/P\n12\n/C\nmpeg4\n"));
  const auto preset =
      readEngineArguments(wordsOf("/P Email /Q 23 /E slow /M 2.5 /H Auto /K w /W o.mp4 d.xtl"));
  ASSERT_TRUE(preset) << preset.error().text;
  EXPECT_EQ(std::tuple(preset->job.preset, preset->job.quality, preset->job.effort, preset->job.megabytes,
                       preset->encoder),
            std::tuple(presetNamed("email"), 23, "slow", 2.5, EncoderWish::Auto));
  EXPECT_EQ(preset->job.work->identity.find("Auto"), std::string::npos) << "who encodes is known later";
  const auto least = readEngineArguments({"/w", "o.wav", "d.xtl"});
  EXPECT_TRUE(least && !least->job.slice && !least->profile);

  for (const auto* line :
       {"", "d.xtl", "/W d.xtl", "/P 26 /W o.wmv d.xtl", "/P 1.5 /W o.wmv d.xtl", "/P nothing /W o.mp4 d.xtl",
        "/Q 0 /W o.mp4 d.xtl", "/E quick /W o.mp4 d.xtl", "/M -1 /W o.mp4 d.xtl", "/H fpga /W o.mp4 d.xtl",
        "/C h265 /W o.avi d.xtl", "/S 0 /W o.avi d.xtl", "/S x /W o.avi d.xtl", "/[4.00-1.50] /W o.avi d.xtl",
        "/[1.50] /W o.avi d.xtl", "/J 1/2 /W o.avi d.xtl", "/K w /J 3/2 /W o.avi d.xtl",
        "/K w /J 0/2 /W o.avi d.xtl", "/Q /W o.avi d.xtl"})
    EXPECT_FALSE(readEngineArguments(wordsOf(line))) << line;
}

CommandLine understood(const std::string& line) {
  const auto read = readCommandLine(wordsOf(line));
  EXPECT_TRUE(read) << line;
  return read ? *read : CommandLine();
}

TEST(CommandLine, TakesItsCommands) {
  const auto avi = understood(
      "--render c.INI --output -o.avi --range 1.5-4 --size 640x360 --rate 29.97 --codec mpeg4 --slurm 8");
  EXPECT_EQ(std::tuple(avi.task, avi.output, avi.range->to, avi.size->height, avi.rate, avi.slurmJobs),
            std::tuple(Task::Render, "-o.avi", 4.0, 360, 29.97, 8));
  const auto mp4 = understood(
      "--render c.INI --output o.mp4 --preset phone --size-mb 8 --quality 20 --effort veryfast --size "
      "3840x2160 --encoder hardware --resume");
  EXPECT_EQ(std::tuple(mp4.preset, mp4.megabytes, mp4.quality, mp4.effort, mp4.size->width, mp4.encoder),
            std::tuple(presetNamed("phone"), 8.0, 20, "veryfast", 3840, EncoderWish::Hardware));
  EXPECT_TRUE(mp4.resume);
  EXPECT_EQ(understood("--render c.INI --output o.WMV --profile 41").profile, 41);
  EXPECT_EQ(understood("--render c.INI --output o.avi --rate 2").rate, 2);
  const auto queued = understood("--queue add c.INI --output o.avi");
  EXPECT_TRUE(queued.task == Task::Queue && queued.queueAct == QueueAct::Add);
  const auto moved = understood("--queue move 3 1");
  EXPECT_TRUE(moved.queueNumber == 3 && moved.queuePlace == 1);
  EXPECT_EQ(understood("--check -c.INI").collection, "-c.INI");
  const auto document = understood("--document c.INI d.xtl --preview 7");
  EXPECT_TRUE(document.output == "d.xtl" && document.previewPower == 7);
  EXPECT_EQ(understood("--list-presets").task, Task::Presets);
  EXPECT_EQ(understood("--gallery").task, Task::Gallery);

  const auto slow = readCommandLine(wordsOf("--render c.INI --output o.avi --rate 1"));
  EXPECT_NE(slow.error().text.find("2 to 240"), std::string::npos) << slow.error().text;
  for (const auto* line :
       {"--nonsense", "--queue", "--queue pause", "--queue pause x", "--queue list 1",
        "--queue add c.INI --output o.avi --resume", "--render", "--render c.INI", "--render c.INI --output",
        "--check", "--check a b", "--document a", "--document c.INI d.xtl --preview 11"})
    EXPECT_FALSE(readCommandLine(wordsOf(line))) << line;
  for (const auto* line :
       {"slurm 0", "range 4-1", "range 1.001-1.004", "size 640", "size 1x1", "size 20000x20000", "rate 0",
        "rate 0.1", "rate 1.99", "rate 1,5", "colour x", "profile 7"})
    EXPECT_FALSE(readCommandLine(wordsOf(std::string("--render c.INI --output o.avi --") + line))) << line;
  for (const auto* line :
       {"o.mkv", "o.wmv --profile 42", "o.wmv --profile -1", "o.wmv --profile 1.5", "o.wmv --profile x",
        "o.mp4 --codec mpeg4", "o.webm --preset web", "o.mp4 --preset x", "o.webm --size-mb 8",
        "o.mp4 --quality 0", "o.mp4 --effort x", "o.mp4 --encoder x", "o.webm --encoder auto",
        "o.mp4 --encoder hardware --slurm 2"})
    EXPECT_FALSE(readCommandLine(wordsOf(std::string("--render c.INI --output ") + line))) << line;
}

}  // namespace
}  // namespace kvo
