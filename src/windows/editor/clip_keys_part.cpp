#include "windows/editor/clip_keys_part.h"

#include "ui/kvo_but.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "ui/tool_tips.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/refusal.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QToolButton>
#include <cmath>

namespace kvo {
namespace {

struct ClipKeyRow {
  const char* stem;  // of the pictures
  const char* endings[3];
  const char* icon;  // where there are no pictures
  const char* tip;
  const char* keys;
  bool beginsGroup;
};

constexpr const char* kUsual[3] = {"Nrm", "HVR", "DN"};
#define KVO_TIP(text) QT_TRANSLATE_NOOP("kvo::ClipKeysPart", text)
constexpr std::array<ClipKeyRow, kClipKeys> kClipKeyRows{{
    {"MRKIN", {"Nrm", "HVr", "DN"}, "in", KVO_TIP("Set Mark-IN frame"), "I", false},
    {"MRKOUT", {"Nrm", "HVr", "DN"}, "out", KVO_TIP("Set Mark-OUT frame"), "O", false},
    {"RSTIN", {"Nm", "HV", "DN"}, "rin", KVO_TIP("Clear current Mark-IN point"), "Shift+I", false},
    {"RSTOUT", {"Nm", "HV", "DN"}, "rout", KVO_TIP("Clear current Mark-OUT point"), "Shift+O", false},
    {"Split",
     {kUsual[0], kUsual[1], kUsual[2]},
     "scissors",
     KVO_TIP("Split clip at the current frame - Right Click on Movie Name to Re-Name"),
     "X",
     true},
    {"Copy",
     {kUsual[0], kUsual[1], kUsual[2]},
     "copy",
     KVO_TIP("Copy clip exactly  - Right Click on Movie Name to Re-Name"),
     "C",
     false},
    {"CPYEnd",
     {kUsual[0], kUsual[1], kUsual[2]},
     "copyend",
     KVO_TIP("Copy from 'Mark-Out' to end of current clip  - Right Click on Movie Name to Re-Name"),
     "Shift+C",
     false},
    {"Eqi",
     {kUsual[0], kUsual[1], kUsual[2]},
     "equal",
     KVO_TIP("Copy equal chunk from end of current clip - Right Click on Movie Name to Re-Name"),
     "E",
     false},
    {"Trim", {kUsual[0], kUsual[1], kUsual[2]}, "trim", KVO_TIP("Show the Clip Trimmer"), "T", true},
    {"Name_",
     {kUsual[0], kUsual[1], kUsual[2]},
     "name",
     KVO_TIP("Change the Displayed name for the clip"),
     "F2",
     false},
    {"Camera_",
     {kUsual[0], kUsual[1], kUsual[2]},
     "camera",
     KVO_TIP("Keep the picture that is shown as a still"),
     "",
     true},
}};
#undef KVO_TIP

constexpr int kKeyGap = 3;
constexpr int kDividerGap = 3;  // beside the line between two groups, and the gap of keys
constexpr int kDividerHeight = 20;
constexpr int kTotalsGap = 46;  // from the lengths to the zoom
constexpr int kRowSide = 16;
constexpr int kZoomSliderSteps = 100;
constexpr int kZoomIcon = 16;

QLabel* keyRowLabel(const QString& text, const char* role, QWidget* parent) {
  auto* label = made<QLabel>(text, parent);
  label->setProperty("role", role);
  return label;
}

QHBoxLayout* bareRow(QWidget* of, int gap) {
  auto* row = made<QHBoxLayout>(of);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(themed(gap));
  return row;
}

void addDivider(QHBoxLayout& row, QWidget* parent) {
  const int gap = themed(kDividerGap);
  auto* line = made<QFrame>(parent);
  line->setProperty("role", "divider");
  line->setFixedSize(themed(1), themed(kDividerHeight));
  row.addSpacing(gap);
  row.addWidget(line);
  row.addSpacing(gap);
}

}  // namespace

ClipKeysPart::ClipKeysPart(const RushState& state, const RushActs& acts, const std::string& pictures,
                           QWidget* parent)
    : QWidget(parent), state_(state), acts_(acts), pictures_(pictures) {
  auto* row = made<QHBoxLayout>(this);
  row->setContentsMargins(themed(kRowSide), 0, themed(kRowSide), 0);
  row->setSpacing(themed(kRowSide));
  row->addWidget(makeKeys());
  row->addStretch(1);
  row->addWidget(makeTotals());
  row->addSpacing(themed(kTotalsGap));
  row->addWidget(makeZoom());
  layOut();
}

QWidget* ClipKeysPart::makeKeys() {
  auto* group = made<QWidget>(this);
  auto* row = bareRow(group, kKeyGap);
  for (std::size_t i = 0; i < kClipKeys; ++i) {
    const auto& entry = kClipKeyRows[i];
    if (entry.beginsGroup) addDivider(*row, group);
    keys_[i] = made<KVOBut>(group);
    keys_[i]->setIconName(entry.icon);
    keys_[i]->setToolTip(tr(entry.tip));
    keys_[i]->setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard where it is
    setKeys(*keys_[i], entry.keys);
    connect(keys_[i], &KVOBut::clicked, [this, i] { acts_.clipKey(static_cast<ClipKey>(i)); });
    row->addWidget(keys_[i]);
  }
  return group;
}

QWidget* ClipKeysPart::makeTotals() {
  auto* group = made<QWidget>(this);
  auto* row = bareRow(group, 4);
  row->addWidget(keyRowLabel(tr("Video"), "hint", group));
  video_ = keyRowLabel({}, "number", group);
  video_->setAccessibleName(tr("Length of the video"));
  row->addWidget(video_);
  row->addSpacing(themed(kRowSide));
  row->addWidget(keyRowLabel(tr("Audio"), "hint", group));
  audio_ = keyRowLabel({}, "number", group);
  audio_->setAccessibleName(tr("Length of the audio"));
  row->addWidget(audio_);
  warning_ = made<QLabel>(group);
  auto kept = warning_->sizePolicy();
  kept.setRetainSizeWhenHidden(true);  // the lengths stand still
  warning_->setSizePolicy(kept);
  row->addWidget(warning_);
  return group;
}

QWidget* ClipKeysPart::makeZoom() {
  auto* group = made<QWidget>(this);
  auto* row = bareRow(group, 2);
  const auto key = [&](const char* icon, const QString& tip, const char* keys, auto act) {
    auto* made = kvo::made<QToolButton>(group);
    made->setProperty("kind", "quiet");
    made->setIcon(themeIcon(icon));
    made->setToolTip(tip);
    made->setAccessibleName(tip);
    made->setFocusPolicy(Qt::TabFocus);
    setKeys(*made, keys);
    connect(made, &QToolButton::clicked, act);
    return made;
  };
  const auto step = [this](int by) { acts_.zoom(state_.frame.zoomBy(by)); };
  zoomOut_ = key("zout", tr("Show more of the movie"), "-", [step] { step(-1); });
  zoom_ = made<QSlider>(Qt::Horizontal, group);
  zoom_->setAccessibleName(tr("Zoom"));
  zoom_->setToolTip(tr("Zoom of the timeline"));
  zoom_->setRange(0, kZoomSliderSteps);
  zoom_->setProperty("fill", toColour(token("line3")));
  zoom_->setPageStep(kZoomSliderSteps / 10);
  connect(zoom_, &QSlider::valueChanged, [this](int value) {
    if (!isDrawing_) acts_.zoom(value / static_cast<double>(kZoomSliderSteps));
  });
  zoomIn_ = key("zin", tr("Show more of each clip"), "+", [step] { step(1); });
  whole_ = made<KVOBut>(group);
  whole_->setIconName("size");
  whole_->setToolTip(tr("Show the whole movie"));
  whole_->setFocusPolicy(Qt::TabFocus);
  setKeys(*whole_, "0");
  connect(whole_, &KVOBut::clicked, [this] { acts_.wholeMovie(); });
  row->addWidget(zoomOut_);
  row->addWidget(zoom_);
  row->addWidget(zoomIn_);
  row->addSpacing(themed(6));
  row->addWidget(whole_);
  return group;
}

int ClipKeysPart::zoomValue() const {
  return static_cast<int>(std::lround(state_.frame.zoom * kZoomSliderSteps));
}

void ClipKeysPart::layOut() {
  setFixedHeight(themed(kHeight));
  zoom_->setFixedWidth(themed(112));
  const double size = themeSize();
  for (std::size_t i = 0; i < kClipKeys; ++i) {
    const auto& entry = kClipKeyRows[i];
    const auto file = [&](const char* ending) { return shown(pictures_) + entry.stem + ending + ".bmp"; };
    keys_[i]->setPictures(file(entry.endings[0]), file(entry.endings[1]), file(entry.endings[2]), size);
  }
  for (auto* key : {zoomOut_, zoomIn_}) {
    key->setFixedSize(themed(28), themed(28));
    key->setIconSize({themed(kZoomIcon), themed(kZoomIcon)});
  }
  whole_->setFixedSize(themed(32), themed(28));
  warning_->setPixmap(iconPicture("warn", token("red"), themed(14), devicePixelRatio()));
}

void ClipKeysPart::draw() {
  isDrawing_ = true;
  for (std::size_t i = 0; i < kClipKeys; ++i) {
    setWhyNot(*keys_[i], shown(state_.keys.whyNot[i]));
  }
  const auto& totals = state_.totals;
  setTextOf(*video_, shown(totals.lbl_VideoTotTime));
  setTipOf(*video_, shown(totals.Fra_Preview));
  setTextOf(*audio_, told(totals.Lbl_AudTotal));
  setTipOf(*audio_, told(totals.audioToolTip));
  warning_->setVisible(totals.audioIsRed);
  setTipOf(*warning_, told(totals.audioToolTip));
  markBad(*audio_, totals.audioIsRed);
  if (!zoom_->isSliderDown()) zoom_->setValue(zoomValue());
  isDrawing_ = false;
}

void ClipKeysPart::refuse(ClipKey key) {
  kvo::refuse(*keys_[static_cast<std::size_t>(key)], shown(state_.keys.of(key)));
}

void ClipKeysPart::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange && whole_ != nullptr) layOut();
  QWidget::changeEvent(event);
}

}  // namespace kvo
