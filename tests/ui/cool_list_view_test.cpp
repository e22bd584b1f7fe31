#include "ui/cool_list_view.h"

#include "ui/theme.h"

#include <QAccessible>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace kvo {
namespace {

constexpr int kRowHeight = 20;
constexpr ControlColour kGround = 0x00F0F0;    // blue 0, green F0, red F0
constexpr ControlColour kSelected = 0xFF00F0;  // blue FF, green 0, red F0
constexpr ControlColour kBorder = 0x00FF00;

// Five rows of 20 pixels in a window, no frame.
class ListView : public testing::Test {
 protected:
  ListView() {
    CoolListProperties p;
    p.BorderStyle = 0;
    p.ItemHeightAuto = false;
    p.ItemHeight = kRowHeight;
    p.WordWrap = false;
    p.BackNormal = kGround;
    p.BackSelected = kSelected;
    p.BackSelectedG1 = 0x0000FF;
    p.BackSelectedG2 = 0xFF0000;
    p.BoxBorder = kBorder;
    p.BoxOffset = 3;
    p.FontSelected = 0xFFFFFF;
    p.Focus = false;
    view.setProperties(p);
    view.setFixedSize(120, 5 * kRowHeight);
    window.setLayout(new QVBoxLayout);
    window.layout()->addWidget(&view);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    view.setFocus();
  }
  void fill(int count) {
    for (int i = 0; i < count; ++i) view.list().AddItem("item " + std::to_string(i));
  }
  void change(const std::function<void(CoolListProperties&)>& how) {
    auto p = view.list().properties();
    how(p);
    view.setProperties(p);
  }
  void press(int row) { QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(60, row * kRowHeight + 5)); }
  void release(int row) { QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(60, row * kRowHeight + 5)); }

  QWidget window;
  CoolListView view{&window};
};

TEST_F(ListView, DrawsASelectedRowInItsStyle) {
  struct Row {
    int style;
    QPoint at;
    Rgb rgb;
    const char* what;
  };
  const QPoint kMiddle(100, kRowHeight + 10), kTop(100, kRowHeight), kFoot(100, 2 * kRowHeight - 1),
      kRight(119, kRowHeight + 10), kOffset(100, kRowHeight + 3), kOtherRow(100, 5);
  const Row kRows[] = {
      {0, kMiddle, 0xF000FF, "filled"},
      {0, QPoint(1, kRowHeight + 10), token("teal"), "with a bar, since colour alone says no state"},
      {0, kOtherRow, 0xF0F000, "as others"},
      {1, kMiddle, 0xF00000, "combined by AND"},
      {1, QPoint(36, kRowHeight + 10), 0x400000, "with its icon, too"},
      {2, kTop, 0xFF0000, "downward from the first colour"},
      {2, kFoot, 0x0000FF, "to the second"},
      {3, QPoint(0, kRowHeight + 1), 0xFF0000, "to the right from the first"},
      {3, kRight, 0x0000FF, "to the second"},
      {4, kTop, 0xF0F000, "outside the box"},
      {4, kOffset, 0x00FF00, "on its border"},
      {4, kMiddle, 0xF000FF, "in the box"},
      {5, kMiddle, 0xF0F000, "underlined"},
      {6, kMiddle, 0xF000FF, "as 0, without a picture"},
      {7, kMiddle, 0x102030, "as 6, with a picture"},
  };
  QPixmap icon(8, 8);
  icon.fill(toColour(0x402010));
  view.SetImageList({icon});
  view.setLook({{}, 32, Qt::ElideRight, {}, true});
  view.list().AddItem("a");
  view.list().AddItem("", 1);
  ASSERT_TRUE(view.list().setListIndex(1).ok());
  QPixmap picture(2, 2);
  picture.fill(toColour(0x102030));
  for (const auto& row : kRows) {
    change([&](auto& p) { p.SelectModeStyle = std::min(row.style, 6); });
    if (row.style == 7) view.setSelectionPicture(picture);
    const auto image = view.grab().toImage();
    const auto seen = image.pixelColor(row.at);
    const auto wanted = toColour(row.rgb);
    const int apart = std::abs(seen.red() - wanted.red()) + std::abs(seen.green() - wanted.green()) +
                      std::abs(seen.blue() - wanted.blue());
    EXPECT_LE(apart, 40) << "style " << row.style << ' ' << row.what << ' ' << seen.name().toStdString();
  }
}

TEST_F(ListView, OfTenThousandItemsDrawsThoseThatAreSeen) {
  int drawn = 0;
  view.setLook({{}, 0, Qt::ElideRight, [&](int) { return ++drawn, QString(); }, true});
  fill(10000);
  auto* bar = view.findChild<QScrollBar*>("Bar");
  ASSERT_NE(bar, nullptr);
  EXPECT_TRUE(bar->isVisible());
  EXPECT_EQ(bar->maximum(), 9995);
  EXPECT_EQ(bar->pageStep(), 5);
  EXPECT_EQ(bar->width(), 13);
  const auto afterDrawing = [&] {
    QCoreApplication::processEvents();
    return std::exchange(drawn, 0);
  };
  afterDrawing();
  bar->setValue(5000);
  EXPECT_EQ(view.list().TopIndex(), 5000);
  EXPECT_EQ(afterDrawing(), 5);
  ASSERT_TRUE(view.list().setListIndex(5001).ok());
  afterDrawing();
  QTest::keyClick(&view, Qt::Key_Down);
  EXPECT_EQ(afterDrawing(), 2) << "the row that is left and the one that is reached";
  ASSERT_TRUE(view.list().ModifyItem(3, "out of view").ok());
  EXPECT_EQ(afterDrawing(), 0);
  view.list().Clear();
  EXPECT_FALSE(bar->isVisible());
}

TEST_F(ListView, TellsWhatTheUserDoesInOrder) {
  std::string told;
  const auto say = [&](const char* word) { return [&told, word](const auto&...) { told += word; }; };
  view.events = {say("Click "), say("DblClick "),  say("Index "),     say("KeyDown "), say("KeyPress "),
                 say("KeyUp "), say("MouseDown "), say("MouseMove "), say("MouseUp ")};
  fill(9);
  const auto look = [&] { return std::exchange(told, ""); };
  press(1);
  release(1);
  EXPECT_EQ(look(), "MouseDown Index MouseUp Click ");
  QTest::mouseDClick(&view, Qt::LeftButton, {}, QPoint(60, kRowHeight + 5));
  EXPECT_NE(look().find("DblClick"), std::string::npos);
  QTest::mouseClick(&view, Qt::RightButton, {}, QPoint(60, 3 * kRowHeight));
  EXPECT_EQ(look(), "MouseDown MouseUp ") << "a right press only tells";
  for (const auto key : {Qt::Key_Down, Qt::Key_Left}) QTest::keyClick(&view, key);
  EXPECT_EQ(look(), "KeyDown Index KeyUp KeyDown KeyUp ");
}

TEST_F(ListView, IsReachedByKeysAlone) {
  fill(9);
  auto& list = view.list();
  QTest::keyClick(&view, Qt::Key_End);
  EXPECT_EQ(list.ListIndex(), 8);
  change([](auto& p) { p.SelectMode = 2; });
  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(std::pair(list.SelectedCount(), list.ListIndex()), std::pair(9, 8)) << "which stays";
  ASSERT_TRUE(list.setListIndex(-1).ok());
  QTest::keyClick(&view, Qt::Key_Home);
  EXPECT_TRUE(list.SelectedCount() == 1 && list.item(0).ItemSelected) << "what the first key leads to";
  EXPECT_EQ(view.inputMethodQuery(Qt::ImCursorRectangle).toRect(), view.itemRect(0))
      << "its menu opens there";
  change([](auto& p) { p.SelectMode = 0; });
  for (const auto* text : {"Lake", "lamp", "Oak", "Lake two"}) list.AddItem(text);
  ASSERT_TRUE(list.setListIndex(0).ok());
  for (const auto* typed : {"lam", "p"}) {
    QTest::keyClicks(&view, typed);
    EXPECT_EQ(list.item(list.ListIndex()).ItemText, "lamp") << "still the same beginning";
  }
}

TEST_F(ListView, GivesLettersDigitsAndSpaceToItsWindow) {
  fill(3);
  std::string keys;
  view.commandKey = [&](const QKeyEvent& event) { return keys += event.text().toStdString(), true; };
  QTest::keyClicks(&view, "iP5 ");
  QTest::keyClick(&view, Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(keys, "iP5 ");
  ASSERT_TRUE(view.list().setListIndex(-1).ok());
  for (auto key : {Qt::Key_Left, Qt::Key_Right}) {
    QKeyEvent event(QEvent::KeyPress, key, {});
    QCoreApplication::sendEvent(&view, &event);
    EXPECT_FALSE(event.isAccepted()) << key;
  }
  EXPECT_EQ(view.list().ListIndex(), -1) << "no item was looked for";
}

TEST_F(ListView, EditsInPlace) {
  const struct {
    const char* what;
    bool wraps;
    std::function<void(QWidget*)> end;
    const char* after;
  } kRows[] = {
      {"Enter keeps", false, [](QWidget* box) { QTest::keyClick(box, Qt::Key_Return); }, "new"},
      {"so does a line feed", false,
       [](QWidget* box) { QTest::keyClick(box, Qt::Key_Return, Qt::ControlModifier); }, "new"},
      {"which wrapped text may have", true,
       [](QWidget* box) {
         QTest::keyClick(box, Qt::Key_Return, Qt::ControlModifier);
         QTest::keyClicks(box, "line");
         QTest::keyClick(box, Qt::Key_Return);
       },
       "new\nline"},
      {"Esc does not", false, [](QWidget* box) { QTest::keyClick(box, Qt::Key_Escape); }, "old"},
      {"leaving does not", false, [](QWidget* box) { box->clearFocus(); }, "old"},
  };
  fill(1);
  auto* box = view.findChild<QPlainTextEdit*>("txtEdit");
  ASSERT_NE(box, nullptr);
  for (const auto& row : kRows) {
    change([&](auto& p) { p.WordWrap = row.wraps; });
    ASSERT_TRUE(view.list().ModifyItem(0, "old").ok());
    ASSERT_TRUE(view.list().setListIndex(0).ok());
    view.list().StartEdit();
    ASSERT_TRUE(box->isVisible()) << row.what;
    if (!row.wraps) {
      EXPECT_NEAR(box->geometry().center().y(), kRowHeight / 2, 1) << "in line with the row";
    }
    QTest::keyClicks(box, "new");  // in the place of the whole text, which is selected
    row.end(box);
    EXPECT_FALSE(box->isVisible()) << row.what;
    EXPECT_EQ(view.list().item(0).ItemText, row.after) << row.what;
  }
}

TEST_F(ListView, TakesDropsBetweenItsRows) {
  fill(3);
  QMimeData carried, other;
  carried.setText("clip");
  std::string got;
  view.accepts = [](const QMimeData& data) { return data.hasText(); };
  view.dropped = [&](const QMimeData& data, int before) {
    got += data.text().toStdString() + std::to_string(before) + " ";
  };
  const auto enter = [&](int y, const QMimeData& data) {
    QDragEnterEvent event(QPoint(50, y), Qt::CopyAction, &data, Qt::LeftButton, {});
    event.ignore();
    QCoreApplication::sendEvent(&view, &event);
    return event.isAccepted();
  };
  const auto move = [&](int y) {
    QDragMoveEvent event(QPoint(50, y), Qt::CopyAction, &carried, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view, &event);
  };
  for (int y : {2, kRowHeight - 2, 2 * kRowHeight + 12, 4 * kRowHeight}) {
    EXPECT_TRUE(enter(y, carried));
    const auto before = view.grab().toImage();
    move(y);
    EXPECT_NE(view.grab().toImage(), before) << "the place is shown";
    QDropEvent drop(QPointF(50, y), Qt::CopyAction, &carried, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view, &drop);
  }
  EXPECT_EQ(got, "clip0 clip1 clip3 clip3 ");
  EXPECT_FALSE(enter(2, other));
  fill(50);
  enter(5 * kRowHeight - 2, carried);
  move(5 * kRowHeight - 2);
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.list().TopIndex() > 2; })) << "while the pointer rests";
  QDragLeaveEvent leave;
  QCoreApplication::sendEvent(&view, &leave);
  const int top = view.list().TopIndex();
  QTest::qWait(150);
  EXPECT_EQ(view.list().TopIndex(), top);
}

TEST_F(ListView, ADragOutCarriesInsteadOfSelecting) {
  fill(4);
  int carried = -1;
  view.dragOut = [&](int index) { return carried = index, nullptr; };
  press(1);
  QTest::mouseMove(&view, QPoint(60, 3 * kRowHeight + 5));
  release(3);
  EXPECT_EQ(carried, 1);
  EXPECT_EQ(view.list().ListIndex(), 1);
}

TEST_F(ListView, ShowsTheWholeOfATextThatIsCut) {
  view.list().AddItem("short");
  view.list().AddItem("a name that is a good deal longer than the row that it stands in");
  const auto tip = [&](int row) {
    QToolTip::hideText();
    const QPoint at(50, row * kRowHeight + 5);
    QHelpEvent help(QEvent::ToolTip, at, view.mapToGlobal(at));
    QCoreApplication::sendEvent(&view, &help);
    return QToolTip::text().toStdString();
  };
  EXPECT_EQ(tip(0), "");
  EXPECT_EQ(tip(1), view.list().item(1).ItemText);
  view.setToolTip("of the list");
  EXPECT_EQ(tip(0), "of the list");
}

TEST_F(ListView, IsAListOfNamedItemsToAScreenReader) {
  fill(9);
  ASSERT_TRUE(view.list().setListIndex(2).ok());
  auto* access = QAccessible::queryAccessibleInterface(&view);
  ASSERT_NE(access, nullptr);
  EXPECT_EQ(access->role(), QAccessible::List);
  EXPECT_EQ(access->childCount(), 9);
  auto* item = access->child(2);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->text(QAccessible::Name), "item 2");
  EXPECT_TRUE(item->state().selected);
  EXPECT_TRUE(item->state().focused);
  EXPECT_EQ(item->rect().topLeft(), view.mapToGlobal(QPoint(0, 2 * kRowHeight)));
  EXPECT_EQ(access->indexOfChild(item), 2);
  EXPECT_TRUE(access->child(8)->state().offscreen);
  EXPECT_EQ(access->child(9), nullptr);
  view.list().Clear();
  EXPECT_FALSE(item->isValid());
}

}  // namespace
}  // namespace kvo
