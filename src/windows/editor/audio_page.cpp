#include "windows/editor/audio_page.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "windows/editor/clip_list.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/notice_line.h"
#include "windows/editor/refusal.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>

namespace kvo {
namespace {

constexpr int kSoundLeft = 230;
constexpr int kSoundWide = 194;

}  // namespace

AudioPage::AudioPage(AudioTab& state, PageLogic logic, QWidget* parent)
    : TabPage(parent, std::move(logic)),
      state_(state),
      clips_(put(made<PageClipList>(tr("Clips and audio"), tr("No clips"), this), {16, 34, 198, 190},
                 {.wider = 50, .taller = 90})) {
  write(tr("Clips and audio"), "caption", {16, 15, 198, 16});
  clips_->setToolTip(tr("The clip that is worked on"));
  clips_->chosen = [this](int row) {
    act([&] { chooseAudioClip(logic_.editing, state_, logic_.host, row); });
  };
  makeClip();
  put(made<QFrame>(this), {16, 242, 408, 1}, {.down = 90, .wider = 100})->setProperty("role", "line");
  makeMusic();
  notice_ = put(made<NoticeLine>(this), {16, 378, 408, 62}, {.down = 100, .wider = 100});
}

void AudioPage::makeClip() {
  write(tr("Clip audio"), "caption", {kSoundLeft, 15, kSoundWide, 16}, {.right = 50});
  sound_ = put(made<QCheckBox>(tr("Put this sound in the movie"), this),
               {kSoundLeft - kMarkRoom, 34, kSoundWide + kMarkRoom, 24}, {.right = 50});
  sound_->setToolTip(tr("Put the sound of this clip in the movie"));
  connect(sound_, &QCheckBox::clicked,
          [this](bool on) { act([&] { tickClipSound(logic_.editing, state_, logic_.host, on); }); });
  const auto slider = [this](const QString& name, int top, int down, auto rule) {
    auto* made =
        put(kvo::made<HeadedSlider>(name, this), QRect(kSoundLeft, top, kSoundWide, HeadedSlider::kHeight),
            {.right = 50, .down = down, .wider = 50});
    made->moved = [this, rule](int tenths) {
      act([&] { rule(logic_.editing, state_, logic_.host, tenths); });
    };
    return made;
  };
  fadeIn_ = slider(tr("Fade in of this clip"), 73, 20, moveFadeIn);
  fadeOut_ = slider(tr("Fade out of this clip"), 125, 40, moveFadeOut);
  level_ = slider(tr("Level of this clip in the movie"), 177, 60, moveAudioLevel);
  for (auto* fade : {fadeIn_, fadeOut_}) {
    fade->letGo = [this] { act([&] { letGoFade(logic_.editing, state_); }); };
  }
}

void AudioPage::makeMusic() {
  write(tr("Overlay audio"), "value", {16, 253, 200, 16}, {.down = 90});
  const std::array orders = {tr("One after the other"), tr("All from the start of the movie")};
  constexpr std::array kLefts = {16 - kMarkRoom, 196};
  auto* group = made<QButtonGroup>(this);
  for (std::size_t i = 0; i < orders.size(); ++i) {
    order_[i] = put(made<QRadioButton>(orders[i], this), {kLefts[i], 274, i == 0 ? 180 : 228, 24},
                    {.right = i == 0 ? 0 : 50, .down = 90});
    order_[i]->setToolTip(i == 0 ? tr("Music tracks follow each other") : tr("Music tracks sound together"));
    group->addButton(order_[i]);
    connect(order_[i], &QRadioButton::clicked, [this, order = static_cast<OverlayOrder>(i)] {
      act([&] { chooseOverlayOrder(logic_.editing, state_, logic_.host, order); });
    });
  }
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the page owns its group
  autoTrim_ = put(made<QCheckBox>(tr("Auto Trim"), this), {16 - kMarkRoom, 302, 190, 24}, {.down = 90});
  autoTrim_->setToolTip(tr("Cut overlay audio to the length of the video"));
  connect(autoTrim_, &QCheckBox::clicked,
          [this](bool on) { act([&] { tickAutoTrim(logic_.editing, state_, logic_.host, on); }); });
  write(tr("Cut overlay audio to the length of the video"), "hint", {39, 322, 320, 16}, {.down = 90});
  clipAudio_ = put(made<QCheckBox>(tr("Render the clips' own audio"), this), {16 - kMarkRoom, 346, 208, 24},
                   {.down = 90});
  clipAudio_->setToolTip(tr("Put the clips' own sound into the movie"));
  connect(clipAudio_, &QCheckBox::clicked,
          [this](bool on) { act([&] { tickRenderClipAudio(logic_.editing, state_, logic_.host, on); }); });
  trackFade_ = put(made<HeadedSlider>(tr("Fade between clips"), this), {224, 345, 200, HeadedSlider::kHeight},
                   {.right = 50, .down = 90, .wider = 50});
  trackFade_->moved = [this](int tenths) {
    act([&] { moveTrackFade(logic_.editing, state_, logic_.host, tenths); });
  };
}

void AudioPage::draw() {
  clips_->draw(state_.Lst_AudioMovies, logic_.editing.collection, logic_.editing.editor);
  setWhyNot(*sound_, told(state_.soundWhyNot));
  sound_->setChecked(state_.fades.renderAudio);
  fadeIn_->draw(state_.fadeIn, shown(state_.fadeIn.heading));
  fadeOut_->draw(state_.fadeOut, shown(state_.fadeOut.heading));
  level_->draw(state_.level, shown(state_.level.heading));
  for (std::size_t i = 0; i < order_.size(); ++i) {
    setWhyNot(*order_[i], told(state_.orderWhyNot));
    if (static_cast<OverlayOrder>(i) == state_.Opt_StackOverlay) order_[i]->setChecked(true);
  }
  setWhyNot(*autoTrim_, told(state_.trimWhyNot));
  autoTrim_->setChecked(state_.Chk_AutoTrim);
  setWhyNot(*clipAudio_, told(state_.clipAudioWhyNot));
  clipAudio_->setChecked(state_.Chk_RenderClipAudio);
  trackFade_->draw(state_.trackFade, shown(state_.trackFade.heading));
  const auto& notice = state_.notice;
  notice_->draw(told(notice.title), told(notice.text), notice.kind == AudioNotice::Kind::Good);
}

}  // namespace kvo
