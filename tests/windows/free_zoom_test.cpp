// The Free Zoom face, the menus of the window, and its toolbar's picture.
#include "windows/face_bench.h"
#include "windows/main/toolbar_picture.h"

#include <QCursor>
#include <QMenu>
#include <QPainter>
#include <QTimer>

namespace kvo {
namespace {

using test::FaceBench;

TEST(FreeZoom, TakesTheFacesPlaceAndGivesItBack) {
  FaceBench b;
  auto& normal = b.face();
  normal.move(300, 200);
  b.click("Free Zoom Mode");
  auto& zoom = b.face();
  ASSERT_NE(&zoom, &normal);
  EXPECT_EQ(zoom.windowTitle(), "KVO5 - Free Zoom Mode");
  EXPECT_EQ(zoom.pos(), QPoint(300, 200));
  EXPECT_EQ(zoom.focusWidget(), &zoom) << "no key has the keyboard unasked";
  EXPECT_TRUE(b.at("Play").isEnabled());
  b.click("Normal Mode");
  EXPECT_EQ(&b.face(), &normal);
  EXPECT_EQ(normal.pos(), QPoint(300, 200));
  EXPECT_EQ(b.face().focusWidget(), &b.at("Clips"));
}

TEST(FreeZoom, ItsLabelsKeepTheirShareOfAnyWidth) {
  FaceBench b;
  b.click("Free Zoom Mode");
  for (const int width : {506, 700, 1200}) {
    b.face().resize(width, 500);
    QTest::qWait(1);
    // Of 7590, the design's width.
    for (const auto& [name, left] : {std::pair{"Play", 0}, {"Half the speed", 4450}, {"Normal Mode", 7100}}) {
      EXPECT_NEAR(b.at(name).x(), left * width / 7590.0, 1) << name << width;
      EXPECT_NEAR(b.at(name).width(), 400 * width / 7590.0, 1) << name << width;
    }
    EXPECT_EQ(b.at("Picture").geometry().bottom() + 1, 500);
  }
  b.click("Slider");
  EXPECT_EQ(b.at("Slider").accessibleDescription(), "Slider, lit");
  EXPECT_NE(b.find("Position"), nullptr);
}

TEST(FreeZoom, KeysCoverTheScreenAndLeaveIt) {
  FaceBench b;
  b.key(Qt::Key_F11);
  EXPECT_TRUE(b.face().isFullScreen());
  EXPECT_NE(b.find("Sizable Mode"), nullptr);
  b.key(Qt::Key_2);
  EXPECT_EQ(b.window.list.ListIndex, 1) << "keys go on";
  b.key(Qt::Key_Escape);
  EXPECT_FALSE(b.face().isFullScreen());
  EXPECT_TRUE(b.window.mode.IsMiniMode);
  b.key(Qt::Key_Escape);
  EXPECT_FALSE(b.window.mode.IsMiniMode);
}

TEST(FreeZoom, TheToolbarGoesWhileTheMouseRestsOnACoveredScreen) {
  FaceBench b;
  b.key(Qt::Key_F11);
  QCursor::setPos(b.face().mapToGlobal(b.face().rect().center()));
  const auto gone = [&] { return b.find("Normal Mode") == nullptr; };
  EXPECT_TRUE(QTest::qWaitFor(gone, 4000));
  QTest::mouseClick(&b.face(), Qt::LeftButton, {}, {5, b.face().height() - 5});
  EXPECT_FALSE(gone());
}

TEST(FullPicture, CoversTheScreenUntilEscape) {
  FaceBench b;
  const auto full = []() -> QWidget* {
    for (auto* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->isFullScreen()) return window;
    }
    return nullptr;
  };
  b.key(Qt::Key_Return, Qt::AltModifier);
  ASSERT_NE(full(), nullptr);
  EXPECT_EQ(full()->childAt(full()->rect().center())->accessibleName(), "Picture");
  QTest::keyClick(full(), Qt::Key_Escape);
  EXPECT_EQ(full(), nullptr);
  EXPECT_FALSE(b.window.mode.player.fullScreen);
  b.key(Qt::Key_Return, Qt::AltModifier);
  ASSERT_NE(full(), nullptr);
  b.show(3);
  ASSERT_NE(full(), nullptr) << "another clip is shown there too";
  b.waitForPicture();
  EXPECT_EQ(b.window.picture.wish.path, "/v/c.jpg");
  QTest::keyClick(full(), Qt::Key_Return, Qt::AltModifier);
  EXPECT_EQ(full(), nullptr);
}

TEST(FreeZoom, APictureGoesWithThePointerOverItsSliderWhichCanBePressed) {
  FaceBench b;
  b.click("Free Zoom Mode");
  b.face().resize(700, 500);
  b.click("Slider");
  auto& toolbar = *b.at("Slider").parentWidget();
  const QPoint middle(350, 37);
  const auto move = [&](const QPoint& at) {
    QMouseEvent moved(QEvent::MouseMove, at, toolbar.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&toolbar, &moved);
  };
  move(middle);
  EXPECT_TRUE(b.window.hover.visible);
  EXPECT_EQ(b.window.hover.time, "0:05");
  move({350, 5});
  EXPECT_FALSE(b.window.hover.visible) << "over the keys";
  QTest::mousePress(&toolbar, Qt::LeftButton, {}, middle);
  EXPECT_TRUE(b.window.positions.held.BlobDragging);
  QTest::mouseRelease(&toolbar, Qt::LeftButton, {}, middle);
  EXPECT_NEAR(b.links.player().PlayerGetCurrentPosition(), 5, 0.1);
  EXPECT_GE(b.at("Position").width(), 24);
  b.show(3);
  EXPECT_EQ(b.find("Position"), nullptr) << "a still has no place";
  EXPECT_EQ(b.at("Picture").geometry(), QRect(0, 46, 700, 454)) << "and fills what the toolbar leaves";
}

TEST(FreeZoom, AStreamThatRunsLowSaysSoOnThePicture) {
  FaceBench b;
  b.window.transport.stream = {true, "128000 bps", "Morning - Ann", "40%  @ 128000", true, false};
  b.draw();
  EXPECT_EQ(b.find("40%  @ 128000"), nullptr) << "the glass of the normal face tells it";
  b.click("Free Zoom Mode");
  EXPECT_NE(b.find("40%  @ 128000"), nullptr);
  b.window.transport.stream.buffer = false;
  b.draw();
  EXPECT_EQ(b.find("40%  @ 128000"), nullptr);
}

TEST(FreeZoom, TheNextStartIsWhereTheSkinnedFaceStood) {
  FaceBench b;
  b.face().move(300, 200);
  b.click("Free Zoom Mode");
  b.face().move(300, 224);  // by the height of a title bar
  b.shutDown.exit();
  b.draw();
  EXPECT_TRUE(b.store.read("FrmFileOpenPlace").starts_with("300,200,")) << b.store.read("FrmFileOpenPlace");
}

TEST(FaceMenu, ShortcutsAndEntriesDoTheSame) {
  FaceBench b;
  b.key(Qt::Key_Delete);
  EXPECT_EQ(b.names().size(), 2U);
  b.key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(b.names().size(), 3U);
  b.window.menu.mnu_Looping = true;
  QStringList marked;
  QString undo;
  QTimer::singleShot(0, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (auto* action : menu->actions()) {
      if (action->isChecked()) marked << action->text().remove('&');
      if (action->text().contains("Redo")) undo = action->text();
      if (!action->text().contains("Redo")) continue;
      EXPECT_TRUE(action->isEnabled());
      action->trigger();
    }
    menu->close();
  });
  b.key(Qt::Key_F10);
  EXPECT_EQ(marked, (QStringList{"Loop clips", "Resume long clips"}));
  EXPECT_TRUE(undo.endsWith("\tCtrl+Shift+Z")) << undo.toStdString();
  EXPECT_EQ(b.names().size(), 2U) << "done again";
}

TEST(ToolbarPicture, IsDrawnAtAnyWidthWithItsGlyphsAsTheyAre) {
  ToolbarPicture picture;
  picture.load(KVO_SHARE "/kvo5/Buttons/Toolbarb.bmp", 1, 1);
  QImage wide(1000, 46, QImage::Format_RGB32);
  QPainter painter(&wide);
  picture.drawGround(painter, wide.rect());
  for (int x = 1; x < wide.width(); ++x) ASSERT_EQ(wide.pixel(x, 20), wide.pixel(0, 20)) << x;
  picture.drawGlyph(painter, {480, 0, 40, 28}, 750 / 7590.0, 400 / 7590.0, Qt::red);
  painter.end();
  // Two bars, in the middle of their place and as wide as in the picture.
  int red = 0;
  int first = 0;
  int last = 0;
  for (int x = 480; x < 520; ++x) {
    if (qRed(wide.pixel(x, 15)) < 200) continue;
    ++red;
    if (first == 0) first = x;
    last = x;
  }
  EXPECT_NEAR(red, 5, 2);
  EXPECT_NEAR((first + last) / 2.0, 499.5, 1.5);
  ToolbarPicture none;
  none.load("/none.bmp", 1, 1);
  QPainter again(&wide);
  none.drawGround(again, wide.rect());
  none.drawGlyph(again, wide.rect(), 0, 1, Qt::red);
}

}  // namespace
}  // namespace kvo
