// The tab Overlay.
#pragma once

#include "editor/tabs/overlay_tab.h"
#include "windows/editor/editor_page.h"

#include <QCoreApplication>
#include <array>

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace kvo {

class PageClipList;
class HeadedSlider;
class OverlayPositions;

class OverlayPage final : public TabPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::OverlayPage)

 public:
  OverlayPage(OverlayTab& state, PageLogic logic, QWidget* parent);

  /// KVOBut_RenderPinP.
  std::function<void()> render = [] {};

  void draw();

 private:
  void makeLook();
  void makeSliders();
  void makeSound();

  OverlayTab& state_;
  PageClipList* backdrops_;
  PageClipList* overlays_;
  QLabel* positionName_;
  OverlayPositions* positions_;
  std::array<QRadioButton*, 3> styles_{};
  HeadedSlider* opacity_ = nullptr;
  HeadedSlider* fadeIn_ = nullptr;
  HeadedSlider* fadeOut_ = nullptr;
  QCheckBox* trim_ = nullptr;
  QCheckBox* overlaySound_ = nullptr;
  QCheckBox* backdropSound_ = nullptr;
  QPushButton* clear_ = nullptr;
  QPushButton* KVOBut_RenderPinP_ = nullptr;
  QLabel* notice_ = nullptr;
};

}  // namespace kvo
