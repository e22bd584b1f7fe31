#include "ui/cool_list.h"

#include <initializer_list>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using std::chrono::milliseconds;
using Key = CoolList::Key;

constexpr int kRow = 10;

// A list of five rows of 10 pixels, 100 wide.
class List : public testing::Test {
 protected:
  void make(int count, int selectMode = 0) {
    change([&](auto& p) {
      p.ItemHeight = kRow;
      p.SelectMode = selectMode;
    });
    list.setSize(100, 5 * kRow + 3);
    for (int i = 0; i < count; ++i) list.AddItem("item " + std::to_string(i));
    list.events.rowChanged = [this](int row) { drawn += std::to_string(row) + " "; };
    list.events.allChanged = [this] { drawn += "all "; };
    list.events.ListIndexChange = [this] { ++changes; };
    list.events.Click = [this] { ++clicks; };
  }
  void change(const std::function<void(CoolListProperties&)>& how) {
    auto p = list.properties();
    how(p);
    list.setProperties(p);
  }
  void choose(int index) { ASSERT_TRUE(list.setListIndex(index).ok()); }
  std::string selected() const {
    std::string numbers;
    for (int i = 0; i < list.ListCount(); ++i) {
      if (list.item(i).ItemSelected) numbers += (numbers.empty() ? "" : " ") + std::to_string(i);
    }
    return numbers;
  }
  std::string texts() const {
    std::string all;
    for (int i = 0; i < list.ListCount(); ++i) all += (i == 0 ? "" : " ") + list.item(i).ItemText;
    return all;
  }
  void fill(std::initializer_list<const char*> texts) {
    list.Clear();
    int icon = 0;
    for (const auto* text : texts) list.AddItem(text, ++icon);
  }

  CoolList list;
  std::string drawn;
  int changes = 0, clicks = 0;
};

TEST_F(List, HasTheBarOnlyWhenItsRowsDoNotFit) {
  for (const auto& [count, right, max] :
       {std::tuple{0, 100, 0}, {5, 100, 0}, {6, 87, 1}, {10000, 87, 9995}}) {
    make(count - list.ListCount());
    EXPECT_EQ(list.hasBar(), max > 0) << count;
    EXPECT_EQ(list.barMax(), max) << count;
    EXPECT_EQ(list.rowRect(2), (CoolList::Rect{0, 20, right, 30})) << count;
  }
  change([](auto& p) {
    p.ItemOffset = 1;
    p.ItemTextLeft = 20;
  });
  EXPECT_EQ(list.textRect(1), (CoolList::Rect{21, 11, 86, 19}));
}

TEST_F(List, TakesOnlyIndexesThatItHas) {
  make(0);
  EXPECT_TRUE(list.setListIndex(-1).ok());
  EXPECT_FALSE(list.setListIndex(0).ok());
  EXPECT_FALSE(list.InsertItem(0, "a").ok());
  EXPECT_FALSE(list.FindFirst("a", 0, true).ok());
  make(2);
  const std::pair<const char*, std::function<bool(int)>> kRows[] = {
      {"setListIndex", [&](int i) { return list.setListIndex(i).ok(); }},
      {"InsertItem", [&](int i) { return list.InsertItem(i, "x").ok(); }},
      {"ModifyItem", [&](int i) { return list.ModifyItem(i, "x").ok(); }},
      {"RemoveItem", [&](int i) { return list.RemoveItem(i).ok(); }},
      {"FindFirst", [&](int i) { return list.FindFirst("x", i, true).ok(); }},
      {"setItemSelected", [&](int i) { return list.setItemSelected(i, true).ok(); }},
  };
  for (const auto& [what, ok] : kRows) {
    EXPECT_FALSE(ok(list.ListCount())) << what;
    EXPECT_FALSE(ok(-2)) << what;
    EXPECT_TRUE(ok(1)) << what;
  }
  EXPECT_FALSE(list.RemoveItem(-1).ok());
}

TEST_F(List, MovingToAnItemDrawsTwoRowsAndBringsItIntoView) {
  make(8);
  choose(1);
  drawn.clear();
  choose(3);
  EXPECT_EQ(drawn.find("all"), std::string::npos);
  EXPECT_EQ(drawn.find_first_not_of("13 "), std::string::npos) << drawn;
  EXPECT_EQ(selected(), "3");
  choose(7);
  EXPECT_EQ(list.TopIndex(), 3);
  choose(2);
  EXPECT_EQ(list.TopIndex(), 2);
  choose(-1);
  EXPECT_EQ(selected(), "");
  EXPECT_EQ(changes, 5);
}

TEST_F(List, AnIndexInViewStaysThereInAnotherSize) {
  make(0);
  list.setSize(0, 0);
  make(20);
  list.setSize(0, 0);
  choose(1);
  list.setSize(100, 50);
  EXPECT_EQ(list.TopIndex(), 0) << "chosen ahead of the first size";
  choose(4);
  list.setSize(100, 30);
  EXPECT_EQ(list.TopIndex(), 2);
  list.setTopIndex(10);
  list.setSize(100, 50);
  EXPECT_EQ(list.TopIndex(), 10) << "scrolled away from it";
}

TEST_F(List, ItsIndexStaysWithItsItem) {
  make(6);
  choose(3);
  ASSERT_TRUE(list.InsertItem(3, "new").ok());
  EXPECT_EQ(list.ListIndex(), 4);
  EXPECT_EQ(selected(), "4");
  ASSERT_TRUE(list.InsertItem(5, "new").ok());
  EXPECT_EQ(list.ListIndex(), 4);
  ASSERT_TRUE(list.RemoveItem(0).ok());
  EXPECT_EQ(list.ListIndex(), 3);
  EXPECT_EQ(list.item(3).ItemText, "item 3");
  ASSERT_TRUE(list.RemoveItem(3).ok());
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.SelectedCount(), 0);
  list.setTopIndex(100);
  EXPECT_EQ(list.TopIndex(), 1);
  ASSERT_TRUE(list.RemoveItem(0).ok());
  EXPECT_EQ(list.TopIndex(), 0) << "the bar's range went";
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_FALSE(list.hasBar());
}

TEST_F(List, KeysMove) {
  make(12);
  using Row = std::tuple<int, Key, int>;
  for (const auto& [from, key, to] :
       {Row{4, Key::Up, 3}, Row{0, Key::Up, 0}, Row{4, Key::Down, 5}, Row{11, Key::Down, 11},
        Row{7, Key::PageUp, 2}, Row{3, Key::PageUp, 0}, Row{3, Key::PageDown, 8}, Row{9, Key::PageDown, 11},
        Row{5, Key::Home, 0}, Row{5, Key::End, 11}, Row{5, Key::Left, 5}, Row{5, Key::Right, 5},
        Row{5, Key::Space, 5}, Row{-1, Key::Down, -1}}) {
    choose(from);
    list.keyDown(key);
    EXPECT_EQ(list.ListIndex(), to) << from << " key " << static_cast<int>(key);
    EXPECT_EQ(selected(), to < 0 ? "" : std::to_string(to));
  }
  EXPECT_EQ(clicks, 0);
}

TEST_F(List, SpaceInvertsInMultipleMode) {
  make(4, 1);
  list.keyDown(Key::Space);
  EXPECT_EQ(clicks, 0) << "without an index";
  choose(1);
  list.keyDown(Key::Space);
  list.keyDown(Key::Down);
  list.keyDown(Key::Down);
  list.keyDown(Key::Space);
  EXPECT_EQ(selected(), "1 3");
  list.keyDown(Key::Space);
  EXPECT_EQ(selected(), "1");
  EXPECT_EQ(clicks, 3);
  change([](auto& p) { p.SelectMode = 0; });
  EXPECT_EQ(selected(), "3") << "single mode keeps the one at the index";
}

TEST_F(List, ADragGivesWhatItPassesTheStateThatItBeganWith) {
  struct Row {
    const char* what;
    int mode;
    std::initializer_list<int> rows;  // pressed at the first, moved over the others
    const char* after;
  };
  const Row kRows[] = {
      {"single", 0, {1, 2, 3}, "3"},       {"multiple sets", 1, {3, 4}, "0 1 2 3 4"},
      {"multiple clears", 1, {0, 1}, "2"}, {"rows that a fast pointer skips", 1, {0, 2}, ""},
      {"below the last", 1, {7}, "0 1 2"},
  };
  for (const auto& [what, mode, rows, after] : kRows) {
    list.Clear();
    make(5, mode);
    if (mode == 1) {
      for (int i : {0, 1, 2}) ASSERT_TRUE(list.setItemSelected(i, true).ok());
    }
    list.mouseDown(*rows.begin() * kRow + 1);
    for (int row : rows) list.mouseMove(row * kRow + 1, milliseconds(0));
    list.mouseUp();
    list.mouseMove(4 * kRow + 1, milliseconds(0));
    EXPECT_EQ(selected(), after) << what;
  }
}

TEST_F(List, TheItemUnderThePointerIsChosenWhereThatIsWanted) {
  make(5);
  change([](auto& p) { p.HoverSelection = true; });
  list.mouseMove(2 * kRow, milliseconds(0));
  list.mouseMove(2 * kRow + 5, milliseconds(0));
  EXPECT_EQ(selected(), "2");
  EXPECT_EQ(changes, 1) << "one row, one change";
  choose(4);
  list.mouseMove(2 * kRow + 6, milliseconds(0));
  EXPECT_EQ(selected(), "4") << "the pointer still stands in its row";
  list.mouseMove(-30, milliseconds(0));
  EXPECT_FALSE(list.nextStep().has_value()) << "only a drag scrolls";
}

TEST_F(List, ADragBeyondTheEdgeStepsFasterTheFartherItIs) {
  for (const auto& [pixels, step] : {std::pair{1, 480}, {10, 300}, {22, 60}, {23, 40}, {30, 40}, {900, 40}}) {
    list.Clear();
    make(40, 1);
    choose(20);
    list.mouseDown((20 - list.TopIndex()) * kRow);
    list.mouseMove(-pixels, milliseconds(1000));
    const auto times = [&](int from, int to) {
      for (int t = from; t <= to; ++t) list.advance(milliseconds(t));
      return list.ListIndex();
    };
    EXPECT_EQ(times(1000, 1000 + step - 1), 20) << pixels;
    EXPECT_EQ(times(1000 + step, 1000 + 3 * step), 17) << pixels;
    EXPECT_EQ(selected(), "17 18 19 20") << pixels;
    list.mouseMove(20, milliseconds(5000));
    EXPECT_FALSE(list.nextStep()) << "back inside";
    const int index = list.ListIndex();
    list.mouseMove(53 + pixels, milliseconds(6000));
    EXPECT_EQ(list.nextStep(), milliseconds(6000 + step)) << "below, " << pixels;
    list.mouseUp();
    list.advance(milliseconds(9000));
    EXPECT_EQ(list.ListIndex(), index) << "the drag has ended";
  }
}

TEST_F(List, OrderIsThatOfTheBytesBySortingWithGaps) {
  using Texts = std::initializer_list<const char*>;
  const std::tuple<Texts, int, const char*> kRows[] = {
      {{"b", "a"}, 0, "a b"},
      {{"b", "a", "C", "a", "B", "c", "A"}, 0, "A B C a a b c"},
      {{"b", "a", "C", "\xC3\xA9", "z"}, 1, "\xC3\xA9 z b a C"},
  };
  make(0);
  for (const auto& [texts_, orderType, after] : kRows) {
    change([type = orderType](auto& p) { p.OrderType = type; });
    fill(texts_);
    choose(1);
    list.Order();
    EXPECT_EQ(texts(), after);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.SelectedCount(), 0);
  }
  // The gap of 4 carries the first behind its equal; a stable sort would not.
  change([](auto& p) { p.OrderType = 0; });
  fill({"x", "x", "b", "c", "a"});
  list.Order();
  EXPECT_EQ(texts(), "a b c x x");
  EXPECT_EQ(list.item(3).ItemIcon, 2);
  EXPECT_EQ(list.item(4).ItemIcon, 1);
  fill({"only"});
  choose(0);
  list.Order();
  EXPECT_EQ(selected(), "0") << "one item is left alone";
}

TEST_F(List, FindFirst) {
  make(0);
  fill({"Lake", "sailing lake", "LAKEside", "sail"});
  using Row = std::tuple<const char*, int, bool, int>;
  for (const auto& [text, start, fromStart, found] :
       {Row{"lake", 0, true, 0}, Row{"lake", 1, true, 2}, Row{"LAKE", 0, false, 1}, Row{"ake", 0, false, 0},
        Row{"sail", 2, true, 3}, Row{"sail", 2, false, -1}, Row{"sea", 0, true, -1}}) {
    EXPECT_EQ(*list.FindFirst(text, start, fromStart), found) << text << ' ' << start << ' ' << fromStart;
  }
}

TEST_F(List, AnEditIsKeptOrNot) {
  make(8);
  list.StartEdit();
  EXPECT_FALSE(list.editing()) << "without an index";
  choose(7);
  list.setTopIndex(0);
  list.StartEdit();
  EXPECT_TRUE(list.isInView(7));
  EXPECT_EQ(list.editText, "item 7");
  list.editText = "seven";
  list.EndEdit(true);
  EXPECT_EQ(list.item(7).ItemText, "seven");
  for (const auto& leave : std::initializer_list<std::function<void()>>{
           [&] { list.EndEdit(false); }, [&] { static_cast<void>(list.setListIndex(7)); },
           [&] { static_cast<void>(list.RemoveItem(0)); }, [&] { list.setTopIndex(0); },
           [&] { list.Clear(); }}) {
    list.StartEdit();
    list.editText = "other";
    leave();
    EXPECT_FALSE(list.editing());
    for (int i = 0; i < list.ListCount(); ++i) EXPECT_NE(list.item(i).ItemText, "other");
  }
}

TEST(CoolListProperties, AreStoredByName) {
  const auto bag = writeProperties({});
  EXPECT_EQ(bag.size(), 24U);
  EXPECT_EQ(bag.at("BackSelected"), "2147483661");
  EXPECT_EQ(bag.at("ScrollBarWidth"), "13");
  EXPECT_EQ(bag.at("WordWrap"), "1");
  const auto read =
      readProperties({{"WordWrap", "0"}, {"BackNormal", "255"}, {"BoxRadius", "x"}, {"ItemOffset", "1e99"}});
  EXPECT_FALSE(read.WordWrap);
  EXPECT_EQ(read.BackNormal, 255U);
  EXPECT_EQ(read.BoxRadius, 0);
  EXPECT_EQ(read.ItemOffset, 0);
  EXPECT_EQ(writeProperties(readProperties(bag)), bag);
}

}  // namespace
}  // namespace kvo
