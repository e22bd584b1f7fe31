#include "windows/editor/clip_list.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "editor/tabs/clip_checks.h"

#include <array>
#include <utility>

namespace kvo {
namespace {

constexpr std::array kClipIcons = {"music", "film", "still"};  // by MediaClass

}  // namespace

PageClipList::PageClipList(const QString& name, const QString& emptyText, QWidget* parent)
    : PageList(name, emptyText, kClipIcons, parent) {}

void PageClipList::draw(const ListBox& state, const Collection& collection, const EditorState& editor) {
  const auto& missing = editor.missingFiles;
  const bool otherTexts = std::exchange(drawnTexts_, state.texts.revision()) != state.texts.revision();
  const bool otherMissing = std::exchange(drawnMissing_, missing.revision()) != missing.revision();
  if (otherTexts || otherMissing) {
    std::vector<Row> rows;
    rows.reserve(state.rows().size());
    for (const auto& text : state.rows()) {
      const int clipNo = GetIndividualClipNo(text);
      auto& row =
          rows.emplace_back(Row{std::string(trimmed(nameOfRow(text))), static_cast<int>(MediaClass::Video)});
      if (clipNo > collection.MovieList.count()) continue;
      const auto& clip = collection.MovieList[clipNo];
      row.icon = static_cast<int>(mediaClass(clip.MovieName(), nullptr));
      if (!missing.rows().empty() && editor.isMissing(clipFile(clip))) row.fault = missingText(row.text);
    }
    setRows(std::move(rows));
  }
  choose(state.ListIndex);
}

}  // namespace kvo
