// The window of the queue of renders, which stands beside everything else while they are made.
#pragma once

#include "windows/place/window_place.h"
#include "windows/render/queue_panel.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>

class QPushButton;

namespace kvo {

class FrmQueue final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmQueue)

 public:
  /// `state` outlives it; `hide` is called when the user closes it.
  FrmQueue(const QueueState& state, QueueActs acts, const WindowPlace& place, std::function<void()> hide);

  /// Brings it in line with the state. It closes where the program has no window any more.
  void draw(bool mayBeSeen);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const QueueState& state_;
  QueueActs acts_;
  WindowPlace place_;
  std::function<void()> hide_;
  QueuePanel* panel_;
  QPushButton* KVOBut_ClearJobs_;
  int raises_ = 0;
};

}  // namespace kvo
