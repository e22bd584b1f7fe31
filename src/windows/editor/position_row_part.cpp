#include "windows/editor/position_row_part.h"

#include "ui/digit_display.h"
#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/editor_page.h"

#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <cmath>

namespace kvo {
namespace {

constexpr double kBarSteps = 100;  // of a second
constexpr int kBarPage = 100;
constexpr std::size_t kPlayKey = 2;

struct RowKey {
  const char* icon;
  const char* tip;
  int width, height;  // pixels at size 1
};

#define KVO_TIP(text) QT_TRANSLATE_NOOP("kvo::PositionRowPart", text)
constexpr std::array<RowKey, 5> kRowKeys{{{"prev", KVO_TIP("To the start"), 30, 28},
                                          {"fb", KVO_TIP("One frame back"), 30, 28},
                                          {"play", KVO_TIP("Play"), 40, 32},
                                          {"fwd", KVO_TIP("One frame on"), 30, 28},
                                          {"next", KVO_TIP("To the end"), 30, 28}}};
#undef KVO_TIP

// Pixels at size 1, from the row's corner.
constexpr int kRowInset = 12;
constexpr int kRowMiddle = 23;  // of digits and keys
constexpr int kDigitsWidth = 132;
constexpr int kDigitsHeight = 26;
constexpr double kDigitHeight = 15;
constexpr int kRowKeyGap = 5;
constexpr int kNumbersWidth = 86;
constexpr int kCaptionsWidth = 66;
constexpr int kLineHeight = 16;
constexpr int kFirstLine = 8;
constexpr int kBarTop = 42;
constexpr int kRangeBarHeight = 24;
constexpr int kTickTop = 61;
constexpr int kTickLength = 5;
constexpr int kHandle = 12;
constexpr int kSecondRow = 36;

// "00:07.2000" as the digits show it: two places are enough for the eye.
QString digitsOf(const std::string& position) {
  const auto text = shown(position);
  const auto point = text.indexOf('.');
  return point < 0 ? text : text.left(point + 3);
}

// Its handle comes to where it is pressed, and is held there.
class PlaceSlider final : public QSlider {
 public:
  explicit PlaceSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto part = [&](QStyle::SubControl which) {
      return style()->subControlRect(QStyle::CC_Slider, &option, which, this);
    };
    const auto handle = part(QStyle::SC_SliderHandle);
    const auto groove = part(QStyle::SC_SliderGroove);
    const auto at = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !handle.contains(at)) {
      setValue(QStyle::sliderValueFromPosition(minimum(), maximum(),
                                               at.x() - groove.left() - handle.width() / 2,
                                               groove.width() - handle.width()));
    }
    QSlider::mousePressEvent(event);
  }
};

}  // namespace

PositionRowPart::PositionRowPart(const PreviewState& state, PositionActs acts, QWidget* parent)
    : QFrame(parent),
      state_(state),
      acts_(std::move(acts)),
      pic_DigDisplay_(made<DigitDisplay>(kDigitHeight, this)) {
  setProperty("role", "card");
  pic_DigDisplay_->setAccessibleName(tr("Position"));
  const std::array<std::function<void()>*, kKeys> does{&acts_.toStart, &acts_.stepBack, &acts_.playOrPause,
                                                       &acts_.stepForward, &acts_.toEnd};
  for (std::size_t i = 0; i < kKeys; ++i) {
    auto* key = keys_[i] = made<QPushButton>(this);
    key->setProperty("kind", i == kPlayKey ? "play" : "key");
    key->setIcon(themeIcon(kRowKeys[i].icon));
    key->setToolTip(tr(kRowKeys[i].tip));
    key->setAccessibleName(tr(kRowKeys[i].tip));
    key->setFocusPolicy(Qt::TabFocus);  // a click leaves Space to the movie
    key->setAutoRepeat(i == kPlayKey - 1 || i == kPlayKey + 1);
    connect(key, &QPushButton::clicked, this, [act = does[i]] { (*act)(); });
  }
  const auto label = [&](const QString& text, const char* role) {
    auto* made_ = made<QLabel>(text, this);
    made_->setProperty("role", role);
    made_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    made_->setTextFormat(Qt::PlainText);
    return made_;
  };
  captions_ = {label(tr("Remaining"), "hint"), label(tr("Total"), "hint")};
  Lbl_Remain_ = label({}, "number");
  Lbl_TotDur_ = label({}, "number");
  Lbl_Remain_->setAccessibleName(tr("Remaining"));
  Lbl_TotDur_->setAccessibleName(tr("Total"));
  for (auto* number : {Lbl_Remain_, Lbl_TotDur_}) number->setToolTip(number->accessibleName());
  FSB_RenderRange_ = made<PlaceSlider>(this);
  connectBar();
  layOut();
  draw();
}

void PositionRowPart::connectBar() {
  auto* bar = FSB_RenderRange_;
  bar->setAccessibleName(tr("Place in the movie"));
  bar->setToolTip(tr("Place in the movie, from which the preview plays"));
  bar->setPageStep(kBarPage);
  bar->setSingleStep(kBarPage / 10);
  connect(bar, &QSlider::sliderPressed, this, [this] { acts_.holdRange(true); });
  connect(bar, &QSlider::sliderReleased, this, [this] { acts_.holdRange(false); });
  connect(bar, &QSlider::valueChanged, this, [this](int value) {
    if (!isDrawing_) acts_.moveRange(value / kBarSteps);
  });
}

void PositionRowPart::draw() {
  isDrawing_ = true;
  pic_DigDisplay_->setText(digitsOf(state_.Lbl_TimePos));
  setTextOf(*Lbl_Remain_, shown(state_.Lbl_Remain));
  setTextOf(*Lbl_TotDur_, shown(state_.Lbl_TotDur));
  drawPlayKey();
  const auto& range = state_.FSB_RenderRange;
  const double total = state_.length();
  FSB_RenderRange_->setMaximum(static_cast<int>(std::lround(total * kBarSteps)));
  if (!FSB_RenderRange_->isSliderDown())
    FSB_RenderRange_->setValue(static_cast<int>(std::lround(range.Value * kBarSteps)));
  if (drawnCuts_ != state_.cuts.revision() || drawnTotal_ != total) {
    drawnCuts_ = state_.cuts.revision();
    drawnTotal_ = total;
    update();
  }
  isDrawing_ = false;
}

void PositionRowPart::drawPlayKey() {
  const bool pauses = state_.runs();
  if (pauses == showsPause_) return;
  showsPause_ = pauses;
  auto* key = keys_[kPlayKey];
  key->setIcon(themeIcon(pauses ? "pause" : "play"));
  key->setToolTip(pauses ? tr("Pause") : tr("Play"));
  key->setAccessibleName(key->toolTip());
}

QSize PositionRowPart::sizeHint() const { return {themed(524), themed(kHeight)}; }

void PositionRowPart::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) layOut();
  QFrame::changeEvent(event);
}

void PositionRowPart::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  layOut();
}

// In a narrow row the keys go below digits and numbers first, then the captions go, at last the numbers go
// below the digits.
void PositionRowPart::layOut() {
  if (FSB_RenderRange_ == nullptr) return;
  const int left = themed(kRowInset);
  const int right = width() - left;
  int wide = -themed(kRowKeyGap);
  for (const auto& key : kRowKeys) wide += themed(key.width) + themed(kRowKeyGap);
  const int numbers = right - themed(kNumbersWidth);
  const int from = left + themed(kDigitsWidth) + themed(kRowKeyGap);
  const bool isThin = from > numbers;
  const bool isNamed = (isThin ? left : from) + themed(kCaptionsWidth) <= numbers;
  const int captions = isNamed ? numbers - themed(kCaptionsWidth) : numbers;
  const bool isStacked = isThin || from + wide > captions;
  const int down = isThin ? themed(kSecondRow) : 0;
  below_ = down + (isStacked ? themed(kSecondRow) : 0);
  setFixedHeight(themed(kHeight) + below_);
  const int middle = themed(kRowMiddle);
  pic_DigDisplay_->setGeometry(left, middle - themed(kDigitsHeight) / 2, themed(kDigitsWidth),
                               themed(kDigitsHeight));
  for (int line = 0; line < 2; ++line) {
    const int top = down + themed(kFirstLine) + line * themed(kLineHeight);
    auto* caption = captions_[static_cast<std::size_t>(line)];
    (line == 0 ? Lbl_Remain_ : Lbl_TotDur_)->setGeometry(numbers, top, right - numbers, themed(kLineHeight));
    caption->setGeometry(captions, top, numbers - captions, themed(kLineHeight));
    caption->setVisible(isNamed);
  }
  int x = isStacked ? (width() - wide) / 2 : from + (captions - from - wide) / 2;
  for (std::size_t i = 0; i < kKeys; ++i) {
    const int height = themed(kRowKeys[i].height);
    keys_[i]->setGeometry(x, middle + below_ - height / 2, themed(kRowKeys[i].width), height);
    x += themed(kRowKeys[i].width) + themed(kRowKeyGap);
  }
  FSB_RenderRange_->setGeometry(left, themed(kBarTop) + below_, right - left, themed(kRangeBarHeight));
}

void PositionRowPart::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  if (drawnTotal_ <= 0) return;
  QPainter painter(this);
  const double left = themed(kRowInset) + themed(kHandle) / 2.0;  // of the handle's middle
  const double along = width() - 2 * left;
  const auto tick = [&](double seconds) {
    const double x = std::round(left + along * seconds / drawnTotal_);
    painter.fillRect(QRectF(x, themed(kTickTop) + below_, themed(1), themed(kTickLength)),
                     toColour(token("line3")));
  };
  tick(0);
  for (const double cut : state_.cuts.rows()) {
    if (cut < drawnTotal_) tick(cut);
  }
}

}  // namespace kvo
