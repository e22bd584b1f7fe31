// The tab Stills.
#pragma once

#include "editor/tabs/stills_tab.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/picture_of_clip.h"

#include <QCoreApplication>
#include <array>

class QLabel;
class QRadioButton;

namespace kvo {

class AspectRow;
class PageClipList;
class HeadedSlider;

class StillsPage final : public TabPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::StillsPage)

 public:
  StillsPage(StillsTab& state, PageLogic logic, PictureOfClip picture, QWidget* parent);

  void draw();

 private:
  void makeAspects();

  StillsTab& state_;
  PictureOfClip picture_;
  QLabel* caption_;
  std::array<QRadioButton*, 2> groupOrIndividual_{};
  PageClipList* stills_;
  HeadedSlider* duration_;
  std::array<AspectRow*, 4> aspects_{};
  qint64 shownPicture_ = 0;
};

}  // namespace kvo
