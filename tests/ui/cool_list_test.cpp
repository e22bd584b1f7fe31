#include "ui/cool_list.h"

#include <map>
#include <sstream>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using std::chrono::milliseconds;
using Key = CoolList::Key;
using Reach = CoolList::Reach;

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
  }
  void change(const std::function<void(CoolListProperties&)>& how) {
    auto p = list.properties();
    how(p);
    list.setProperties(p);
  }
  std::string selected() const {
    std::string numbers;
    for (int i = 0; i < list.ListCount(); ++i) {
      if (list.item(i).ItemSelected) numbers += (numbers.empty() ? "" : " ") + std::to_string(i);
    }
    return numbers;
  }
  std::string texts() const {
    std::string all;
    for (int i = 0; i < list.ListCount(); ++i) all += list.item(i).ItemText + "|";
    return all;
  }

  // What is done to the list, one after the other: "choose 3 down press 1 move 2 release edit lake keep".
  void act(const std::string& steps) {
    static const std::map<std::string, Key> kKeys = {
        {"up", Key::Up},      {"down", Key::Down}, {"pageup", Key::PageUp}, {"pagedown", Key::PageDown},
        {"home", Key::Home},  {"end", Key::End},   {"left", Key::Left},     {"right", Key::Right},
        {"space", Key::Space}};
    std::istringstream in(steps);
    int n = 0;
    for (std::string word; in >> word;) {
      const auto reach = word.starts_with("ctrl+")    ? Reach::Another
                         : word.starts_with("shift+") ? Reach::Range
                                                      : Reach::One;
      if (reach != Reach::One) word.erase(0, word.find('+') + 1);
      if (const auto key = kKeys.find(word); key != kKeys.end()) {
        list.keyDown(key->second, reach);
      } else if (word == "release") {
        list.mouseUp();
      } else if (word == "clear") {
        list.Clear();
      } else if (word == "edit") {
        list.StartEdit();
        in >> list.editText;
      } else if (word == "keep" || word == "drop") {
        list.EndEdit(word == "keep");
      } else {
        ASSERT_TRUE(in >> n) << word;
        if (word == "choose") static_cast<void>(list.setListIndex(n));
        if (word == "press") list.mouseDown(n * kRow + 1, reach);
        if (word == "move") list.mouseMove(n * kRow + 1, milliseconds(0));
        if (word == "select") static_cast<void>(list.setItemSelected(n, true));
        if (word == "insert") static_cast<void>(list.InsertItem(n, "new"));
        if (word == "remove") static_cast<void>(list.RemoveItem(n));
        if (word == "top") list.setTopIndex(n);
        if (word == "height") list.setSize(100, n);
        if (word == "mode") change([n](auto& p) { p.SelectMode = n; });
      }
    }
  }

  CoolList list;
};

TEST_F(List, FollowsWhatIsDoneToIt) {
  const struct {
    int count, mode;
    const char* steps;
    const char* after;  // the index, the first row in view, and what is selected
    const char* why = "";
  } rows[] = {
      {8, 0, "choose 7 choose 2", "2 2: 2", "brought into view, upwards"},
      {8, 0, "choose 3 choose -1", "-1 0: "},
      {20, 0, "height 0 choose 1 height 50", "1 0: 1", "chosen ahead of the first size"},
      {20, 0, "choose 4 height 30", "4 2: 4", "stays in view"},
      {20, 0, "choose 4 top 10 height 50", "4 10: 4", "scrolled away from it"},
      {6, 0, "choose 3 insert 3", "4 0: 4", "its index stays with its item"},
      {6, 0, "choose 3 insert 5 remove 0", "2 0: 2"},
      {6, 0, "choose 3 remove 3", "-1 0: "},
      {6, 0, "top 100", "-1 1: "},
      {6, 0, "top 100 remove 0", "-1 0: ", "the bar's range went"},
      {12, 0, "choose 0 up", "0 0: 0"},
      {12, 0, "choose 4 down", "5 1: 5"},
      {12, 0, "choose 11 down", "11 7: 11"},
      {12, 0, "choose 7 pageup", "2 2: 2"},
      {12, 0, "choose 3 pageup", "0 0: 0"},
      {12, 0, "choose 9 pagedown", "11 7: 11"},
      {12, 0, "choose 5 left right space", "5 1: 5"},
      {12, 0, "down", "-1 0: ", "without an index"},
      {9, 2, "press 1 release press 3 release", "3 0: 3", "one alone"},
      {9, 2, "press 1 release ctrl+press 3 release", "3 0: 1 3"},
      {9, 2, "press 1 ctrl+press 3 ctrl+press 1 release", "1 0: 3", "and out again"},
      {9, 2, "press 3 release shift+press 1 release", "1 0: 1 2 3", "from where the last choice was"},
      {9, 2, "press 3 shift+press 1 shift+press 4 release", "4 0: 3 4"},
      {9, 2, "press 0 ctrl+press 2 shift+press 4 release", "4 0: 2 3 4"},
      {9, 2, "press 1 move 3 release move 4", "3 0: 1 2 3", "a drag goes on from there"},
      {9, 2, "press 1 release shift+down shift+down shift+up", "2 0: 1 2"},
      {9, 2, "press 2 release shift+end shift+home", "0 0: 0 1 2"},
      {9, 2, "choose 4 select 1", "4 0: 1", "by the window, which chooses for itself"},
      {4, 1, "space choose 1 space down down space", "3 0: 1 3", "space inverts where several may be"},
      {4, 1, "choose 1 space choose 3 space mode 0", "3 0: 3", "single mode keeps the one at the index"},
      {5, 0, "press 1 move 2 move 3 release move 4", "3 0: 3", "a drag"},
      {5, 1, "select 0 select 1 select 2 press 3 move 4 release move 0", "4 0: 0 1 2 3 4", "sets"},
      {5, 1, "select 0 select 1 select 2 press 0 move 1 release", "1 0: 2", "clears"},
      {5, 1, "select 0 select 1 select 2 press 0 move 2 release", "2 0: ", "rows that a fast pointer skips"},
      {5, 1, "select 0 press 7 move 7 release", "-1 0: 0", "below the last"},
  };
  for (const auto& row : rows) {
    list = CoolList();
    make(row.count, row.mode);
    act(row.steps);
    EXPECT_EQ(std::to_string(list.ListIndex()) + " " + std::to_string(list.TopIndex()) + ": " + selected(),
              row.after)
        << row.steps << "; " << row.why;
  }
}

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
  for (const int count : {0, 2}) {
    make(count);
    EXPECT_TRUE(list.setListIndex(-1).ok());
    for (const int none : {count, -2}) {
      EXPECT_FALSE(list.setListIndex(none).ok() || list.InsertItem(none, "x").ok()) << none;
      EXPECT_FALSE(list.ModifyItem(none, "x").ok() || list.RemoveItem(none).ok()) << none;
      EXPECT_FALSE(list.FindFirst("x", none, true).ok() || list.setItemSelected(none, true).ok()) << none;
    }
  }
  EXPECT_TRUE(list.setItemSelected(1, true).ok() && list.ModifyItem(1, "x").ok() && list.RemoveItem(1).ok());
}

TEST_F(List, ADragBeyondTheEdgeStepsFasterTheFartherItIs) {
  for (const auto& [pixels, step] : {std::pair{1, 480}, {10, 300}, {22, 60}, {23, 40}, {30, 40}, {900, 40}}) {
    list.Clear();
    make(40, 1);
    act("choose 20");
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

TEST_F(List, FindFirst) {
  for (const auto* text : {"Lake", "sailing lake", "LAKEside", "sail", "\xC3\x84RGER"}) list.AddItem(text);
  using Row = std::tuple<const char*, int, bool, int>;
  for (const auto& [text, start, fromStart, found] :
       {Row{"lake", 0, true, 0}, Row{"lake", 1, true, 2}, Row{"LAKE", 0, false, 1}, Row{"ake", 0, false, 0},
        Row{"sail", 2, true, 3}, Row{"sail", 2, false, -1}, Row{"sea", 0, true, -1},
        Row{"\xC3\xA4r", 0, true, 4}}) {
    EXPECT_EQ(*list.FindFirst(text, start, fromStart), found) << text << ' ' << start << ' ' << fromStart;
  }
}

TEST_F(List, TellsWhatTheUserHasChosenAndWritten) {
  make(9, 2);
  int chosen = 0;
  std::string edited;
  list.events.SelectionChange = [&] { ++chosen; };
  list.events.Edited = [&](int index) { edited += std::to_string(index) + list.item(index).ItemText; };
  act("press 1 release ctrl+press 1 release down shift+down");
  EXPECT_EQ(chosen, 4);
  act("choose 5 select 2");
  EXPECT_EQ(chosen, 4) << "what the window does is not told";
  act("end end");
  EXPECT_EQ(chosen, 5) << "nor a key that leads nowhere";
  act("choose 5 edit lake keep edit lake keep edit sea drop");
  EXPECT_EQ(edited, "5lake") << "once: the same text is no change";
  list.setItems({{"x", 1, 2, true}, {"y", 1, 2, false}});
  EXPECT_EQ(texts() + selected(), "x|y|0");
  EXPECT_EQ(list.ListIndex(), -1);
  act("shift+press 1");
  EXPECT_EQ(selected(), "1") << "no range begins at an item that is gone";
}

TEST_F(List, AnEditIsKeptOrNot) {
  make(8);
  list.StartEdit();
  EXPECT_FALSE(list.editing()) << "without an index";
  act("choose 7 top 0");
  list.StartEdit();
  EXPECT_TRUE(list.isInView(7));
  EXPECT_EQ(list.editText, "item 7");
  act("edit seven keep");
  EXPECT_EQ(list.item(7).ItemText, "seven");
  for (const auto* leave : {"drop", "choose 7", "remove 0", "top 0", "clear"}) {
    act(std::string("edit other ") + leave);
    EXPECT_FALSE(list.editing()) << leave;
    EXPECT_EQ(texts().find("other"), std::string::npos) << leave;
  }
}

}  // namespace
}  // namespace kvo
