// A list of clips on a page of the editor.
#pragma once

#include "core/records/collection.h"
#include "editor/tabs/clip_lists.h"
#include "windows/editor/page_list.h"

#include <cstdint>

namespace kvo {

class PageClipList final : public PageList {
 public:
  /// `name` is what a screen reader calls it; `emptyText` stands in it while it has no rows.
  PageClipList(const QString& name, const QString& emptyText, QWidget* parent);

  /// The rows of `state`, each with the sign of what kind of clip it is, or that its file is missing.
  void draw(const ListBox& state, const Collection& collection, const EditorState& editor);

 private:
  std::uint64_t drawnTexts_ = 0;
  std::uint64_t drawnMissing_ = 0;
};

}  // namespace kvo
