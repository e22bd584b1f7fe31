// The programs themselves, started as a user or a script starts them.
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_name_locks.h"
#include "app/session.h"
#include "program/collection_store.h"
#include "support/fakes.h"
#include "support/held_engine.h"
#include "support/real_world.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::bytesOf;
using test::ProgramEnd;
using test::ScratchFolder;

void expectEnd(const ProgramEnd& end, int exitCode, const std::string& says = "") {
  EXPECT_EQ(end.exitCode, exitCode) << end.out << end.err;
  EXPECT_NE((end.out + end.err).find(says), std::string::npos) << says << ": " << end.out << end.err;
}

class Program : public testing::Test {
 protected:
  Program() : video_(work_ / "count.avi") {
    ::setenv("KVO5_HOME", (home_.path() + "/program").c_str(), 1);
    static const ScratchFolder made;
    static const auto once = test::makeCountingVideo(made, "count.avi", "25", 50);
    std::filesystem::copy(once, video_);
  }
  ~Program() override { ::unsetenv("TMPDIR"); }

  static ProgramEnd kvo5(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), KVO_PROGRAMS "/kvo5");
    return test::runProgram(arguments);
  }
  static ProgramEnd engine(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), KVO_PROGRAMS "/KVORender");
    return test::runProgram(arguments);
  }
  // Runs `script` with the program as $0.
  static ProgramEnd shell(const std::string& script, const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"bash", "-c", script, KVO_PROGRAMS "/kvo5"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return test::runProgram(command);
  }

  // A collection of one clip each of `files`, two seconds long.
  std::string collection(const std::string& name, const std::vector<std::string>& files,
                         const std::function<void(test::Bench&)>& change = {}) {
    test::Bench b;
    for (const auto& file : files) {
      const std::filesystem::path path(file);
      auto& clip = b.addVideo(path.filename().string(), 0, 2, path.parent_path().string() + "/");
      clip.RenderAudio(false);
    }
    b.settings.adjust().RenderWidth = 64;
    b.settings.adjust().RenderHeight = 48;
    if (change) change(b);
    PosixFiles posix;
    CollectionStore file(posix, b.clock, b.boxes, b.log, b.folder, b.settings, b.collection);
    EXPECT_TRUE(file.WriteINI(work_.path(), name, true));
    return work_ / name;
  }

  // The folder for temporary files from now on.
  std::string temporaryFolder() {
    const auto temporary = work_ / "temporary";
    std::filesystem::create_directory(temporary);
    ::setenv("TMPDIR", temporary.c_str(), 1);
    return temporary;
  }

  ScratchFolder home_;
  ScratchFolder work_;
  std::string video_;
};

TEST_F(Program, ShipsWhatIsMissingInAnyCaseOfLetters) {
  namespace fs = std::filesystem;
  for (const auto& [file, text] : {std::pair{"shipped/Skins/blue.bmp", "ours"},
                                   {"shipped/Skins/2/blue.bmp", "ours"},
                                   {"own/skins/BLUE.BMP", "mine"}}) {
    fs::create_directories(fs::path(work_ / file).parent_path());
    std::ofstream(work_ / file) << text;
  }
  const ProgramFolder own(work_ / "own");
  PosixFiles files;
  EXPECT_TRUE(copyShippedPictures(files, own, work_ / "shipped"));
  EXPECT_EQ(*files.read(own.beside("\\Skins\\blue.bmp"), 9), "mine");
  EXPECT_FALSE(fs::exists(work_ / "own/Skins") || fs::exists(work_ / "own/skins/blue.bmp"));
  EXPECT_TRUE(fs::exists(work_ / "own/skins/2/blue.bmp"));
}

TEST_F(Program, RendersACollectionAndLeavesNothingElse) {
  const auto music = test::makeMedia(work_, "m.flac", {"-f", "lavfi", "-i", "sine=duration=2"});
  const auto path = collection("c.INI", {video_, video_, music}, [](test::Bench& b) {
    b.collection.MovieList[2].TransType("Fade");
    b.collection.MovieList[2].TransIn(10);
    b.collection.MovieList[3].RenderAudio(true);
    b.collection.MovieList[3].Resolution("44.1 KHz");
  });
  const auto temporary = temporaryFolder();
  const auto bytes = bytesOf(path);
  const auto before = work_.names();
  expectEnd(kvo5({"--render", path, "--output", work_ / "o.avi"}), 0, "75 frames, 3.00 s");
  EXPECT_EQ(test::picturesOf(work_ / "o.avi", 64, 48).size(), 75U);
  EXPECT_GT(test::levelOf(test::samplesOf(work_ / "o.avi"), 0.5, 1.5), -30);
  expectEnd(kvo5({"--render", path, "--output", work_ / "p.avi", "--range", "1-2", "--size", "32x24",
                  "--rate", "10"}),
            0);
  EXPECT_EQ(test::picturesOf(work_ / "p.avi", 32, 24).size(), 10U);
  auto after = work_.names();
  std::erase_if(after, [](const auto& name) { return name == "o.avi" || name == "p.avi"; });
  EXPECT_EQ(after, before);
  EXPECT_TRUE(std::filesystem::is_empty(temporary));
  EXPECT_EQ(bytesOf(path), bytes) << "a render does not touch the collection";
}

TEST_F(Program, ChecksACollection) {
  const auto still =
      test::makeMedia(work_, "s.tiff", {"-f", "lavfi", "-i", "color=white:size=64x48", "-frames:v", "1"});
  const auto good = collection("good.INI", {video_, still}, [](test::Bench& b) {
    b.collection.MovieList[1].LoopStart(Value());
    b.collection.MovieList[2].IsStill(true);
  });
  expectEnd(kvo5({"--check", good}), 0, "no problems");
  expectEnd(kvo5({"--render", good, "--output", work_ / "good.avi"}), 0);
  std::ofstream(work_ / "text.avi") << "no movie";
  const auto bad = kvo5(
      {"--check", collection("bad.INI", {video_, work_ / "gone.avi", work_ / "text.avi"}, [](test::Bench& b) {
         b.collection.MovieList[1].LoopEnd(Value(9));
         b.collection.MovieList[1].BorderWidth(300);
         b.collection.MovieList[1].Playspeed(-5);
       })});
  for (const auto* said :
       {"its section ends at 9 s", "the file is missing", "text.avi: it is no media file",
        "its border width of 300 is held to 255", "its speed of -0.5 cannot be played", "5 problems"}) {
    expectEnd(bad, 1, said);
  }
}

TEST_F(Program, PlaysThroughFilesOfAnyName) {
  for (const std::string name :
       {"with blanks .avi", "it's \"quoted\".avi", "a&b<c>.avi", "$(touch pwned).avi", "`touch pwned`.avi",
        "-dash.avi", "%s%n.avi", "\xC3\xBC\xE6\x97\xA5.avi", "semi;colon, comma.avi", "br[ack]et.avi",
        "hash#?.avi", "inv\xFF.avi", " blank ahead.avi", "no full [stop], here"}) {
    std::filesystem::copy(video_, work_ / name);
    const auto output = work_ / ("to " + name + ".avi");
    expectEnd(kvo5({"--render", collection("odd.INI", {work_ / name}), "--output", output}), 0);
    EXPECT_TRUE(std::filesystem::exists(output));
  }
  EXPECT_FALSE(std::filesystem::exists(work_ / "pwned") || std::filesystem::exists("pwned"));
}

TEST_F(Program, RefusesBadInputInOneLineAndWritesNothing) {
  std::ofstream(work_ / "text.INI") << "this is no collection\r\n";
  std::ofstream(work_ / "text.mp3") << "no sound";
  std::ofstream(work_ / "huge.ppm") << "P6\n20000 20000\n255\n";
  const auto good = collection("good.INI", {video_});
  const auto asMovie = collection("named as a movie.mp4", {video_});
  const auto o = work_ / "o.avi";
  const std::tuple<std::vector<std::string>, int, std::string> rows[] = {
      {{"--render", work_ / "none.INI", "--output", o}, 1, "none.INI"},
      {{"--render", work_ / "text.INI", "--output", o}, 1, "text.INI is not a collection"},
      {{"--render", work_.path(), "--output", o}, 1, work_.path()},
      {{"--render", collection("1.INI", {}), "--output", o}, 1, "no clips"},
      {{"--render", collection("2.INI", {work_ / "gone.avi"}), "--output", o}, 1, "gone.avi"},
      {{"--render", collection("3.INI", {video_, work_ / "text.mp3"}), "--output", o},
       1,
       "text.mp3: it is no"},
      {{"--render", collection("4.INI", {work_ / "huge.ppm"}), "--output", o}, 1, "huge.ppm"},
      {{"--render", good, "--output", work_ / "none/o.avi"}, 1, "none/o.avi: No such file"},
      {{"--render", good, "--output", work_ / "none/o.avi", "--resume"}, 1, "none/o.avi: No such file"},
      {{"--render", good, "--output", work_ / "none/o.avi", "--slurm", "2"}, 1, "none/o.avi: No such file"},
      {{"--queue", "add", good, "--output", work_ / "none/o.avi"}, 1, "none/o.avi: No such file"},
      {{"--queue", "add", good, "--output", o, "--range", "50-60"}, 1, "50.00-60.00"},
      {{"--render", good, "--output", work_ / "o.mkv"}, 2, "o.mkv: its name must end in .WMV"},
      {{"--render", good, "--output", video_}, 1, "it is one of the clips"},
      {{"--render", good, "--output", good}, 2, "good.INI: its name must end in"},
      {{"--render", asMovie, "--output", asMovie}, 1, "it is the collection"},
      {{"--render", good, "--output", o, "--range", "50-60"}, 1, "50.00-60.00"},
      {{"--render", good, "--output", work_ / "o.gif", "--slurm", "2"}, 1, "in one piece"},
      {{"--render", good}, 2, "--output"},
      {{"--nonsense"}, 2, "--nonsense"},
  };
  const auto before = work_.names();
  for (const auto& [arguments, exitCode, says] : rows) {
    const auto end = kvo5(arguments);
    expectEnd(end, exitCode, says);
    EXPECT_EQ(std::count(end.err.begin(), end.err.end(), '\n'), 1) << end.err;
    EXPECT_EQ(work_.names(), before);
  }
}

TEST_F(Program, TellsWhichPartOfAClipIsDamaged) {
  // Pictures of a camcorder, with bytes of the middle overwritten.
  const auto whole = test::makeMedia(work_, "whole.ts",
                                     {"-f", "lavfi", "-i", "testsrc=size=64x48:rate=25:duration=3", "-c:v",
                                      "libx264", "-g", "10", "-bf", "2", "-pix_fmt", "yuv420p"});
  PosixFiles files;
  auto bytes = *files.read(whole, 1U << 24U);
  for (auto i = bytes.size() * 45 / 100; i < bytes.size() * 55 / 100; ++i)
    bytes[i] = static_cast<char>(i * 31);
  ASSERT_TRUE(writeDurably(files, work_ / "holed.ts", bytes));
  const auto rendered = [&](const std::string& file) {
    return kvo5({"--render", collection("c.INI", {file}), "--output", work_ / "o.avi"});
  };
  const auto end = rendered(work_ / "holed.ts");
  for (const auto* said : {"holed.ts: the picture from 1.", " s cannot be decoded", "damaged part"})
    expectEnd(end, 0, said);
  const auto good = rendered(whole);
  EXPECT_EQ(good.err, "");
  EXPECT_EQ(good.out.find("damaged"), std::string::npos) << good.out;
}

TEST_F(Program, DrawsAContactSheet) {
  const auto path = collection("c.INI", {video_, video_}, [](test::Bench& b) {
    b.collection.MovieList[2].TransType("Heart");
    b.collection.MovieList[2].TransIn(10);
  });
  for (const auto* name : {"one.xtl", "two.xtl"}) expectEnd(kvo5({"--document", path, work_ / name}), 0);
  expectEnd(engine({"--sheet", work_ / "s.png", work_ / "one.xtl", work_ / "two.xtl"}), 0);
  // Two rows of six frames, each 120 x 90 under a line of text.
  EXPECT_EQ(test::probed(work_ / "s.png", "stream=codec_name,width,height"), "png 762 234");
  const auto picture = test::picturesOf(work_ / "s.png", 762, 234).front();
  EXPECT_NE(picture.at(60, 70, 0), picture.at(60 + 126 * 5, 70, 0)) << "the frames differ";
  EXPECT_EQ(picture.at(60, 70, 0), picture.at(60, 70 + 114, 0)) << "the rows are the same";
  expectEnd(engine({"--sheet", work_ / "s.jpg", work_ / "one.xtl"}), 2);
  expectEnd(engine({"--sheet", work_ / "s.png"}), 2);
  expectEnd(engine({"--sheet", work_ / "none.png", work_ / "none.xtl"}), 1, "none.xtl");
  EXPECT_FALSE(std::filesystem::exists(work_ / "none.png"));
}

// A file size limit stands in for a disk that is full: of the movie, and of the document too.
TEST_F(Program, FullDisksAreToldAndLeaveNothingBehind) {
  const auto path = collection("c.INI", {video_});
  expectEnd(kvo5({"--check", path}), 0);
  for (const auto& [limit, says] :
       {std::pair{"100", "o.avi: File too large"}, std::pair{"0", "File too large"}}) {
    const auto end = shell("trap '' XFSZ; ulimit -f \"$3\"; exec \"$0\" --render \"$1\" --output \"$2\"",
                           {path, work_ / "o.avi", limit});
    expectEnd(end, 1, says);
    EXPECT_EQ(end.err.find("kvo5-"), std::string::npos) << "the user knows no temporary file: " << end.err;
    EXPECT_FALSE(std::filesystem::exists(work_ / "o.avi"));
  }
}

// The child of a process, and that one's, and so on: a shell, and the engine below it.
std::vector<int> childrenOf(int process) {
  std::vector<int> all;
  while (process > 0) {
    const auto number = std::to_string(process);
    std::ifstream file("/proc/" + number + "/task/" + number + "/children");
    process = 0;
    file >> process;
    if (process > 0) all.push_back(process);
  }
  return all;
}

TEST_F(Program, TheEngineEndsWithItsStarterWhateverHappens) {
  const auto lasting = test::makeMedia(work_, "long.mp4",
                                       {"-f", "lavfi", "-i", "testsrc2=size=160x90:rate=25:duration=120",
                                        "-c:v", "libx264", "-preset", "ultrafast"});
  const auto path =
      collection("c.INI", {lasting}, [](test::Bench& b) { b.collection.MovieList[1].LoopEnd(Value(120)); });
  const auto temporary = temporaryFolder();
  struct Row {
    const char* what;
    bool hangs;    // the engine
    int signal;    // what kvo5 gets
    int exitCode;  // of kvo5; -1 while it stands still
    bool leavesFolder;
  };
  for (const auto& row :
       {Row{"killed", false, SIGKILL, 128 + SIGKILL, true},
        Row{"killed while the engine hangs", true, SIGKILL, 128 + SIGKILL, true},
        Row{"interrupted", false, SIGINT, 130, false}, Row{"told to end", false, SIGTERM, 130, false},
        Row{"stopped", false, SIGSTOP, -1, true},
        Row{"interrupted while the engine hangs", true, SIGINT, 130, false}}) {
    test::Companion starter({KVO_PROGRAMS "/kvo5", "--render", path, "--output", work_ / "o.avi", "--size",
                             "1280x720", "--codec", "mpeg4"});
    EXPECT_TRUE(test::eventually([&] { return !starter.said().empty(); })) << "it has begun to work";
    const auto children = childrenOf(starter.number());
    ASSERT_EQ(children.size(), 2U);
    if (row.hangs) ::kill(children.back(), SIGSTOP);
    expectEnd(kvo5({"--render", path, "--output", work_ / "o.avi"}), 1, "another render is making it");
    starter.signal(row.signal);
    for (const auto child : children) EXPECT_TRUE(test::comesToItsEnd(child)) << row.what;
    if (row.exitCode >= 0) {
      EXPECT_EQ(starter.end(), row.exitCode) << row.what;
      if (row.exitCode == 130) {
        EXPECT_NE(starter.said().find("kvo5: stopped; nothing was written"), std::string::npos) << row.what;
      }
    } else {
      expectEnd(kvo5({"--check", path}), 0);
      EXPECT_FALSE(std::filesystem::is_empty(temporary)) << "it may go on";
      starter.signal(SIGKILL);
      starter.end();
    }
    EXPECT_EQ(std::filesystem::is_empty(temporary), !row.leavesFolder) << row.what;
    expectEnd(kvo5({"--check", path}), 0);
    EXPECT_TRUE(std::filesystem::is_empty(temporary)) << row.what << ": swept at the next start";
    EXPECT_FALSE(std::filesystem::exists(work_ / "o.avi")) << row.what;
  }
}

std::ptrdiff_t finishedSegments(const std::string& folder) {
  std::error_code none;
  std::filesystem::directory_iterator in(folder, none);
  return std::count_if(begin(in), end(in), [](const auto& e) { return e.path().extension() == ".segment"; });
}

// Cut off behind the first finished segments, and stopped behind more of them.
TEST_F(Program, ARenderGoesOnWithTheSameBytes) {
  const auto path = collection("c.INI", std::vector<std::string>(16, video_));
  temporaryFolder();
  const auto order = [&](const char* name, bool resumes) {
    std::vector<std::string> words = {"--render", path,      "--output", work_ / name,
                                      "--size",   "640x360", "--codec",  "mpeg4"};
    if (resumes) words.emplace_back("--resume");
    return words;
  };
  const auto folder = work_ / ".rendering-b.avi";
  const test::HeldEngine held(KVO_PROGRAMS);
  expectEnd(kvo5(order("a.avi", false)), 0);
  std::ptrdiff_t before = 0;
  for (const auto& [number, share] : {std::pair{SIGKILL, "1/3"}, {SIGINT, "2/3"}}) {
    held.haltNext(share);
    auto words = order("b.avi", true);
    words.insert(words.begin(), held.kvo5());
    test::Companion render(words);
    const auto engine = held.halted();
    EXPECT_GT(finishedSegments(folder), before) << number;
    before = finishedSegments(folder);
    render.signal(number);
    EXPECT_EQ(render.end(), number == SIGINT ? 130 : 128 + SIGKILL);
    EXPECT_TRUE(test::comesToItsEnd(engine));
    EXPECT_EQ(test::holds(render.said(), "the same command goes on from here"), number == SIGINT)
        << render.said();
    EXPECT_FALSE(std::filesystem::exists(work_ / "b.avi"));
  }
  expectEnd(kvo5(order("b.avi", true)), 0);
  EXPECT_TRUE(bytesOf(work_ / "a.avi") == bytesOf(work_ / "b.avi"));
  EXPECT_FALSE(std::filesystem::exists(folder));
  std::filesystem::create_directory(folder);
  expectEnd(kvo5(order("b.avi", false)), 0);
  EXPECT_FALSE(std::filesystem::exists(folder)) << "nobody wants to go on with it";
}

// No driver is found by these, on whatever machine this is.
TEST_F(Program, WithoutADeviceThatEncodesTheSoftwareDoes) {
  const auto path = collection("c.INI", {video_});
  temporaryFolder();
  ::setenv("LIBVA_DRIVER_NAME", "none", 1);
  ::setenv("CUDA_VISIBLE_DEVICES", "-1", 1);
  expectEnd(engine({"--try-encoder", "h264_vaapi"}), 1, "cannot encode by h264_vaapi: ");
  expectEnd(engine({"--try-encoder", "libx264"}), 2, "there is no encoder libx264");
  const auto render = [&](const char* name, const char* encoder) {
    return kvo5({"--render", path, "--output", work_ / name, "--encoder", encoder});
  };
  expectEnd(render("s.mp4", "software"), 0);
  const auto told = render("a.mp4", "auto");
  expectEnd(told, 0,
            "kvo5: the picture is encoded in software: no encoder of a device works here (h264_nvenc: ");
  EXPECT_NE(told.err.find("; h264_vaapi: "), std::string::npos) << told.err;
  expectEnd(render("h.mp4", "hardware"), 1, "h.mp4: no encoder of a device works here");
  EXPECT_FALSE(std::filesystem::exists(work_ / "h.mp4"));
  EXPECT_TRUE(test::picturesOf(work_ / "a.mp4", 320, 240) == test::picturesOf(work_ / "s.mp4", 320, 240));
  ::unsetenv("LIBVA_DRIVER_NAME");
  ::unsetenv("CUDA_VISIBLE_DEVICES");
}

TEST_F(Program, OfTwoRendersOfOneOutputTheSecondIsRefused) {
  const auto path = collection("c.INI", {video_});
  const auto folder = work_ / ".rendering-o.avi";
  const auto kept = folder + "/0123456789abcdef-1.segment";
  PosixNameLocks locks;
  std::filesystem::create_directory(folder);
  std::ofstream(kept) << "of the first one";
  struct Row {
    std::string held;
    Result<std::unique_ptr<FileLock>> (NameLocks::*hold)(const std::string& path);
  };
  for (const auto& [held, hold] :
       {Row{work_ / "o.avi", &NameLocks::tryMaking}, Row{folder + "/Render.lock", &NameLocks::tryLock}}) {
    const auto first = (locks.*hold)(held);
    ASSERT_TRUE(first && *first);
    for (const auto& more :
         std::initializer_list<std::vector<std::string>>{{}, {"--resume"}, {"--slurm", "2"}}) {
      std::vector<std::string> words = {"--render", path, "--output", work_ / "o.avi"};
      words.insert(words.end(), more.begin(), more.end());
      expectEnd(kvo5(words), 1, "o.avi: another render is making it");
      EXPECT_TRUE(std::filesystem::exists(kept)) << held;
      EXPECT_FALSE(std::filesystem::exists(work_ / "o.avi")) << held;
    }
  }
  expectEnd(kvo5({"--render", path, "--output", work_ / "o.avi", "--range", "50-60"}), 1, "50.00-60.00");
  EXPECT_TRUE(std::filesystem::exists(kept)) << "behind a command that comes to nothing";
  expectEnd(kvo5({"--queue", "add", path, "--output", work_ / "o.avi"}), 0, "job 1");
  expectEnd(kvo5({"--queue", "add", path, "--output", work_ / "o.avi"}), 1, "job 1 of the queue is going to");
  expectEnd(kvo5({"--render", path, "--output", work_ / "o.avi"}), 0);
  EXPECT_TRUE(std::filesystem::exists(kept)) << "the queue may go on from it";
  expectEnd(kvo5({"--queue", "remove", "1"}), 0);
  EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(Program, TheQueueGoesOnBehindAPowerCut) {
  const auto path = collection("c.INI", std::vector<std::string>(16, video_));
  temporaryFolder();
  const std::vector<std::string> options = {"--size", "640x360", "--codec", "mpeg4"};
  const auto add = [&](const char* name) {
    std::vector<std::string> words = {"--queue", "add", path, "--output", work_ / name};
    words.insert(words.end(), options.begin(), options.end());
    expectEnd(kvo5(words), 0, "job ");
  };
  for (const auto* name : {"a.avi", "b.avi", "c.avi"}) add(name);
  expectEnd(kvo5({"--queue", "pause", "1"}), 0);
  expectEnd(kvo5({"--queue", "move", "3", "1"}), 0);
  // What is done to the collection afterwards is no matter.
  std::filesystem::remove(path);
  const test::HeldEngine held(KVO_PROGRAMS);
  held.haltNext("1/3");
  test::Companion runner({held.kvo5(), "--queue", "run"});
  const auto engine = held.halted();
  EXPECT_GT(finishedSegments(work_ / ".rendering-c.avi"), 0);
  runner.signal(SIGKILL);
  EXPECT_TRUE(test::comesToItsEnd(engine));
  expectEnd(kvo5({"--queue", "list"}), 0, "3  waiting");
  EXPECT_FALSE(std::filesystem::exists(work_ / "c.avi"));
  expectEnd(kvo5({"--queue", "resume", "1"}), 0);
  expectEnd(kvo5({"--queue", "remove", "2"}), 0);
  expectEnd(kvo5({"--queue", "run"}), 0, "1  done  100%");
  EXPECT_TRUE(bytesOf(work_ / "a.avi") == bytesOf(work_ / "c.avi"));
  EXPECT_FALSE(std::filesystem::exists(work_ / "b.avi"));
  EXPECT_FALSE(std::filesystem::exists(work_ / ".rendering-c.avi"));
  EXPECT_FALSE(std::filesystem::exists(home_ / "program/Queue/3.xtl"));
  expectEnd(kvo5({"--queue", "resume", "1"}), 1, "job 1 is done");
  expectEnd(kvo5({"--queue", "clear"}), 0);
  expectEnd(kvo5({"--queue", "list"}), 0, "the queue is empty");
  expectEnd(kvo5({"--queue", "stop"}), 2);
  std::ofstream(home_ / "program/Queue/Queue.txt") << "KVO5 render queue of next year\n";
  expectEnd(kvo5({"--queue", "list"}), 1, "is not a queue of this program");
  expectEnd(kvo5({"--queue", "pause", "1"}), 1, "Queue not understood 1.txt");
  expectEnd(kvo5({"--queue", "list"}), 0, "the queue is empty");
}

TEST_F(Program, AProfileIsInForceForItsRenderAndMendedBehindAKill) {
  const auto path = collection("c.INI", {video_});
  temporaryFolder();
  const auto profile = home_ / "program/wmsysprx.prx";
  expectEnd(kvo5({"--render", path, "--output", work_ / "o.wmv", "--profile", "27"}), 0);
  EXPECT_EQ(test::probed(work_ / "o.wmv", "stream=width,height,r_frame_rate"), "176 144 15/1");
  const auto atRest = bytesOf(profile);
  EXPECT_FALSE(std::filesystem::exists(profile + ".old"));

  const test::HeldEngine held(KVO_PROGRAMS);
  held.haltNext("");
  test::Companion starter({held.kvo5(), "--render", path, "--output", work_ / "o.wmv", "--profile", "41"});
  const auto engine = held.halted();
  expectEnd(kvo5({"--render", path, "--output", work_ / "p.wmv", "--profile", "30"}), 1, "Another render");
  starter.signal(SIGKILL);
  EXPECT_TRUE(test::comesToItsEnd(engine));
  EXPECT_NE(bytesOf(profile), atRest);
  expectEnd(kvo5({"--check", path}), 0);
  EXPECT_EQ(bytesOf(profile), atRest);
  EXPECT_FALSE(std::filesystem::exists(profile + ".old"));
}

TEST_F(Program, WhereNoHomeCanBeWrittenNothingIsMissed) {
  const auto path = collection("c.INI", {video_});
  const auto here = work_ / "here";
  std::filesystem::create_directory(here);
  for (const std::string homes : {"export KVO5_HOME=/proc",  // where nobody can make a file
                                  "unset KVO5_HOME HOME; export XDG_DATA_HOME=rel"}) {
    for (const std::string words : {"--check \"$1\"", "--render \"$1\" --output \"$3\""}) {
      const auto end =
          shell("cd \"$2\" && " + homes + " && exec \"$0\" " + words, {path, here, work_ / "o.avi"});
      expectEnd(end, 0);
      EXPECT_EQ(end.err, "") << homes << ", " << words;
    }
  }
  EXPECT_TRUE(std::filesystem::is_empty(here)) << "nothing is made in the working folder";
}

TEST_F(Program, OutputThatCannotBeWrittenIsAFailure) {
  expectEnd(kvo5({"--help"}), 0, "--render COLLECTION");
  expectEnd(kvo5({"--version"}), 0, "KVO5 ");
  const auto path = collection("c.INI", {video_});
  for (const std::string words :
       {"--help", "--version", "--check \"$1\"", "--render \"$1\" --output \"$2\""}) {
    expectEnd(shell("exec \"$0\" " + words + " > /dev/full", {path, work_ / "o.avi"}), 1,
              "cannot write the output");
  }
}

}  // namespace
}  // namespace kvo
