// A list of clips on a page of the editor.
#pragma once

#include "core/records/collection.h"
#include "editor/tabs/clip_lists.h"
#include "windows/editor/page_list.h"

#include <set>
#include <string>
#include <vector>

namespace kvo {

class PageClipList final : public PageList {
 public:
  /// `name` is what a screen reader calls it; `emptyText` stands in it while it has no rows.
  PageClipList(const QString& name, const QString& emptyText, QWidget* parent);

  /// The rows of `state`, each with the sign of what kind of clip it is, or that its file is among the
  /// `missing`.
  void draw(const ListBox& state, const Collection& collection, const std::set<std::string>& missing);

 private:
  std::vector<std::string> drawn_;
  std::set<std::string> missing_;
  std::vector<Row> rows_;
};

}  // namespace kvo
