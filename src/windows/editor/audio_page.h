// The tab Audio: the sound of each clip, and the music under the movie.
#pragma once

#include "editor/tabs/audio_tab.h"
#include "windows/editor/editor_page.h"

#include <QCoreApplication>
#include <array>
#include <functional>

class QCheckBox;
class QRadioButton;

namespace kvo {

class PageClipList;
class HeadedSlider;
class NoticeLine;

class AudioPage final : public TabPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::AudioPage)

 public:
  AudioPage(AudioTab& state, PageLogic logic, QWidget* parent);

  void draw();

 private:
  void makeClip();
  void makeMusic();

  AudioTab& state_;
  PageClipList* clips_;
  QCheckBox* sound_ = nullptr;
  HeadedSlider* fadeIn_ = nullptr;
  HeadedSlider* fadeOut_ = nullptr;
  HeadedSlider* level_ = nullptr;
  std::array<QRadioButton*, 2> order_{};
  QCheckBox* autoTrim_ = nullptr;
  QCheckBox* clipAudio_ = nullptr;
  HeadedSlider* trackFade_ = nullptr;
  NoticeLine* notice_ = nullptr;
};

}  // namespace kvo
