#include "windows/main/keys_part.h"

#include "ui/kvo_but.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/tool_tips.h"
#include "windows/main/key_label.h"

#include <QCoreApplication>
#include <QPainter>
#include <algorithm>
#include <optional>
#include <utility>

namespace kvo {
namespace {

constexpr const char* kKeysContext = "kvo::KeysPart";
constexpr double kCloseBehindMinimise = 26;  // pixels at size 1, from left to left
constexpr int kSpeedThirds = 3;
constexpr double kLeastHit = 24;
constexpr double kSizeHigh = 28;

struct KeyRow {
  KeyPlace place;
  int third;   ///< of the picture from left to right; -1 for all of it
  QRectF key;  ///< what of the label is the key, at size 1
  bool isRound;
  const char* name;
  const char* keys;                            // of the keyboard that do the same; empty for none
  std::function<void()> KeysPart::Acts::*act;  // null for a key that steps
  std::optional<Step> step{};
  double rate = 0;  ///< that it sets; its bar is lit while that is the present one
  QRectF bar{};     ///< at size 1, of the whole picture
};

constexpr int kWhole = -1;

// In the order of Tab.
const std::array<KeyRow, KeysPart::kLabels> kKeyRows = {{
    {KeyPlace::Play,
     kWhole,
     {2, 2, 44, 44},
     true,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "Play"),
     "Space",
     &KeysPart::Acts::play},
    {KeyPlace::Pause,
     kWhole,
     {2, 5, 28, 28},
     true,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "Pause"),
     "Space",
     &KeysPart::Acts::pause},
    {KeyPlace::FastRewind,
     kWhole,
     {3, 2, 22, 24},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart",
                       "Right-Click to position to start or Click or Hold Down to rewind 5 frames"),
     "<",
     nullptr,
     Step::Rew5},
    {KeyPlace::FrameBack,
     kWhole,
     {3, 2, 22, 24},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "One frame back"),
     ",",
     nullptr,
     Step::Rew1},
    {KeyPlace::FrameForward,
     kWhole,
     {3, 2, 22, 24},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "One frame forward"),
     ".",
     nullptr,
     Step::Adv1},
    {KeyPlace::FastForward,
     kWhole,
     {3, 2, 22, 24},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart",
                       "Right-Click to position to end or Click or Hold Down to advance 5 frames"),
     ">",
     nullptr,
     Step::Adv5},
    {KeyPlace::Speeds,
     0,
     {2, 2, 30, 24},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "A quarter of the speed"),
     "Q",
     &KeysPart::Acts::speed025,
     std::nullopt,
     0.25,
     {12.5, 21, 10, 1.8}},
    {KeyPlace::Speeds,
     1,
     {0, 2, 32, 24},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "Half the speed"),
     "H",
     &KeysPart::Acts::speed05,
     std::nullopt,
     0.5,
     {43, 21, 10, 1.8}},
    {KeyPlace::Speeds,
     2,
     {0, 2, 30, 24},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "Twice the speed"),
     "D",
     &KeysPart::Acts::speed02,
     std::nullopt,
     2,
     {73.5, 21, 10, 1.8}},
    {KeyPlace::Size,
     kWhole,
     {2, 2, 34, 24},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "Size of the picture"),
     "",
     &KeysPart::Acts::size},
    {KeyPlace::PlayAll,
     kWhole,
     {2, 2, 48, 30},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "Play all"),
     "",
     &KeysPart::Acts::playAll},
    {KeyPlace::Mini,
     kWhole,
     {2, 1, 40, 16},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "Free Zoom Mode"),
     "",
     &KeysPart::Acts::mini},
    {KeyPlace::Minimise,
     kWhole,
     {1, 2, 22, 19},
     false,
     QT_TRANSLATE_NOOP("kvo::KeysPart", "Minimise"),
     "",
     &KeysPart::Acts::minimise},
}};

QString keyName(const char* name) { return QCoreApplication::translate(kKeysContext, name); }

// What takes the mouse about a part of a picture: at least `least` each way.
QRect hitAbout(const QRect& part, int least) {
  const int dx = std::max(0, (least - part.width() + 1) / 2);
  const int dy = std::max(0, (least - part.height() + 1) / 2);
  return part.adjusted(-dx, -dy, dx, dy);
}

QRect partOf(const KeyRow& row, const QSize& picture) {
  if (row.third == kWhole) return {QPoint(), picture};
  const int from = picture.width() * row.third / kSpeedThirds;
  const int to = picture.width() * (row.third + 1) / kSpeedThirds;
  return {from, 0, to - from, picture.height()};
}

}  // namespace

KeysPart::KeysPart(const ButtonsState& state, ImageList1& images, const Acts& acts, const std::string& folder,
                   QWidget* face)
    : state_(state), images_(images), acts_(acts), folder_(folder) {
  for (std::size_t i = 0; i < kLabels; ++i) {
    labels_[i] = made<KeyLabel>(keyName(kKeyRows[i].name), face);
    const auto& row = kKeyRows[i];
    setKeys(*labels_[i], row.keys);
    if (row.step) acts_.steps.serve(*labels_[i], *row.step);
    if (row.act != nullptr && acts_.*row.act)
      QObject::connect(labels_[i], &KeyLabel::clicked, acts_.*row.act);
  }
  if (acts_.playRight) {
    labels_[0]->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(labels_[0], &QWidget::customContextMenuRequested, acts_.playRight);
  }
  close_ = made<KVOBut>(face);
  close_->setFocusPolicy(Qt::TabFocus);
  close_->setToolTip(QCoreApplication::translate(kKeysContext, "Close"));
  setKeys(*close_, "Ctrl+Q");
  QObject::connect(close_, &KVOBut::clicked, acts_.close);
}

void KeysPart::layOut(const FaceScale& scale) {
  scale_ = scale;
  const auto picture = [&](const char* ending) {
    return QString::fromStdString(folder_ + "Buttons/Close_Rnd_" + ending + ".bmp");
  };
  close_->setPictures(picture("Off"), picture("Hvr"), picture("On"), scale.size());
  draw();
}

void KeysPart::draw() {
  for (std::size_t i = 0; i < kLabels; ++i) {
    const auto& row = kKeyRows[i];
    const auto& drawn = state_.at(row.place);
    auto& label = *labels_[i];
    label.setVisible(drawn.image > 0);
    if (drawn.image == 0) continue;
    const auto& picture = images_.picture(drawn.image, scale_.size(), label.devicePixelRatio());
    const auto part = partOf(row, picture.deviceIndependentSize().toSize());
    const auto hit = hitAbout(part, scale_.at(kLeastHit));
    label.setGeometry(hit.translated(drawn.left, drawn.top));
    label.setPicture(picture, hit);
    label.setHoverPicture(
        drawn.hover > 0 ? images_.picture(drawn.hover, scale_.size(), label.devicePixelRatio()) : QPixmap());
    label.setShape(scale_.place(row.key).translated(part.topLeft() - hit.topLeft()), row.isRound);
    if (row.rate > 0) {
      const double size = scale_.size();
      label.setBar({row.bar.x() * size - hit.x(), row.bar.y() * size - hit.y(), row.bar.width() * size,
                    row.bar.height() * size});
    }
    const bool acts = row.step ? static_cast<bool>(acts_.steps.release) : static_cast<bool>(acts_.*row.act);
    label.setEnabled(acts && state_.takesMouse(row.place, anyClip_));
    label.setLit(drawn.lit || (row.rate > 0 && row.rate == rate_));
  }
  const auto& minimise = state_.at(KeyPlace::Minimise);
  const QRect picture(minimise.left + scale_.at(kCloseBehindMinimise), minimise.top,
                      close_->sizeHint().width(), close_->sizeHint().height());
  close_->setGeometry(hitAbout(picture, scale_.at(kLeastHit)));
}

void KeysPart::setRate(double rate) {
  if (std::exchange(rate_, rate) != rate) draw();
}

void KeysPart::setAnyClip(bool any) {
  if (std::exchange(anyClip_, any) != any) draw();
}

void KeysPart::paint(QPainter& painter) {
  for (const auto& key : state_.drawn) {
    if (key.image > 0) images_.CreateActbut(painter, key.left, key.top, key.image, scale_.size());
  }
}

void KeysPart::setStepTips(const TransportTips& tips) {
  for (std::size_t i = 0; i < kLabels; ++i) {
    const auto& row = kKeyRows[i];
    if (row.step != Step::Rew5 && row.step != Step::Adv5) continue;
    const auto tip = plainTip(told(row.step == Step::Rew5 ? tips.rewind : tips.advance));
    labels_[i]->setName(tip.isEmpty() ? keyName(row.name) : tip);
  }
}

void KeysPart::setMiniTip(const QString& tip) {
  for (std::size_t i = 0; i < kLabels; ++i) {
    if (kKeyRows[i].place == KeyPlace::Mini && labels_[i]->toolTip() != tip) labels_[i]->setToolTip(tip);
  }
}

QPoint KeysPart::volumeCorner() const {
  const auto& volume = state_.at(KeyPlace::Volume);
  return {volume.left, volume.top};
}

QPoint KeysPart::sizeFoot() const {
  const auto& key = state_.at(KeyPlace::Size);
  return {key.left, key.top + scale_.at(kSizeHigh)};
}

std::vector<QWidget*> KeysPart::windowKeys() const {
  const auto row = std::ranges::find(kKeyRows, KeyPlace::Minimise, &KeyRow::place);
  return {labels_[static_cast<std::size_t>(row - kKeyRows.begin())], close_};
}

std::vector<QWidget*> KeysPart::tabOrder() const {
  std::vector<QWidget*> order(labels_.begin(), labels_.end());
  order.push_back(close_);
  return order;
}

}  // namespace kvo
