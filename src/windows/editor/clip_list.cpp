#include "windows/editor/clip_list.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "editor/tabs/clip_checks.h"

#include <array>

namespace kvo {
namespace {

constexpr std::array kClipIcons = {"music", "film", "still"};  // by MediaClass

}  // namespace

PageClipList::PageClipList(const QString& name, const QString& emptyText, QWidget* parent)
    : PageList(name, emptyText, kClipIcons, parent) {}

void PageClipList::draw(const ListBox& state, const Collection& collection) {
  if (drawn_ != state.rows) {
    drawn_ = state.rows;
    rows_.clear();
    for (const auto& row : drawn_) {
      const int clipNo = GetIndividualClipNo(row);
      const auto kind = clipNo <= collection.MovieList.count()
                            ? mediaClass(collection.MovieList[clipNo].MovieName(), nullptr)
                            : MediaClass::Video;
      rows_.push_back({std::string(trimmed(nameOfRow(row))), static_cast<int>(kind)});
    }
  }
  drawRows(rows_, state.ListIndex);
}

}  // namespace kvo
