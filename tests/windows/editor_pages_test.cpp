// The pages of the editor, driven as a user drives them.
#include "editor/tabs/operations.h"
#include "editor/tabs/tab_bench.h"
#include "support/memory_store.h"
#include "ui/made.h"
#include "ui/theme.h"
#include "windows/editor/audio_page.h"
#include "windows/editor/color_page.h"
#include "windows/editor/effect_page.h"
#include "windows/editor/effect_rows.h"
#include "windows/editor/overlay_page.h"
#include "windows/editor/sample_motion.h"
#include "windows/editor/stills_page.h"
#include "windows/keyframe/frm_keyframe.h"
#include "windows/keyframe/keyframe_strip.h"
#include "windows/named_parts.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::named;
using test::TabBench;

struct GreySamples : MovingSamples {
  Picture picture(std::string_view /*name*/, int step) override {
    const auto grey = static_cast<std::uint8_t>(40 + 10 * step);
    return std::make_shared<FramePicture>(FramePicture{2, 1, std::vector<std::uint8_t>(6, grey)});
  }
  [[nodiscard]] int revision() const override { return 1; }
  [[nodiscard]] bool areCalm() const override { return isCalm; }
  bool isCalm = false;
};

// Five clips as in a small film, with music at their end.
struct PageBench : TabBench {
  PageLogic logic{editing, host, [] {}};

  PageBench() {
    collection.clearLists();
    addVideo("Opening.mp4", 0, 6).AltName("Opening");
    addVideo("lake at dusk.mpg", 0, 8);
    auto& still = addVideo("photo.jpg", 0, 7);
    still.IsStill(true);
    still.stretchmode(1);
    addVideo("sailing.avi", 0, 15);
    addMusic("music.mp3", 0, 36);
    for (int i = 1; i <= 5; ++i) {
      clip(i).KeyID(i);
      clip(i).HasAudio(true);
    }
    settings.adjust().StillsIndividual = true;
    collection.icurMov = 2;
    CreateClipLine(editing, true, {});
  }

  /// A page that is drawn behind each act.
  template <class Page, class Tab, class... More>
  std::unique_ptr<Page> open(Tab& tab, More&&... more) {
    enterTab(editing, tab, host);
    auto draw = std::make_shared<std::function<void()>>();
    logic.acted = [draw] { (*draw)(); };
    auto page = std::make_unique<Page>(tab, logic, std::forward<More>(more)..., nullptr);
    *draw = [shown = page.get()] { shown->draw(); };
    page->draw();
    page->show();
    return page;
  }
};

void press(QWidget& page, const QString& name) {
  if (auto* button = named<QAbstractButton>(page, name)) button->click();
}

// By keys: one step up from where it stands.
void stepUp(QWidget& page, const QString& name) {
  if (auto* slider = named<QAbstractSlider>(page, name)) QTest::keyClick(slider, Qt::Key_Right);
}

// Every control that takes the keyboard has a name and a tip, is in the page, and is large enough to hit.
void expectReachable(QWidget& page, int leastHeight = 24) {
  EXPECT_GT(test::expectNamed(page, leastHeight), 5);
  for (auto* part : page.findChildren<QWidget*>()) {
    if ((part->focusPolicy() & Qt::TabFocus) == 0 || !part->isVisibleTo(&page)) continue;
    EXPECT_FALSE(part->toolTip().isEmpty()) << test::nameOf(*part).toStdString();
    const auto place = QRect(part->mapTo(&page, QPoint()), part->size());
    EXPECT_TRUE(page.rect().contains(place)) << test::nameOf(*part).toStdString();
  }
}

TEST(EffectPage, TicksSlidersAndRightClicksReachTheRecord) {
  PageBench b;
  EffectTab tab;
  int opened = 0;
  test::MemoryStore store;
  NameChooser names(tab.names, store, "Effect");
  GreySamples samples;
  auto page = b.open<EffectPage>(tab, EffectPage::Choice{names, samples}, [&] { ++opened; });
  names.offer(effectNames(tab));
  page->draw();
  press(*page, "Watercolor");
  press(*page, "Film age");
  stepUp(*page, "Film age");
  auto& clip = b.clip(2);
  EXPECT_TRUE(EffectWord(clip.EffectWord()).isOn(EffectSwitch::FilmAge));
  EXPECT_EQ(clip.AgeIntensity(), 36);
  auto* box = named<QAbstractButton>(*page, "Watercolor");
  QContextMenuEvent rightClick(QContextMenuEvent::Mouse, QPoint(4, 4), box->mapToGlobal(QPoint(4, 4)));
  QApplication::sendEvent(box, &rightClick);
  EXPECT_EQ(opened, 1);
  expectReachable(*page, 18);
  press(*page, "Ease \\ Motion");
  EXPECT_FALSE(box->isVisible()) << "the options of Ease stand there now";
  stepUp(*page, "Motion speed");
  EXPECT_EQ(clip.MoveSpeedA(), 1.01F);
  press(*page, "Back to the effects");
  EXPECT_TRUE(box->isVisible());

  auto* rows = named<EffectRows>(*page, "Effects");
  for (const int key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Space}) QTest::keyClick(rows, Qt::Key(key));
  EXPECT_TRUE(EffectWord(clip.EffectWord()).isOn(2)) << "the second";
  EXPECT_EQ(tab.names.lastUsed, (std::vector<std::string>{"Invert", "Watercolor"}));
  QTest::mouseClick(box, Qt::LeftButton, {}, {box->width() - 34, box->height() / 2});
  EXPECT_TRUE(names.isFavourite("Watercolor"));
  EXPECT_TRUE(box->isChecked()) << "the star is no switch";
  press(*page, "Favourites and those used last alone");
  EXPECT_EQ(tab.names.shown, (std::vector<std::string>{"Invert", "Watercolor"}));
  QTest::keyClicks(named<QLineEdit>(*page, "Find an effect by its name"), "water");
  EXPECT_TRUE(box->isVisible());
  EXPECT_FALSE(named<QAbstractButton>(*page, "Invert")->isVisible());
  EXPECT_EQ(box->y(), 0) << "it moves up";
}

TEST(SampleMotion, MovesWhileThePointerDoesAndComesToRest) {
  int drawn = 0;
  GreySamples samples;
  SampleMotion motion(samples, [&] { ++drawn; });
  EXPECT_EQ(motion.step(true), kSampleStill);
  motion.stir();
  for (int i = 0; i < 3; ++i) motion.tick();
  EXPECT_EQ(motion.step(false), kSampleStill + 3);
  motion.rest();
  EXPECT_EQ(motion.step(false), kSampleStill);
  EXPECT_EQ(drawn, 4);
  motion.stir();
  for (int i = 0; i < 100; ++i) motion.tick();
  EXPECT_EQ(motion.step(false), kSampleStill);
  EXPECT_EQ(drawn, 4 + 5 * kSampleSteps) << "below a pointer that rests";
  samples.isCalm = true;
  motion.stir();
  motion.tick();
  EXPECT_EQ(motion.step(false), kSampleStill);
  EXPECT_EQ(motion.step(true), kSampleStill + 1) << "that below the pointer alone";
}

TEST(AudioPage, FadesLevelAndMusic) {
  PageBench b;
  AudioTab tab;
  auto page = b.open<AudioPage>(tab);
  for (int i = 0; i < 15; ++i) stepUp(*page, "Fade in of this clip");
  stepUp(*page, "Level of this clip in the movie");
  EXPECT_EQ(b.clip(2).AudioFadeInTime(), 1.5F);
  EXPECT_EQ(b.clip(2).AudioOutputLevel(), 1.1F);
  expectReachable(*page);
  press(*page, "All from the start of the movie");
  EXPECT_FALSE(b.settings.preferences().ExternalAudioStack);
  press(*page, "Auto Trim");
  EXPECT_FALSE(b.settings.preferences().AutoTrimAudio);
  press(*page, "Put this sound in the movie");
  EXPECT_FALSE(b.clip(2).RenderAudio());
  EXPECT_FALSE(named<QAbstractSlider>(*page, "Fade in of this clip")->isEnabled());
}

TEST(StillsPage, DurationAndAspect) {
  PageBench b;
  b.collection.icurMov = 3;
  StillsTab tab;
  auto page = b.open<StillsPage>(tab, PictureOfClip());
  stepUp(*page, "Still Duration");
  press(*page, "Maintain and fill target frame");
  EXPECT_EQ(b.clip(3).LoopEnd().text(), "7.1");
  EXPECT_EQ(b.clip(3).stretchmode(), 2);
  expectReachable(*page);
  press(*page, "Treat all stills in group the same");
  EXPECT_FALSE(b.settings.preferences().StillsIndividual);
}

TEST(ColorPage, LevelsSepiaAndReset) {
  PageBench b;
  ColorTab tab;
  b.clip(2).Red(110);
  b.clip(2).Contrast(4);
  QImage small(80, 60, QImage::Format_RGB32);
  small.fill(toColour(token("violet")));
  const auto picture = [small](int) { return small; };
  auto page = b.open<ColorPage>(tab, ColorPage::Pictures{picture, picture});
  stepUp(*page, "Red");
  press(*page, "Sepia");
  EXPECT_EQ(b.clip(2).Red(), 111);
  EXPECT_TRUE(b.clip(2).Sepia());
  expectReachable(*page);
  press(*page, "Reset");
  EXPECT_EQ(b.clip(2).Red(), 0);
  EXPECT_FALSE(named<QAbstractButton>(*page, "Reset")->isEnabled());
}

TEST(OverlayPage, PlacesOneClipOverAnother) {
  PageBench b;
  OverlayTab tab;
  auto page = b.open<OverlayPage>(tab);
  chooseOverlay(b.editing, tab, b.host, 0);
  page->draw();
  press(*page, "Bottom Right Third");
  press(*page, "Rectangular - 32bit Color Req");
  press(*page, "Trim Overlay length to backdrop length (Rate Adjust)");
  EXPECT_EQ(b.clip(2).HasPicInPic(), "001312100000000000001");
  press(*page, "Add Audio from Overlay Clip - ( Level = 100% )");
  EXPECT_TRUE(tab.overlaySound.ticked);
  expectReachable(*page);
  press(*page, "Clear");
  EXPECT_EQ(b.clip(2).HasPicInPic(), "");
}

TEST(FrmKeyframe, KeysSlidersAndDiamonds) {
  PageBench b;
  b.settings.change().OutPutFrameRate = 25;
  auto& clip = b.clip(2);
  clip.DurationTime(Value(8));
  clip.DurationFrames(Value(200));
  clip.LoopEnd(Value(8));
  EffectTab tab;
  enterTab(b.editing, tab, b.host);
  constexpr int kColoredPencil = 14;
  tickEffect(b.editing, tab, b.host, kColoredPencil, true);
  ASSERT_TRUE(configure(b.editing, tab, b.host, kColoredPencil).showsKeyframes);
  KeyframeWindow state;
  ASSERT_TRUE(ActivateKeyFrameForm(b.editing, state, b.host));
  QWidget owner;
  owner.resize(1280, 800);
  owner.show();
  std::vector<Long> shownFrames;
  int steps = 0;
  FrmKeyframe* drawn = nullptr;
  b.logic.acted = [&] { drawn->draw(&owner); };
  FrmKeyframe window(
      state, b.logic,
      {[&](Long frame) { shownFrames.push_back(frame); },
       [&](int by) { return steps = by, std::string(by > 0 ? "There is nothing to redo" : ""); },
       {}});
  drawn = &window;
  window.draw(&owner);
  window.move(37, 91);
  window.draw(nullptr);
  EXPECT_FALSE(window.isVisible()) << "while the movie plays";
  window.draw(&owner);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.pos(), QPoint(37, 91));
  named<QAbstractSlider>(window, "Frame")->setValue(80);
  press(window, "Add a new keyframe here");
  named<QAbstractSlider>(window, "Effect Level")->setValue(30);
  stepUp(window, "Effect Level");
  const auto& keyframe = b.collection.KeyframeList[2];
  EXPECT_EQ(std::pair(keyframe.FrameNo, keyframe.Transparency), std::pair(Long{80}, Single{31}));

  auto* strip = named<KeyframeStrip>(window, "Keyframes over time");
  QTest::mousePress(strip, Qt::LeftButton, {}, strip->at(80, 0.31).toPoint());
  const auto target = strip->at(120, 0.8).toPoint();
  QMouseEvent move(QEvent::MouseMove, target, strip->mapToGlobal(target), Qt::LeftButton, Qt::LeftButton, {});
  QApplication::sendEvent(strip, &move);
  QTest::mouseRelease(strip, Qt::LeftButton, {}, target);
  EXPECT_NEAR(keyframe.FrameNo, 120, 1);
  EXPECT_NEAR(keyframe.Transparency, 80, 2);
  QTest::keyClick(strip, Qt::Key_Left);
  EXPECT_NEAR(keyframe.FrameNo, 119, 1);
  EXPECT_EQ(shownFrames.front(), 80);
  EXPECT_NEAR(shownFrames.back(), 119, 1) << "the picture goes with the frame";
  expectReachable(window);
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(strip, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(steps, -1);
  QTest::keyClick(strip, Qt::Key_Y, Qt::ControlModifier);
  EXPECT_TRUE(named(window, "There is nothing to redo")->isVisible());
  press(window, "Delete");
  EXPECT_EQ(b.collection.KeyframeList.count(), 1);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_FALSE(state.visible || window.isVisible());
}

}  // namespace
}  // namespace kvo
