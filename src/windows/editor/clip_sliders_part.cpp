#include "windows/editor/clip_sliders_part.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/jog_wheel.h"

#include <QLabel>

namespace kvo {

ClipSlidersPart::ClipSlidersPart(const ClipSliders& state, const RushActs& acts, QWidget* parent)
    : EditorPage(parent, kPlace),
      state_(state),
      rate_(put(made<HeadedSlider>(tr("Clip speed"), this), {14, 16, 232, HeadedSlider::kHeight})),
      level_(put(made<HeadedSlider>(tr("Clip audio level"), this), {14, 70, 232, HeadedSlider::kHeight})) {
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
      heading_(write({}, "caption", {14, 9, 232, 17})),
      wheel_(put(made<JogWheel>(tr("Position in the clip"), this), {14, 32, 232, 46})) {
  wheel_->turned = [&acts](int frames) { acts.jog(frames); };
}

void JogWheelPart::draw() {
  setTextOf(*heading_, told(state_.jogHeading));
  wheel_->setEnabled(state_.Sld_AudioOut.Enabled || state_.Sld_Rate.Enabled);
}

}  // namespace kvo
