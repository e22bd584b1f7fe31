// The direct positioner.
#pragma once

#include "playback/positions/positioner.h"
#include "windows/place/window_place.h"
#include "windows/position/floating.h"

#include <QCoreApplication>
#include <array>
#include <functional>

class QAbstractButton;
class QButtonGroup;
class QLabel;

namespace kvo {

class PositionDigits;

class FrmPosition final : public Floating {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmPosition)

 public:
  /// `acted` is called behind each act.
  FrmPosition(const PositionerState& state, Positioner& positioner, WindowPlace place,
              std::function<void()> acted);

  /// Brings it in line with the state; it appears where it was, at first above `owner`.
  void draw(QWidget* owner);

 protected:
  void layOut() override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void makeChoices();
  void makeKeys();
  void act(const std::function<void()>& work);

  const PositionerState& state_;
  Positioner& positioner_;
  WindowPlace place_;
  std::function<void()> acted_;
  QLabel* title_;
  QAbstractButton* close_ = nullptr;
  PositionDigits* digits_;
  QLabel* refusal_;
  QButtonGroup* choices_ = nullptr;
  QButtonGroup* stepSizes_ = nullptr;
  std::array<QAbstractButton*, 3> whatto_{};
  std::array<QAbstractButton*, 4> increment_{};
  std::array<QAbstractButton*, 4> steps_{};
  QAbstractButton* reset_ = nullptr;
  QAbstractButton* apply_ = nullptr;
};

}  // namespace kvo
