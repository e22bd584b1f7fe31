#include "playback/display_bench.h"

#include <array>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::DisplayBench;

struct HeardSteps : EditorSteps {
  std::string heard;
  void FON() override { heard += "FON "; }
  void FOFF() override { heard += "FOFF "; }
  void RON() override { heard += "RON "; }
  void ROFF() override { heard += "ROFF "; }
};

// What the play group shows and says: "1 4 PAUSED" and "playing", "paused".
constexpr std::array<const char*, 4> kGroups{"", "NOTHING", "PLAYING", "PAUSED"};

std::string playGroup(const DisplayBench& b) {
  auto line = std::to_string(b.keys.at(KeyPlace::Play).image) + " " +
              std::to_string(b.keys.at(KeyPlace::Pause).image) + " " +
              kGroups[static_cast<std::size_t>(b.keys.group)];
  if (b.mode.player.IsPlaying) line += " playing";
  if (b.mode.player.IsPaused) line += " paused";
  return line;
}

TEST(Buttons, WordsChangeThePlayGroup) {
  const struct {
    std::vector<KeyWord> words;
    const char* expected;
  } rows[] = {
      {{KeyWord::PlayOn}, "2 3 PLAYING playing"},
      {{KeyWord::PlayOn, KeyWord::PauseOn}, "1 4 PAUSED paused"},
      {{KeyWord::PauseOn, KeyWord::PlayOn}, "2 3 PLAYING playing"},
      {{KeyWord::PlayOn, KeyWord::PlayOff, KeyWord::PlayOn},
       "1 3 PLAYING playing"},  // the state word has not changed
      {{KeyWord::PlayOn, KeyWord::AllOff}, "1 3 NOTHING"},
      {{KeyWord::PauseOff}, "0 3  playing"},
      {{KeyWord::Rebuild}, "1 3 "},
      {{KeyWord::PlayOn, KeyWord::AllOff, KeyWord::Rebuild}, "1 3 NOTHING"},
      {{KeyWord::PlayOn, KeyWord::Rebuild}, "2 3 PLAYING playing"},
      {{KeyWord::PlayOn, KeyWord::PlayOff, KeyWord::Rebuild}, "1 4 PAUSED paused"},
      {{KeyWord::PlayOn, KeyWord::FFOn}, "2 4 PAUSED paused"},
      {{KeyWord::PlayOn, KeyWord::FFOnHeld}, "2 3 PLAYING playing"},
  };
  for (const auto& row : rows) {
    DisplayBench b;
    for (const auto word : row.words) b.buttons.BuildButton(word);
    EXPECT_EQ(playGroup(b), row.expected) << row.expected;
  }
  DisplayBench b;
  b.buttons.BuildButton(KeyWord::FOn, true);
  EXPECT_EQ(playGroup(b), "2 0 PLAYING playing") << "whatever the word";
}

TEST(Buttons, EachKeyHasItsPlaceAtEachSize) {
  const struct {
    KeyWord word;
    KeyPlace place;
    int image;
    int left, top, bigLeft, bigTop, top15;
    bool lit = false;
  } rows[] = {{KeyWord::Volume, KeyPlace::Volume, 5, 30, 338, 42, 429, 507},
              {KeyWord::RROnHeld, KeyPlace::FastRewind, 8, 158, 370, 215, 465, 555, true},
              {KeyWord::Speeds, KeyPlace::Speeds, 14, 300, 370, 378, 465, 555},
              {KeyWord::PlayAllHover, KeyPlace::PlayAll, 17, 444, 367, 560, 463, 551},
              {KeyWord::Minimise, KeyPlace::Minimise, 18, 425, 1, 538, 1, 2},
              {KeyWord::Mini, KeyPlace::Mini, 19, 500, 375, 635, 470, 563},
              {KeyWord::PlayOn, KeyPlace::Play, 2, 70, 350, 93, 435, 525, true},
              {KeyWord::PauseOn, KeyPlace::Pause, 4, 126, 355, 150, 440, 533, true}};
  for (const auto& row : rows) {
    DisplayBench b;
    b.buttons.BuildButton(row.word);
    const auto& drawn = b.keys.at(row.place);
    EXPECT_EQ(drawn, (DrawnKey{row.image, row.left, row.top, row.lit})) << row.image;
    b.display.setInterfaceSize(1.25);
    EXPECT_EQ(drawn, (DrawnKey{row.image, row.bigLeft, row.bigTop, row.lit})) << row.image;
    b.display.setInterfaceSize(1.5);
    EXPECT_EQ(drawn.top, row.top15) << row.image << ": halves go up";
    b.display.setInterfaceSize(2);
    EXPECT_EQ(drawn, (DrawnKey{row.image, row.left * 2, row.top * 2, row.lit})) << row.image;
    const auto revision = b.keys.revision;
    b.buttons.BuildButton(row.word);
    EXPECT_EQ(b.keys.revision, revision) << row.image << " is drawn already";
  }
}

TEST(Buttons, OneHasAPictureOfItsOwnUnderThePointer) {
  DisplayBench b;
  for (const auto word : {KeyWord::PlayAll, KeyWord::Size}) b.buttons.BuildButton(word);
  EXPECT_EQ(b.keys.at(KeyPlace::PlayAll).hover, 17);
  EXPECT_EQ(b.keys.at(KeyPlace::Size).hover, 0);
}

TEST(Buttons, AllAreDrawnAndTheStepsOnlyWithAClip) {
  DisplayBench b;
  b.timers.Timer7.start();
  b.buttons.BuildAllButs(false);
  EXPECT_FALSE(b.keys.stepLabelsEnabled || b.timers.Timer7.enabled());
  EXPECT_EQ(b.keys.at(KeyPlace::Speeds).image, 0);
  EXPECT_EQ(b.keys.at(KeyPlace::Mini).image, 19);
  b.buttons.BuildAllButs(true);
  EXPECT_TRUE(b.keys.stepLabelsEnabled && b.timers.Timer1.enabled() && b.timers.Timer6.enabled());
  for (std::size_t i = 0; i < kKeyPlaces; ++i) EXPECT_GT(b.keys.drawn[i].image, 0) << i;
}

TEST(Buttons, FreeZoomDrawsNoKeyAndTheEditorStillHears) {
  DisplayBench b;
  HeardSteps editor;
  b.mode.IsMiniMode = true;
  b.buttons.editor(&editor);
  const auto revision = b.keys.revision;
  for (const auto word :
       {KeyWord::FOn, KeyWord::FOff, KeyWord::ROn, KeyWord::ROff, KeyWord::FOnHeld, KeyWord::PlayOn})
    b.buttons.BuildButton(word);
  EXPECT_EQ(editor.heard, "FON FOFF RON ROFF ");
  EXPECT_EQ(b.keys.revision, revision);
  EXPECT_TRUE(b.mode.player.IsPlaying && !b.mode.player.IsPaused);
  b.buttons.BuildButton(KeyWord::PauseOn);
  EXPECT_TRUE(!b.mode.player.IsPlaying && b.mode.player.IsPaused);
}

}  // namespace
}  // namespace kvo
