#include "ui/cool_list_view.h"

#include "ui/widget_bench.h"

#include <QDropEvent>
#include <QPlainTextEdit>
#include <QVBoxLayout>

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
    (new QVBoxLayout(&window))->addWidget(&view);
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
  static QPoint spot(int row) { return {60, row * kRowHeight + 5}; }

  QWidget window;
  CoolListView view{&window};
};

TEST_F(ListView, DrawsASelectedRowInItsStyle) {
  const struct {
    int style, x, y;  // from the upper left of the row
    Rgb rgb;
    const char* what;
  } kRows[] = {
      {0, 100, 10, 0xF000FF, "filled"},
      {0, 1, 10, token("teal"), "with a bar, since colour alone says no state"},
      {0, 100, -15, 0xF0F000, "as others"},
      {1, 100, 10, 0xF00000, "combined by AND"},
      {1, 36, 10, 0x400000, "with its icon, too"},
      {2, 100, 0, 0xFF0000, "downward from the first colour"},
      {2, 100, kRowHeight - 1, 0x0000FF, "to the second"},
      {3, 0, 1, 0xFF0000, "to the right from the first"},
      {3, 119, 10, 0x0000FF, "to the second"},
      {4, 100, 0, 0xF0F000, "outside the box"},
      {4, 100, 3, 0x00FF00, "on its border"},
      {4, 100, 10, 0xF000FF, "in the box"},
      {5, 100, 10, 0xF0F000, "underlined"},
      {6, 100, 10, 0xF000FF, "as 0, without a picture"},
      {7, 100, 10, 0x102030, "as 6, with a picture"},
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
    const auto seen = view.grab().toImage().pixelColor(row.x, kRowHeight + row.y);
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
  EXPECT_TRUE(bar->isVisible());
  EXPECT_EQ(std::tuple(bar->maximum(), bar->pageStep(), bar->width()), std::tuple(9995, 5, 13));
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
  test::Told told;
  view.events = {told.act("Click"),     told.act("DblClick"),  told.act("Index"),
                 told.act("KeyDown"),   told.act("KeyPress"),  told.act("KeyUp"),
                 told.act("MouseDown"), told.act("MouseMove"), told.act("MouseUp")};
  fill(9);
  QTest::mouseClick(&view, Qt::LeftButton, {}, spot(1));
  EXPECT_EQ(told.look(), "MouseDown Index MouseUp Click ");
  QTest::mouseDClick(&view, Qt::LeftButton, {}, spot(1));
  EXPECT_NE(told.look().find("DblClick"), std::string::npos);
  QTest::mouseClick(&view, Qt::RightButton, {}, QPoint(60, 3 * kRowHeight));
  EXPECT_EQ(told.look(), "MouseDown MouseUp ") << "a right press only tells";
  for (const auto key : {Qt::Key_Down, Qt::Key_Left}) QTest::keyClick(&view, key);
  EXPECT_EQ(told.look(), "KeyDown Index KeyUp KeyDown KeyUp ");
}

TEST_F(ListView, IsReachedByKeysAlone) {
  fill(9);
  auto& list = view.list();
  QTest::keyClick(&view, Qt::Key_End);
  EXPECT_EQ(list.ListIndex(), 8);
  change([](auto& p) { p.SelectMode = 2; });
  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(list.SelectedCount() == 9 && list.ListIndex() == 8) << "which stays";
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
    QKeySequence keys;  // none: the box is left
    const char* after;
  } kRows[] = {
      {"Enter keeps", false, QKeySequence("Return"), "new"},
      {"so does a line feed", false, QKeySequence("Ctrl+Return"), "new"},
      {"which wrapped text may have", true, QKeySequence("Ctrl+Return, L, Return"), "new\nl"},
      {"Esc does not", false, QKeySequence("Esc"), "old"},
      {"leaving does not", false, {}, "old"},
  };
  fill(1);
  auto* box = view.findChild<QPlainTextEdit*>("txtEdit");
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
    row.keys.isEmpty() ? box->clearFocus() : QTest::keySequence(box, row.keys);
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
    const bool accepted = event.isAccepted();
    QDragMoveEvent move(QPoint(50, y), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view, &move);
    return accepted;
  };
  const auto before = view.grab().toImage();
  for (int y : {2, kRowHeight - 2, 2 * kRowHeight + 12, 4 * kRowHeight}) {
    EXPECT_TRUE(enter(y, carried));
    EXPECT_NE(view.grab().toImage(), before) << "the place is shown";
    QDropEvent drop(QPointF(50, y), Qt::CopyAction, &carried, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view, &drop);
    EXPECT_EQ(view.grab().toImage(), before) << "until it is used";
  }
  EXPECT_EQ(got, "clip0 clip1 clip3 clip3 ");
  EXPECT_FALSE(enter(2, other));
  fill(50);
  enter(5 * kRowHeight - 2, carried);
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
  QTest::mousePress(&view, Qt::LeftButton, {}, spot(1));
  QTest::mouseMove(&view, spot(3));
  QTest::mouseRelease(&view, Qt::LeftButton, {}, spot(3));
  EXPECT_EQ(carried, 1);
  EXPECT_EQ(view.list().ListIndex(), 1);
}

TEST_F(ListView, ShowsTheWholeOfATextThatIsCut) {
  view.list().AddItem("short");
  view.list().AddItem("a name that is a good deal longer than the row that it stands in");
  EXPECT_EQ(test::tipAt(view, spot(0)), "");
  EXPECT_EQ(test::tipAt(view, spot(1)), view.list().item(1).ItemText);
  view.setToolTip("of the list");
  EXPECT_EQ(test::tipAt(view, spot(0)), "of the list");
}

TEST_F(ListView, IsAListOfNamedItemsToAScreenReader) {
  fill(9);
  ASSERT_TRUE(view.list().setListIndex(2).ok());
  auto* access = QAccessible::queryAccessibleInterface(&view);
  EXPECT_EQ(access->role(), QAccessible::List);
  EXPECT_EQ(access->childCount(), 9);
  auto* item = access->child(2);
  EXPECT_EQ(item->text(QAccessible::Name), "item 2");
  EXPECT_TRUE(item->state().selected && item->state().focused);
  EXPECT_EQ(item->rect().topLeft(), view.mapToGlobal(QPoint(0, 2 * kRowHeight)));
  EXPECT_EQ(access->indexOfChild(item), 2);
  EXPECT_TRUE(access->child(8)->state().offscreen);
  EXPECT_EQ(access->child(9), nullptr);
  view.list().Clear();
  EXPECT_FALSE(item->isValid());
}

}  // namespace
}  // namespace kvo
