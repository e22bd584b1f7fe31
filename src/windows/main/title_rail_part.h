// The rail at the head of the window: the menu key, the caption, the two keys of the history, and what goes
// on in the background.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <functional>

namespace kvo {

class IconKey;
class WorkKey;

class TitleRailPart : public Plate {
  Q_DECLARE_TR_FUNCTIONS(kvo::TitleRailPart)

 public:
  /// What its keys do.
  struct Acts {
    std::function<void(const QPoint& at)> openMenu;  ///< with its corner at that place of the screen
    std::function<void()> undo;
    std::function<void()> redo;
    std::function<void()> showQueue;
  };
  struct State {
    const FaceState& face;
    const HistoryState& history;
    const WorkGlance& queue;
  };

  TitleRailPart(const State& state, const Acts& acts, QWidget* parent);

  void layOut(const FaceScale& scale);
  void draw();
  [[nodiscard]] QWidget* menuKey() const;
  /// The keys in the order of Tab.
  [[nodiscard]] std::vector<QWidget*> tabOrder() const;

 private:
  void drawQueue();

  State state_;
  FaceScale railScale_;
  FaceLabel* caption_;
  IconKey* menu_;
  IconKey* undo_;
  IconKey* redo_;
  WorkKey* queue_;
};

}  // namespace kvo
