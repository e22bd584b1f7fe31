#include "windows/editor/particle_part.h"

#include "ui/made.h"
#include "windows/editor/headed_slider.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace kvo {
namespace {

struct ParticleSlider {
  const char* name;
  int ParticleBoxes::*value;
  int least;
  int most;
  double shownPart;  // what one step of the slider is shown as
};
#define KVO_NAME(text) QT_TRANSLATE_NOOP("kvo::ParticlePart", text)
constexpr std::array<ParticleSlider, 5> kParticleSliders{
    {{KVO_NAME("No of Particles"), &ParticleBoxes::Sld_ParticleFragments, 2, 1000, 1},
     {KVO_NAME("Particle Motion Speed"), &ParticleBoxes::Sld_ParticleMotionSpeed, 1, 100, 1},
     {KVO_NAME("Particle Spin Speed"), &ParticleBoxes::Sld_ParticleSpinSpeed, 0, 1000, 0.1},
     {KVO_NAME("Exponential Progress"), &ParticleBoxes::Sld_ExponEntialProgDuration, 0, 10, 0.1},
     {KVO_NAME("Exponential Scale"), &ParticleBoxes::Sld_ExponentialProgScale, 0, 10, 0.1}}};
#undef KVO_NAME

}  // namespace

ParticlePart::ParticlePart(const ParticleBoxes& state, Acts acts, QSize size, QWidget* parent)
    : EditorPage(parent, size, "list"),
      state_(state),
      acts_(std::move(acts)),
      Chk_UseParticleDefaults_(put(made<QCheckBox>(tr("Use Particle System Defaults"), this),
                                   {10, 40, size.width() - 20, 24}, {.wider = 100})) {
  write(tr("Particle options"), "heading", {14, 12, size.width() - 28, 18});
  Chk_UseParticleDefaults_->setToolTip(tr("Each transition has the particles that suit it best"));
  connect(Chk_UseParticleDefaults_, &QCheckBox::clicked, [this](bool on) {
    auto wanted = state_;
    wanted.Chk_UseParticleDefaults = on;
    acts_.change(wanted);
  });
  for (std::size_t i = 0; i < kSliders; ++i) {
    sliders_[i] =
        put(made<HeadedSlider>(tr(kParticleSliders[i].name), this),
            {14, 78 + 48 * static_cast<int>(i), size.width() - 28, HeadedSlider::kHeight}, {.wider = 100});
    sliders_[i]->moved = [this, i](int value) {
      auto wanted = state_;
      wanted.*kParticleSliders[i].value = value;
      acts_.change(wanted);
    };
  }
  auto* done = put(made<QPushButton>(tr("Done"), this), {size.width() - 94, size.height() - 42, 80, 28},
                   {.right = 100, .down = 100});
  done->setToolTip(tr("Back to the transitions"));
  connect(done, &QPushButton::clicked, [this] { acts_.done(); });
}

void ParticlePart::draw() {
  Chk_UseParticleDefaults_->setChecked(state_.Chk_UseParticleDefaults);
  for (std::size_t i = 0; i < kSliders; ++i) {
    const auto& entry = kParticleSliders[i];
    const int value = state_.*entry.value;
    sliders_[i]->draw(
        {entry.least, entry.most, value, !state_.Chk_UseParticleDefaults, {}, "Untick the defaults first"},
        tr(entry.name), QString::number(value * entry.shownPart));
  }
}

}  // namespace kvo
