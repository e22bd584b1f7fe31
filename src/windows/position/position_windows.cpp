#include "windows/position/position_windows.h"

namespace kvo {
namespace {

constexpr QPointF kRateOver(0.78, 0.2);  // of the window, side by side
constexpr QPointF kLevelOver(0.78, 0.36);

}  // namespace

PositionWindows::PositionWindows(const PositionsState& state, const DisplayModeState& mode,
                                 Positions& positions, const Places& places,
                                 const std::function<void()>& acted)
    : mode_(mode),
      position_(state.positioner, positions.positioner, {places.store, places.desktop, "Frm_PositionPlace"},
                acted),
      markers_(state.markers, positions.markers, {places.store, places.desktop, "FrmMarkersPlace"}, acted),
      rate_(state.rate, {}),
      level_(state.level, [&positions, acted](int lights) {
        positions.levels.UpdateRateDisp(lights);
        acted();
      }) {}

void PositionWindows::draw(QWidget* owner) {
  if (owner == nullptr) {
    for (auto* window : {static_cast<QWidget*>(&position_), static_cast<QWidget*>(&markers_),
                         static_cast<QWidget*>(&rate_), static_cast<QWidget*>(&level_)})
      window->hide();
    return;
  }
  for (auto* window :
       {static_cast<Floating*>(&position_), static_cast<Floating*>(&rate_), static_cast<Floating*>(&level_)})
    window->setScale(mode_.interfaceSize);
  position_.draw(owner);
  markers_.draw(owner);
  rate_.draw(owner, kRateOver);
  level_.draw(owner, kLevelOver);
}

}  // namespace kvo
