// The options of all transitions by particles, in the place of the tiles.
#pragma once

#include "editor/tabs/transition_tab.h"
#include "windows/editor/editor_page.h"

#include <QCoreApplication>
#include <array>
#include <functional>

class QCheckBox;

namespace kvo {

class HeadedSlider;

class ParticlePart final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::ParticlePart)

 public:
  struct Acts {
    std::function<void(const ParticleBoxes& wanted)> change;
    std::function<void()> done;
  };

  /// The state outlives the part.
  ParticlePart(const ParticleBoxes& state, Acts acts, QSize size, QWidget* parent);

  void draw();

 private:
  static constexpr std::size_t kSliders = 5;

  const ParticleBoxes& state_;
  Acts acts_;
  QCheckBox* Chk_UseParticleDefaults_;
  std::array<HeadedSlider*, kSliders> sliders_{};
};

}  // namespace kvo
