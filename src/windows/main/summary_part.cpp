#include "windows/main/summary_part.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "windows/main/icon_key.h"

namespace kvo {
namespace {

constexpr double kSummaryTop = 233.5;
constexpr double kSummaryHeight = 22;
constexpr double kSummaryRadius = 5;
constexpr double kSummaryText = 11.5;
constexpr QRectF kWithoutIndex(285, kSummaryTop, 132, kSummaryHeight);
constexpr QRectF kBesideIndex(285, kSummaryTop, 108, kSummaryHeight);

}  // namespace

CollectionDetailsPart::CollectionDetailsPart(const CollectionDetailsState& state, QWidget* parent)
    : Plate(QRectF(30, kSummaryTop, 238, kSummaryHeight), kSummaryRadius, parent),
      state_(state),
      clips_(made<FaceLabel>(
          QRectF(40, kSummaryTop, 72, kSummaryHeight),
          LabelLook{.pixels = kSummaryText, .weight = QFont::Medium, .colour = token("text2")}, this)),
      total_(made<FaceLabel>(
          QRectF(114, kSummaryTop, 144, kSummaryHeight),
          LabelLook{.pixels = kSummaryText, .colour = token("text2"), .side = Qt::AlignRight}, this)) {}

void CollectionDetailsPart::layOut(const FaceScale& scale) {
  Plate::layOut(scale);
  clips_->layOut(scale);
  total_->layOut(scale);
}

void CollectionDetailsPart::draw() {
  clips_->write(shown(state_.clips));
  total_->write(state_.totalTime.empty() ? QString() : tr("Total time") + "  " + shown(state_.totalTime));
}

PositionPart::PositionPart(const DetailsState& state, const MarkersState& markers,
                           std::function<void()> index, QWidget* parent)
    : Plate(QRectF(277, kSummaryTop, 144, kSummaryHeight), kSummaryRadius, parent),
      state_(state),
      markers_(markers),
      position_(made<FaceLabel>(
          kWithoutIndex,
          LabelLook{.pixels = kSummaryText, .weight = QFont::Medium, .colour = token("detail")}, this)),
      index_(made<IconKey>("menu", tr("Index"), QRectF(394, kSummaryTop, 26, kSummaryHeight), 14, this)) {
  index_->setToolTip(tr("Index"));
  connect(index_, &QAbstractButton::clicked, std::move(index));
}

QWidget* PositionPart::indexKey() const { return index_; }

void PositionPart::layOut(const FaceScale& scale) {
  Plate::layOut(scale);
  scale_ = scale;
  index_->layOut(scale);
  position_->layOut(scale);
}

void PositionPart::draw(Rgb colour, bool hasPosition) {
  position_->setVisible(hasPosition);
  position_->write(shown(state_.position));
  index_->setVisible(markers_.available);
  position_->setGeometry(placedIn(*this, scale_, markers_.available ? kBesideIndex : kWithoutIndex));
  position_->setColour(colour);
}

}  // namespace kvo
