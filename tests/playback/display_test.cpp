#include "playback/display/picture_room.h"
#include "playback/transport_bench.h"

#include <array>

#include <gtest/gtest.h>

namespace kvo {

void PrintTo(const Place& place, std::ostream* out) {
  *out << place.left << "," << place.top << " " << place.width << "x" << place.height;
}

namespace {

using test::Rows;

struct DisplayBench : test::TransportBench {
  DisplayBench() {
    collection.IniFullPath = "/c/Holiday.INI";
    desktop.facts = {1280, 1024, 24, 1};
    display.Form_Load(1);
  }
  DisplayBench(const std::string& name, int width, int height) : DisplayBench() { load(name, width, height); }

  /// Adds a clip and loads it, as a choice in the list does; without a size it has no picture.
  Movie& load(const std::string& name, int width = 0, int height = 0) {
    auto& clip = add(name, {.rate = width > 0 ? 25.0 : 0.0, .width = width, .height = height});
    show();
    return clip;
  }
  void show() {
    open(collection.icurMov);
    display.PositionAndSize();
  }
};

bool panelsShown(const DisplayBench& b) {
  const auto& p = b.mode.panels;
  return p.FraDets && p.CollDets && p.Fillist.visible && p.Lbl_Pos.visible && p.nameLabel.visible;
}

// The face, its size and the picture's place: "zoom 9600x7890, picture 0,690 9600x7200".
std::string seen(const DisplayBench& b) {
  const auto& mode = b.mode;
  const char* face = mode.IsFullScreenWindow ? "covers" : mode.IsMiniMode ? "zoom" : "face";
  auto line = face + (" " + ShortText(mode.window.place.width)) + "x" + ShortText(mode.window.place.height);
  if (mode.player.visible) line += ", picture " + testing::PrintToString(mode.player.place);
  return line;
}

TEST(Display, FreeZoomTakesTheSizeOfTheClipWhereTheDetailsWereOn) {
  for (const auto& [name, width, height, details, interfaceSize, looks] :
       Rows<const char*, Integer, Integer, bool, double, const char*>{
           {"a.avi", 640, 480, true, 1, "zoom 9600x7890, picture 0,690 9600x7200"},
           {"a.avi", 640, 480, true, 2, "zoom 4800x4290, picture 0,690 4800x3600"},
           {"a.avi", 640, 480, false, 1, "zoom 7590x6130, picture 0,690 7590x5440"},
           {"a.mp3", 0, 0, true, 1, "zoom 4800x3600"},
           {"a.mp3", 0, 0, true, 1.5, "zoom 3200x2400"},
           {"a.avi", 4000, 2000, true, 1, "zoom 19200x10290, picture 0,690 19200x9600"}}) {
    DisplayBench b;
    b.display.setInterfaceSize(interfaceSize);
    b.settings.state.AllDetOff = !details;
    b.load(name, width, height);
    b.display.Lbl_MiniMode_Click();
    EXPECT_EQ(seen(b), looks);
    EXPECT_EQ(b.mode.ticks.mnu_DirXZoom100, width > 0) << looks;
    EXPECT_EQ(b.host.spine, width > 0 ? "KVO5" : "KVO5 - Audio");
    EXPECT_FALSE(panelsShown(b) || b.mode.panels.picLogo || b.mode.IsResizing);
  }
}

TEST(Display, KeysLeadToTheWholeScreenAndStepByStepBack) {
  DisplayBench b("a.avi", 640, 480);
  bool coversAtHint = false;
  b.boxes.whileShown = [&] { coversAtHint = b.mode.IsFullScreenWindow; };
  std::string walk;
  for (const bool back : {true, false, false, false, true, true}) {
    if (back) b.display.stepBack();
    if (!back) b.display.coverOrBack();
    walk += seen(b).substr(0, seen(b).find(' ') + 1);
    EXPECT_EQ(b.mode.isLit(HitLabel::Lbl_MinMax), b.mode.IsFullScreenWindow);
  }
  EXPECT_EQ(walk, "face covers zoom covers zoom face ");
  EXPECT_FALSE(b.display.stepBack());
  EXPECT_TRUE(coversAtHint) << "the hint waits for the user over the screen that was asked for";
  DisplayBench empty;
  empty.display.coverOrBack();
  EXPECT_EQ(seen(empty), "face 8430x6150") << "there is nothing to show";
}

TEST(Display, EachFaceLeadsToTheOthersAndSaysSo) {
  DisplayBench b("a.avi", 640, 480);
  b.mode.ticks.mnu_ShowSlider = true;
  b.display.ShowSliderStuff();
  using Way = void (*)(DisplayBench&);
  const Way zoom = [](auto& of) { of.display.Lbl_MiniMode_Click(); };
  const Way cover = [](auto& of) { of.display.Lbl_MinMax_Click(); };
  const auto face = seen(b), sizable = std::string("zoom 9600x7890, picture 0,690 9600x7200");
  const std::string fills = "covers 19200x15360, picture 0,690 19200x13290";
  const std::tuple<const char*, Way, std::string> steps[] = {
      {"the normal face does not cover the screen", cover, face},
      {"to Free Zoom", zoom, sizable},
      {"over the screen", cover, "covers 19700x15560, picture 0,690 19700x13490"},
      {"what a desktop gives", [](auto& of) { of.display.Form_Resize(19200, 15360); }, fills},
      {"the next clip has the same place", [](auto& of) { of.show(); }, fills},
      {"within what the toolbar leaves", [](auto& of) { of.display.ResizePercent(50); },
       "covers 19200x15360, picture 7200,5535 4800x3600"},
      {"all of that", [](auto& of) { of.display.ResizePercent(200); }, fills},
      {"sizable again", cover, sizable},
      {"over the screen again", cover, "covers 19700x15560, picture 0,690 19700x13490"},
      {"to the normal face", zoom, face}};
  for (const auto& [what, way, shown] : steps) {
    way(b);
    EXPECT_EQ(seen(b), shown) << what;
    const auto& mode = b.mode;
    const bool covers = mode.IsFullScreenWindow, isSizable = mode.IsMiniMode && !covers;
    EXPECT_EQ(mode.window.border, covers      ? BorderStyle::Covering
                                  : isSizable ? BorderStyle::Sizable
                                              : BorderStyle::Skinned);
    EXPECT_EQ(mode.window.caption, isSizable ? "KVO5 - Free Zoom Mode" : "") << what;
    const auto& coverTip = mode.toolbar[HitLabel::Lbl_MinMax].toolTip;
    EXPECT_TRUE(!mode.IsMiniMode || coverTip == (covers ? "Sizable Mode" : "Full Screen Mode")) << what;
    EXPECT_EQ(mode.toolbar[HitLabel::Lbl_MiniMode].toolTip,
              mode.IsMiniMode ? "Normal Mode" : "Free Zoom Mode");
  }
  EXPECT_TRUE(panelsShown(b));
  EXPECT_TRUE(b.mode.slider.ImageBlob.visible) << "the slider is as it was";
  EXPECT_TRUE(b.host.asked.starts_with("ShapePlain untickStayOnTop ")) << b.host.asked;
  EXPECT_TRUE(b.host.asked.ends_with("ShapeMe skins details1 ")) << b.host.asked;
  EXPECT_EQ(b.boxes.styled.size(), 1u) << "the hint is shown once";
  b.collection.IniFullPath = "/c/Other.INI";
  b.display.Lbl_MiniMode_Click();
  ASSERT_EQ(b.boxes.styled.size(), 2u) << "and once for the next collection";
  EXPECT_EQ(b.boxes.styled[1].message,
            "Right click on the Toolbar to activate the remote control\r\n"
            "Click the the toolbar itself to show the playlist.");
}

TEST(Display, AStreamIsStoppedAheadOfEachChangeOfSize) {
  DisplayBench b;
  b.load("a.asf", 320, 240).IsStream(true);
  for (int change = 0; change < 3; ++change) {  // to the sizable window, over the screen, and back
    b.player.GlobalMediaPlay();
    b.graphs.graph->calls.clear();
    change == 0 ? b.display.Lbl_MiniMode_Click() : b.display.Lbl_MinMax_Click();
    EXPECT_TRUE(b.graphs.graph->calls.starts_with("Stop ")) << change;
    EXPECT_EQ(b.player.PlayerGetPlayState(), EngineState::Running) << "and goes on";
  }
}

TEST(Display, MinimumDetailsComeBackBehindFreeZoom) {
  DisplayBench b;
  b.settings.change().DefaultStartupVid = "intro.avi";
  b.load("a.avi", 640, 480);
  b.display.Lbl_MinDets_Click();
  EXPECT_EQ(seen(b), "face 8430x6150, picture 885,810 6660x3879");
  EXPECT_EQ(b.settings.preferences().DefaultStartupVid, "");
  for (int turn = 0; turn < 2; ++turn) b.display.Lbl_MiniMode_Click();
  EXPECT_EQ(seen(b), "face 8430x6150, picture 885,810 6660x3879");
  b.display.AllDetOn();
  EXPECT_TRUE(panelsShown(b));
}

TEST(Display, AnEmptyCollectionAndARadioStayInTheNormalFace) {
  for (const bool radio : {false, true}) {
    DisplayBench b;
    if (radio) {
      b.load("a.asf", 0, 0);
      b.collection.MovieList[1].IsStream(true);
      b.collection.MovieList[1].DurationTime(Value());
    }
    b.display.Lbl_MiniMode_Click();
    EXPECT_TRUE(seen(b).starts_with("face 8430x6150")) << seen(b);
    EXPECT_TRUE(b.mode.panels.Pic_DigNumbers && b.timers.Timer1.enabled() && b.timers.Timer6.enabled())
        << radio;
    ASSERT_EQ(b.boxes.shown.size(), 1u) << radio;
    EXPECT_EQ(b.boxes.shown[0].text, "Radio Streams cannot be zoomed.");
  }
  DisplayBench editing;
  editing.settings.state.KVOIsInEditMode = true;
  editing.display.Lbl_MiniMode_Click();
  EXPECT_TRUE(editing.mode.IsMiniMode) << "the editor may be open on an empty list";
  EXPECT_TRUE(editing.boxes.styled.empty());
}

TEST(Display, AScreenOfAnotherSizeIsToldForEachAxis) {
  DisplayBench b("a.avi", 640, 480);
  b.display.Lbl_MiniMode_Click();
  b.desktop.facts.width = 1920;
  b.display.Lbl_MinMax_Click();
  ASSERT_EQ(b.boxes.shown.size(), 1u);
  EXPECT_EQ(b.boxes.shown[0].text, "Width Display Corruption - Reset Display");
  EXPECT_TRUE(b.mode.IsFullScreenWindow) << "and it goes on";
  b.desktop.facts.height = 1080;
  b.display.Lbl_MinMax_Click();
  EXPECT_EQ(b.boxes.shown.back().text, "Height Display Corruption - Reset Display");
  EXPECT_EQ(b.desktop.beeps, 3);
}

TEST(Display, HitLabelsKeepTheirProportionAtAnyWidth) {
  const double lefts[] = {0, 750, 1400, 2000, 2570, 3200, 3800, 4450, 5100, 5580, 6340, 7100};
  DisplayBench b("a.avi", 640, 480);
  b.display.Lbl_MiniMode_Click();
  for (const double width : {7590.0, 3795.0, 15180.0, 4800.0}) {
    b.display.Form_Resize(width, 6000);
    for (std::size_t i = 0; i < kHitLabels; ++i) {
      const auto& label = b.mode.toolbar.labels[i];
      EXPECT_DOUBLE_EQ(label.left, lefts[i] * width / 7590) << i << " at " << width;
      EXPECT_DOUBLE_EQ(label.width, 400 * width / 7590);
      EXPECT_TRUE(label.visible);
    }
    EXPECT_EQ(b.mode.player.place, (Place{0, 690, width, 5310}));
  }
  b.display.ResizePercent(50);
  EXPECT_TRUE(b.mode.ticks.mnu_DirXZoom50);
  b.mode.slider.ImageBlob.place.left = 2400;  // the middle of the line
  b.display.Lbl_SliderMiniMode_Click();
  EXPECT_EQ(b.mode.player.place, (Place{0, 690, 4800, 3650})) << "below the slider's handle";
  b.display.Form_Resize(9600, 6000);
  EXPECT_EQ(b.mode.slider.X2, 9400);
  EXPECT_EQ(b.mode.slider.ImageBlob.place, (Place{4800, 460, 195, 180})) << "still the middle";
}

TEST(Display, AStillIsShownInEveryFace) {
  DisplayBench b;
  auto& photo = b.load("photo.jpg");
  photo.IsStill(true);
  photo.StillW(800);
  photo.StillH(600);
  b.show();
  const auto& still = b.mode.still;
  EXPECT_EQ(still.path, "/v/photo.jpg");
  EXPECT_FALSE(b.mode.player.visible);
  b.display.AllDetOff();
  EXPECT_EQ(still.Img_Still.place, (Place{1629, 810, 5172, 3879}));
  b.display.AllDetOn();
  b.display.Lbl_MiniMode_Click();
  EXPECT_EQ(still.Img_Still.place, (Place{0, 690, 12000, 9000}));
  b.display.Form_Resize(8000, 5380);
  EXPECT_DOUBLE_EQ(still.Img_Still.place.height, 4000);
  EXPECT_DOUBLE_EQ(still.Img_Still.place.width, 4000.0 * 4 / 3);
  b.host.asked.clear();
  b.display.Lbl_MinMax_Click();
  EXPECT_EQ(b.host.asked, "untickStayOnTop PreviewMovie1 ");
  EXPECT_DOUBLE_EQ(still.Img_Still.place.height, 15560 - 2 * 690);
  b.load("a.avi", 640, 480);
  EXPECT_FALSE(still.Img_Still.visible);
}

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

TEST(Display, TheKeysOfTheNormalFaceSayWhatTheOthersHaveLedTo) {
  for (const auto before : {KeyWord::AllOff, KeyWord::PauseOn, KeyWord::PlayOn}) {
    for (const auto& [plays, alone] : {std::pair{true, true}, {true, false}, {false, true}, {false, false}}) {
      DisplayBench b("a.avi", 640, 480);
      b.host.paints = [&] {  // as a picture of the user's is
        b.player.PlayerPause();
        b.buttons.BuildAllButs(true);
      };
      b.buttons.BuildButton(before);
      alone ? b.display.mnu_DirXFullSC_Click() : b.display.coverOrBack();
      b.mode.player.IsPlaying = plays;  // as a click on the picture leaves it there
      b.mode.player.IsPaused = !plays;
      while (b.display.stepBack()) {
      }
      EXPECT_EQ(playGroup(b), plays ? "2 3 PLAYING playing" : "1 4 PAUSED paused") << alone;
      EXPECT_TRUE(alone || (b.player.PlayerGetPlayState() == EngineState::Running) == plays)
          << static_cast<int>(before);
    }
  }
}

TEST(Buttons, WhatNeedsAClipOrAPlayerTakesTheMouseOnlyThen) {
  const auto take = [](bool anyClip, bool steps) {
    ButtonsState keys;
    keys.stepLabelsEnabled = steps;
    std::string which;
    for (const auto place : {KeyPlace::Minimise, KeyPlace::Mini, KeyPlace::Play, KeyPlace::PlayAll,
                             KeyPlace::Size, KeyPlace::FrameBack, KeyPlace::Speeds, KeyPlace::FastForward})
      which += keys.takesMouse(place, anyClip) ? '1' : '0';
    return which;
  };
  EXPECT_EQ(take(false, true), "11000000") << "those of the window";
  EXPECT_EQ(take(true, false), "11111000");
  EXPECT_EQ(take(true, true), "11111111");
}

TEST(Buttons, WordsChangeThePlayGroup) {
  for (const auto& [words, expected] : Rows<std::vector<KeyWord>, const char*>{
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
       }) {
    DisplayBench b;
    for (const auto word : words) b.buttons.BuildButton(word);
    EXPECT_EQ(playGroup(b), expected) << expected;
  }
  DisplayBench b;
  b.buttons.BuildButton(KeyWord::FOn, true);
  EXPECT_EQ(playGroup(b), "2 0 PLAYING playing") << "whatever the word";
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
  b.display.setInterfaceSize(1.25);
  EXPECT_EQ(b.keys.at(KeyPlace::Volume), (DrawnKey{5, 42, 429})) << "each key has its place at each size";
}

}  // namespace
TEST(PictureRoom, IsThePlayersAsFarAsTheWindowReaches) {
  const Place all{0, 690, 9000, 5310};
  for (const auto& [what, player, hasPicture, still, room] : Rows<const char*, Place, bool, bool, Place>{
           {"inside", {100, 700, 4000, 3000}, true, false, {100, 700, 4000, 3000}},
           {"beyond three sides", {-500, 0, 20000, 3000}, true, false, {0, 690, 9000, 2310}},
           {"out of sight", {9000, 700, 4000, 3000}, true, false, all},
           {"without a size", {100, 700, 0, 0}, true, false, all},
           {"parked", {kParked, 700, 4000, 3000}, true, false, all},
           {"a still", {100, 700, 4000, 3000}, true, true, all},
           {"a sign", {100, 700, 4000, 3000}, false, false, all},
       }) {
    DisplayModeState mode;
    mode.player.place = player;
    mode.still.Img_Still.visible = still;
    EXPECT_EQ(pictureRoom(mode, hasPicture, 690, 9000, 6000), room) << what;
  }
  EXPECT_EQ(pictureRoom({}, false, 690, 9000, 300).height, 0) << "a window lower than its toolbar";
}

}  // namespace kvo
