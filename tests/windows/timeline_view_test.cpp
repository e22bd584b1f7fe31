// The timeline on the screen: what mouse, wheel and keys bring to it, and what it draws.
#include "windows/editor/timeline_view.h"

#include "editor/timeline/timeline_bench.h"
#include "support/named_sketches.h"

#include <QAccessible>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct Shown : test::TimelineBench {
  test::NamedSketches sketches;
  TimelineView view{{state, hand, sketches, {}}};

  Shown() {
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
    for (int i = 1; i <= 4; ++i) {
      const QPoint at = from + (to - from) * i / 4;
      QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                       Qt::AltModifier);
      QApplication::sendEvent(&view, &move);
    }
  }
};

TEST(TimelineView, DragsKeysAndTheWheelReachTheHand) {
  Shown s;
  s.mouseDrag(s.spot(12.4, 80), s.spot(11.4, 80));
  EXPECT_TRUE(s.state.drag);
  QTest::mouseRelease(&s.view, Qt::LeftButton, {}, s.spot(11.4, 80));
  EXPECT_TRUE(s.look().ends_with("mark 2"));
  for (const auto key : {Qt::Key_Right, Qt::Key_BracketRight, Qt::Key_Left, Qt::Key_Delete, Qt::Key_Return})
    QTest::keyClick(&s.view, key);
  QTest::keyClick(&s.view, Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(s.look(), "select 3, frame 3 7, frame 3 6.96, mark 3, remove 3, trimmer 3, move 3 2");
  s.hand.zoom(100, 84);
  const double there = s.state.sight.secondsAt(600);
  QWheelEvent zoom({600, 80}, s.view.mapToGlobal(QPointF(600, 80)), {}, {0, 120}, Qt::NoButton,
                   Qt::ControlModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&s.view, &zoom);
  EXPECT_DOUBLE_EQ(s.state.sight.scale, 125);
  EXPECT_NEAR(s.state.sight.secondsAt(600), there, 0.001);
}

TEST(TimelineView, FilesAreDroppedWhereTheyAreLetGo) {
  Shown s;
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/v/new clip.avi")});
  QDragEnterEvent enter(s.spot(9, 80), Qt::CopyAction, &files, Qt::LeftButton, {});
  QApplication::sendEvent(&s.view, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(s.spot(9, 80), Qt::CopyAction, &files, Qt::LeftButton, {});
  QApplication::sendEvent(&s.view, &drop);
  EXPECT_EQ(s.look(), "insert /v/new clip.avi before 3");
}

TEST(TimelineView, PicturesAreAskedForInSightOnlyAndDrawnWhenTheyCome) {
  Shown s;
  for (int i = 0; i < 200; ++i) s.video("far.avi", 0, 5, 60);
  s.show();
  s.view.draw();
  s.view.grab();
  const auto isFar = [](const std::string& asked) { return asked.find("far.avi 4") != std::string::npos; };
  EXPECT_TRUE(std::none_of(s.sketches.asked.begin(), s.sketches.asked.end(), isFar));
  EXPECT_LT(s.sketches.asked.size(), 60U);
  const auto before = s.colour(2, 80);
  s.sketches.come("/v/opening.mp4", 0);
  s.view.sketchesCame("/v/opening.mp4");
  EXPECT_NE(s.colour(2, 80), before);
}

TEST(TimelineView, SaysThatNothingIsThereOnlyWhereNothingComes) {
  Shown s;
  s.hand.show({});
  const auto picture = [&](bool comes) {
    s.state.isComing = comes;
    s.view.draw();
    return s.view.grab().toImage();
  };
  EXPECT_NE(picture(true), picture(false));
}

TEST(TimelineView, AScreenReaderHearsTheClips) {
  Shown s;
  auto* list = QAccessible::queryAccessibleInterface(&s.view);
  ASSERT_NE(list, nullptr);
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
