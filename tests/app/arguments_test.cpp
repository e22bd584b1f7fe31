#include "app/command_line.h"
#include "app/engine_arguments.h"

#include <iterator>
#include <sstream>

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
  ASSERT_TRUE(all->job.slice);
  EXPECT_EQ(all->job.slice->from, 1.5);
  EXPECT_EQ(all->job.slice->to, 4);
  EXPECT_EQ(all->profile, 12);
  EXPECT_EQ(all->starter, 4194303);
  EXPECT_EQ(all->job.work->folder, "/work");
  EXPECT_EQ(all->job.work->share->number, 1U);
  EXPECT_EQ(all->job.work->share->of, 3U);
  EXPECT_EQ(all->job.work->identity, "/[1.50-4.00] \n/P\n12\n/C\nmpeg4\n");
  EXPECT_EQ(all->job.codec, VideoCodec::Mpeg4);
  EXPECT_EQ(all->job.output, "/out/my movie.avi");
  EXPECT_EQ(all->document, "/x/doc.xtl");
  const auto preset = readEngineArguments({"/P", "Email", "/Q", "23", "/E", "slow", "/M", "2.5", "/H", "Auto",
                                           "/K", "w", "/W", "o.mp4", "d.xtl"});
  ASSERT_TRUE(preset) << preset.error().text;
  EXPECT_EQ(preset->job.preset, presetNamed("email"));
  EXPECT_EQ(preset->job.quality, 23);
  EXPECT_EQ(preset->job.effort, "slow");
  EXPECT_EQ(preset->job.megabytes, 2.5);
  EXPECT_EQ(preset->encoder, EncoderWish::Auto);
  EXPECT_EQ(preset->job.work->identity.find("Auto"), std::string::npos) << "who encodes is known later";
  const auto least = readEngineArguments({"/w", "o.wav", "d.xtl"});
  ASSERT_TRUE(least);
  EXPECT_FALSE(least->job.slice || least->profile);

  for (const auto* line :
       {"", "d.xtl", "/W d.xtl", "/P 26 /W o.wmv d.xtl", "/P 1.5 /W o.wmv d.xtl", "/P nothing /W o.mp4 d.xtl",
        "/Q 0 /W o.mp4 d.xtl", "/E quick /W o.mp4 d.xtl", "/M -1 /W o.mp4 d.xtl", "/H fpga /W o.mp4 d.xtl",
        "/C h265 /W o.avi d.xtl", "/S 0 /W o.avi d.xtl", "/S x /W o.avi d.xtl", "/[4.00-1.50] /W o.avi d.xtl",
        "/[1.50] /W o.avi d.xtl", "/J 1/2 /W o.avi d.xtl", "/K w /J 3/2 /W o.avi d.xtl",
        "/K w /J 0/2 /W o.avi d.xtl", "/Q /W o.avi d.xtl"})
    EXPECT_FALSE(readEngineArguments(wordsOf(line))) << line;
}

TEST(CommandLine, TakesItsCommands) {
  const auto render = readCommandLine({"--render", "c.INI", "--output", "-o.avi", "--range", "1.5-4",
                                       "--size", "640x360", "--rate", "29.97", "--codec", "mpeg4"});
  ASSERT_TRUE(render) << render.error().text;
  EXPECT_EQ(render->task, Task::Render);
  EXPECT_EQ(render->output, "-o.avi");
  EXPECT_EQ(render->range->to, 4);
  EXPECT_EQ(render->size->height, 360);
  EXPECT_EQ(*render->rate, 29.97);
  EXPECT_EQ(readCommandLine({"--render", "c.INI", "--output", "o.WMV", "--profile", "41"})->profile, 41);
  for (const auto* profile : {"42", "-1", "1.5", "x"})
    EXPECT_FALSE(readCommandLine({"--render", "c.INI", "--output", "o.wmv", "--profile", profile}))
        << profile;
  EXPECT_FALSE(readCommandLine({"--render", "c.INI", "--output", "o.avi", "--profile", "7"}));
  const auto mp4 = readCommandLine({"--render", "c.INI", "--output", "o.mp4", "--preset", "phone",
                                    "--size-mb", "8", "--quality", "20", "--effort", "veryfast", "--size",
                                    "3840x2160", "--encoder", "hardware"});
  ASSERT_TRUE(mp4) << mp4.error().text;
  EXPECT_EQ(mp4->preset, presetNamed("phone"));
  EXPECT_EQ(mp4->megabytes, 8);
  EXPECT_EQ(mp4->quality, 20);
  EXPECT_EQ(mp4->effort, "veryfast");
  EXPECT_EQ(mp4->encoder, EncoderWish::Hardware);
  EXPECT_EQ(mp4->size->width, 3840);
  EXPECT_EQ(readCommandLine({"--list-presets"})->task, Task::Presets);
  EXPECT_EQ(readCommandLine({"--render", "c.INI", "--output", "o.avi", "--slurm", "8"})->slurmJobs, 8);
  EXPECT_TRUE(readCommandLine({"--render", "c.INI", "--resume", "--output", "o.avi"})->resume);
  const auto queued = readCommandLine({"--queue", "add", "c.INI", "--output", "o.avi"});
  EXPECT_TRUE(queued && queued->task == Task::Queue && queued->queueAct == QueueAct::Add);
  const auto moved = readCommandLine({"--queue", "move", "3", "1"});
  EXPECT_TRUE(moved && moved->queueNumber == 3 && moved->queuePlace == 1);
  EXPECT_EQ(readCommandLine({"--check", "-c.INI"})->collection, "-c.INI");
  EXPECT_EQ(readCommandLine({"--document", "c.INI", "d.xtl"})->output, "d.xtl");
  EXPECT_EQ(readCommandLine({"--document", "c.INI", "d.xtl", "--preview", "7"})->previewPower, 7);
  EXPECT_FALSE(readCommandLine({"--document", "c.INI", "d.xtl", "--preview", "11"}));
  EXPECT_EQ(readCommandLine({"--version"})->task, Task::Version);
  EXPECT_EQ(readCommandLine({"--gallery"})->task, Task::Gallery);

  EXPECT_EQ(*readCommandLine({"--render", "c.INI", "--output", "o.avi", "--rate", "2"})->rate, 2);
  EXPECT_NE(readCommandLine({"--render", "c.INI", "--output", "o.avi", "--rate", "1"})
                .error()
                .text.find("2 to 240"),
            std::string::npos);

  for (const auto* line : {"--nonsense", "--queue", "--queue pause", "--queue pause x", "--queue list 1",
                           "--queue add c.INI --output o.avi --resume", "--render", "--render c.INI",
                           "--render c.INI --output", "--check", "--check a b", "--document a"})
    EXPECT_FALSE(readCommandLine(wordsOf(line))) << line;
  for (const auto* line :
       {"o.avi --slurm 0",     "o.avi --range 4-1",     "o.avi --range 1.001-1.004",
        "o.avi --size 640",    "o.avi --size 1x1",      "o.avi --size 20000x20000",
        "o.avi --rate 0",      "o.avi --rate 0.1",      "o.avi --rate 1.99",
        "o.avi --rate 1,5",    "o.avi --colour x",      "o.mkv",
        "o.mp4 --codec mpeg4", "o.webm --preset web",   "o.mp4 --preset x",
        "o.webm --size-mb 8",  "o.mp4 --quality 0",     "o.mp4 --effort x",
        "o.mp4 --encoder x",   "o.webm --encoder auto", "o.mp4 --encoder hardware --slurm 2"})
    EXPECT_FALSE(readCommandLine(wordsOf(std::string("--render c.INI --output ") + line))) << line;
}

}  // namespace
}  // namespace kvo
