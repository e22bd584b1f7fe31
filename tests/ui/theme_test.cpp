#include "ui/theme.h"

#include "ui/message_card.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusFrame>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(Tokens, TextAndMarksStandOutFromTheirGrounds) {
  const struct {
    const char* what;
    Rgb mark, ground;
    double least;
  } kRows[] = {
      {"hint on a card", token("text3"), token("ink2"), 5.5},
      {"hint on the window", token("text3"), token("ink1"), 4.5},
      {"hint in a list", token("text3"), token("ink0"), 4.5},
      {"text on a key", token("text1"), token("keyTop"), 4.5},
      {"text on a key under the pointer", token("text1"), token("keyHover"), 4.5},
      {"text on a chosen row", token("text1"), token("tealBg"), 4.5},
      {"text on a chosen menu row", token("text3"), token("menu"), 4.5},
      {"primary key, foot", token("onTeal"), token("primaryFoot"), 6.5},
      {"primary key, pressed", token("onTeal"), token("primaryDown"), 4.5},
      {"key that is dangerous", token("dangerText"), token("redLo"), 4.5},
      {"red as text", token("red"), token("ink2"), 6.5},
      {"warning", token("amber"), token("amberLo"), 4.5},
      {"details", token("detail"), token("plate"), 4.5},
      {"overlay audio", token("violet"), token("violetLo"), 4.5},
      {"rim of a check box", token("line3"), token("ink2"), 3},
      {"bar of a chosen row", token("teal"), token("tealBg"), 3},
  };
  for (const auto& row : kRows) EXPECT_GE(contrast(row.mark, row.ground), row.least) << row.what;
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
  const auto sheet = themeSheet();
  EXPECT_GT(sheet.size(), 1000);
  EXPECT_FALSE(sheet.contains('@')) << sheet.mid(sheet.indexOf('@'), 20).toStdString();
  QSet<QString> known;
  for (const auto& [name, rgb] : kTokens) known.insert(toColour(rgb).name());
  for (auto found = QRegularExpression("#[0-9A-Fa-f]{6}").globalMatch(sheet); found.hasNext();) {
    const auto colour = found.next().captured();
    EXPECT_TRUE(known.contains(colour)) << colour.toStdString();
  }
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

// The middle row and column of the ring, from outer edge to outer edge.
TEST_F(Focus, TheRingIsAboutTheKeyThatAWidgetStandsForAndWholeAtTheWindowsEdge) {
  window_.resize(200, 200);
  QWidget key(&window_);
  key.setFocusPolicy(Qt::StrongFocus);
  key.show();
  const auto ring = [&](int top) {
    key.setGeometry(150, top, 28, 28);
    key.clearFocus();
    key.setFocus(Qt::TabFocusReason);
    const auto image = window_.grab().toImage();
    QRect lit;
    for (int i = 0; i < 70; ++i) {
      const QPoint across(130 + i, top + 14), down(164, std::max(top - 20 + i, 0));
      for (const auto& at : {across, down}) {
        if (image.pixelColor(at) == toColour(token("focus"))) lit |= QRect(at, QSize(1, 1));
      }
    }
    return lit;
  };
  EXPECT_EQ(ring(150), QRect(146, 146, 36, 36)) << "2 pixels wide, 2 outside";
  ring(1);
  const auto edge = window_.grab().toImage();
  for (const int y : {0, 1}) EXPECT_EQ(edge.pixelColor(164, y), toColour(token("focus"))) << y;
  key.setProperty("ringInset", QPoint(3, 2));
  EXPECT_EQ(ring(150), QRect(149, 148, 30, 32));
}

}  // namespace
}  // namespace kvo
