// The rail at the head of the window: the menu key, the caption, and the two keys of the history.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <functional>

namespace kvo {

class IconKey;

class TitleRailPart : public Plate {
  Q_DECLARE_TR_FUNCTIONS(kvo::TitleRailPart)

 public:
  /// What its keys do.
  struct Acts {
    std::function<void(const QPoint& at)> openMenu;  ///< with its corner at that place of the screen
    std::function<void()> undo;
    std::function<void()> redo;
  };

  TitleRailPart(const FaceState& face, const HistoryState& history, const Acts& acts, QWidget* parent);

  void layOut(const FaceScale& scale);
  void draw();
  [[nodiscard]] QWidget* menuKey() const;
  /// The keys in the order of Tab.
  [[nodiscard]] std::vector<QWidget*> tabOrder() const;

 private:
  const FaceState& face_;
  const HistoryState& history_;
  FaceLabel* caption_;
  IconKey* menu_;
  IconKey* undo_;
  IconKey* redo_;
};

}  // namespace kvo
