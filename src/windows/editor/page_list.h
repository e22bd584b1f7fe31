// A list on a page of the editor: rows with a sign each, of one look, that grow with the interface.
#pragma once

#include "ui/cool_list_view.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace kvo {

class PageList : public CoolListView {
 public:
  struct Row {
    std::string text;
    int icon = 0;         ///< of the list's icons, from 0
    std::string fault{};  ///< why it cannot be used: a sign stands in the icon's place, and this is the tip
    bool operator==(const Row&) const = default;
  };

  /// `icons` are names of the theme's, and outlive the list, none for rows without; `emptyText` stands in it
  /// while it has no rows.
  PageList(const QString& name, const QString& emptyText, std::span<const char* const> icons,
           QWidget* parent);

  /// The user has chosen a row.
  std::function<void(int row)> chosen;

  /// What stands at the right of a row. May be empty.
  std::function<QString(int row)> trailing;

  /// Rows, and which of them is chosen; -1 for none. For a short list, as it compares the rows with those
  /// that it has: a long one knows by its revision when to set others.
  void drawRows(std::vector<Row> rows, int ListIndex);

  /// With what stands at its right, and what is wrong with it.
  [[nodiscard]] QString rowName(int row) const override;

 protected:
  void setRows(std::vector<Row> rows);
  void choose(int ListIndex);
  void changeEvent(QEvent* event) override;

 private:
  void setFace();

  QString emptyText_;
  std::span<const char* const> icons_;
  std::vector<Row> rows_;
  bool isDrawing_ = false;
};

}  // namespace kvo
