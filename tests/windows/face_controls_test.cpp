// The keys of the normal face, its slider with the marks, and its knob.
#include "windows/face_bench.h"
#include "windows/main/hover_part.h"

#include <QWheelEvent>

namespace kvo {
namespace {

using test::FaceBench;

TEST(SkinnedFace, ItsKeysSayWhatTheyAreAndWhetherTheyAreLit) {
  FaceBench b;
  const std::pair<const char*, QRect> rows[] = {{"Play", {70, 350, 48, 48}},
                                                {"One frame back", {188, 370, 28, 28}},
                                                {"Half the speed", {332, 370, 32, 28}},
                                                {"Free Zoom Mode", {500, 372, 44, 24}},
                                                {"Close", {451, 0, 24, 24}}};
  for (const auto& [name, place] : rows) {  // of the label, which is larger than a small key
    const auto& key = b.at(name);
    EXPECT_EQ(key.geometry(), place) << name;
    EXPECT_TRUE(key.isEnabled() && !key.toolTip().isEmpty()) << name;
  }
  const auto dark = b.face().grab().toImage();
  b.links.BuildButton(KeyWord::PlayOn);
  b.draw();
  EXPECT_EQ(b.at("Play").accessibleDescription(), "Play, lit");
  EXPECT_NE(b.face().grab().toImage(), dark);
  b.click("Minimise");
  EXPECT_TRUE(b.face().isMinimized());
}

TEST(SkinnedFace, MarksAreDraggedSteppedAndCleared) {
  FaceBench b;
  auto& clip = b.collection.MovieList[1];
  const auto drag = [&](const char* name, int by) {
    auto& handle = b.at(name);
    const QPoint grip(handle.width() / 2, handle.height() / 2);  // not where its place is
    QTest::mousePress(&handle, Qt::LeftButton, {}, grip);
    const auto target = grip + QPoint(by, 0);
    QMouseEvent move(QEvent::MouseMove, target, handle.mapToGlobal(target), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&handle, &move);
    return &handle;
  };
  auto* in = drag("Mark-In", 100);
  EXPECT_EQ(clip.LoopStart().number(), 0) << "not ahead of the release";
  b.waitForPicture();
  EXPECT_NEAR(b.window.picture.wish.seconds, 2, 1e-9) << "what is there is shown meanwhile";
  QTest::mouseRelease(in, Qt::LeftButton);
  EXPECT_EQ(clip.LoopStart().number(), 2);
  QTest::mouseRelease(drag("Mark-Out", -100), Qt::LeftButton);
  EXPECT_EQ(clip.LoopEnd().number(), 8);
  // Mark-In ends, and Mark-Out begins, where the time is, but for the room that takes the mouse.
  EXPECT_EQ(b.at("Mark-In").geometry().right() + 1 + b.at("Mark-In").parentWidget()->x(), 140 + 3);
  EXPECT_EQ(b.at("Mark-Out").geometry().left() + b.at("Mark-Out").parentWidget()->x(), 440 - 3);
  EXPECT_EQ(b.at("Mark-In").width(), 24);

  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers held;
    double start;
  } steps[] = {{Qt::Key_Right, {}, 2.08}, {Qt::Key_Left, Qt::ControlModifier, 2.04}, {Qt::Key_Home, {}, 0}};
  b.at("Mark-In").setFocus();
  for (const auto& step : steps) {
    b.key(step.key, step.held);
    EXPECT_NEAR(clip.LoopStart().number(), step.start, 0.005) << step.key;
  }
  EXPECT_EQ(b.window.list.ListIndex, 0) << "no key of a handle moves the list";
  b.click("Mark-Out", Qt::RightButton);
  EXPECT_EQ(clip.LoopEnd().number(), 10);
  b.show(3);
  EXPECT_EQ(b.find("Mark-In"), nullptr) << "a still has no marks";
}

TEST(SkinnedFace, APictureGoesWithThePointerOverTheSlider) {
  FaceBench b;
  auto& slider = *b.at("Position").parentWidget();
  const auto parts = b.face().findChildren<QWidget*>();
  const auto isHover = [](QWidget* part) { return dynamic_cast<HoverPart*>(part) != nullptr; };
  auto& hover = **std::find_if(parts.begin(), parts.end(), isHover);
  const auto point = [&](int x) {
    const auto at = slider.mapFrom(&b.face(), QPoint(x, 325));
    QMouseEvent move(QEvent::MouseMove, at, slider.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&slider, &move);
  };
  EXPECT_FALSE(hover.isVisible());
  point(290);
  EXPECT_TRUE(hover.isVisible());
  EXPECT_EQ(b.window.hover.time, "0:05");
  EXPECT_NEAR(hover.geometry().center().x(), 290, 1);
  EXPECT_LT(hover.geometry().bottom(), 320) << "it covers nothing of the line";
  const int low = hover.height();
  b.sketches.come("/v/a.avi", 5);
  b.draw();
  EXPECT_GT(hover.height(), low + 50) << "the picture has come";
  EXPECT_EQ(qGray(hover.grab().toImage().pixel(hover.width() / 2, 40)), 5) << "as grey as its time";
  point(540);
  EXPECT_LE(hover.geometry().right(), b.face().width()) << "it stays on the face";
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&slider, &leave);
  EXPECT_FALSE(hover.isVisible());
}

TEST(SkinnedFace, ItsKeysDigitsAndChipsGoByTheClip) {
  FaceBench b;
  const auto offers = [&] {
    b.draw();
    return std::pair(b.find("Click for Previous Clip") != nullptr, b.find("Click for Next Clip") != nullptr);
  };
  EXPECT_EQ(offers(), std::pair(false, false));
  b.list.PreviewMovie(3);
  EXPECT_EQ(offers(), std::pair(true, true)) << "a still";
  b.links.display().Lbl_MiniMode_Click();
  EXPECT_TRUE(offers().second);
  b.links.display().Lbl_MiniMode_Click();
  b.list.PreviewMovie(1);
  EXPECT_EQ(offers(), std::pair(false, false));

  EXPECT_TRUE(b.at("Direct Positioner").isEnabled());
  b.window.mode.panels.Pic_DigNumbers = false;
  b.window.mode.panels.Label2.visible = b.window.mode.panels.Label2On = true;
  b.window.details.chips = {"Mono"};
  b.draw();
  EXPECT_FALSE(b.at("Direct Positioner").isEnabled());
  EXPECT_NE(b.find("Mono"), nullptr) << "nothing is animated";
  b.window.mode.Med_AudAnim.visible = true;
  b.draw();
  EXPECT_NE(b.find("Mono, Anim ON"), nullptr);
}

TEST(SkinnedFace, TheKnobTurnsTheVolume) {
  FaceBench b;
  auto& knob = b.at("Volume");
  knob.setFocus();
  const auto volume = [&] { return b.window.display.volume; };
  b.key(Qt::Key_Down);
  EXPECT_EQ(volume(), 95);
  b.key(Qt::Key_Home);
  EXPECT_EQ(volume(), 0);
  EXPECT_EQ(b.at("Volume").toolTip(), "Volume 0%");
  QWheelEvent notch({20, 20}, knob.mapToGlobal(QPointF(20, 20)), {}, {0, 240}, {}, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&knob, &notch);
  EXPECT_EQ(volume(), 10);
  // Where the pointer is pressed: the arc goes from half past seven to half past four.
  const struct {
    QPoint at;
    int volume;
  } places[] = {{{20, 1}, 50}, {{1, 20}, 17}, {{39, 20}, 83}, {{8, 32}, 0}, {{32, 32}, 100}, {{19, 39}, 100}};
  for (const auto& place : places) {
    QTest::mouseClick(&knob, Qt::LeftButton, {}, place.at);
    EXPECT_NEAR(volume(), place.volume, 1) << place.at.x() << "," << place.at.y();
  }
  QTest::mousePress(&knob, Qt::LeftButton, {}, {19, 39});
  QTest::mouseMove(&knob, {19, 79});
  EXPECT_EQ(volume(), 60) << "pulled down it is softer, wherever its arc ends";
  QTest::mouseRelease(&knob, Qt::LeftButton, {}, {19, 79});
  b.click("Undo");
  EXPECT_EQ(volume(), 100) << "however much it was turned, it is one step";
  b.show(3);
  EXPECT_FALSE(b.at("Volume").isEnabled()) << "a still has no sound";
}

}  // namespace
}  // namespace kvo
