// The tab Color.
#pragma once

#include "editor/tabs/color_tab.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/picture_of_clip.h"

#include <QCoreApplication>
#include <array>

class QCheckBox;
class QLabel;
class QPushButton;

namespace kvo {

class PageClipList;
class HeadedSlider;

class ColorPage final : public TabPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::ColorPage)

 public:
  /// What a clip looks like without its colours, and with them. Each may be empty.
  struct Pictures {
    PictureOfClip before;
    PictureOfClip after;
  };

  ColorPage(ColorTab& state, PageLogic logic, Pictures pictures, QWidget* parent);

  void draw();

 private:
  void makeLevels();
  void drawPictures();

  ColorTab& state_;
  Pictures pictures_;
  PageClipList* clips_;
  std::array<HeadedSlider*, kColourLevels> levels_{};
  QCheckBox* sepia_;
  QPushButton* reset_;
  struct Shown {
    QLabel* heading = nullptr;
    QLabel* picture = nullptr;
    qint64 key = 0;
  };
  std::array<Shown, 2> shown_{};
};

}  // namespace kvo
