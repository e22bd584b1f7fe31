#include "ui/digit_display.h"
#include "ui/kvo_but.h"
#include "ui/level_lights.h"
#include "ui/owner_place.h"
#include "ui/progress_bar.h"
#include "ui/tool_tips.h"
#include "ui/widget_bench.h"
#include "windows/gallery/gallery.h"

#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <bit>
#include <set>

namespace kvo {
namespace {

constexpr std::array<Rgb, 3> kPictureColours = {0x102030, 0x405060, 0x708090};

QPixmap filled(Rgb colour) {
  QPixmap picture(36, 28);
  picture.fill(toColour(colour));
  return picture;
}

Rgb seen(QWidget& widget, const QPoint& at) { return widget.grab().toImage().pixel(at) & 0xFFFFFFU; }

// How many pixels of a widget are of a colour.
int countOf(QWidget& widget, Rgb colour) {
  const auto image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
  const auto* first = reinterpret_cast<const QRgb*>(image.constBits());
  return static_cast<int>(std::count(first, first + image.width() * image.height(), 0xFF000000 | colour));
}

TEST(OwnerPlace, AWindowStandsByItsOwnerAsFarAsTheScreenHasRoom) {
  const QRect room(0, 30, 1366, 738);
  const QSize size(400, 300);
  const struct {
    const char* what;
    QRect owner;
    QSize size;
    QPoint over, beside;
  } rows[] = {{"in the middle", {300, 200, 600, 400}, size, {400, 250}, {907, 200}},
              {"at the right edge", {900, 200, 600, 400}, size, {965, 250}, {492, 200}},
              {"at the upper left", {-300, -100, 400, 300}, size, {0, 30}, {107, -100}},
              {"at the foot", {300, 600, 600, 400}, size, {400, 467}, {907, 600}},
              {"neither side has room", {100, 200, 1200, 400}, size, {500, 250}, {0, 200}},
              {"too large", {300, 200, 600, 400}, {1400, 900}, {0, 30}, {0, 200}}};
  for (const auto& row : rows) {
    EXPECT_EQ(overOwner(row.owner, room, row.size), row.over) << row.what;
    EXPECT_EQ(besideOwner(row.owner, room, row.size, 8), row.beside) << row.what;
  }
  EXPECT_EQ(overOwner(rows[0].owner, room, size, {0.78, 0.2}), QPoint(568, 130));
  const struct {
    const char* what;
    QRect owner, picture;
    QPoint off;
  } pictures[] = {{"beside it", {0, 100, 900, 500}, {500, 200, 300, 200}, {900, 100}},
                  {"at its left", {450, 100, 916, 500}, {900, 200, 300, 200}, {50, 100}},
                  {"low at the left", {100, 40, 1200, 700}, {500, 100, 500, 300}, {0, 468}},
                  {"low at the right", {100, 40, 1200, 700}, {300, 100, 500, 600}, {966, 468}},
                  {"at the top", {100, 40, 1200, 700}, {300, 350, 900, 400}, {0, 30}},
                  {"no picture", {100, 40, 1200, 700}, {}, {0, 468}}};
  for (const auto& row : pictures)
    EXPECT_EQ(offPicture(row.owner, row.picture, room, size), row.off) << row.what;
}

TEST(KvoBut, ShowsThePictureOfItsState) {
  KVOBut button;
  const QPoint middle(18, 14);
  button.setPictures(filled(kPictureColours[0]), filled(kPictureColours[1]), filled(kPictureColours[2]));
  EXPECT_EQ(button.sizeHint(), QSize(36, 28));
  button.resize(button.sizeHint());
  EXPECT_EQ(seen(button, middle), kPictureColours[0]);
  button.setAttribute(Qt::WA_UnderMouse);
  EXPECT_EQ(seen(button, middle), kPictureColours[1]);
  QTest::mousePress(&button, Qt::LeftButton);
  EXPECT_EQ(seen(button, middle), kPictureColours[2]);
  QTest::mouseRelease(&button, Qt::LeftButton);
  button.setEnabled(false);
  EXPECT_NE(seen(button, middle), kPictureColours[0]);
  EXPECT_NE(seen(button, middle), kPictureColours[1])
      << "one that is disabled does not answer to the pointer";
}

TEST(KvoBut, TakesThePicturesOfItsInterfaceSize) {
  const QTemporaryDir folder;
  ASSERT_TRUE(QDir(folder.path()).mkdir("2"));
  ASSERT_TRUE(filled(kPictureColours[0]).save(folder.filePath("ADDNrm.bmp")));
  ASSERT_TRUE(filled(kPictureColours[1]).scaled(72, 56).save(folder.filePath("2/ADDNrm.bmp")));
  for (const double size : {1.0, 1.5, 2.0}) {
    KVOBut button;
    button.setPictures(folder.filePath("ADDNRM.bmp"), "", "", size);
    EXPECT_EQ(button.sizeHint(), QSize(36, 28) * size) << size;
    button.resize(button.sizeHint());
    EXPECT_EQ(seen(button, {18, 14}), kPictureColours[size > 1 ? 1 : 0]) << size;
  }
}

TEST(KvoBut, IsWorkedByMouseAndKeysAndNamedByItsToolTip) {
  KVOBut button;
  button.setText("Play");
  button.setCheckable(true);
  button.setToolTip("Play the clip");
  int clicks = 0;
  QObject::connect(&button, &KVOBut::clicked, [&] { ++clicks; });
  QTest::mouseClick(&button, Qt::LeftButton);
  QTest::mouseClick(&button, Qt::RightButton);
  for (auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_A}) QTest::keyClick(&button, key);
  EXPECT_EQ(clicks, 3);
  auto* access = QAccessible::queryAccessibleInterface(&button);
  EXPECT_EQ(access->role(), QAccessible::CheckBox);
  EXPECT_EQ(access->text(QAccessible::Name), "Play the clip");
  EXPECT_EQ(access->text(QAccessible::Description), "Play the clip, lit");
  button.setChecked(false);
  EXPECT_EQ(access->text(QAccessible::Description), "Play the clip, unlit");
}

TEST(DigitDisplay, LightsTheBarsOfEachDigit) {
  // Bars lit: top, middle, foot, upper left, upper right, lower left, lower right.
  constexpr std::array kLit = {6, 2, 5, 5, 4, 5, 6, 3, 7, 6};
  std::set<int> shapes;
  for (char digit = '0'; digit <= '9'; ++digit) {
    const auto bars = digitBars(digit);
    EXPECT_EQ(std::popcount(bars), kLit[static_cast<std::size_t>(digit - '0')]) << digit;
    EXPECT_NE(bars & 0x50, 0) << digit << " has a bar at the right";
    shapes.insert(bars);
  }
  EXPECT_EQ(shapes.size(), 10U);
  EXPECT_EQ(digitBars(' '), 0);

  DigitDisplay display(36);
  const auto lit = [&](const char* text) {
    display.setText(text);
    display.resize(display.sizeHint());
    return countOf(display, token("tealHi"));
  };
  const int one = lit("1");
  EXPECT_GT(one, 50);
  EXPECT_GT(countOf(display, token("unlit")), one) << "five bars that are not lit are seen";
  EXPECT_GT(lit("8"), 3 * one);
  EXPECT_GT(lit("1."), one) << "a point is lit beside its digit";
  EXPECT_EQ(widthOfDigits(100, "11.1"), widthOfDigits(100, "88.8")) << "no digit moves another";
}

TEST(LevelLights, AreTealAndThenAmber) {
  LevelLights lights;
  lights.resize(lights.sizeHint());
  lights.setLevel(1);
  const int one = countOf(lights, token("teal"));
  ASSERT_GT(one, 40);
  for (const auto& [level, teal, amber] :
       {std::tuple{-3, 0, 0}, {6, 6, 0}, {7, 6, 1}, {10, 6, 4}, {99, 6, 4}}) {
    lights.setLevel(level);
    EXPECT_NEAR(countOf(lights, token("teal")), teal * one, one / 2) << level;
    EXPECT_NEAR(countOf(lights, token("amber")), amber * one, one / 2) << level;
  }
}

TEST(ProgressBar, FillsAsFarAsTheWorkIsAndTravelsWhereThatIsNotKnown) {
  ProgressBar bar;
  bar.resize(240, 6);
  for (int value : {0, 3, 6, 12}) {
    bar.setRange(0, 12);
    bar.setValue(value);
    EXPECT_NEAR(countOf(bar, token("teal")), 240 * 6 * value / 12, 60) << value;
  }
  bar.setRange(0, 0);
  EXPECT_LE(countOf(bar, token("teal")), 240 * 6 / 3);
}

TEST(Gallery, EveryWidgetThatTheKeyboardReachesSaysWhatItIs) {
  Gallery gallery;
  int reached = 0;
  for (auto* part : gallery.findChildren<QWidget*>()) {
    if (part->window() != &gallery || part->objectName().startsWith("qt_") ||
        !(part->focusPolicy() & Qt::TabFocus))
      continue;
    ++reached;
    const auto* access = QAccessible::queryAccessibleInterface(part);
    EXPECT_NE(access->text(QAccessible::Name), "") << part->metaObject()->className();
  }
  EXPECT_GT(reached, 60);
}

TEST(ToolTips, TellTheKeysThatDoTheSame) {
  KVOBut key;
  key.setToolTip("Undo a < b");
  key.show();
  EXPECT_EQ(test::tipAt(key, {3, 3}), "Undo a < b");
  setKeys(key, "Ctrl+Z");
  const auto tip = test::tipAt(key, {3, 3});
  for (const auto* part : {"Undo a &lt; b", "Ctrl+Z"}) EXPECT_NE(tip.find(part), std::string::npos) << tip;
  EXPECT_EQ(key.accessibleName(), "Undo a < b");
  QToolTip::hideText();
  ASSERT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));  // it goes after a moment
  showToolTips(*qApp, false);
  EXPECT_EQ(test::tipAt(key, {3, 3}), "");
  showToolTips(*qApp, true);
  EXPECT_NE(test::tipAt(key, {3, 3}), "");
}

}  // namespace
}  // namespace kvo
