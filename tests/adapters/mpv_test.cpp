#include "adapters/mpv_media.h"
#include "playback/player_facade.h"
#include "playback/positions/section.h"
#include "support/loopback_server.h"
#include "support/scripted_boxes.h"

#include <clocale>

namespace kvo {
namespace {

using test::beginAt;
using test::kH264;
using test::kUneven;
using test::kWmv;
using test::makeNumbered;
using test::Server;

// A desktop whose numbers have a comma, as a toolkit puts it in force ahead of the first player.
class CommaLocale : public testing::Environment {
 public:
  void SetUp() override {
    std::string text = "comment_char %\nescape_char /\n";
    for (const std::string category : {"LC_CTYPE", "LC_COLLATE", "LC_MONETARY", "LC_TIME", "LC_MESSAGES"})
      text += category + "\ncopy \"POSIX\"\nEND " + category + "\n";
    text += "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n";
    std::ofstream(folder_ / "source") << text;
    const auto made =
        test::runProgram({"localedef", "-c", "-i", folder_ / "source", "-f", "UTF-8", folder_ / "comma"});
    ::setenv("LOCPATH", folder_.path().c_str(), 1);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "comma"), nullptr) << made.err;
    ASSERT_EQ(std::to_string(1.5), "1,500000");
    ::unsetenv("LOCPATH");
  }

 private:
  test::ScratchFolder folder_;
};
const auto* const kCommaLocale = testing::AddGlobalTestEnvironment(std::make_unique<CommaLocale>().release());

struct Bench : test::Stage {
  int ended = 0;

  Bench() {
    engine.whenEndOfStream([this] { ++ended; });
  }
};

TEST(MpvPlayer, ShowsThePictureThatThePositionSaysAndARenderWouldShow) {
  Bench bench;
  auto inMilliseconds = kH264;
  inMilliseconds.insert(inMilliseconds.end(), {"-video_track_timescale", "1000"});
  const std::tuple<std::string, std::string, std::vector<std::string>, int> rows[] = {
      {"even.mp4", "25", kH264, 0},
      {"ntsc.mp4", "30000/1001", kH264, 0},
      {"uneven.mp4", kUneven, inMilliseconds, 0},
      {"uneven.mkv", kUneven, kH264, 0},
      {"even.wmv", "30", kWmv, 0},
      // May be a picture off.
      {"b.avi", "25", {"-c:v", "mpeg4", "-q:v", "1", "-g", "20", "-bf", "2"}, 1},
      {"b.ts", "25", kH264, 1}};
  for (const auto& [name, rate, codec, beside] : rows) {
    SCOPED_TRACE(name);
    const auto path = makeNumbered(bench.folder, name, rate, codec);
    auto& engine = bench.engine;
    engine.setFileName(path);
    ASSERT_EQ(engine.opening(), EngineOpening::Open) << engine.errorDescription();
    EXPECT_EQ(engine.sourceWidth(), 64);
    EXPECT_EQ(engine.position(), 0);
    EXPECT_NEAR(bench.drawn(), 0, beside);
    const auto standsAt = [&, beside = beside](int wanted, const char* how) {
      EXPECT_TRUE(bench.until([&] { return std::abs(bench.drawn() - wanted) <= beside; }))
          << how << ": " << bench.drawn() << " for " << wanted;
      const auto off = [&] { return std::abs(bench.rendered(path, engine.position()) - bench.drawn()); };
      EXPECT_TRUE(bench.until([&] { return off() <= beside; })) << how << " at " << engine.position();
    };
    const auto begin = [&, rate = rate](int number) { return beginAt(rate, number); };
    for (const int number : {33, 8, 20, 0}) {
      for (const double share : {0.0, 0.6}) {
        engine.seek(begin(number) + share * (begin(number + 1) - begin(number)));
        standsAt(number, share == 0 ? "sought at its begin" : "sought within it");
      }
      const double near = beside == 0 ? 0.00075 : 0.05;
      EXPECT_TRUE(bench.until([&] { return std::fabs(engine.position() - begin(number)) <= near; }))
          << engine.position() << " for " << number;
    }
    engine.seek(begin(17));
    engine.step(1);
    standsAt(18, "one on");
    engine.step(1);
    engine.step(1);
    standsAt(20, "two more");
    engine.step(-1);
    standsAt(19, "one back over a key picture");
    engine.seek(begin(5));
    for (int held = 0; held < 4; ++held) {
      engine.Stop();
      engine.step(1);
    }
    standsAt(9, "a key that is held");
    engine.seek(engine.duration());
    standsAt(49, "at the end");
    engine.step(1);
    standsAt(49, "nothing behind the last");
  }
}

class NoKeys : public PlayerHost {
 public:
  void BuildButton(KeyWord /*word*/) override {}
  [[nodiscard]] bool rateWindowShows() const override { return false; }
};

TEST(MpvPlayer, AFrameOfThePlayerIsThePictureWithThatNumber) {
  Bench b;
  DisplayModeState mode;
  Collection collection;
  KVO2 settings;
  NoStreamProbe probe;
  test::ScriptedBoxes boxes;
  NoKeys keys;
  PlayerFacade player(
      {mode, collection, settings, b.engine, b.graphs, b.facts, b.counts, probe, boxes, keys});
  for (const auto& [name, rate, usesGraph] : {std::tuple{"frames.mp4", std::string("30000/1001"), false},
                                              {"frames.wmv", "30000/1001", true},
                                              {"uneven.mkv", kUneven, false},
                                              {"uneven.wmv", kUneven, true}}) {
    SCOPED_TRACE(name);
    const auto path = makeNumbered(b.folder, name, rate, usesGraph ? kWmv : kH264);
    collection.MovieList.add({}).MovieName(path);
    collection.icurMov = collection.MovieList.count();
    player.PlayerSetFilename(path, collection.icurMov);
    ASSERT_EQ(player.UsingCorona(), usesGraph);
    player.PlayerSetDisplayMode(DisplayMode::Frames);
    const int most = rate == kUneven ? 0 : 1;
    EXPECT_TRUE(b.until([&] { return std::abs(player.PlayerGetDuration() - 50) <= most; }))
        << player.PlayerGetDuration();
    for (const int frame : {33, 1, 20, 48, 2}) {
      player.PlayerSetCurrentPosition(frame);
      EXPECT_TRUE(b.shows(frame)) << b.drawn() << " for " << frame;
      EXPECT_TRUE(b.until([&] { return player.PlayerGetCurrentPosition() == frame; }))
          << player.PlayerGetCurrentPosition() << " for " << frame;
    }
    player.PlayerStep(1);
    EXPECT_TRUE(b.shows(3));
    EXPECT_TRUE(b.until([&] { return player.PlayerGetCurrentPosition() == 3; }));
    // A mark within a picture is that picture, from the moment on at which it is set.
    for (const int frame : {40, 7}) {
      const InMode seconds(player, DisplayMode::Seconds);
      player.PlayerSetCurrentPosition(0.3 * beginAt(rate, frame) + 0.7 * beginAt(rate, frame + 1));
      const auto marked = seenFrame(player);
      EXPECT_EQ(marked.frame, frame);
      EXPECT_NEAR(marked.seconds, beginAt(rate, frame), 0.0011);
      EXPECT_TRUE(b.shows(frame)) << b.drawn() << " for " << frame;
      EXPECT_EQ(b.rendered(path, marked.seconds + 0.0011), frame);
    }
    player.PlayerClear();
    EXPECT_TRUE(player.PlayerIsEmpty());
  }
}

// Fifty pictures in two seconds with a tone.
std::string makeClip(const test::ScratchFolder& folder, const std::string& name) {
  return makeNumbered(folder, name, "25", {"-c:v", "libx264", "-crf", "4", "-c:a", "aac"},
                      {"-f", "lavfi", "-i", "sine=duration=2", "-map", "0", "-map", "1"});
}

TEST(MpvPlayer, PlaysASectionToOnePictureAndStandsExactlyAtItsEnd) {
  Bench bench;
  const auto path = makeClip(bench.folder, "clip.mp4");
  auto& engine = bench.engine;
  int last = 0;
  // The end is told ahead of a last picture that was late, which a busy machine draws a moment behind it.
  const auto playsToItsEnd = [&](int times, double end, int picture) {
    last = 0;
    const auto look = [&] {
      const int drawn = bench.drawn();
      last = std::max(last, drawn);
      return drawn;
    };
    EXPECT_TRUE(bench.until([&] { return look() >= 0 && bench.ended == times; }));
    EXPECT_NEAR(engine.position(), end, 0.05) << "the end, no other place";
    EXPECT_NE(engine.state(), EngineState::Running);
    EXPECT_TRUE(bench.until([&] { return look() == picture; })) << "the last one is " << last;
    EXPECT_EQ(last, picture) << "none behind it";
    EXPECT_EQ(bench.drawn(), picture) << "and it stands";
  };
  engine.setFileName(path);
  engine.setSelectionStart(0.6);
  engine.setSelectionEnd(1);
  engine.setPlayCount(2);
  engine.seek(0.6);
  engine.Run();
  EXPECT_EQ(engine.state(), EngineState::Running);
  playsToItsEnd(1, 1.0, 24);
  EXPECT_EQ(engine.position(), 1.0);
  engine.Run();
  EXPECT_NE(engine.state(), EngineState::Running) << "at the end it stays there";

  engine.setPlayCount(1);
  engine.seek(0.9);
  engine.Run();
  EXPECT_TRUE(bench.until([&] { return engine.state() != EngineState::Running; }));
  ASSERT_EQ(bench.ended, 1) << "the end is on its way home";
  engine.seek(0.8);
  engine.Run();
  playsToItsEnd(2, 1.0, 24);  // the first end was none

  engine.setSelectionEnd(0);
  engine.seek(1.8);
  engine.Run();
  playsToItsEnd(3, 2.0, 49);
  engine.setAutoRewind(true);
  engine.seek(1.8);
  engine.Run();
  EXPECT_TRUE(bench.until([&] { return bench.ended == 4; }));
  EXPECT_TRUE(bench.shows(15)) << "back at the section's start";
  EXPECT_TRUE(bench.until([&] { return std::fabs(engine.position() - 0.6) <= 1e-3; })) << engine.position();

  auto made = bench.graphs.RenderFile(path);
  ASSERT_TRUE(made) << made.error().text;
  auto& graph = **made;
  int stops = 0;
  graph.whenAtStopTime([&] { ++stops; });
  EXPECT_NEAR(graph.stopTime(), 2, 0.1) << "at first the file's end";
  graph.setStopTime(0.2);
  graph.Run();
  EXPECT_TRUE(bench.until([&] { return stops == 1; }));
  EXPECT_EQ(graph.position(), 0.2);
  EXPECT_TRUE(bench.shows(4));
  graph.setStopTime(0.4);
  graph.Run();
  EXPECT_TRUE(bench.until([&] { return graph.position() > 0.2 && stops == 1; })) << "and tells its way";
  EXPECT_TRUE(bench.until([&] { return stops == 2; })) << "a later end lets it go on";
  EXPECT_TRUE(bench.shows(9));
  graph.step(-1);
  EXPECT_TRUE(bench.shows(8));
}

TEST(MpvPlayer, TellsTheChaptersOfAFileOnBothEngines) {
  Bench bench;
  const auto words = bench.folder / "chapters";
  std::ofstream(words) << ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=800\ntitle=One\n"
                          "[CHAPTER]\nTIMEBASE=1/1000\nSTART=800\nEND=2000\ntitle=Two\n";
  const auto path = makeNumbered(bench.folder, "chapters.wmv", "25", {"-c:v", "wmv2"},
                                 {"-f", "ffmetadata", "-i", words, "-map", "0", "-map_chapters", "1"});
  const auto graph = bench.graphs.RenderFile(path);
  ASSERT_TRUE(graph) << graph.error().text;
  bench.engine.setFileName(path);
  for (const auto& found : {(*graph)->markers(), bench.engine.markers()}) {
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].name + found[1].name, "OneTwo");
    EXPECT_NEAR(found[1].time, 0.8, 0.002);
  }
}

TEST(MpvPlayer, TakesOverWhatWasOpenedAheadAndKeepsNothingOpen) {
  Bench bench;
  const auto first = makeClip(bench.folder, "first.mp4");
  const auto second = makeClip(bench.folder, "second.mp4");
  const auto openFiles = [&] {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::count_if(begin(all), end(all), [&](const auto& entry) {
      std::error_code gone;
      return std::filesystem::read_symlink(entry.path(), gone).string().starts_with(bench.folder.path());
    });
  };
  bench.engine.setFileName(first);
  for (int change = 0; change < 4; ++change) {
    const auto& next = change % 2 == 0 ? second : first;
    bench.engine.openAhead(next, 0.4);
    EXPECT_TRUE(bench.until([&] { return openFiles() == 2; }));
    for (int turn = 0; turn < 40; ++turn) {  // it gets ready without anybody asking
      bench.loop.yield();
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    bench.engine.setFileName(next);
    EXPECT_EQ(bench.engine.fileName(), next);
    EXPECT_EQ(bench.engine.opening(), EngineOpening::Open);
    EXPECT_TRUE(bench.until([&] { return bench.drawn() == 10; })) << "where it was to stand";
    EXPECT_NEAR(bench.engine.position(), 0.4, 1e-3);
    bench.engine.Run();
    EXPECT_TRUE(bench.until([&] { return bench.drawn() > 11; }));
  }
  EXPECT_TRUE(bench.until([&] { return openFiles() == 1; })) << "only what plays";
  bench.engine.openAhead(first, 0);
  bench.engine.setFileName(second);  // something else than what was thought of
  EXPECT_EQ(bench.drawn(), 0);
  bench.engine.setFileName("");
  EXPECT_EQ(bench.drawn(), -1);
  bench.engine.openAhead("", 0);
  EXPECT_TRUE(bench.until([&] { return openFiles() == 0; }));
}

// On a machine that has no sound to give either.
TEST(MpvPlayer, EndsWhileACoreGoesFromOneFileToTheNext) {
  const char* driver = std::getenv("SDL_AUDIODRIVER");
  const std::string held = driver == nullptr ? "" : driver;
  ::unsetenv("SDL_AUDIODRIVER");
  test::ScratchFolder folder;
  const auto first = makeClip(folder, "first.mp4");
  const auto second = makeClip(folder, "second.mp4");
  for (int end = 0; end < 6; ++end) {
    Bench bench;
    bench.engine.setFileName(first);
    bench.engine.openAhead(second, 0.4);
    bench.until([&] { return bench.stage.output().hasPicture(); });
    std::this_thread::sleep_for(std::chrono::milliseconds(5) * end);
    bench.engine.setFileName(first);
    bench.engine.setFileName("");
  }
  if (!held.empty()) ::setenv("SDL_AUDIODRIVER", held.c_str(), 1);
}

TEST(MpvPlayer, TellsWhyAFileCannotBePlayedAndPlaysTheNext) {
  Bench bench;
  const auto good = makeClip(bench.folder, "good.mp4");
  const auto write = [&](const std::string& name, const std::string& bytes) {
    std::ofstream(bench.folder / name, std::ios::binary) << bytes;
    return bench.folder / name;
  };
  const auto words =
      test::makeMedia(bench.folder, "words.mkv",
                      {"-f", "srt", "-i", write("words.srt", "1\n00:00:00,000 --> 00:00:01,000\nword\n")});
  std::string torn(200000, '\0');
  std::iota(torn.begin(), torn.end(), '\x11');
  for (const auto& [path, why] :
       {std::pair{bench.folder / "none.mp4", "not there"},
        {write("empty.mp4", ""), "no media file"},
        {write("torn.mp4", torn), "no media file"},
        {words, "neither picture nor sound"},
        {write("list.m3u", "#EXTM3U\n" + good + "\n"), "no media file"},
        {write("list.mp4", "# mpv EDL v0\ngood.mp4\n"), "no media file"},
        {write("list.avi", "ffconcat version 1.0\nfile good.mp4\n"), "no media file"},
        {write("list.cue", "FILE \"good.mp4\" MP4\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"), "no media file"},
        {bench.folder.path(), "it is no file"}}) {
    SCOPED_TRACE(path);
    bench.engine.setFileName(path);
    EXPECT_EQ(bench.engine.opening(), EngineOpening::Failed);
    const auto told = bench.engine.errorDescription();
    EXPECT_NE(told.find(path), std::string::npos) << told;
    EXPECT_NE(told.find(why), std::string::npos) << told;
    EXPECT_EQ(bench.drawn(), -1);
  }
  const auto graph = bench.graphs.RenderFile(bench.folder / "none.mp4");
  ASSERT_FALSE(graph);
  EXPECT_NE(graph.error().text.find("none.mp4: it is not there"), std::string::npos) << graph.error().text;
  bench.engine.setFileName(good);
  EXPECT_EQ(bench.engine.errorDescription(), "");
  bench.engine.Run();
  std::filesystem::remove(good);
  EXPECT_TRUE(bench.until([&] { return bench.ended == 1; })) << "what is open stays so";
}

TEST(MpvPlayer, PlaysAnAddressAndGivesUpOneThatDoesNotAnswerWithinTheLimit) {
  Bench bench;
  const auto path = makeNumbered(bench.folder, "clip.ts", "5",
                                 {"-c:v", "mpeg2video", "-q:v", "2", "-g", "5", "-muxrate", "1500k"});
  const auto bytes = test::bytesOf(path);
  auto& engine = bench.engine;
  engine.setAutoStart(true);
  {
    const Server server(Server::Manner::Whole, bytes);
    engine.setFileName(server.address());
    EXPECT_EQ(engine.opening(), EngineOpening::Connecting) << "nothing is waited for";
    EXPECT_TRUE(bench.until([&] { return engine.opening() == EngineOpening::Open; }));
    EXPECT_TRUE(bench.until([&] { return bench.drawn() >= 2; })) << "it runs by itself";
  }
  engine.setRate(20);  // soon at what is missing
  {
    // Behind the last picture of a whole file there are bytes that nobody reads.
    const auto whole = makeNumbered(bench.folder, "whole.mp4", "3", {"-movflags", "+faststart"});
    const auto film = test::bytesOf(whole);
    const Server server(Server::Manner::Whole, film + std::string(film.size() / 16, '\0'));
    engine.setFileName(server.address());
    const int before = bench.ended;
    EXPECT_TRUE(
        bench.until([&] { return bench.ended > before || engine.opening() == EngineOpening::Failed; }));
    EXPECT_EQ(engine.opening(), EngineOpening::Open) << engine.errorDescription();
    engine.setFileName("");
  }
  for (const auto& [manner, why] : {std::pair{Server::Manner::Silent, "does not answer"},
                                    {Server::Manner::RedirectsForEver, "cannot open"},
                                    {Server::Manner::StopsInTheMiddle, "sends nothing any more"},
                                    {Server::Manner::HangsUpInTheMiddle, "ended ahead of its time"}}) {
    const Server server(manner, bytes);
    SCOPED_TRACE(why);
    engine.setFileName(server.address());
    auto before = bench.loop.now();
    std::chrono::milliseconds longest{0};
    EXPECT_TRUE(bench.until([&] {
      longest = std::max(longest, bench.loop.now() - std::exchange(before, bench.loop.now()));
      return engine.opening() == EngineOpening::Failed;
    }));
    const auto told = engine.errorDescription();
    EXPECT_NE(told.find(server.address()), std::string::npos) << told;
    EXPECT_NE(told.find(why), std::string::npos) << told;
    EXPECT_LT(longest.count(), 600) << "the window answers all the time";
    engine.setFileName("");
  }
  engine.setFileName(path);
  EXPECT_EQ(engine.opening(), EngineOpening::Open) << "the next clip plays";
}

}  // namespace
}  // namespace kvo
