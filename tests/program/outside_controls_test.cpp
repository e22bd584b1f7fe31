// What is told to those who steer media players from outside, and what they may ask.
#include "program/outside_controls.h"

#include "support/held_player.h"
#include "support/program_bench.h"

#include <chrono>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct NotedControls : MediaControls {
  MediaRequests* asks = nullptr;
  std::vector<MediaTold> told;
  std::vector<double> jumps;
  bool listen(MediaRequests& requests) override {
    asks = &requests;
    return true;
  }
  void tell(const MediaTold& now) override { told.push_back(now); }
  void tellJump(double position) override { jumps.push_back(position); }
};

// Does to the state what a transport does.
struct PlainTransport : TransportCommands {
  MainWindowState& window;
  ListCommands& list;
  std::string calls;
  PlainTransport(MainWindowState& w, ListCommands& l) : window(w), list(l) {}
  void become(bool plays) {
    window.mode.player.IsPlaying = plays;
    window.mode.player.IsPaused = !plays;
  }
  void PreviewMovie(int index) override {
    calls += "clip " + std::to_string(index) + " ";
    list.select(index);
  }
  void NextMovie() override { PreviewMovie(window.list.ListIndex + 2); }
  void Img_Play_Click() override {
    calls += "play ";
    become(true);
  }
  void Lbl_PauseGraphic_Click() override {
    calls += "pause ";
    become(!window.mode.player.IsPlaying);
  }
  void Lbl_PlayGraphic_Click() override { Img_Play_Click(); }
  void Image8_Click() override {
    calls += "stop ";
    become(false);
  }
};

struct OutsideBench : test::ProgramBench {
  test::HeldPlayer player{*this};
  PlainTransport transport{window, listCommands};
  MediaCommands media{{dialogs, desktop, questions, boxes}, settings, window, mailbox};
  MainMenu menu{{window, settings, commands, recent, media, listCommands, history, shutDown, skins}, {}};
  NotedControls controls;
  OutsideControls outside{{window, collection, files, player, loop, transport, listCommands, menu, shutDown,
                           mailbox, [this](double rate) { player.rate = rate; }},
                          controls};

  OutsideBench() {
    list.whenInHand([this](int number) {
      if (number > 0) player.PlayerSetFilename(clipFile(collection.MovieList[number]), number);
      player.position = 0;
    });
    saveCollection("/prog/KVO5.INI", {"a.avi", "b.avi", "photo.jpg"});
    startUp.run({}, "/");
    window.mode.player.IsPaused = false;
    for (int i = 1; i <= 2; ++i) collection.MovieList[i].DurationTime(Value(20.0));
    collection.MovieList[3].IsStill(true);
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
  EXPECT_EQ(b.now().clip.title, "a.avi");
  EXPECT_EQ(b.now().clip.file, "/v/a.avi");
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
  const struct {
    const char* what;
    void (*ask)(OutsideBench& b);
    const char* transport;
    const char* player;
    PlayingState state;
  } rows[] = {
      {"play", [](auto& b) { b.outside.play(); }, "play ", "", PlayingState::Playing},
      {"pause", [](auto& b) { b.outside.play(), b.outside.pause(); }, "play pause ", "",
       PlayingState::Paused},
      {"stop", [](auto& b) { b.outside.play(), b.outside.stop(); }, "play stop ", "seek 0 ",
       PlayingState::Stopped},
      {"next", [](auto& b) { b.outside.next(); }, "clip 2 ", "", PlayingState::Stopped},
      {"previous of the first", [](auto& b) { b.outside.previous(); }, "", "", PlayingState::Stopped},
      {"next and back", [](auto& b) { b.outside.next(), b.outside.previous(); }, "clip 2 clip 1 ", "",
       PlayingState::Stopped},
      {"seek while it plays", [](auto& b) { b.outside.play(), b.outside.seek(5); }, "play ", "seek 5 play ",
       PlayingState::Playing},
      {"seek past the end", [](auto& b) { b.outside.seek(21); }, "clip 2 ", "", PlayingState::Stopped},
      {"a place", [](auto& b) { b.outside.setPosition(b.now().clip.track, 12); }, "", "seek 12 ",
       PlayingState::Stopped},
      {"a place of another track", [](auto& b) { b.outside.setPosition(b.now().clip.track + 1, 12); }, "", "",
       PlayingState::Stopped},
      {"while a command is under way",
       [](auto& b) {
         const CommandPass pass(b.window);
         b.outside.play();
         b.loop.advance(0);
       },
       "", "", PlayingState::Stopped},
      {"no seek between two clips",
       [](auto& b) {
         b.window.mode.player.clipWaits = true;
         b.player.position = 19;
         b.outside.seek(5), b.outside.setPosition(b.now().clip.track, 12);
         b.loop.advance(0);
         EXPECT_EQ(b.outside.position(), 0) << "the clip that comes stands at its start";
       },
       "", "", PlayingState::Stopped},
      {"no seek where there is none", [](auto& b) { b.player.seekable = false, b.outside.seek(5); }, "", "",
       PlayingState::Stopped},
  };
  for (const auto& row : rows) {
    OutsideBench b;
    row.ask(b);
    b.settle();
    EXPECT_EQ(b.transport.calls, row.transport) << row.what;
    EXPECT_EQ(b.player.calls, row.player) << row.what;
    EXPECT_EQ(b.now().state, row.state) << row.what;
  }
}

TEST(OutsideControls, SetsWhatTheMenusAndKeysSet) {
  OutsideBench b;
  b.outside.setRepeating(Repeating::Clip);
  b.outside.setVolume(0.5);
  b.outside.setRate(2);
  b.settle();
  EXPECT_TRUE(b.settings.user.LoopPreviews && !b.settings.user.LoopCol);
  EXPECT_EQ(b.now().repeating, Repeating::Clip);
  EXPECT_EQ(b.now().volume, 0.5);
  EXPECT_EQ(b.now().rate, 2);
  b.outside.setRepeating(Repeating::Collection);
  b.settle();
  EXPECT_TRUE(!b.settings.user.LoopPreviews && b.settings.user.LoopCol);
  b.outside.setRepeating(Repeating::Nothing);
  b.window.face.raise = false;
  b.outside.raise();
  b.settle();
  EXPECT_EQ(b.now().repeating, Repeating::Nothing);
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
  const struct {
    int now;  // milliseconds
    double position;
    bool plays;
    double rate;
    bool jumped = false;
  } rows[] = {
      {1000, 0, false, 1},         {5000, 0, false, 1},        {5100, 0.04, false, 1, true},
      {5200, 0.04, true, 1},       {6200, 1.0, true, 1},       {7200, 2.4, true, 2},
      {9200, 6.5, true, 2},        {9400, 2.0, true, 1, true}, {10400, 3.0, false, 1},
      {99000, 3.0, false, 1},      {99100, 3.0, true, 1},      {100500, 3.0, true, 1},  // of two seconds each
      {101200, 5.0, true, 1},      {102900, 5.0, true, 1},     {103100, 7.0, true, 1},
      {103300, 9.0, true, 1, true}};
  for (const auto& row : rows) {
    const std::chrono::milliseconds now(row.now);
    EXPECT_EQ(watch.sees(now, row.position, row.plays, row.rate), row.jumped) << row.now;
  }
}

TEST(Covers, AreTheStillItselfOrLieBesideTheSound) {
  test::ProgramBench b;
  const auto& music = b.addMusic("song.mp3", 0, 0);
  EXPECT_EQ(coverOf(b.files, music), "");
  b.files.all["/v/folder.jpg"] = "x";
  EXPECT_EQ(coverOf(b.files, music), "/v/folder.jpg");
  b.files.all["/v/cover.png"] = "x";
  EXPECT_EQ(coverOf(b.files, music), "/v/cover.png");
  EXPECT_EQ(coverOf(b.files, b.addVideo("film.avi", 0, 0)), "")
      << "a picture beside a film may be of anything";
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
