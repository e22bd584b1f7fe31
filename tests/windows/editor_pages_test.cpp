// The pages of the editor, driven as a user drives them.
#include "editor/tabs/operations.h"
#include "editor/tabs/tab_bench.h"
#include "ui/widget_bench.h"
#include "windows/editor/audio_page.h"
#include "windows/editor/color_page.h"
#include "windows/editor/effect_page.h"
#include "windows/editor/effect_rows.h"
#include "windows/editor/overlay_page.h"
#include "windows/editor/sample_motion.h"
#include "windows/editor/stills_page.h"
#include "windows/keyframe/frm_keyframe.h"
#include "windows/keyframe/keyframe_strip.h"

#include <QAbstractSlider>

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

// The second of its four clips is in hand.
struct PageBench : testing::Test, TabBench {
  PageLogic logic{editing, host, [] {}};

  PageBench() {
    clip(2).LoopStart(Value(0));
    clip(2).LoopEnd(Value(8));
    for (int i = 1; i <= 4; ++i) clip(i).HasAudio(true);
    clip(3).stretchmode(1);
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

// Presses these keys of a page; a "+" goes one step up on the slider of this name.
void use(QWidget& page, const std::vector<QString>& names) {
  for (const auto& name : names) {
    if (name.startsWith('+')) {
      QTest::keyClick(named<QAbstractSlider>(page, name.mid(1)), Qt::Key_Right);
    } else {
      named<QAbstractButton>(page, name)->click();
    }
  }
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

TEST_F(PageBench, EffectTicksSlidersAndRightClicksReachTheRecord) {
  EffectTab tab;
  int opened = 0;
  test::MemoryStore store;
  NameChooser names(tab.names, store, "Effect");
  GreySamples samples;
  auto page = open<EffectPage>(tab, EffectPage::Choice{names, samples}, [&] { ++opened; });
  names.offer(effectNames(tab));
  page->draw();
  use(*page, {"Watercolor", "Film age", "+Film age"});
  auto& record = clip(2);
  EXPECT_TRUE(EffectWord(record.EffectWord()).isOn(EffectSwitch::FilmAge));
  EXPECT_EQ(record.AgeIntensity(), 36);
  auto* box = named<QAbstractButton>(*page, "Watercolor");
  test::openMenu(*box, {4, 4});
  EXPECT_EQ(opened, 1);
  expectReachable(*page, 18);
  use(*page, {"Ease \\ Motion"});
  EXPECT_FALSE(box->isVisible()) << "the options of Ease stand there now";
  use(*page, {"+Motion speed", "Back to the effects"});
  EXPECT_EQ(record.MoveSpeedA(), 1.01F);
  EXPECT_TRUE(box->isVisible());

  auto* rows = named<EffectRows>(*page, "Effects");
  for (const int key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Space}) QTest::keyClick(rows, Qt::Key(key));
  EXPECT_TRUE(EffectWord(record.EffectWord()).isOn(2)) << "the second";
  EXPECT_EQ(tab.names.lastUsed, (std::vector<std::string>{"Invert", "Watercolor"}));
  QTest::mouseClick(box, Qt::LeftButton, {}, {box->width() - 34, box->height() / 2});
  EXPECT_TRUE(names.isFavourite("Watercolor"));
  EXPECT_TRUE(box->isChecked()) << "the star is no switch";
  use(*page, {"Favourites and those used last alone"});
  EXPECT_EQ(tab.names.shown.rows(), (std::vector<std::string>{"Invert", "Watercolor"}));
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
  const auto stir = [&](int ticks) {
    motion.stir();
    for (int i = 0; i < ticks; ++i) motion.tick();
    return motion.step(false);
  };
  EXPECT_EQ(stir(3), kSampleStill + 3);
  motion.rest();
  EXPECT_EQ(motion.step(false), kSampleStill);
  EXPECT_EQ(drawn, 4);
  EXPECT_EQ(stir(100), kSampleStill);
  EXPECT_EQ(drawn, 4 + 5 * kSampleSteps) << "below a pointer that rests";
  samples.isCalm = true;
  EXPECT_EQ(stir(1), kSampleStill);
  EXPECT_EQ(motion.step(true), kSampleStill + 1) << "that below the pointer alone";
}

TEST_F(PageBench, AudioFadesLevelAndMusic) {
  AudioTab tab;
  auto page = open<AudioPage>(tab);
  use(*page, std::vector<QString>(15, "+Fade in of this clip"));
  expectReachable(*page);
  use(*page, {"+Level of this clip in the movie", "All from the start of the movie", "Auto Trim",
              "Put this sound in the movie"});
  EXPECT_EQ(clip(2).AudioFadeInTime(), 1.5F);
  EXPECT_EQ(clip(2).AudioOutputLevel(), 1.1F);
  EXPECT_FALSE(settings.preferences().ExternalAudioStack || settings.preferences().AutoTrimAudio);
  EXPECT_FALSE(clip(2).RenderAudio());
  EXPECT_FALSE(named<QAbstractSlider>(*page, "Fade in of this clip")->isEnabled());
}

TEST_F(PageBench, StillsDurationAndAspect) {
  collection.icurMov = 3;
  StillsTab tab;
  auto page = open<StillsPage>(tab, PictureOfClip());
  expectReachable(*page);
  use(*page, {"+Still Duration", "Maintain and fill target frame", "Treat all stills in group the same"});
  EXPECT_EQ(clip(3).LoopEnd().text(), "7.1");
  EXPECT_EQ(clip(3).stretchmode(), 2);
  EXPECT_FALSE(settings.preferences().StillsIndividual);
}

TEST_F(PageBench, ColorLevelsSepiaAndReset) {
  ColorTab tab;
  clip(2).Red(110);
  clip(2).Contrast(4);
  QImage small(80, 60, QImage::Format_RGB32);
  small.fill(toColour(token("violet")));
  const auto picture = [small](int) { return small; };
  auto page = open<ColorPage>(tab, ColorPage::Pictures{picture, picture});
  use(*page, {"+Red", "Sepia"});
  EXPECT_EQ(clip(2).Red(), 111);
  EXPECT_TRUE(clip(2).Sepia());
  expectReachable(*page);
  use(*page, {"Reset"});
  EXPECT_EQ(clip(2).Red(), 0);
  EXPECT_FALSE(named<QAbstractButton>(*page, "Reset")->isEnabled());
}

TEST_F(PageBench, OverlayPlacesOneClipOverAnother) {
  OverlayTab tab;
  auto page = open<OverlayPage>(tab);
  chooseOverlay(editing, tab, host, 0);
  page->draw();
  use(*page, {"Bottom Right Third", "Rectangular - 32bit Color Req",
              "Trim Overlay length to backdrop length (Rate Adjust)",
              "Add Audio from Overlay Clip - ( Level = 100% )"});
  EXPECT_EQ(clip(2).HasPicInPic(), "001312100000000000001");
  EXPECT_TRUE(tab.overlaySound.ticked);
  expectReachable(*page);
  use(*page, {"Clear"});
  EXPECT_EQ(clip(2).HasPicInPic(), "");
}

TEST_F(PageBench, KeyframeKeysSlidersAndDiamonds) {
  settings.change().OutPutFrameRate = 25;
  auto& record = clip(2);
  record.DurationTime(Value(8));
  record.DurationFrames(Value(200));
  EffectTab tab;
  enterTab(editing, tab, host);
  tickEffect(editing, tab, host, 14, true);  // Colored pencil, which has keyframes
  configure(editing, tab, host, 14);
  KeyframeWindow state;
  ASSERT_TRUE(ActivateKeyFrameForm(editing, state, host));
  QWidget owner;
  owner.show();
  std::vector<Long> shownFrames;
  int steps = 0;
  FrmKeyframe* drawn = nullptr;
  logic.acted = [&] { drawn->draw(&owner); };
  const auto go = [&](int by) { return steps = by, std::string(by > 0 ? "There is nothing to redo" : ""); };
  FrmKeyframe window(state, logic, {[&](Long frame) { shownFrames.push_back(frame); }, go, {}});
  drawn = &window;
  window.draw(&owner);
  window.move(37, 91);
  window.draw(nullptr);
  EXPECT_FALSE(window.isVisible()) << "while the movie plays";
  window.draw(&owner);
  EXPECT_TRUE(window.isVisible() && window.pos() == QPoint(37, 91));
  named<QAbstractSlider>(window, "Frame")->setValue(80);
  use(window, {"Add a new keyframe here"});
  named<QAbstractSlider>(window, "Effect Level")->setValue(30);
  use(window, {"+Effect Level"});
  const auto& keyframe = collection.KeyframeList[2];
  EXPECT_TRUE(keyframe.FrameNo == 80 && keyframe.Transparency == 31);

  auto* strip = named<KeyframeStrip>(window, "Keyframes over time");
  QTest::mousePress(strip, Qt::LeftButton, {}, strip->at(80, 0.31).toPoint());
  const auto target = strip->at(120, 0.8).toPoint();
  test::movePointer(*strip, target, Qt::LeftButton);
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
  use(window, {"Delete"});
  EXPECT_EQ(collection.KeyframeList.count(), 1);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_FALSE(state.visible || window.isVisible());
}

}  // namespace
}  // namespace kvo
