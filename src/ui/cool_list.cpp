#include "ui/cool_list.h"

#include <QString>
#include <algorithm>
#include <utility>

namespace kvo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kSlowestStep{500};
constexpr milliseconds kFasterByPixel{20};
constexpr milliseconds kFastestStep{40};

QString folded(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toCaseFolded();
}

Error noItem(int index, int count) {
  return {"there is no item " + std::to_string(index) + " in a list of " + std::to_string(count)};
}

std::int16_t iconIndex(int icon) { return static_cast<std::int16_t>(icon); }

// Shell's, by the gaps 1, 4, 13, ...: where texts are equal, its order is the one to have.
void shellSort(std::vector<CoolListItem>& items, bool descending) {
  const auto goesBehind = [&](const CoolListItem& a, const CoolListItem& b) {
    return descending ? a.ItemText < b.ItemText : b.ItemText < a.ItemText;
  };
  std::size_t gap = 1;
  while (3 * gap + 1 <= items.size()) gap = 3 * gap + 1;
  for (; gap > 0; gap /= 3) {
    for (std::size_t i = gap; i < items.size(); ++i) {
      auto item = std::move(items[i]);
      std::size_t hole = i;
      for (; hole >= gap && goesBehind(items[hole - gap], item); hole -= gap) {
        items[hole] = std::move(items[hole - gap]);
      }
      items[hole] = std::move(item);
    }
  }
}

}  // namespace

void CoolList::tellRow(int index) const {
  if (events.rowChanged && has(index)) events.rowChanged(index);
}

void CoolList::tellAll() const {
  if (events.allChanged) events.allChanged();
}

void CoolList::countChanged() {
  topIndex_ = std::clamp(topIndex_, 0, barMax());
  tellAll();
}

void CoolList::setProperties(const CoolListProperties& properties) {
  EndEdit(false);
  properties_ = properties;
  properties_.ItemHeight = std::max(properties_.ItemHeight, 1);
  if (!isMultiple() && !isExtended()) {
    for (int i = 0; i < ListCount(); ++i) at(i).ItemSelected = i == listIndex_;
  }
  countChanged();
}

void CoolList::setSize(int width, int height) {
  EndEdit(false);
  const bool staysInView = rowsThatFit() == 0 || isInView(listIndex_);
  width_ = width;
  height_ = std::max(height, 0);
  countChanged();
  if (staysInView) bringIntoView(listIndex_);
}

void CoolList::AddItem(std::string text, int icon, int selectedIcon) {
  items_.push_back({std::move(text), iconIndex(icon), iconIndex(selectedIcon), false});
  countChanged();
}

Outcome CoolList::InsertItem(int index, std::string text, int icon, int selectedIcon) {
  if (!has(index)) return noItem(index, ListCount());
  EndEdit(false);
  items_.insert(items_.begin() + index, {std::move(text), iconIndex(icon), iconIndex(selectedIcon), false});
  if (listIndex_ >= index) ++listIndex_;
  countChanged();
  return {};
}

Outcome CoolList::ModifyItem(int index, std::string text, int icon, int selectedIcon) {
  if (!has(index)) return noItem(index, ListCount());
  at(index) = {std::move(text), iconIndex(icon), iconIndex(selectedIcon), at(index).ItemSelected};
  tellRow(index);
  return {};
}

Outcome CoolList::RemoveItem(int index) {
  if (!has(index)) return noItem(index, ListCount());
  EndEdit(false);
  items_.erase(items_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (index < listIndex_) {
    --listIndex_;
  }
  countChanged();
  return {};
}

void CoolList::Clear() {
  EndEdit(false);
  mouseUp();
  items_.clear();
  listIndex_ = -1;
  anchor_ = -1;
  countChanged();
}

void CoolList::setItems(std::vector<CoolListItem> items) {
  EndEdit(false);
  mouseUp();
  items_ = std::move(items);
  listIndex_ = -1;
  anchor_ = -1;
  countChanged();
}

void CoolList::Order() {
  if (ListCount() < 2) return;
  EndEdit(false);
  for (auto& item : items_) item.ItemSelected = false;
  shellSort(items_, properties_.OrderType == 1);
  listIndex_ = -1;
  topIndex_ = 0;
  tellAll();
}

Result<int> CoolList::FindFirst(std::string_view text, int start, bool fromStart) const {
  if (!has(start)) return noItem(start, ListCount());
  const auto wanted = folded(text);
  for (int i = start; i < ListCount(); ++i) {
    const auto shown = folded(item(i).ItemText);
    if (fromStart ? shown.startsWith(wanted) : shown.indexOf(wanted, 1) >= 0) return i;
  }
  return -1;
}

int CoolList::SelectedCount() const {
  return static_cast<int>(
      std::count_if(items_.begin(), items_.end(), [](const auto& item) { return item.ItemSelected; }));
}

Outcome CoolList::setItemSelected(int index, bool selected) {
  if (!has(index)) return noItem(index, ListCount());
  if (isMultiple() || isExtended()) {
    mark(index, selected);
    return {};
  }
  return selected ? setListIndex(index) : index == listIndex_ ? setListIndex(-1) : Outcome();
}

void CoolList::mark(int index, bool selected) {
  if (!has(index) || at(index).ItemSelected == selected) return;
  at(index).ItemSelected = selected;
  tellRow(index);
}

Outcome CoolList::setListIndex(int index) {
  if (index != -1 && !has(index)) return noItem(index, ListCount());
  moveTo(index);
  return {};
}

void CoolList::moveTo(int index) {
  EndEdit(false);
  const int before = std::exchange(listIndex_, index);
  if (!isMultiple() && !isExtended()) {
    if (before != index) mark(before, false);
    mark(index, true);
  }
  if (before == index) return bringIntoView(index);
  tellRow(before);
  tellRow(index);
  bringIntoView(index);
  if (events.ListIndexChange) events.ListIndexChange();
}

void CoolList::selectRange(int from, int to) {
  for (int i = 0; i < ListCount(); ++i) mark(i, i >= std::min(from, to) && i <= std::max(from, to));
}

void CoolList::reachTo(int index, Reach reach) {
  if (!isExtended()) return moveTo(index);
  if (reach == Reach::Another) {
    mark(index, !item(index).ItemSelected);
  } else {
    selectRange(reach == Reach::Range && has(anchor_) ? anchor_ : index, index);
  }
  if (reach != Reach::Range || !has(anchor_)) anchor_ = index;
  moveTo(index);
  if (events.SelectionChange) events.SelectionChange();
}

bool CoolList::selectAll() {
  if (!isExtended()) return false;
  selectRange(0, ListCount() - 1);
  if (events.SelectionChange) events.SelectionChange();
  return true;
}

bool CoolList::isInView(int index) const {
  return has(index) && index >= topIndex_ && index < topIndex_ + rowsThatFit();
}

void CoolList::bringIntoView(int index) {
  if (!has(index) || isInView(index) || rowsThatFit() == 0) return;
  setTopIndex(index < topIndex_ ? index : index - rowsThatFit() + 1);
}

void CoolList::setTopIndex(int index) {
  index = std::clamp(index, 0, barMax());
  if (index == topIndex_) return;
  EndEdit(false);
  topIndex_ = index;
  tellAll();
}

CoolList::Rect CoolList::rowRect(int row) const {
  const int height = properties_.ItemHeight;
  return {0, row * height, hasBar() ? width_ - properties_.ScrollBarWidth : width_, (row + 1) * height};
}

CoolList::Rect CoolList::textRect(int row) const {
  auto rect = rowRect(row);
  rect.left = properties_.ItemTextLeft + properties_.ItemOffset;
  rect.top += properties_.ItemOffset;
  rect.right -= properties_.ItemOffset;
  rect.bottom -= properties_.ItemOffset;
  return rect;
}

std::optional<int> CoolList::itemAt(int y) const {
  if (y < 0) return std::nullopt;
  const int index = topIndex_ + y / properties_.ItemHeight;
  return has(index) ? std::optional(index) : std::nullopt;
}

// A key that leads nowhere else changes nothing.
void CoolList::step(int index, Reach reach) {
  const bool stays = isExtended() && index == listIndex_ && item(index).ItemSelected;
  if (stays && reach != Reach::Another && SelectedCount() == 1) return bringIntoView(index);
  reachTo(index, reach);
}

void CoolList::keyDown(Key key, Reach reach) {
  if (listIndex_ < 0) return;
  const int last = ListCount() - 1;
  switch (key) {
    case Key::Space:
      if (!isMultiple()) return;
      mark(listIndex_, !item(listIndex_).ItemSelected);
      if (events.Click) events.Click();
      return;
    case Key::PageUp:
      return step(std::max(listIndex_ - rowsThatFit(), 0), reach);
    case Key::PageDown:
      return step(std::min(listIndex_ + rowsThatFit(), last), reach);
    case Key::Home:
      return step(0, reach);
    case Key::End:
      return step(last, reach);
    case Key::Up:
      return step(std::max(listIndex_ - 1, 0), reach);
    case Key::Down:
      return step(std::min(listIndex_ + 1, last), reach);
    case Key::Left:
    case Key::Right:
      return;
  }
}

Outcome CoolList::goTo(int index) {
  if (!has(index)) return noItem(index, ListCount());
  reachTo(index, Reach::One);
  return {};
}

void CoolList::mouseDown(int y, Reach reach) {
  const auto row = itemAt(y);
  if (!row) return;
  if (isExtended()) {
    dragging_ = reach != Reach::Another;
    underPointer_ = row;
    return reachTo(*row, reach);
  }
  dragState_ = !isMultiple() || !item(*row).ItemSelected;
  mark(*row, dragState_);
  dragging_ = true;
  underPointer_ = row;
  moveTo(*row);
}

// A pointer that moves fast skips rows; a drag passes them all the same.
void CoolList::dragTo(int index) {
  if (isMultiple()) {
    const int from = dragging_ && listIndex_ >= 0 ? listIndex_ : index;
    for (int i = std::min(from, index); i <= std::max(from, index); ++i) mark(i, dragState_);
  }
  reachTo(index, Reach::Range);
}

void CoolList::mouseMove(int y, milliseconds now) {
  const int pixels = y < 0 ? -y : y - height_;
  const auto before = std::exchange(underPointer_, itemAt(y));
  if (y < 0 || y >= height_) {
    if (!dragging_) return;
    if (std::exchange(beyond_, y < 0 ? -1 : 1) == 0) lastStep_ = now;
    stepTime_ = std::max(kSlowestStep - pixels * kFasterByPixel, kFastestStep);
    return;
  }
  beyond_ = 0;
  if (!dragging_ && !properties_.HoverSelection) return;
  if (underPointer_ && underPointer_ != before) dragTo(*underPointer_);
}

void CoolList::mouseUp() {
  dragging_ = false;
  dragState_ = true;
  beyond_ = 0;
}

std::optional<milliseconds> CoolList::nextStep() const {
  return beyond_ == 0 || !has(listIndex_ + beyond_) ? std::nullopt : std::optional(lastStep_ + stepTime_);
}

void CoolList::advance(milliseconds now) {
  const auto due = nextStep();
  if (!due || now < *due) return;
  lastStep_ = now;
  dragTo(listIndex_ + beyond_);
}

void CoolList::StartEdit() {
  if (listIndex_ < 0 || editing_) return;
  bringIntoView(listIndex_);
  editing_ = true;
  editText = item(listIndex_).ItemText;
  if (events.editChanged) events.editChanged();
}

void CoolList::EndEdit(bool keep) {
  if (!std::exchange(editing_, false)) return;
  const bool isChanged = keep && at(listIndex_).ItemText != editText;
  if (isChanged) {
    at(listIndex_).ItemText = editText;
    tellRow(listIndex_);
  }
  if (events.editChanged) events.editChanged();
  if (isChanged && events.Edited) events.Edited(listIndex_);
}

}  // namespace kvo
