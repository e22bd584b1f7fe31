// The window of keyframes, Frm_Keyframe.
#pragma once

#include "editor/tabs/keyframe_window.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/picture_of_clip.h"

#include <QCoreApplication>
#include <array>
#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace kvo {

class HeadedSlider;
class KeyframeStrip;
class PageList;

class FrmKeyframe final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmKeyframe)

 public:
  struct Doors {
    std::function<void(Long frame)> showFrame;          ///< brings the picture to a frame of the clip
    std::function<std::string(int steps)> goInHistory;  ///< below 0 undoes, above 0 redoes; or why not
    PictureOfClip picture;
    std::function<QRect()> picturePlace{};  ///< on the desktop, of what is to be in sight; may be empty
  };
  FrmKeyframe(KeyframeWindow& state, PageLogic logic, Doors doors);

  /// Brings it in line with the state, above `owner`; null closes it.
  void draw(QWidget* owner);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void makeStrip();
  void makeList();
  void makeControls();
  void makeShortcuts();
  void act(const std::function<void()>& work);
  void appear(QWidget& owner);
  void drawList();
  void drawControls();
  void drawColours(bool areThere);

  KeyframeWindow& state_;
  PageLogic logic_;
  Doors doors_;
  QLabel* clipName_;
  QLabel* effectName_;
  QLabel* frame_;
  KeyframeStrip* strip_ = nullptr;
  HeadedSlider* master_ = nullptr;
  PageList* list_ = nullptr;
  QPushButton* add_ = nullptr;
  QPushButton* delete_ = nullptr;
  QPushButton* deleteAll_ = nullptr;
  QCheckBox* instantPreview_ = nullptr;
  QLabel* heading_ = nullptr;
  std::array<HeadedSlider*, kKeyframeSliders> sliders_{};
  QCheckBox* additive_ = nullptr;
  std::array<QComboBox*, kKeyframeColours> colours_{};
  std::array<QLabel*, kKeyframeColours> colourNames_{};
  QLabel* colourNote_ = nullptr;
  std::vector<std::string> drawnColours_;
  bool isPlaced_ = false;  // since it was opened
};

}  // namespace kvo
