#include "windows/main/details_part.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "windows/main/key_label.h"

#include <utility>

namespace kvo {
namespace {

constexpr QRectF kDetailsPlate(30, 260, 514, 54);
constexpr std::array kDetailColumns = {40.0, 216.0, 392.0};
constexpr double kDetailsTop = 264.5;
constexpr double kDetailRow = 15.4;
constexpr double kDetailCaption = 46;    // wide
constexpr double kDetailValueFrom = 47;  // from the column's left
constexpr double kDetailEnd = 10;        // left free at the plate's right end and between columns
constexpr double kDetailText = 10.5;     // pixels of the text

constexpr std::size_t kCodecPair = 8;

double widthOfColumn(std::size_t column) {
  return (column + 1 < kDetailColumns.size() ? kDetailColumns[column + 1] : kDetailsPlate.right()) -
         kDetailColumns[column];
}

}  // namespace

DetailsPart::DetailsPart(const DetailsState& state, std::function<void()> showCodec, QWidget* parent)
    : Plate(kDetailsPlate, 7, parent), state_(state) {
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    const double left = kDetailColumns[i / 3];
    const double top = kDetailsTop + static_cast<double>(i % 3) * kDetailRow;
    pairs_[i].caption = made<FaceLabel>(QRectF(left, top, kDetailCaption, kDetailRow),
                                        LabelLook{.pixels = kDetailText, .colour = token("text3")}, this);
    pairs_[i].value =
        made<FaceLabel>(QRectF(left + kDetailValueFrom, top,
                               widthOfColumn(i / 3) - kDetailValueFrom - kDetailEnd, kDetailRow),
                        LabelLook{.pixels = kDetailText,
                                  .weight = QFont::Medium,
                                  .colour = token("detail"),
                                  .elide = Qt::ElideMiddle},
                        this);
    pairs_[i].caption->setBuddy(pairs_[i].value);
  }
  codecKey_ = made<KeyLabel>(QString(), this);
  connect(codecKey_, &QAbstractButton::clicked, std::move(showCodec));
}

std::vector<QWidget*> DetailsPart::tabOrder() const { return {codecKey_}; }

void DetailsPart::layOut(const FaceScale& scale) {
  Plate::layOut(scale);
  for (const auto& pair : pairs_) {
    pair.caption->layOut(scale);
    pair.value->layOut(scale);
  }
  codecKey_->setGeometry(pairs_[kCodecPair].value->geometry());
  codecKey_->setShape({QPoint(), codecKey_->size()}, false);
}

void DetailsPart::draw(Rgb colour) {
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    pairs_[i].caption->write(told(state_.pairs[i].caption));
    pairs_[i].value->write(shown(state_.pairs[i].value));
    pairs_[i].value->setColour(colour);
  }
  const auto& tip = state_.pairs[kCodecPair].tip;
  codecKey_->setVisible(!tip.empty());
  codecKey_->setName(plainTip(told(tip)));
}

}  // namespace kvo
