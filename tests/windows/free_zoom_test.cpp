// The Free Zoom face, the menus of the window, and its toolbar's picture.
#include "windows/face_bench.h"
#include "windows/main/toolbar_picture.h"

#include <QCursor>
#include <QMenu>
#include <QPainter>
#include <QTimer>

namespace kvo {
namespace {

using FreeZoom = test::Face;
using FaceMenu = test::Face;

TEST_F(FreeZoom, TakesTheFacesPlaceAndGivesItBack) {
  auto& normal = face();
  normal.move(300, 200);
  click("Free Zoom Mode");
  auto& zoom = face();
  ASSERT_NE(&zoom, &normal);
  EXPECT_EQ(zoom.windowTitle(), "KVO5 - Free Zoom Mode");
  EXPECT_EQ(zoom.pos(), QPoint(300, 200));
  EXPECT_EQ(zoom.focusWidget(), &zoom) << "no key has the keyboard unasked";
  EXPECT_TRUE(at("Play").isEnabled());
  click("Normal Mode");
  EXPECT_EQ(&face(), &normal);
  EXPECT_EQ(normal.pos(), QPoint(300, 200));
  EXPECT_EQ(face().focusWidget(), &at("Clips"));
}

TEST_F(FreeZoom, ItsLabelsKeepTheirShareOfAnyWidth) {
  click("Free Zoom Mode");
  for (const int width : {506, 700, 1200}) {
    face().resize(width, 500);
    QTest::qWait(1);
    // Of 7590, the design's width.
    for (const auto& [name, left] : {std::pair{"Play", 0}, {"Half the speed", 4450}, {"Normal Mode", 7100}}) {
      EXPECT_NEAR(at(name).x(), left * width / 7590.0, 1) << name << width;
      EXPECT_NEAR(at(name).width(), 400 * width / 7590.0, 1) << name << width;
    }
    EXPECT_EQ(at("Picture").geometry().bottom() + 1, 500);
  }
  click("Slider");
  EXPECT_EQ(at("Slider").accessibleDescription(), "Slider, lit");
  EXPECT_NE(find("Position"), nullptr);
}

TEST_F(FreeZoom, ThePresentSpeedIsLit) {
  const auto lit = [&] {
    QStringList names;
    for (const char* name : {"A quarter of the speed", "Half the speed", "Twice the speed"})
      if (at(name).accessibleDescription().endsWith("lit")) names << name;
    return names.join(", ").toStdString();
  };
  click("Half the speed");
  click("Free Zoom Mode");
  EXPECT_EQ(lit(), "Half the speed");
  click("Twice the speed");
  EXPECT_EQ(lit(), "Twice the speed");
  key(Qt::Key_F11);
  EXPECT_EQ(lit(), "Twice the speed") << "on the whole screen, too";
  show(3);
  EXPECT_EQ(lit(), "") << "a still has none";
}

TEST_F(FreeZoom, KeysCoverTheScreenAndLeaveIt) {
  key(Qt::Key_F11);
  EXPECT_TRUE(face().isFullScreen());
  EXPECT_NE(find("Sizable Mode"), nullptr);
  key(Qt::Key_2);
  EXPECT_EQ(window.list.ListIndex, 1) << "keys go on";
  key(Qt::Key_Escape);
  EXPECT_FALSE(face().isFullScreen());
  EXPECT_TRUE(window.mode.IsMiniMode);
  key(Qt::Key_Escape);
  EXPECT_FALSE(window.mode.IsMiniMode);
}

TEST_F(FreeZoom, TheToolbarGoesWhileTheMouseRestsOnACoveredScreen) {
  key(Qt::Key_F11);
  QCursor::setPos(face().mapToGlobal(face().rect().center()));
  const auto gone = [&] { return find("Normal Mode") == nullptr; };
  EXPECT_TRUE(QTest::qWaitFor(gone, 4000));
  QTest::mouseClick(&face(), Qt::LeftButton, {}, {5, face().height() - 5});
  EXPECT_FALSE(gone());
}

TEST_F(FreeZoom, AFullPictureCoversTheScreenUntilEscape) {
  const auto full = []() -> QWidget* {
    for (auto* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->isFullScreen()) return window;
    }
    return nullptr;
  };
  key(Qt::Key_Return, Qt::AltModifier);
  ASSERT_NE(full(), nullptr);
  EXPECT_EQ(full()->childAt(full()->rect().center())->accessibleName(), "Picture");
  QTest::keyClick(full(), Qt::Key_Escape);
  EXPECT_EQ(full(), nullptr);
  EXPECT_FALSE(window.mode.player.fullScreen);
  key(Qt::Key_Return, Qt::AltModifier);
  show(3);
  ASSERT_NE(full(), nullptr) << "another clip is shown there too";
  waitForPicture();
  EXPECT_EQ(window.picture.wish.path, "/v/c.jpg");
  QTest::keyClick(full(), Qt::Key_Return, Qt::AltModifier);
  EXPECT_EQ(full(), nullptr);
}

TEST_F(FreeZoom, APictureGoesWithThePointerOverItsSliderWhichCanBePressed) {
  click("Free Zoom Mode");
  face().resize(700, 500);
  click("Slider");
  auto& toolbar = *at("Slider").parentWidget();
  const QPoint middle(350, 37);
  test::movePointer(toolbar, middle);
  EXPECT_TRUE(window.hover.visible);
  EXPECT_EQ(window.hover.time, "0:05");
  test::movePointer(toolbar, {350, 5});
  EXPECT_FALSE(window.hover.visible) << "over the keys";
  QTest::mousePress(&toolbar, Qt::LeftButton, {}, middle);
  EXPECT_TRUE(window.positions.held.BlobDragging);
  QTest::mouseRelease(&toolbar, Qt::LeftButton, {}, middle);
  EXPECT_NEAR(links.player().PlayerGetCurrentPosition(), 5, 0.1);
  EXPECT_GE(at("Position").width(), 24);
  show(3);
  EXPECT_EQ(find("Position"), nullptr) << "a still has no place";
  EXPECT_EQ(at("Picture").geometry(), QRect(0, 46, 700, 454)) << "and fills what the toolbar leaves";
}

TEST_F(FreeZoom, AStreamThatRunsLowSaysSoOnThePicture) {
  const auto saysSo = [&] { return find("40%  @ 128000") != nullptr; };
  window.transport.stream = {true, "128000 bps", "Morning - Ann", "40%  @ 128000", true, false};
  EXPECT_FALSE(saysSo()) << "the glass of the normal face tells it";
  click("Free Zoom Mode");
  EXPECT_TRUE(saysSo());
  window.transport.stream.buffer = false;
  EXPECT_FALSE(saysSo());
}

TEST_F(FreeZoom, TheNextStartIsWhereTheSkinnedFaceStood) {
  face().move(300, 200);
  click("Free Zoom Mode");
  face().move(300, 224);  // by the height of a title bar
  shutDown.exit();
  draw();
  EXPECT_TRUE(store.read("FrmFileOpenPlace").starts_with("300,200,")) << store.read("FrmFileOpenPlace");
}

TEST_F(FreeZoom, StandsOnTheScreenWithItsFrame) {
  const ScreenArea whole{0, 0, 900, 700};
  desktop.all = {{"first", whole, whole, 1}};
  face().move(800, 600);
  key(Qt::Key_F11);
  key(Qt::Key_Escape);
  ASSERT_TRUE(window.mode.IsMiniMode);
  const auto frame = face().frameGeometry();
  ASSERT_NE(frame.size(), face().size()) << "there is none here";
  EXPECT_TRUE(QRect(0, 0, 900, 700).contains(frame)) << frame.right() << " " << frame.bottom();
}

TEST_F(FaceMenu, ShortcutsAndEntriesDoTheSame) {
  key(Qt::Key_Delete);
  EXPECT_EQ(names().size(), 2U);
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(names().size(), 3U);
  window.menu.mnu_Looping = true;
  QStringList marked;
  QTimer::singleShot(0, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (auto* action : menu->actions()) {
      if (action->isChecked()) marked << action->text().remove('&');
      if (!action->text().contains("Redo")) continue;
      EXPECT_TRUE(action->text().endsWith("\tCtrl+Shift+Z")) << action->text().toStdString();
      action->trigger();
    }
    menu->close();
  });
  key(Qt::Key_F10);
  EXPECT_EQ(marked, (QStringList{"Loop clips", "Resume long clips"}));
  EXPECT_EQ(names().size(), 2U) << "done again";
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
  std::vector<int> red;
  for (int x = 480; x < 520; ++x) {
    if (qRed(wide.pixel(x, 15)) >= 200) red.push_back(x);
  }
  ASSERT_NEAR(static_cast<double>(red.size()), 5, 2);
  EXPECT_NEAR((red.front() + red.back()) / 2.0, 499.5, 1.5);
  ToolbarPicture none;
  none.load("/none.bmp", 1, 1);
  QPainter again(&wide);
  none.drawGround(again, wide.rect());
  none.drawGlyph(again, wide.rect(), 0, 1, Qt::red);
}

}  // namespace
}  // namespace kvo
