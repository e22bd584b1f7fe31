#include "windows/render/pair_page.h"

#include "editor/compiler/picture_in_picture.h"
#include "ui/made.h"
#include "ui/theme.h"
#include "windows/render/fact_rows.h"
#include "windows/render/picture_pane.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace kvo {
namespace {

constexpr int kPairLeft = 386;
constexpr FactRows::Form kPairFacts{430, 27, 160};
constexpr Share kPairGrows{55, 0, 45, 0};
constexpr Share kPairKeys{55, 100, 0, 0};

}  // namespace

PairPage::PairPage(const RenderState& state, const RenderActs& acts, PictureOfClip picture, QWidget* parent)
    : EditorPage(parent, kPlace, "plain"),
      state_(state),
      picture_(std::move(picture)),
      pane_(put(made<PicturePane>(tr("The new clip"), this), {48, 56, 288, 216}, {0, 0, 55, 100})),
      facts_(put(made<FactRows>(kPairFacts, this), {kPairLeft, 108, 430, 216}, kPairGrows)),
      KVOBut_RenderNewPicInPic_(
          put(made<QPushButton>(tr("Render New Clip"), this), {kPairLeft, 334, 170, 34}, kPairKeys)),
      KVOBut1_CancelRenderPicInPic_(
          put(made<QPushButton>(tr("Back to editing"), this), {kPairLeft + 180, 334, 150, 34}, kPairKeys)) {
  write(tr("Two clips become one"), "title", {kPairLeft, 40, 572, 26}, kPairGrows);
  auto* notice = write(tr("The new clip is an uncompressed 32-bit movie: it is as good as its two clips, and "
                          "large. The room on the disk is looked at before it is made."),
                       "field", {kPairLeft, 68, 560, 34}, kPairGrows);
  notice->setWordWrap(true);
  notice->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  KVOBut_RenderNewPicInPic_->setProperty("kind", "primary");
  KVOBut_RenderNewPicInPic_->setToolTip(tr("Choose a name, and make the clip"));
  KVOBut1_CancelRenderPicInPic_->setProperty("kind", "quiet");
  KVOBut1_CancelRenderPicInPic_->setToolTip(tr("Back to editing") + " (Esc)");
  connect(KVOBut_RenderNewPicInPic_, &QPushButton::clicked, [&acts] { acts.writePair(); });
  connect(KVOBut1_CancelRenderPicInPic_, &QPushButton::clicked, [&acts] { acts.leave(); });
}

void PairPage::draw() {
  facts_->draw(state_.facts);
  pane_->draw(both());
}

// The backdrop with the overlay where it will stand, as strong as it gets.
QImage PairPage::both() {
  if (!state_.pair) return {};
  const auto& pair = *state_.pair;
  auto below = picture_(pair.backdrop);
  const auto above = picture_(pair.overlay);
  if (below.isNull() || above.isNull()) return below;
  const std::pair made(below.cacheKey(), above.cacheKey());
  if (made == madeOf_ && madeAs_ == state_.pair) return both_;
  madeOf_ = made;
  madeAs_ = pair;
  both_ = below.convertToFormat(QImage::Format_RGB32);
  const auto box = overlayBox(pair.position, both_.width(), both_.height());
  QPainter painter(&both_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setOpacity(pair.opacity / 100.0);
  painter.drawImage(QRectF(box.offsetX, box.offsetY, box.width, box.height), above);
  return both_;
}

}  // namespace kvo
