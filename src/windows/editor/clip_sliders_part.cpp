#include "windows/editor/clip_sliders_part.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/jog_wheel.h"

#include <QLabel>

namespace kvo {
namespace {

// Times their own height.
constexpr double kLeastSliders = 0.86;
constexpr double kMostSliders = 1.5;
constexpr double kLeastWheel = 0.8;
constexpr double kMostWheel = 1.8;

}  // namespace

ClipSlidersPart::ClipSlidersPart(const ClipSliders& state, const RushActs& acts, QWidget* parent)
    : EditorPage(parent, kPlace),
      state_(state),
      rate_(put(made<HeadedSlider>(tr("Clip speed"), this), {14, 16, 232, HeadedSlider::kHeight},
                {.down = 25, .wider = 100})),
      level_(put(made<HeadedSlider>(tr("Clip audio level"), this), {14, 70, 232, HeadedSlider::kHeight},
                 {.down = 75, .wider = 100})) {
  mayBe(kLeastSliders, kMostSliders);
  rate_->moved = [&acts](int value) { acts.moveRate(value); };
  rate_->letGo = [&acts] { acts.rateLetGo(); };
  level_->moved = [&acts](int value) { acts.moveLevel(value); };
}

void ClipSlidersPart::draw() {
  rate_->draw(state_.Sld_Rate, shown(state_.Sld_Rate.heading));
  level_->draw(state_.Sld_AudioOut, shown(state_.Sld_AudioOut.heading));
}

JogWheelPart::JogWheelPart(const ClipSliders& state, const RushActs& acts, QWidget* parent)
    : EditorPage(parent, kPlace),
      state_(state),
      heading_(write({}, "caption", {14, 9, 232, 17}, {.wider = 100})),
      wheel_(put(made<JogWheel>(tr("Position in the clip"), this), {14, 32, 232, 46},
                 {.wider = 100, .taller = 100})) {
  mayBe(kLeastWheel, kMostWheel);
  wheel_->turned = [&acts](int frames) { acts.jog(frames); };
}

void JogWheelPart::draw() {
  setTextOf(*heading_, told(state_.jogHeading));
  wheel_->setEnabled(state_.jogOn());
}

}  // namespace kvo
