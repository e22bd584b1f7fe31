// The keys of the face and the small windows, from the user's hand to the player.
#include "windows/position/position_windows.h"

#include "windows/face_bench.h"

#include <QListWidget>

namespace kvo {
namespace {

struct PositionKeys : test::Face {
  PositionWindows windows{
      window.positions, window.mode, play.positions(), {store, desktop}, [this] { drawAll(); }};
  void drawAll() {
    draw();
    windows.draw(frm->shownFace());
  }
  /// Of the small windows, the one with this title that is seen; null for none.
  QWidget* small(const QString& title) {
    drawAll();
    for (auto* widget : QApplication::topLevelWidgets()) {
      const bool named = widget->windowTitle() == title || widget->accessibleName().startsWith(title);
      if (widget->isVisible() && named) return widget;
    }
    return nullptr;
  }
  [[nodiscard]] Long frame() { return seenFrame(links.player()).frame; }
};

TEST_F(PositionKeys, ArrowsMoveTheHandleThatHasTheKeyboardAndElseStep) {
  play.positions().core.seekFrame(100);
  face().setFocus();
  key(Qt::Key_Right);
  EXPECT_EQ(frame(), 101);
  at("Clips").setFocus();
  key(Qt::Key_Left);
  EXPECT_EQ(frame(), 100) << "and from the list";
  at("Position").setFocus();
  key(Qt::Key_Right);
  EXPECT_NEAR(frame(), 103, 1) << "a hundredth of the line";
}

TEST_F(PositionKeys, StepAndSpeedKeysReachThePlayer) {
  play.positions().core.seekFrame(100);
  const QString forward = "One frame forward";
  click(forward);
  EXPECT_EQ(frame(), 101);
  QTest::mousePress(&at(forward), Qt::LeftButton);
  loop.advance(450);
  QTest::mouseRelease(&at(forward), Qt::LeftButton);
  EXPECT_EQ(frame(), 103) << "held";
  const QString advance = "Right-Click to position to end or Click or Hold Down to advance 5 frames";
  click(advance);
  EXPECT_EQ(frame(), 108);
  test::openMenu(at(advance), {5, 5});
  EXPECT_EQ(frame(), 250) << "the end of the section";
  click("Twice the speed");
  EXPECT_EQ(control.rate(), 2);
  EXPECT_NE(small("Rate"), nullptr);
  loop.advance(2300);
  EXPECT_EQ(small("Rate"), nullptr);
}

TEST_F(PositionKeys, ThePositionerIsTypedInto) {
  click("Direct Positioner");
  auto* window = small("Direct Positioner");
  ASSERT_NE(window, nullptr);
  for (const auto key : {Qt::Key_4, Qt::Key_Period, Qt::Key_2, Qt::Key_Return})
    QTest::keyClick(window->focusWidget(), key);
  EXPECT_EQ(frame(), 105);
  QTest::keyClick(window->focusWidget(), Qt::Key_Up);
  window->move(900, 40);
  QTest::keyClick(window, Qt::Key_Escape);
  EXPECT_EQ(small("Direct Positioner"), nullptr);
  face().move(20, 300);
  click("Direct Positioner");
  drawAll();
  EXPECT_EQ(window->pos(), QPoint(900, 40)) << "where it was put";
}

TEST_F(PositionKeys, AFileWithChaptersHasAKeyForItsIndex) {
  EXPECT_EQ(find("Index"), nullptr);
  engineFiles["/v/b.avi"].markers = {{0, "One"}, {4, "Two"}};
  list.PreviewMovie(2);
  auto* index = small("Index");
  ASSERT_NE(index, nullptr);
  auto& rows = *index->findChild<QListWidget*>();
  ASSERT_EQ(rows.count(), 2);
  QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rows.visualItemRect(rows.item(1)).center());
  EXPECT_EQ(frame(), 100);
  index->setGeometry(900, 60, 300, 400);
  index->close();
  EXPECT_EQ(small("Index"), nullptr);
  click("Index");
  EXPECT_NE(small("Index"), nullptr);
  EXPECT_EQ(index->geometry(), QRect(900, 60, 300, 400)) << "as it was put";
  list.PreviewMovie(1);
  EXPECT_EQ(small("Index"), nullptr);
}

}  // namespace
}  // namespace kvo
