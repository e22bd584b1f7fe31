#include "windows/editor/clip_details_part.h"

#include "ui/texts.h"
#include "ui/theme.h"

#include <QLabel>

namespace kvo {
namespace {

constexpr int kDetailLeft = 14;
constexpr int kDetailValueLeft = 92;
constexpr int kDetailTop = 51;
constexpr int kDetailHeight = 17;
constexpr double kDetailPitch = 18.6;
constexpr double kLeastDetails = 0.87;  // times its own height
constexpr double kMostDetails = 1.6;

struct DetailRow {
  const char* caption;
  std::string ClipStats::*text;
  const char* ofSound = nullptr;  // where it is another
};
constexpr std::array<DetailRow, 8> kDetailRows{
    {{QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Frames"), &ClipStats::Lbl_FrameDets,
      QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Section")},
     {QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Length"), &ClipStats::Lbl_Durdets},
     {QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Timeline"), &ClipStats::Lbl_Timelinedets},
     {QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Speed"), &ClipStats::Lbl_Speeddets},
     {QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Frame rate"), &ClipStats::Lbl_Framratedets,
      QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Sound")},
     {QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Transition"), &ClipStats::Lbl_Transdets},
     {QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Effects"), &ClipStats::Lbl_EffectDets},
     {QT_TRANSLATE_NOOP("kvo::ClipDetailsPart", "Audio"), &ClipStats::Lbl_AudioDets}}};

}  // namespace

ClipDetailsPart::ClipDetailsPart(const ClipStats& state, QWidget* parent)
    : EditorPage(parent, kPlace),
      state_(state),
      title_(write({}, "heading", {kDetailLeft, 10, 232, 18}, {.wider = 100})),
      name_(write({}, "lit", {kDetailLeft, 29, 232, 17}, {.wider = 100})) {
  mayBe(kLeastDetails, kMostDetails);
  setAccessibleName(tr("Clip details"));
  for (std::size_t i = 0; i < kRows; ++i) {
    const int top = kDetailTop + static_cast<int>(kDetailPitch * static_cast<double>(i));
    const int down = 100 * static_cast<int>(i + 1) / static_cast<int>(kRows);
    captions_[i] = write({}, "hint", {kDetailLeft, top, kDetailValueLeft - kDetailLeft - 2, kDetailHeight},
                         {.down = down});
    values_[i] =
        write({}, "detail", {kDetailValueLeft, top, kPlace.width() - kDetailValueLeft - 8, kDetailHeight},
              {.down = down, .wider = 100});
  }
}

void ClipDetailsPart::draw() {
  const bool isNone = state_.lbl_ClipStats.empty();
  setTextOf(*title_, isNone ? tr("No clip chosen") : shown(state_.lbl_ClipStats));
  const QFontMetrics metrics(name_->font());
  setTextOf(*name_, metrics.elidedText(shown(state_.clipName), Qt::ElideMiddle, name_->width()));
  setTipOf(*name_, shown(state_.clipName));
  for (std::size_t i = 0; i < kRows; ++i) {
    const auto& row = kDetailRows[i];
    const auto caption = tr(state_.isSound && row.ofSound != nullptr ? row.ofSound : row.caption);
    setTextOf(*captions_[i], caption);
    values_[i]->setAccessibleName(caption);
    const auto text = shown(state_.*row.text);
    setTextOf(*values_[i], text);
    values_[i]->setEnabled(state_.*row.text != kNotApplicable);
    captions_[i]->setVisible(!isNone);
    values_[i]->setAccessibleDescription(text);
  }
}

}  // namespace kvo
