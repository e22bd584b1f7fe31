// The keys of the face and the small windows, from the user's hand to the player.
#include "windows/position/position_windows.h"

#include "windows/face_bench.h"

#include <QListWidget>

namespace kvo {
namespace {

using test::FaceBench;

struct PlaceBench : FaceBench {
  using FaceBench::FaceBench;
  PositionWindows windows{
      window.positions, window.mode, play.positions(), {store, desktop}, [this] { drawAll(); }};
  void drawAll() {
    draw();
    windows.draw(frm->shownFace());
  }
  /// Of the small windows, the one with this title that is seen; null for none.
  static QWidget* small(const QString& title) {
    for (auto* widget : QApplication::topLevelWidgets()) {
      const bool named = widget->windowTitle() == title || widget->accessibleName().startsWith(title);
      if (widget->isVisible() && named) return widget;
    }
    return nullptr;
  }
  [[nodiscard]] Long frame() { return seenFrame(links.player()).frame; }
};

TEST(PositionWindows, ArrowsMoveTheHandleThatHasTheKeyboardAndElseStep) {
  PlaceBench b;
  auto& clip = b.collection.MovieList[1];
  b.play.positions().core.seekFrame(100);
  b.face().setFocus();
  b.key(Qt::Key_Right);
  EXPECT_EQ(b.frame(), 101);
  b.at("Clips").setFocus();
  b.key(Qt::Key_Left);
  EXPECT_EQ(b.frame(), 100) << "and from the list";
  b.at("Position").setFocus();
  b.key(Qt::Key_Right);
  EXPECT_NEAR(b.frame(), 103, 1) << "a hundredth of the line";
  b.at("Mark-In").setFocus();
  b.key(Qt::Key_Right);
  EXPECT_NEAR(clip.LoopStart().number(), 0.1, 0.04);
  EXPECT_EQ(b.window.list.ListIndex, 0);
}

TEST(PositionWindows, StepAndSpeedKeysReachThePlayer) {
  PlaceBench b;
  b.play.positions().core.seekFrame(100);
  b.draw();
  const QString forward = "One frame forward";
  b.click(forward);
  EXPECT_EQ(b.frame(), 101);
  QTest::mousePress(&b.at(forward), Qt::LeftButton);
  b.loop.advance(450);
  QTest::mouseRelease(&b.at(forward), Qt::LeftButton);
  EXPECT_EQ(b.frame(), 103) << "held";
  const QString advance = "Right-Click to position to end or Click or Hold Down to advance 5 frames";
  b.click(advance);
  EXPECT_EQ(b.frame(), 108);
  QContextMenuEvent right(QContextMenuEvent::Mouse, QPoint(5, 5), b.at(advance).mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&b.at(advance), &right);
  EXPECT_EQ(b.frame(), 250) << "the end of the section";
  b.click("Twice the speed");
  b.drawAll();
  EXPECT_EQ(b.control.rate(), 2);
  EXPECT_NE(b.small("Rate"), nullptr);
  b.loop.advance(2300);
  b.drawAll();
  EXPECT_EQ(b.small("Rate"), nullptr);
}

TEST(PositionWindows, ThePositionerIsTypedInto) {
  PlaceBench b;
  b.click("Direct Positioner");
  b.drawAll();
  auto* window = b.small("Direct Positioner");
  ASSERT_NE(window, nullptr);
  for (const auto key : {Qt::Key_4, Qt::Key_Period, Qt::Key_2, Qt::Key_Return})
    QTest::keyClick(window->focusWidget(), key);
  EXPECT_EQ(b.frame(), 105);
  QTest::keyClick(window->focusWidget(), Qt::Key_Up);
  window->move(900, 40);
  QTest::keyClick(window, Qt::Key_Escape);
  EXPECT_EQ(b.small("Direct Positioner"), nullptr);
  b.face().move(20, 300);
  b.click("Direct Positioner");
  b.drawAll();
  EXPECT_EQ(window->pos(), QPoint(900, 40)) << "where it was put";
}

TEST(PositionWindows, AFileWithChaptersHasAKeyForItsIndex) {
  PlaceBench b;
  EXPECT_EQ(b.find("Index"), nullptr);
  b.engineFiles["/v/b.avi"].markers = {{0, "One"}, {4, "Two"}};
  b.list.PreviewMovie(2);
  b.drawAll();
  auto* index = b.small("Index");
  ASSERT_NE(index, nullptr);
  auto& list = *index->findChild<QListWidget*>();
  ASSERT_EQ(list.count(), 2);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(1)).center());
  EXPECT_EQ(b.frame(), 100);
  index->setGeometry(900, 60, 300, 400);
  index->close();
  b.drawAll();
  EXPECT_EQ(b.small("Index"), nullptr);
  b.click("Index");
  b.drawAll();
  EXPECT_NE(b.small("Index"), nullptr);
  EXPECT_EQ(index->geometry(), QRect(900, 60, 300, 400)) << "as it was put";
  b.list.PreviewMovie(1);
  b.drawAll();
  EXPECT_EQ(b.small("Index"), nullptr);
}

}  // namespace
}  // namespace kvo
