// The timeline on the screen: what mouse, wheel and keys bring to it, and what it draws.
#include "windows/editor/timeline_view.h"

#include "editor/timeline/timeline_bench.h"
#include "support/named_sketches.h"
#include "ui/widget_bench.h"

namespace kvo {
namespace {

struct ShownTimeline : testing::Test, test::TimelineBench {
  test::NamedSketches sketches;
  TimelineView view{{state, hand, sketches, {}}};

  ShownTimeline() {
    holiday();
    hand.takeInHand(2);
    view.resize(1280, 202);
    view.show();
    view.draw();
  }
  [[nodiscard]] QPoint spot(double seconds, int y) const { return {qRound(state.sight.xOf(seconds)), y}; }
  [[nodiscard]] QColor colour(double seconds, int y) {
    return view.grab().toImage().pixelColor(spot(seconds, y) * view.devicePixelRatio());
  }
  void mouseDrag(const QPoint& from, const QPoint& to) {
    QTest::mousePress(&view, Qt::LeftButton, Qt::AltModifier, from);
    for (int i = 1; i <= 4; ++i)
      test::movePointer(view, from + (to - from) * i / 4, Qt::LeftButton, Qt::AltModifier);
  }
};

TEST_F(ShownTimeline, DragsKeysAndTheWheelReachTheHand) {
  mouseDrag(spot(12.4, 80), spot(11.4, 80));
  EXPECT_TRUE(state.drag);
  QTest::mouseRelease(&view, Qt::LeftButton, {}, spot(11.4, 80));
  EXPECT_TRUE(look().ends_with("mark 2"));
  for (const auto key : {Qt::Key_Right, Qt::Key_BracketRight, Qt::Key_Left, Qt::Key_Delete, Qt::Key_Return})
    QTest::keyClick(&view, key);
  QTest::keyClick(&view, Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(look(), "select 3, frame 3 7, frame 3 6.96, mark 3, remove 3, trimmer 3, move 3 2");
  hand.zoom(100, 84);
  const double there = state.sight.secondsAt(600);
  test::turnWheel(view, {600, 80}, 1, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(state.sight.scale, 125);
  EXPECT_NEAR(state.sight.secondsAt(600), there, 0.001);
}

TEST_F(ShownTimeline, FilesAreDroppedWhereTheyAreLetGo) {
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/v/new clip.avi")});
  QDragEnterEvent enter(spot(9, 80), Qt::CopyAction, &files, Qt::LeftButton, {});
  QApplication::sendEvent(&view, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(spot(9, 80), Qt::CopyAction, &files, Qt::LeftButton, {});
  QApplication::sendEvent(&view, &drop);
  EXPECT_EQ(look(), "insert /v/new clip.avi before 3");
}

TEST_F(ShownTimeline, PicturesAreAskedForInSightOnlyAndDrawnWhenTheyCome) {
  for (int i = 0; i < 200; ++i) video("far.avi", 0, 5, 60);
  show();
  view.draw();
  view.grab();
  const auto isFar = [](const std::string& asked) { return asked.find("far.avi 4") != std::string::npos; };
  EXPECT_TRUE(std::none_of(sketches.asked.begin(), sketches.asked.end(), isFar));
  EXPECT_LT(sketches.asked.size(), 60U);
  const auto before = colour(2, 80);
  sketches.come("/v/opening.mp4", 0);
  view.sketchesCame("/v/opening.mp4");
  EXPECT_NE(colour(2, 80), before);
}

TEST_F(ShownTimeline, SaysThatNothingIsThereOnlyWhereNothingComes) {
  hand.show({});
  const auto picture = [&](bool comes) {
    state.isComing = comes;
    view.draw();
    return view.grab().toImage();
  };
  EXPECT_NE(picture(true), picture(false));
}

TEST_F(ShownTimeline, AScreenReaderHearsTheClips) {
  auto* list = QAccessible::queryAccessibleInterface(&view);
  EXPECT_EQ(list->role(), QAccessible::List);
  ASSERT_EQ(list->childCount(), 4);
  EXPECT_EQ(list->child(1)->text(QAccessible::Name),
            "Clip 2, lake.mpg, 8.4 seconds, Dissolve over 2.0 seconds, 2 effects");
  EXPECT_TRUE(list->child(1)->state().selected);
  EXPECT_EQ(list->child(3)->text(QAccessible::Name).left(7), "Music 4");
  const auto place = list->child(2)->rect();
  EXPECT_EQ(list->childAt(place.center().x(), place.center().y()), list->child(2));
}

}  // namespace
}  // namespace kvo
