// The large digits of the positioner behind glass: a field that a place is typed into.
#pragma once

#include "playback/positions/positioner.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>

namespace kvo {

class PositionDigits : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::PositionDigits)

 public:
  PositionDigits(const PositionerState& state, Positioner& positioner, std::function<void()> acted,
                 QWidget* parent);

  void setScale(double scale);
  void draw();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  const PositionerState& state_;
  Positioner& positioner_;
  std::function<void()> acted_;
  double scale_ = 1;
  PositionerState drawn_;
};

}  // namespace kvo
