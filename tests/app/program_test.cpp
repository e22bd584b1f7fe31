// The programs themselves, started as a user or a script starts them.
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_name_locks.h"
#include "app/session.h"
#include "program/collection_store.h"
#include "support/fakes.h"
#include "support/held_engine.h"

namespace kvo {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::ProgramEnd;
using test::ScratchFolder;
using Words = std::vector<std::string>;

void expectEnd(const ProgramEnd& end, int exitCode, const std::string& says = "") {
  EXPECT_EQ(end.exitCode, exitCode) << end.out << end.err;
  EXPECT_TRUE(test::holds(end.out + end.err, says)) << says << ": " << end.out << end.err;
}

Words joined(Words words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

class Program : public testing::Test {
 protected:
  Program() : video_(work_ / "count.avi") {
    ::setenv("KVO5_HOME", (home_.path() + "/program").c_str(), 1);
    static const ScratchFolder made;
    static const auto once = test::makeCountingVideo(made, "count.avi", "25", 50);
    fs::copy(once, video_);
  }
  ~Program() override { ::unsetenv("TMPDIR"); }

  static ProgramEnd kvo5(const Words& words) {
    return test::runProgram(joined({KVO_PROGRAMS "/kvo5"}, words));
  }
  static ProgramEnd engine(const Words& words) {
    return test::runProgram(joined({KVO_PROGRAMS "/KVORender"}, words));
  }
  // Runs `script` with the program as $0.
  static ProgramEnd shell(const std::string& script, const Words& words) {
    return test::runProgram(joined({"bash", "-c", script, KVO_PROGRAMS "/kvo5"}, words));
  }
  // The order of a movie in the work folder; one whose segments are made apart.
  [[nodiscard]] Words order(const std::string& name, const Words& more = {}) const {
    return joined({"--render", work_ / "c.INI", "--output", work_ / name}, more);
  }
  [[nodiscard]] Words inSegments(const std::string& name, const Words& more = {}) const {
    return order(name, joined({"--size", "160x90", "--codec", "mpeg4"}, more));
  }

  // A collection of one clip each of `files`, two seconds long.
  std::string collection(const std::string& name, const Words& files,
                         const std::function<void(test::Bench&)>& change = {}) {
    test::Bench b;
    for (const auto& file : files) {
      const fs::path path(file);
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
    fs::create_directory(temporary);
    ::setenv("TMPDIR", temporary.c_str(), 1);
    return temporary;
  }

  ScratchFolder home_;
  ScratchFolder work_;
  std::string video_;
};

TEST_F(Program, ShipsWhatIsMissingInAnyCaseOfLetters) {
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
    test::withTransition(b.collection.MovieList[2], "Fade", 10);
    b.collection.MovieList[3].RenderAudio(true);
    b.collection.MovieList[3].Resolution("44.1 KHz");
  });
  const auto temporary = temporaryFolder();
  const auto bytes = bytesOf(path);
  const auto before = work_.names();
  expectEnd(kvo5(order("o.avi")), 0, "75 frames, 3.00 s");
  EXPECT_EQ(test::picturesOf(work_ / "o.avi", 64, 48).size(), 75U);
  EXPECT_GT(test::levelOf(test::samplesOf(work_ / "o.avi"), 0.5, 1.5), -30);
  expectEnd(kvo5(order("p.avi", {"--range", "1-2", "--size", "32x24", "--rate", "10"})), 0);
  EXPECT_EQ(test::picturesOf(work_ / "p.avi", 32, 24).size(), 10U);
  for (const auto* movie : {"o.avi", "p.avi"}) fs::remove(work_ / movie);
  EXPECT_EQ(work_.names(), before);
  EXPECT_TRUE(fs::is_empty(temporary));
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
    fs::copy(video_, work_ / name);
    collection("c.INI", {work_ / name});
    expectEnd(kvo5(order("to " + name + ".avi")), 0);
    EXPECT_TRUE(fs::exists(work_ / ("to " + name + ".avi")));
  }
  EXPECT_FALSE(fs::exists(work_ / "pwned") || fs::exists("pwned"));
}

TEST_F(Program, RefusesBadInputInOneLineAndWritesNothing) {
  std::ofstream(work_ / "text.INI") << "this is no collection\r\n";
  std::ofstream(work_ / "text.mp3") << "no sound";
  std::ofstream(work_ / "huge.ppm") << "P6\n20000 20000\n255\n";
  const auto good = collection("c.INI", {video_});
  const auto asMovie = collection("named as a movie.mp4", {video_});
  const auto noSound = collection("3.INI", {video_, work_ / "text.mp3"});
  const auto o = work_ / "o.avi";
  const std::tuple<Words, int, std::string> rows[] = {
      {{"--render", work_ / "none.INI", "--output", o}, 1, "none.INI"},
      {{"--render", work_ / "text.INI", "--output", o}, 1, "text.INI is not a collection"},
      {{"--render", work_.path(), "--output", o}, 1, work_.path()},
      {{"--render", collection("1.INI", {}), "--output", o}, 1, "no clips"},
      {{"--render", collection("2.INI", {work_ / "gone.avi"}), "--output", o}, 1, "gone.avi"},
      {{"--render", noSound, "--output", o}, 1, "text.mp3: it is no"},
      {{"--render", collection("4.INI", {work_ / "huge.ppm"}), "--output", o}, 1, "huge.ppm"},
      {order("none/o.avi"), 1, "none/o.avi: No such file"},
      {order("none/o.avi", {"--resume"}), 1, "none/o.avi: No such file"},
      {order("none/o.avi", {"--slurm", "2"}), 1, "none/o.avi: No such file"},
      {{"--queue", "add", good, "--output", work_ / "none/o.avi"}, 1, "none/o.avi: No such file"},
      {{"--queue", "add", good, "--output", o, "--range", "50-60"}, 1, "50.00-60.00"},
      {order("o.mkv"), 2, "o.mkv: its name must end in .WMV"},
      {order("count.avi"), 1, "it is one of the clips"},
      {order("c.INI"), 2, "c.INI: its name must end in"},
      {{"--render", asMovie, "--output", asMovie}, 1, "it is the collection"},
      {order("o.avi", {"--range", "50-60"}), 1, "50.00-60.00"},
      {order("o.gif", {"--slurm", "2"}), 1, "in one piece"},
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
  auto bytes = bytesOf(whole);
  for (auto i = bytes.size() * 45 / 100; i < bytes.size() * 55 / 100; ++i)
    bytes[i] = static_cast<char>(i * 31);
  std::ofstream(work_ / "holed.ts", std::ios::binary) << bytes;
  collection("c.INI", {work_ / "holed.ts"});
  const auto end = kvo5(order("o.avi"));
  for (const auto* said : {"holed.ts: the picture from 1.", " s cannot be decoded", "damaged part"})
    expectEnd(end, 0, said);
  collection("c.INI", {whole});
  const auto good = kvo5(order("o.avi"));
  EXPECT_TRUE(good.err.empty() && !test::holds(good.out, "damaged")) << good.err << good.out;
}

TEST_F(Program, DrawsAContactSheet) {
  const auto path = collection("c.INI", {video_, video_}, [](test::Bench& b) {
    test::withTransition(b.collection.MovieList[2], "Heart", 10);
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
  EXPECT_FALSE(fs::exists(work_ / "none.png"));
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
    EXPECT_FALSE(test::holds(end.err, "kvo5-")) << "the user knows no temporary file: " << end.err;
    EXPECT_FALSE(fs::exists(work_ / "o.avi"));
  }
}

// The child of a process, and that one's, and so on: a shell, and the engine below it.
std::vector<int> childrenOf(int process) {
  std::vector<int> all;
  for (auto number = std::to_string(process); !number.empty();) {
    number = bytesOf("/proc/" + number + "/task/" + number + "/children");
    number = number.substr(0, number.find(' '));
    if (!number.empty()) all.push_back(std::stoi(number));
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
  for (const auto& [signal, hangs] :  // what kvo5 gets, and whether its engine hangs
       {std::pair{SIGKILL, false},
        {SIGKILL, true},
        {SIGINT, false},
        {SIGTERM, false},
        {SIGSTOP, false},
        {SIGINT, true}}) {
    SCOPED_TRACE(signal);
    test::Companion starter(
        joined({KVO_PROGRAMS "/kvo5"}, order("o.avi", {"--size", "1280x720", "--codec", "mpeg4"})));
    EXPECT_TRUE(test::eventually([&] { return !starter.said().empty(); })) << "it has begun to work";
    const auto children = childrenOf(starter.number());
    ASSERT_EQ(children.size(), 2U);
    if (hangs) ::kill(children.back(), SIGSTOP);
    expectEnd(kvo5(order("o.avi")), 1, "another render is making it");
    starter.signal(signal);
    for (const auto child : children) EXPECT_TRUE(test::comesToItsEnd(child));
    if (signal == SIGSTOP) {
      expectEnd(kvo5({"--check", path}), 0);
      EXPECT_FALSE(fs::is_empty(temporary)) << "it may go on";
      starter.signal(SIGKILL);
    }
    const bool isTold = signal == SIGINT || signal == SIGTERM;
    EXPECT_EQ(starter.end(), isTold ? 130 : 128 + SIGKILL);
    EXPECT_EQ(test::holds(starter.said(), "kvo5: stopped; nothing was written"), isTold);
    EXPECT_EQ(fs::is_empty(temporary), isTold);
    expectEnd(kvo5({"--check", path}), 0);
    EXPECT_TRUE(fs::is_empty(temporary)) << "swept at the next start";
    EXPECT_FALSE(fs::exists(work_ / "o.avi"));
  }
}

std::ptrdiff_t finishedSegments(const std::string& folder) {
  std::error_code none;
  fs::directory_iterator in(folder, none);
  return std::count_if(begin(in), end(in), [](const auto& e) { return e.path().extension() == ".segment"; });
}

// Cut off behind the first finished segments, and stopped behind more of them.
TEST_F(Program, ARenderGoesOnWithTheSameBytes) {
  collection("c.INI", Words(16, video_));
  temporaryFolder();
  const auto folder = work_ / ".rendering-b.avi";
  const test::HeldEngine held(KVO_PROGRAMS);
  expectEnd(kvo5(inSegments("a.avi")), 0);
  std::ptrdiff_t before = 0;
  for (const auto& [number, share] : {std::pair{SIGKILL, "1/3"}, {SIGINT, "2/3"}}) {
    held.haltNext(share);
    test::Companion render(joined({held.kvo5()}, inSegments("b.avi", {"--resume"})));
    const auto engine = held.halted();
    EXPECT_GT(finishedSegments(folder), before) << number;
    before = finishedSegments(folder);
    render.signal(number);
    EXPECT_EQ(render.end(), number == SIGINT ? 130 : 128 + SIGKILL);
    EXPECT_TRUE(test::comesToItsEnd(engine));
    EXPECT_EQ(test::holds(render.said(), "the same command goes on from here"), number == SIGINT)
        << render.said();
    EXPECT_FALSE(fs::exists(work_ / "b.avi"));
  }
  expectEnd(kvo5(inSegments("b.avi", {"--resume"})), 0);
  EXPECT_TRUE(bytesOf(work_ / "a.avi") == bytesOf(work_ / "b.avi"));
  EXPECT_FALSE(fs::exists(folder));
  fs::create_directory(folder);
  expectEnd(kvo5(inSegments("b.avi")), 0);
  EXPECT_FALSE(fs::exists(folder)) << "nobody wants to go on with it";
}

// No driver is found by these, on whatever machine this is.
TEST_F(Program, WithoutADeviceThatEncodesTheSoftwareDoes) {
  collection("c.INI", {video_});
  temporaryFolder();
  ::setenv("LIBVA_DRIVER_NAME", "none", 1);
  ::setenv("CUDA_VISIBLE_DEVICES", "-1", 1);
  expectEnd(engine({"--try-encoder", "h264_vaapi"}), 1, "cannot encode by h264_vaapi: ");
  expectEnd(engine({"--try-encoder", "libx264"}), 2, "there is no encoder libx264");
  const auto render = [&](const char* name, const char* encoder) {
    return kvo5(order(name, {"--encoder", encoder}));
  };
  expectEnd(render("s.mp4", "software"), 0);
  const auto told = render("a.mp4", "auto");
  expectEnd(told, 0,
            "kvo5: the picture is encoded in software: no encoder of a device works here (h264_nvenc: ");
  EXPECT_TRUE(test::holds(told.err, "; h264_vaapi: ")) << told.err;
  expectEnd(render("h.mp4", "hardware"), 1, "h.mp4: no encoder of a device works here");
  EXPECT_FALSE(fs::exists(work_ / "h.mp4"));
  EXPECT_TRUE(test::picturesOf(work_ / "a.mp4", 320, 240) == test::picturesOf(work_ / "s.mp4", 320, 240));
  ::unsetenv("LIBVA_DRIVER_NAME");
  ::unsetenv("CUDA_VISIBLE_DEVICES");
}

TEST_F(Program, OfTwoRendersOfOneOutputTheSecondIsRefused) {
  const auto path = collection("c.INI", {video_});
  const auto folder = work_ / ".rendering-o.avi";
  const auto kept = folder + "/0123456789abcdef-1.segment";
  PosixNameLocks locks;
  fs::create_directory(folder);
  std::ofstream(kept) << "of the first one";
  for (const bool isBeingMade : {true, false}) {
    const auto first =
        isBeingMade ? locks.tryMaking(work_ / "o.avi") : locks.tryLock(folder + "/Render.lock");
    ASSERT_TRUE(first && *first);
    for (const auto& more : {Words{}, {"--resume"}, {"--slurm", "2"}}) {
      expectEnd(kvo5(order("o.avi", more)), 1, "o.avi: another render is making it");
      EXPECT_TRUE(fs::exists(kept) && !fs::exists(work_ / "o.avi")) << isBeingMade;
    }
  }
  expectEnd(kvo5(order("o.avi", {"--range", "50-60"})), 1, "50.00-60.00");
  EXPECT_TRUE(fs::exists(kept)) << "behind a command that comes to nothing";
  expectEnd(kvo5({"--queue", "add", path, "--output", work_ / "o.avi"}), 0, "job 1");
  expectEnd(kvo5({"--queue", "add", path, "--output", work_ / "o.avi"}), 1, "job 1 of the queue is going to");
  expectEnd(kvo5(order("o.avi")), 0);
  EXPECT_TRUE(fs::exists(kept)) << "the queue may go on from it";
  expectEnd(kvo5({"--queue", "remove", "1"}), 0);
  EXPECT_FALSE(fs::exists(folder));
}

TEST_F(Program, TheQueueGoesOnBehindAPowerCut) {
  const auto path = collection("c.INI", Words(16, video_));
  temporaryFolder();
  for (const auto* name : {"a.avi", "b.avi", "c.avi"}) {
    auto words = inSegments(name);
    words.front() = "add";
    expectEnd(kvo5(joined({"--queue"}, words)), 0, "job ");
  }
  expectEnd(kvo5({"--queue", "pause", "1"}), 0);
  expectEnd(kvo5({"--queue", "move", "3", "1"}), 0);
  // What is done to the collection afterwards is no matter.
  fs::remove(path);
  const test::HeldEngine held(KVO_PROGRAMS);
  held.haltNext("1/3");
  test::Companion runner({held.kvo5(), "--queue", "run"});
  const auto engine = held.halted();
  EXPECT_GT(finishedSegments(work_ / ".rendering-c.avi"), 0);
  runner.signal(SIGKILL);
  EXPECT_TRUE(test::comesToItsEnd(engine));
  expectEnd(kvo5({"--queue", "list"}), 0, "3  waiting");
  EXPECT_FALSE(fs::exists(work_ / "c.avi"));
  expectEnd(kvo5({"--queue", "resume", "1"}), 0);
  expectEnd(kvo5({"--queue", "remove", "2"}), 0);
  expectEnd(kvo5({"--queue", "run"}), 0, "1  done  100%");
  EXPECT_TRUE(bytesOf(work_ / "a.avi") == bytesOf(work_ / "c.avi"));
  for (const auto& path : {work_ / "b.avi", work_ / ".rendering-c.avi", home_ / "program/Queue/3.xtl"})
    EXPECT_FALSE(fs::exists(path)) << path;
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
  expectEnd(kvo5(order("o.wmv", {"--profile", "27"})), 0);
  EXPECT_EQ(test::probed(work_ / "o.wmv", "stream=width,height,r_frame_rate"), "176 144 15/1");
  const auto atRest = bytesOf(profile);
  EXPECT_FALSE(fs::exists(profile + ".old"));

  const test::HeldEngine held(KVO_PROGRAMS);
  held.haltNext("");
  test::Companion starter(joined({held.kvo5()}, order("o.wmv", {"--profile", "41"})));
  const auto engine = held.halted();
  expectEnd(kvo5(order("p.wmv", {"--profile", "30"})), 1, "Another render");
  starter.signal(SIGKILL);
  EXPECT_TRUE(test::comesToItsEnd(engine));
  EXPECT_NE(bytesOf(profile), atRest);
  expectEnd(kvo5({"--check", path}), 0);
  EXPECT_EQ(bytesOf(profile), atRest);
  EXPECT_FALSE(fs::exists(profile + ".old"));
}

TEST_F(Program, WhereNoHomeCanBeWrittenNothingIsMissed) {
  const auto path = collection("c.INI", {video_});
  const auto here = work_ / "here";
  fs::create_directory(here);
  for (const std::string homes : {"export KVO5_HOME=/proc",  // where nobody can make a file
                                  "unset KVO5_HOME HOME; export XDG_DATA_HOME=rel"}) {
    for (const std::string words : {"--check \"$1\"", "--render \"$1\" --output \"$3\""}) {
      const auto end =
          shell("cd \"$2\" && " + homes + " && exec \"$0\" " + words, {path, here, work_ / "o.avi"});
      expectEnd(end, 0);
      EXPECT_EQ(end.err, "") << homes << ", " << words;
    }
  }
  EXPECT_TRUE(fs::is_empty(here)) << "nothing is made in the working folder";
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
