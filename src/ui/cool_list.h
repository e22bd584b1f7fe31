// The list control without its drawing: items, selection, what is in view, what keys and mouse do.
// CoolListView draws it and tells it what the user does; a window may read and change it at any time.
#pragma once

#include "base/result.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {

/// 0x00BBGGRR, or, with the top bit set, the number of a colour of the desktop: 5 ground, 8 text, 13 chosen
/// ground, 14 chosen text.
using ControlColour = std::uint32_t;

/// How the list looks and chooses, under the names that a stored form has for it.
struct CoolListProperties {
  int Alignment = 0;    ///< of wrapped text: 0 left, 1 centred, 2 right
  int Appearance = 1;   ///< 0 flat, 1 sunken
  int BorderStyle = 1;  ///< 0 none
  ControlColour BackNormal = 0x80000005;
  ControlColour BackSelected = 0x8000000D;
  ControlColour BackSelectedG1 = 0x8000000D;  ///< of styles 2 and 3
  ControlColour BackSelectedG2 = 0x80000005;
  ControlColour BoxBorder = 0x8000000E;  ///< of style 4, like the two below
  int BoxOffset = 1;                     ///< pixels
  int BoxRadius = 0;                     ///< pixels
  bool Enabled = true;
  bool Focus = true;  ///< whether the row of ListIndex is marked while the list has the keyboard
  std::string Font;   ///< "Inter,12,..." as the toolkit writes fonts; empty for that of what it lies in
  ControlColour FontNormal = 0x80000008;
  ControlColour FontSelected = 0x8000000E;
  bool HoverSelection = false;  ///< the item under the pointer is chosen without a press
  int ItemHeight = 16;          ///< pixels, at least 1
  bool ItemHeightAuto = true;   ///< ItemHeight is the font's
  int ItemOffset = 0;           ///< pixels, the text's inset at top, bottom and right
  int ItemTextLeft = 2;         ///< pixels
  std::string MouseIcon;        ///< file of the picture that pointer 99 has
  int MousePointer =
      0;  ///< 0 that of what it lies in, 1 arrow, 2 cross, 3 text, 11 clock, 12 forbidden, 99 MouseIcon
  int OrderType = 0;             ///< 0 ascending, 1 descending
  int ScrollBarWidth = 13;       ///< pixels
  std::string SelectionPicture;  ///< file of the picture of style 6; empty for none
  int SelectMode = 0;       ///< 0 single, 1 multiple: a press turns an item over, 2 several by Ctrl and Shift
  int SelectModeStyle = 0;  ///< 0 to 6, see drawSelection
  bool WordWrap = true;
};

/// A stored form's properties: name and value, numbers in decimals, truths as 0 and 1, texts as they are.
using PropertyBag = std::map<std::string, std::string>;
/// What the bag does not have, or has with no number, keeps its default.
CoolListProperties readProperties(const PropertyBag& bag);
PropertyBag writeProperties(const CoolListProperties& properties);

struct CoolListItem {
  std::string ItemText;
  std::int16_t ItemIcon = 0;          ///< index into the image list from 1; less than 1 is none
  std::int16_t ItemIconSelected = 0;  ///< less than 1: ItemIcon
  bool ItemSelected = false;
};

class CoolList {
 public:
  enum class Key { Up, Down, Left, Right, PageUp, PageDown, Home, End, Space };

  /// What a press or a move of mode 2 selects: its item alone; with what is selected, or not any more (Ctrl);
  /// all from the last of those two on (Shift). The other modes do not ask.
  enum class Reach { One, Another, Range };

  struct Rect {
    int left = 0, top = 0, right = 0, bottom = 0;  ///< pixels; right and bottom lie outside
    bool operator==(const Rect&) const = default;
  };

  /// What the list tells. Each may be empty.
  struct Events {
    std::function<void(int row)> rowChanged;  ///< this item has to be drawn anew
    std::function<void()> allChanged;         ///< all of them, and the bar
    std::function<void()> editChanged;        ///< an edit has begun or ended
    std::function<void()> Click;              ///< by the keyboard; the mouse's is the view's to raise
    std::function<void()> ListIndexChange;    ///< by the user or by setListIndex
    std::function<void()> SelectionChange;    ///< by the user, in mode 2
    std::function<void(int index)> Edited;    ///< the user has given this item another text
  };

  explicit CoolList(CoolListProperties properties = {}) : properties_(std::move(properties)) {}

  Events events;

  [[nodiscard]] const CoolListProperties& properties() const { return properties_; }
  /// Selection is kept as far as the new SelectMode allows.
  void setProperties(const CoolListProperties& properties);
  /// The inner size in pixels, with the room of the bar.
  void setSize(int width, int height);

  // Items, counted from 0. Those that take an index fail where there is no such item.

  void AddItem(std::string text, int icon = 0, int selectedIcon = 0);
  /// Also fails in an empty list. ListIndex stays with its item.
  Outcome InsertItem(int index, std::string text, int icon = 0, int selectedIcon = 0);
  Outcome ModifyItem(int index, std::string text, int icon = 0, int selectedIcon = 0);
  /// ListIndex stays with its item, or is -1 when that one went.
  Outcome RemoveItem(int index);
  void Clear();
  /// In the place of all that there are, those that are told to be selected among them. ListIndex becomes -1.
  void setItems(std::vector<CoolListItem> items);
  /// Sorts by the bytes of the texts; afterwards nothing is selected and the first rows are in view.
  void Order();
  /// The first item from `start` on whose text begins with `text` or, without `fromStart`, has it behind its
  /// first character; -1 for none. Letters of either case are the same. Fails in an empty list too.
  [[nodiscard]] Result<int> FindFirst(std::string_view text, int start, bool fromStart) const;

  [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
  [[nodiscard]] int SelectedCount() const;
  [[nodiscard]] const CoolListItem& item(int index) const { return items_[static_cast<std::size_t>(index)]; }
  /// In single mode a selected item is the list's only one, and its ListIndex.
  Outcome setItemSelected(int index, bool selected);
  /// By the user. False when the mode has no several.
  bool selectAll();

  /// -1 for none.
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  /// Moves to an item, or to -1, and brings it into view. Ends an edit, keeping nothing.
  Outcome setListIndex(int index);

  // What is in view.

  [[nodiscard]] int TopIndex() const { return topIndex_; }
  /// Meets the range of the bar.
  void setTopIndex(int index);
  [[nodiscard]] int rowsThatFit() const { return height_ / properties_.ItemHeight; }
  [[nodiscard]] bool hasBar() const { return ListCount() > rowsThatFit(); }
  [[nodiscard]] int barMax() const { return hasBar() ? ListCount() - rowsThatFit() : 0; }
  [[nodiscard]] bool isInView(int index) const;
  /// The places of row `row` of those in view.
  [[nodiscard]] Rect rowRect(int row) const;
  [[nodiscard]] Rect textRect(int row) const;
  /// The item at a height in pixels; none below the last.
  [[nodiscard]] std::optional<int> itemAt(int y) const;

  // What the user does. Times come from any one clock.

  void keyDown(Key key, Reach reach = Reach::One);
  /// Moves to an item as a key does that leads there. Fails where there is no such item.
  Outcome goTo(int index);
  /// The left button; others do nothing here.
  void mouseDown(int y, Reach reach = Reach::One);
  void mouseMove(int y, std::chrono::milliseconds now);
  void mouseUp();
  /// When a drag beyond the edge takes its next step; none while there is none to take.
  [[nodiscard]] std::optional<std::chrono::milliseconds> nextStep() const;
  /// Takes the step if it is due.
  void advance(std::chrono::milliseconds now);

  // Editing the text of ListIndex in place.

  /// Does nothing without a list index.
  void StartEdit();
  /// `keep`: the item takes `editText`.
  void EndEdit(bool keep);
  [[nodiscard]] bool editing() const { return editing_; }
  std::string editText;

 private:
  [[nodiscard]] bool isMultiple() const { return properties_.SelectMode == 1; }
  [[nodiscard]] bool isExtended() const { return properties_.SelectMode == 2; }
  [[nodiscard]] bool has(int index) const { return index >= 0 && index < ListCount(); }
  CoolListItem& at(int index) { return items_[static_cast<std::size_t>(index)]; }
  void mark(int index, bool selected);
  void moveTo(int index);
  void reachTo(int index, Reach reach);
  void step(int index, Reach reach);
  void selectRange(int from, int to);
  void dragTo(int index);
  void bringIntoView(int index);
  void countChanged();
  void tellRow(int index) const;
  void tellAll() const;

  CoolListProperties properties_;
  int width_ = 0;
  int height_ = 0;
  std::vector<CoolListItem> items_;
  int listIndex_ = -1;
  int topIndex_ = 0;
  int anchor_ = -1;                  // where a range of mode 2 begins
  std::optional<int> underPointer_;  // the row that the pointer was seen in last
  bool dragging_ = false;
  bool dragState_ = true;  // what the items that a drag passes become
  int beyond_ = 0;         // rows to go by at a step of a drag beyond the edge: -1, 0, 1
  std::chrono::milliseconds stepTime_{};
  std::chrono::milliseconds lastStep_{};
  bool editing_ = false;
};

}  // namespace kvo
