#include "ui/theme.h"

#include "ui/message_card.h"
#include "ui/widget_bench.h"

#include <QBitmap>
#include <QFocusFrame>
#include <QMenu>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <algorithm>

namespace kvo {
namespace {

TEST(Tokens, TextAndMarksStandOutFromTheirGrounds) {
  const struct {
    double least;
    std::vector<std::pair<const char*, const char*>> pairs;  // a mark and its ground
  } kRows[] = {
      {6.5, {{"onTeal", "primaryFoot"}, {"red", "ink2"}}},
      {5.5, {{"text3", "ink2"}}},
      {4.5, {{"text3", "ink1"}, {"text3", "ink0"}, {"text3", "menu"}}},
      {4.5, {{"text1", "keyTop"}, {"text1", "keyHover"}, {"text1", "tealBg"}}},
      {4.5, {{"onTeal", "primaryDown"}, {"dangerText", "redLo"}, {"amber", "amberLo"}}},
      {4.5, {{"detail", "plate"}, {"violet", "violetLo"}}},
      {3, {{"line3", "ink2"}, {"teal", "tealBg"}}},  // the rim of a check box, the bar of a chosen row
  };
  const auto colour = [](std::string_view name) {
    return std::ranges::find(kTokens, name, &Token::name)->rgb;
  };
  for (const auto& row : kRows) {
    for (const auto& [mark, ground] : row.pairs)
      EXPECT_GE(contrast(colour(mark), colour(ground)), row.least) << mark << " on " << ground;
  }
  EXPECT_NEAR(contrast(0x000000, 0xFFFFFF), 21, 1e-9);
}

TEST(Tokens, AChosenColourIsLightenedUntilItCanBeReadAndKeepsItsHue) {
  for (Rgb colour : {0x0000FFU, 0x400000U, 0x203020U, 0x00C0C0U, 0x000000U}) {
    const auto shown = readableOn(token("plate"), colour);
    EXPECT_GE(contrast(shown, token("plate")), 4.5) << std::hex << colour;
    const auto before = toColour(colour).hslHue();
    EXPECT_NEAR(toColour(shown).hslHue(), before, 2) << std::hex << colour;
  }
  EXPECT_EQ(readableOn(token("plate"), 0x00C0C0), 0x00C0C0U) << "what can be read stays as it was chosen";
}

TEST(Theme, TheSheetHasColoursOfTheTableAlone) {
  auto sheet = themeSheet();
  EXPECT_GT(sheet.size(), 1000);
  EXPECT_FALSE(sheet.contains('@')) << sheet.mid(sheet.indexOf('@'), 20).toStdString();
  for (const auto& [name, rgb] : kTokens) sheet.remove(toColour(rgb).name());
  const auto other = QRegularExpression("#[0-9A-Fa-f]{6}").match(sheet);
  EXPECT_FALSE(other.hasMatch()) << other.captured().toStdString();
}

class Focus : public testing::Test {
 protected:
  Focus() {
    auto* column = new QVBoxLayout(&window_);
    for (QWidget* part : std::initializer_list<QWidget*>{&first_, &second_, &box_}) column->addWidget(part);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }
  bool hasRing(const QWidget& widget) const {
    for (const auto* frame : window_.findChildren<QFocusFrame*>()) {
      if (frame->widget() == &widget && frame->isVisible()) return true;
    }
    return false;
  }

  QWidget window_;
  QPushButton first_{"First", &window_}, second_{"Second", &window_};
  QCheckBox box_{"Box", &window_};
};

TEST_F(Focus, IsShownWhereTheKeyboardBroughtItAndNotTheMouse) {
  QTest::mouseClick(&first_, Qt::LeftButton);
  first_.setFocus(Qt::MouseFocusReason);
  EXPECT_TRUE(first_.hasFocus());
  EXPECT_FALSE(hasRing(first_)) << "after a mouse press";
  const auto drawn = second_.grab().toImage();
  QTest::keyClick(&first_, Qt::Key_Tab);
  EXPECT_EQ(second_.grab().toImage(), drawn) << "the ring lies about the key, not in it";
  EXPECT_TRUE(hasRing(second_)) << "after Tab";
  const auto before = box_.grab().toImage();
  QTest::keyClick(&second_, Qt::Key_Tab);
  EXPECT_FALSE(hasRing(second_)) << "left";
  EXPECT_FALSE(hasRing(box_)) << "a check box rings its mark, not its whole width";
  EXPECT_NE(box_.grab().toImage(), before);
}

TEST(Theme, TakesAnotherSizeAsAWhole) {
  for (const double size : {2.0, 1.5, 1.0}) {
    setThemeSize(*qApp, size);
    QMenu menu;
    menu.addAction("one");
    const int one = menu.sizeHint().height();
    menu.addAction("two");
    EXPECT_EQ(menu.sizeHint().height() - one, 26 * size);
    EXPECT_EQ(QApplication::font().pixelSize(), 12 * size);
    EXPECT_EQ(MessageCard(MessageFace()).width(), 470 * size);
    QPushButton key("key");
    key.ensurePolished();
    EXPECT_GE(key.sizeHint().height(), 26 * size);
    EXPECT_EQ(themeSheet(size).contains("border: 1px"), size < 2) << "hairlines";
  }
}

TEST_F(Focus, TheRingIsAboutTheKeyThatAWidgetStandsForAndWholeAtTheWindowsEdge) {
  window_.resize(200, 200);
  QWidget key(&window_);
  key.setFocusPolicy(Qt::StrongFocus);
  key.show();
  const auto ring = [&](int top) {
    key.setGeometry(150, top, 28, 28);
    key.clearFocus();
    key.setFocus(Qt::TabFocusReason);
    const auto lit =
        window_.grab().toImage().createMaskFromColor(toColour(token("focus")).rgb(), Qt::MaskOutColor);
    return QRegion(QBitmap::fromImage(lit));
  };
  EXPECT_EQ(ring(150).boundingRect(), QRect(146, 146, 36, 36)) << "2 pixels wide, 2 outside";
  EXPECT_EQ(ring(1) & QRect(160, 0, 8, 2), QRect(160, 0, 8, 2)) << "its upper side is there";
  key.setProperty("ringInset", QPoint(3, 2));
  EXPECT_EQ(ring(150).boundingRect(), QRect(149, 148, 30, 32));
}

}  // namespace
}  // namespace kvo
