// A list of clips on a page of the editor.
#pragma once

#include "core/records/collection.h"
#include "editor/tabs/clip_lists.h"
#include "ui/cool_list_view.h"

#include <functional>

namespace kvo {

class ClipList final : public CoolListView {
 public:
  /// `name` is what a screen reader calls it; `emptyText` stands in it while it has no rows.
  ClipList(const QString& name, const QString& emptyText, QWidget* parent);

  /// The user has chosen a row.
  std::function<void(int row)> chosen;

  /// The rows of `state`, each with the sign of what kind of clip it is.
  void draw(const ListBox& state, const Collection& collection);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void setFace();
  void tell();

  ListBox drawn_;
  bool isDrawing_ = false;
};

}  // namespace kvo
