// What is told to those who steer media players from outside, and what they may ask.
#include "program/outside_controls.h"

#include "support/held_player.h"
#include "support/program_bench.h"

#include <chrono>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct NotedControls : MediaControls {
  std::vector<MediaTold> told;
  std::vector<double> jumps;
  bool listen(MediaRequests& /*requests*/) override { return true; }
  void tell(const MediaTold& now) override { told.push_back(now); }
  void tellJump(double position) override { jumps.push_back(position); }
};

// Does to the state what a transport does.
struct PlainTransport : TransportCommands {
  MainWindowState& window;
  ListCommands& list;
  std::string calls;
  PlainTransport(MainWindowState& w, ListCommands& l) : window(w), list(l) {}
  void call(const char* name, bool plays) {
    calls += name;
    window.mode.player.IsPlaying = plays;
    window.mode.player.IsPaused = !plays;
  }
  void PreviewMovie(int index) override {
    calls += "clip " + std::to_string(index) + " ";
    list.select(index);
  }
  void NextMovie() override { PreviewMovie(window.list.ListIndex + 2); }
  void Img_Play_Click() override { call("play ", true); }
  void Lbl_PauseGraphic_Click() override { call("pause ", !window.mode.player.IsPlaying); }
  void Lbl_PlayGraphic_Click() override { Img_Play_Click(); }
  void Image8_Click() override { call("stop ", false); }
};

struct OutsideBench : test::ProgramBench {
  test::HeldPlayer player{*this};
  PlainTransport transport{window, listCommands};
  MainMenu menu{{window, settings, commands, recent, media, listCommands, history, shutDown, skins}, {}};
  NotedControls controls;
  OutsideControls outside{{window, collection, files, player, loop, transport, listCommands, menu, shutDown,
                           mailbox, [this](double rate) { player.rate = rate; }},
                          controls};

  OutsideBench() {
    list.whenInHand([this](int number) {
      if (number > 0) player.PlayerSetFilename(clipFile(clip(number)), number);
      player.position = 0;
    });
    start({"a.avi", "b.avi", "photo.jpg"});
    window.mode.player.IsPaused = false;
    for (const int film : {1, 2}) clip(film).DurationTime(Value(20.0));
    clip(3).IsStill(true);
    listCommands.select(1);
    outside.begin();
  }
  // What is asked comes by the loop; the window is drawn behind it.
  void settle(int milliseconds = 0) {
    loop.advance(milliseconds);
    outside.settled();
  }
  const MediaTold& now() const { return controls.told.back(); }
};

TEST(OutsideControls, TellsWhatPlaysAndOnlyWhatIsNew) {
  OutsideBench b;
  ASSERT_EQ(b.controls.told.size(), 1U);
  EXPECT_EQ(b.now().clip.title + b.now().clip.file, "a.avi/v/a.avi");
  EXPECT_EQ(b.now().clip.length, 20);
  EXPECT_EQ(b.now().state, PlayingState::Stopped);
  EXPECT_TRUE(b.now().canPlay && b.now().canSeek && b.now().canGoNext && !b.now().canGoPrevious);
  b.settle(500);
  EXPECT_EQ(b.controls.told.size(), 1U);
  const int first = b.now().clip.track;
  b.listCommands.select(3);
  b.settle();
  EXPECT_EQ(b.now().clip.cover, "/v/photo.jpg");
  EXPECT_FALSE(b.now().canPlay || b.now().canGoNext);
  b.listCommands.select(1);
  b.settle();
  EXPECT_NE(b.now().clip.track, first) << "the same clip once more is another track";
  EXPECT_EQ(b.controls.jumps, std::vector<double>{}) << "another clip is no jump";
}

TEST(OutsideControls, DoesWhatIsAsked) {
  using enum PlayingState;
  const std::tuple<const char*, void (*)(OutsideBench&), std::string, PlayingState> rows[] = {
      {"play", [](auto& b) { b.outside.play(); }, "play |", Playing},
      {"pause", [](auto& b) { b.outside.play(), b.outside.pause(); }, "play pause |", Paused},
      {"stop", [](auto& b) { b.outside.play(), b.outside.stop(); }, "play stop |seek 0 ", Stopped},
      {"next", [](auto& b) { b.outside.next(); }, "clip 2 |", Stopped},
      {"previous of the first", [](auto& b) { b.outside.previous(); }, "|", Stopped},
      {"and back", [](auto& b) { b.outside.next(), b.outside.previous(); }, "clip 2 clip 1 |", Stopped},
      {"seek", [](auto& b) { b.outside.play(), b.outside.seek(5); }, "play |seek 5 play ", Playing},
      {"seek past the end", [](auto& b) { b.outside.seek(21); }, "clip 2 |", Stopped},
      {"a place", [](auto& b) { b.outside.setPosition(b.now().clip.track, 12); }, "|seek 12 ", Stopped},
      {"of another", [](auto& b) { b.outside.setPosition(b.now().clip.track + 1, 12); }, "|", Stopped},
      {"a stream", [](auto& b) { b.player.seekable = false, b.outside.seek(5); }, "|", Stopped},
      {"while a command is under way",
       [](auto& b) {
         const CommandPass pass(b.window);
         b.outside.play();
         b.loop.advance(0);
       },
       "|", Stopped},
      {"no seek between two clips",
       [](auto& b) {
         b.window.mode.player.clipWaits = true;
         b.player.position = 19;
         b.outside.seek(5), b.outside.setPosition(b.now().clip.track, 12);
         b.loop.advance(0);
         EXPECT_EQ(b.outside.position(), 0) << "the clip that comes stands at its start";
       },
       "|", Stopped},
  };
  for (const auto& [what, ask, calls, state] : rows) {
    OutsideBench b;
    ask(b);
    b.settle();
    EXPECT_EQ(b.transport.calls + "|" + b.player.calls, calls) << what;
    EXPECT_EQ(b.now().state, state) << what;
  }
}

TEST(OutsideControls, SetsWhatTheMenusAndKeysSet) {
  OutsideBench b;
  for (const auto wish : {Repeating::Clip, Repeating::Collection, Repeating::Nothing}) {
    b.outside.setRepeating(wish);
    b.settle();
    EXPECT_EQ(b.now().repeating, wish);
    EXPECT_EQ(b.settings.user.LoopPreviews, wish == Repeating::Clip);
    EXPECT_EQ(b.settings.user.LoopCol, wish == Repeating::Collection);
  }
  b.outside.setVolume(0.5);
  b.outside.setRate(2);
  b.window.face.raise = false;
  b.outside.raise();
  b.settle();
  EXPECT_EQ(b.now().volume, 0.5);
  EXPECT_EQ(b.now().rate, 2);
  EXPECT_TRUE(b.window.face.raise);
  b.files.all["/v/new.avi"] = "x";
  b.outside.open("/v/new.avi");
  b.settle();
  EXPECT_EQ(b.now().clip.title, "new.avi");
  b.boxes.answers = {Answer::No};
  b.outside.quit();
  b.settle();
  EXPECT_FALSE(b.window.face.visible);
}

TEST(JumpWatch, KnowsAJumpFromPlayingOn) {
  JumpWatch watch;
  std::string jumps;
  using Row = std::tuple<int, double, bool, double>;  // milliseconds and seconds
  for (const auto& [now, position, plays, rate] :     // at its end positions that come every two seconds
       {Row{1000, 0.0, false, 1}, Row{5000, 0.0, false, 1}, Row{5100, 0.04, false, 1},
        Row{5200, 0.04, true, 1}, Row{6200, 1.0, true, 1}, Row{7200, 2.4, true, 2}, Row{9200, 6.5, true, 2},
        Row{9400, 2.0, true, 1}, Row{10400, 3.0, false, 1}, Row{99000, 3.0, false, 1},
        Row{99100, 3.0, true, 1}, Row{100500, 3.0, true, 1}, Row{101200, 5.0, true, 1},
        Row{102900, 5.0, true, 1}, Row{103100, 7.0, true, 1}, Row{103300, 9.0, true, 1}}) {
    if (watch.sees(std::chrono::milliseconds(now), position, plays, rate)) jumps += std::to_string(now) + " ";
  }
  EXPECT_EQ(jumps, "5100 9400 103300 ");
}

TEST(Covers, AreTheStillItselfOrLieBesideTheSound) {
  test::ProgramBench b;
  const auto& music = b.addMusic("song.mp3", 0, 0);
  EXPECT_EQ(coverOf(b.files, music), "");
  for (const auto* cover : {"/v/folder.jpg", "/v/cover.png"}) {
    b.files.all[cover] = "x";
    EXPECT_EQ(coverOf(b.files, music), cover);
  }
  EXPECT_EQ(coverOf(b.files, b.addVideo("film.avi", 0, 0)), "") << "a picture may be of anything";
}

TEST(Mailbox, PlaysWhatAnotherCopyHandsOverUnlessItIsRefused) {
  for (const bool refused : {false, true}) {
    OutsideBench b;
    b.mailbox.transport(b.transport);
    b.mailbox.open("/");
    b.files.all["/v/new.avi"] = "x";
    if (refused) b.intake.whenAsked = [&] { b.files.all.clear(); };
    b.handover.mailbox = "/v/new.avi";
    b.loop.advance(200);
    EXPECT_EQ(b.transport.calls, refused ? "" : "play ");
  }
}

}  // namespace
}  // namespace kvo
