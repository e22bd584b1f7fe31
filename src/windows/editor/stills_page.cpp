#include "windows/editor/stills_page.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "windows/editor/aspect_row.h"
#include "windows/editor/clip_list.h"
#include "windows/editor/headed_slider.h"
#include "windows/editor/refusal.h"

#include <QButtonGroup>
#include <QLabel>
#include <QSlider>

namespace kvo {
namespace {

constexpr int kAspectTop = 250;
constexpr int kAspectPitch = 46;
constexpr int kStillsShare = 60;
constexpr int kAspectShare = 10;
constexpr int kDurationStep = 100;  // milliseconds

}  // namespace

StillsPage::StillsPage(StillsTab& state, PageLogic logic, PictureOfClip picture, QWidget* parent)
    : TabPage(parent, std::move(logic)),
      state_(state),
      picture_(std::move(picture)),
      caption_(write({}, "heading", {16, 10, 408, 20}, {.wider = 100})),
      stills_(put(made<PageClipList>(tr("Stills"), tr("No stills"), this), {16, 116, 190, 96},
                  {.wider = 50, .taller = kStillsShare})),
      duration_(put(made<HeadedSlider>(tr("Still Duration"), this), {224, 124, 200, HeadedSlider::kHeight},
                    {.right = 50, .wider = 50})) {
  const std::array choices = {tr("Treat all stills in group the same"),
                              tr("Set options for each still individually")};
  auto* group = made<QButtonGroup>(this);
  for (std::size_t i = 0; i < choices.size(); ++i) {
    groupOrIndividual_[i] =
        put(made<QRadioButton>(choices[i], this), {16 - kMarkRoom, 38 + 24 * static_cast<int>(i), 408, 24});
    groupOrIndividual_[i]->setToolTip(choices[i]);
    group->addButton(groupOrIndividual_[i]);
    connect(groupOrIndividual_[i], &QRadioButton::clicked, [this, individually = i == 1] {
      act([&] { chooseIndividually(logic_.editing, state_, logic_.host, individually); });
    });
  }
  write(tr("Stills"), "caption", {16, 97, 190, 16});
  stills_->setToolTip(tr("The still whose options are shown"));
  stills_->chosen = [this](int row) { act([&] { chooseStill(logic_.editing, state_, logic_.host, row); }); };
  write(tr("Still Duration"), "caption", {224, 97, 200, 16}, {.right = 50});
  write(tr("Seven seconds is the usual length"), "hint", {224, 166, 200, 16}, {.right = 50, .wider = 50});
  duration_->slider()->setSingleStep(kDurationStep);
  duration_->moved = [this](int milliseconds) {
    act([&] { moveStillDuration(logic_.editing, state_, logic_.host, milliseconds); });
  };
  makeAspects();
}

void StillsPage::makeAspects() {
  write(tr("Aspect ratio options"), "caption", {16, 226, 408, 16}, {.down = kStillsShare});
  auto* group = made<QButtonGroup>(this);
  const auto captions = aspectCaptions();
  for (std::size_t i = 0; i < aspects_.size(); ++i) {
    const int aspect = static_cast<int>(i);
    aspects_[i] = put(made<AspectRow>(aspect, told(std::string(captions[i])), this),
                      {16, kAspectTop + kAspectPitch * aspect, 408, 40},
                      {.down = kStillsShare + kAspectShare * aspect, .wider = 100, .taller = kAspectShare});
    group->addButton(aspects_[i]);
    connect(aspects_[i], &QRadioButton::clicked,
            [this, aspect] { act([&] { chooseAspect(logic_.editing, state_, logic_.host, aspect); }); });
  }
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the page owns its group

void StillsPage::draw() {
  setTextOf(*caption_, shown(state_.caption));
  groupOrIndividual_[state_.controls.individually ? 1 : 0]->setChecked(true);
  const auto noStill = told(state_.whyNot);
  for (auto* option : groupOrIndividual_) setWhyNot(*option, noStill);
  stills_->draw(state_.Lst_Movies, logic_.editing.collection, logic_.editing.editor);
  setWhyNot(*stills_, told(state_.listWhyNot));
  duration_->draw(state_.Slider1, tr("Each still shows for"), shown(state_.reading));
  const auto picture = picture_ && state_.shownClip > 0 ? picture_(state_.shownClip) : QImage();
  const bool isOther = std::exchange(shownPicture_, picture.cacheKey()) != picture.cacheKey();
  for (std::size_t i = 0; i < aspects_.size(); ++i) {
    if (isOther) aspects_[i]->setStill(picture);
    setWhyNot(*aspects_[i], noStill);
    if (static_cast<int>(i) == state_.controls.aspect) aspects_[i]->setChecked(true);
  }
}

}  // namespace kvo
