// The tab Effect: 42 effects, blur, motion blur, film age, and Ease with its panel.
#pragma once

#include "editor/tabs/effect_tab.h"
#include "windows/editor/editor_page.h"

#include <QCoreApplication>
#include <array>
#include <functional>

class QCheckBox;
class QLineEdit;
class QLabel;
class QRadioButton;
class QToolButton;

namespace kvo {

class PageClipList;
class EasePanelPart;
class EffectRows;
class HeadedSlider;
class MovingSamples;

class EffectPage final : public TabPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::EffectPage)

 public:
  /// What the list of effects is made with; outlives the page.
  struct Choice {
    NameChooser& names;
    MovingSamples& samples;
  };
  /// `showKeyframes` opens the window for the effect that has been chosen for it.
  EffectPage(EffectTab& state, PageLogic logic, Choice choice, std::function<void()> showKeyframes,
             QWidget* parent);

  void draw();

 private:
  void makeEffects();
  void makeChoice();
  void drawEffects();
  void makeLevels();
  QCheckBox* makeSwitch(QCheckBox* box, int position);
  QToolButton* makeSmallKey(const char* icon, const QString& tip, const QRect& place, const Share& share);
  void openOptions(QWidget& where, int position);

  EffectTab& state_;
  Choice choice_;
  std::function<void()> showKeyframes_;
  PageClipList* clips_;
  EffectRows* effects_ = nullptr;
  QLineEdit* find_ = nullptr;
  QToolButton* favourites_ = nullptr;
  QLabel* effectsCaption_ = nullptr;
  QLabel* hint_ = nullptr;
  QLabel* noneFound_ = nullptr;
  std::array<QCheckBox*, EffectWord::kSwitches + 1> switches_{};
  std::array<bool, EffectWord::kSwitches + 1> drawnKeyframed_{};
  std::array<HeadedSlider*, kEffectLevels> levels_{};
  std::array<QToolButton*, 2> keyframes_{};  // of blur and motion blur
  QRadioButton* easeIn_ = nullptr;
  QRadioButton* easeOut_ = nullptr;
  QToolButton* easeOptions_ = nullptr;
  EasePanelPart* easePanel_ = nullptr;
};

}  // namespace kvo
