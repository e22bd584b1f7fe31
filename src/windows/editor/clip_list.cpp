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

void PageClipList::draw(const ListBox& state, const Collection& collection,
                        const std::set<std::string>& missing) {
  if (drawn_ != state.rows || missing_ != missing) {
    drawn_ = state.rows;
    missing_ = missing;
    rows_.clear();
    for (const auto& row : drawn_) {
      const int clipNo = GetIndividualClipNo(row);
      auto& made =
          rows_.emplace_back(Row{std::string(trimmed(nameOfRow(row))), static_cast<int>(MediaClass::Video)});
      if (clipNo > collection.MovieList.count()) continue;
      const auto& clip = collection.MovieList[clipNo];
      made.icon = static_cast<int>(mediaClass(clip.MovieName(), nullptr));
      if (!missing.empty() && missing.contains(clipFile(clip))) made.fault = missingText(made.text);
    }
  }
  drawRows(rows_, state.ListIndex);
}

}  // namespace kvo
