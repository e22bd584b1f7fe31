// The options of Ease, in the place of the list of effects while they are open.
#pragma once

#include "editor/tabs/effect_tab.h"
#include "windows/editor/editor_page.h"

#include <QCoreApplication>
#include <array>
#include <functional>

class QCheckBox;
class QComboBox;

namespace kvo {

class HeadedSlider;

class EasePanelPart final : public TabPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::EasePanelPart)

 public:
  EasePanelPart(EffectTab& state, const PageLogic& logic, QSize size, QWidget* parent);

  void draw();

 private:
  QComboBox* makeDirections(const QString& name, std::span<const std::string_view> directions,
                            const QRect& place, const Share& share);

  EffectTab& state_;
  std::array<HeadedSlider*, kEaseLevels> sliders_{};
  QComboBox* direction_;
  QComboBox* rotation_;
  QCheckBox* camera_;
};

}  // namespace kvo
