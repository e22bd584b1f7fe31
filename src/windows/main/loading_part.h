// How far long work is, and the key that stops it. It stands over the face once the work has lasted a moment.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <QTimer>
#include <functional>

namespace kvo {

class ProgressBar;

class LoadingPart : public Plate {
  Q_DECLARE_TR_FUNCTIONS(kvo::LoadingPart)

 public:
  /// `shownOrNot` is called when it comes and when it goes.
  LoadingPart(ProgressState& state, std::function<void()> shownOrNot, QWidget* parent);

  void layOut(const FaceScale& scale);
  void draw();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void abort();

  ProgressState& state_;
  std::function<void()> shownOrNot_;
  FaceLabel* what_;
  FaceLabel* which_;
  FaceLabel* abort_;
  ProgressBar* bar_;
  QTimer patience_;
};

}  // namespace kvo
