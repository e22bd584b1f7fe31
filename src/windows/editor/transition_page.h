// The page Transition: the clips, the transitions as tiles, and the options of the one that is chosen.
#pragma once

#include "editor/tabs/moving_samples.h"
#include "editor/tabs/transition_tab.h"
#include "windows/editor/editor_page.h"

#include <QCoreApplication>
#include <array>
#include <functional>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QToolButton;

namespace kvo {

class PageClipList;
class ColourButton;
class HeadedSlider;
class ParticlePart;
class TransitionTiles;

class TransitionPage final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::TransitionPage)

 public:
  struct Logic {
    const TransitionTab& state;
    TransitionRules& rules;
    const Collection& collection;
    MovingSamples& samples;
    std::function<std::string()> askForMask;  ///< a picture's file; empty when the user leaves it
    std::function<void()> acted;              ///< behind each act
  };

  /// What `logic` refers to outlives the page.
  TransitionPage(Logic logic, QWidget* parent);

  void draw();

 private:
  void makeLeft();
  void makeBorder();
  void makeOptions();
  void makeChoice();
  QSpinBox* makeNumber(const QString& name, int least, const QRect& place);
  void changeBorder(const std::function<void(BorderBoxes&)>& change);
  void tickMask(bool on);
  void act(const std::function<void()>& work);
  void drawBorder();
  void drawOptions();
  void drawChoice();

  Logic logic_;
  const TransitionTab& state_;
  PageClipList* Lst_TransitionMovies_ = nullptr;
  QLabel* Fra_FadDur_ = nullptr;
  HeadedSlider* Sld_In_ = nullptr;
  std::vector<QWidget*> borderParts_;
  std::array<QSpinBox*, 4> border_{};  // width, softness, replicate x and y
  ColourButton* colour_ = nullptr;
  QCheckBox* mask_ = nullptr;
  QLabel* currentMask_ = nullptr;
  QLabel* firstCaption_ = nullptr;
  QLineEdit* first_ = nullptr;
  QLabel* secondCaption_ = nullptr;
  QComboBox* second_ = nullptr;
  QPushButton* Cmd_ParticleOpts_ = nullptr;
  QPushButton* cut_ = nullptr;
  QPushButton* transition_ = nullptr;
  QLineEdit* find_ = nullptr;
  QToolButton* favourites_ = nullptr;
  QLabel* instead_ = nullptr;
  TransitionTiles* Lst_Transitions_ = nullptr;
  ParticlePart* particles_ = nullptr;
  bool isDrawing_ = false;
};

}  // namespace kvo
