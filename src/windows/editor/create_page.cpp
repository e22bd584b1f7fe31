#include "windows/editor/create_page.h"

#include "base/numbers.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "ui/tool_tips.h"
#include "windows/editor/refusal.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleValidator>
#include <QEvent>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStyle>
#include <cmath>

namespace kvo {
namespace {

constexpr int kPageLeft = 16;
constexpr int kPageRight = 424;
constexpr int kLineTop = 225;
constexpr int kLinePitch = 19;
constexpr std::array kLineLefts = {16, 224};
constexpr int kPowerTickTop = 21;  // from the slider's top
constexpr int kTickHeight = 4;
constexpr int kTickInset = 10;  // from the slider's end to the middle of its handle there
constexpr int kPowers = 10;
constexpr int kBoldTime = 1500;  // milliseconds
constexpr int kMostPixels = 3000;
// Of the width that the page has beyond its own, the parts of its first rows.
constexpr Share kFirstShare{.wider = 40};
constexpr Share kWidthShare{.right = 40, .wider = 15};
constexpr Share kHeightShare{.right = 55, .wider = 15};
constexpr Share kRateShare{.right = 70, .wider = 30};

// A property that the sheet looks at.
void restyle(QWidget& widget, const char* property, const QVariant& value) {
  if (widget.property(property) == value) return;
  widget.setProperty(property, value);
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

void setFieldText(QLineEdit& field, const QString& text) {
  if (!field.hasFocus() || !field.isModified())
    if (field.text() != text) field.setText(text);
}

// Whole seconds as they are, others to a tenth.
QString secondsText(double seconds) { return shown(ShortText(std::round(seconds * 10) / 10)); }

}  // namespace

CreatePage::CreatePage(const CreateTab& state, const EditorFrame& frame, CreateRules& rules, Acts acts,
                       QWidget* parent)
    : EditorPage(parent), state_(state), frame_(frame), rules_(rules), acts_(std::move(acts)) {
  write(tr("Movie"), "heading", {kPageLeft, 11, 200, 18}, {.wider = 50});
  makeOutput();
  makeRange();
  put(made<QFrame>(this), {kPageLeft, 158, 408, 1}, {.down = 15, .wider = 100})->setProperty("role", "line");
  makePower();
  put(made<QFrame>(this), {kPageLeft, 322, 408, 1}, {.down = 45, .wider = 100})->setProperty("role", "line");
  makeKeys();
  Tmr_Unbold_.setSingleShot(true);
  Tmr_Unbold_.setInterval(kBoldTime);
  Tmr_Unbold_.callOnTimeout(this, [this] {
    for (auto* line : lines_) restyle(*line, "state", "");
  });
}

void CreatePage::act(const std::function<void()>& work) {
  if (isDrawing_) return;
  work();
  acts_.acted();
}

QLineEdit* CreatePage::makeField(const QString& name, const QRect& place, const Share& share) {
  auto* field = put(made<QLineEdit>(this), place, share);
  field->setAccessibleName(name);
  field->setToolTip(name);
  return field;
}

void CreatePage::makeOutput() {
  write(tr("Resolution"), "field", {kPageLeft, 38, 148, 16});
  write(tr("Width"), "field", {178, 38, 64, 16}, kWidthShare);
  write(tr("Height"), "field", {250, 38, 64, 16}, kHeightShare);
  write(tr("Frames a second"), "field", {324, 38, 106, 16}, kRateShare);
  write(tr("Colors"), "field", {kPageLeft, 94, 148, 16});
  Cmb_Res_ = put(made<QComboBox>(this), {kPageLeft, 57, 148, 28}, kFirstShare);
  Cmb_Res_->setAccessibleName(tr("Resolution"));
  Cmb_Res_->setToolTip(tr("Size of the movie's picture"));
  Cmb_Res_->setPlaceholderText(tr("Own size"));
  for (const auto size : outputSizes())
    Cmb_Res_->addItem(QString::fromUtf8(size.data(), static_cast<qsizetype>(size.size())));
  connect(Cmb_Res_, &QComboBox::activated, [this](int row) { act([&] { rules_.chooseSize(row); }); });
  txtWidth_ = makeField(tr("Width in pixels"), {178, 57, 64, 28}, kWidthShare);
  txtHeight_ = makeField(tr("Height in pixels"), {250, 57, 64, 28}, kHeightShare);
  for (auto* box : {txtWidth_, txtHeight_}) {
    box->setValidator(made<QIntValidator>(0, kMostPixels, box));
    connect(box, &QLineEdit::editingFinished, [this] {
      if (!txtWidth_->isModified() && !txtHeight_->isModified()) return;
      act([&] { rules_.typeSize(txtWidth_->text().toInt(), txtHeight_->text().toInt()); });
      txtWidth_->setModified(false);
      txtHeight_->setModified(false);
    });
  }
  rate_ = put(made<QComboBox>(this), {324, 57, 100, 28}, kRateShare);
  rate_->setAccessibleName(tr("Frames a second"));
  rate_->setToolTip(tr("Pictures of the movie in a second"));
  rate_->setEditable(true);
  rate_->setInsertPolicy(QComboBox::NoInsert);
  rate_->lineEdit()->setStyleSheet("border: none; background: transparent; padding: 0; min-height: 0;");
  rate_->lineEdit()->setAccessibleName(rate_->accessibleName());
  for (const auto rate : outputRates())
    rate_->addItem(QString::fromUtf8(rate.data(), static_cast<qsizetype>(rate.size())));
  const auto take = [this] { act([&] { rules_.typeRate(rate_->currentText().toStdString()); }); };
  connect(rate_, &QComboBox::activated, take);
  connect(rate_->lineEdit(), &QLineEdit::editingFinished, [this, take] {
    if (rate_->currentText() != shown(state_.frameRate)) take();
    rate_->lineEdit()->setModified(false);
  });
  Cmb_ColorDepth_ = put(made<QComboBox>(this), {kPageLeft, 113, 148, 28}, kFirstShare);
  Cmb_ColorDepth_->setAccessibleName(tr("Colors"));
  Cmb_ColorDepth_->setToolTip(tr("Bits of each pixel's colour"));
  for (const int bits : {16, 24, 32}) Cmb_ColorDepth_->addItem(tr("%1 bit").arg(bits), bits);
  connect(Cmb_ColorDepth_, &QComboBox::activated,
          [this](int row) { act([&] { rules_.chooseDepth(Cmb_ColorDepth_->itemData(row).toInt()); }); });
}

void CreatePage::makeRange() {
  write(tr("Range"), "field", {178, 94, 148, 16}, {.right = 40});
  const std::array names = {tr("Whole movie"), tr("From")};
  constexpr std::array kPlaces = {QRect(174, 115, 114, 24), QRect(288, 115, 60, 24)};
  for (std::size_t i = 0; i < names.size(); ++i) {
    Opt_RenderRange_[i] = put(made<QRadioButton>(names[i], this), kPlaces[i], {.right = i == 0 ? 40 : 50});
    connect(Opt_RenderRange_[i], &QRadioButton::clicked,
            [this, i] { act([&] { rules_.chooseRange(i == 0); }); });
  }
  Opt_RenderRange_[0]->setToolTip(tr("All of the movie is made"));
  Opt_RenderRange_[1]->setToolTip(tr("Only a part of the movie is made"));
  Txt_From_ = makeField(tr("Start of the part, in seconds"), {348, 113, 36, 28}, {.right = 50, .wider = 25});
  Txt_Too_ = makeField(tr("End of the part, in seconds"), {388, 113, 36, 28}, {.right = 75, .wider = 25});
  for (auto* field : {Txt_From_, Txt_Too_}) {
    field->setStyleSheet("padding: 0 3px;");
    auto* numbers = made<QDoubleValidator>(0, 1e6, 3, field);
    numbers->setLocale(QLocale::c());
    field->setValidator(numbers);
    connect(field, &QLineEdit::editingFinished, [this] {
      if (!Txt_From_->isModified() && !Txt_Too_->isModified()) return;
      act([&] {
        rules_.typeRange(ToNumber(Txt_From_->text().toStdString()), ToNumber(Txt_Too_->text().toStdString()));
      });
      Txt_From_->setModified(false);
      Txt_Too_->setModified(false);
    });
  }
}

void CreatePage::makePower() {
  Fra_PreviewOpts_ = write({}, "value", {kPageLeft, 168, 408, 18}, {.down = 15, .wider = 100});
  Sld_CPURequired_ =
      put(made<QSlider>(Qt::Horizontal, this), {kPageLeft, 189, 408, 24}, {.down = 15, .wider = 100});
  Sld_CPURequired_->setRange(1, kPowers);
  Sld_CPURequired_->setPageStep(1);
  Sld_CPURequired_->setAccessibleName(tr("Preview performance"));
  connect(Sld_CPURequired_, &QSlider::valueChanged,
          [this](int power) { act([&] { rules_.movePower(power); }); });
  for (std::size_t i = 0; i < kLines; ++i) {
    const int left = kLineLefts[i % 2];
    const int top = kLineTop + kLinePitch * static_cast<int>(i / 2);
    const int right = i % 2 == 0 ? 0 : 50;
    signs_[i] = put(made<QLabel>(this), {left, top + 2, 14, 14}, {.right = right, .down = 30});
    lines_[i] = write({}, "detail", {left + 19, top, 188, 18}, {.right = right, .down = 30, .wider = 50});
  }
  nothing_ = write({}, "heading", {kPageLeft, kLineTop, 408, 3 * kLinePitch}, {.down = 30, .wider = 100});
  nothing_->setAlignment(Qt::AlignCenter);
  Chk_AutoRewind_ =
      put(made<QCheckBox>(tr("Rewind at the end"), this), {kPageLeft - 4, 286, 200, 24}, {.down = 35});
  Chk_AutoRewind_->setToolTip(tr("A preview that stands at its end begins again"));
  connect(Chk_AutoRewind_, &QCheckBox::clicked, [this](bool on) { act([&] { rules_.tickAutoRewind(on); }); });
  ChkDynamic_ =
      put(made<QCheckBox>(tr("Dynamic reconnection"), this), {220, 286, 200, 24}, {.right = 50, .down = 35});
  ChkDynamic_->setToolTip(tr("What a preview lacks between its parts is found while it runs"));
  connect(ChkDynamic_, &QCheckBox::clicked, [this](bool on) { act([&] { rules_.tickDynamic(on); }); });
}

QPushButton* CreatePage::makeKey(const char* icon, const QString& text, const QString& tip,
                                 const QRect& place, const Share& share) {
  auto* key = put(made<QPushButton>(text, this), place, share);
  icons_.emplace_back(key, icon);
  key->setToolTip(tip);
  key->setAccessibleName(text);
  return key;
}

void CreatePage::makeKeys() {
  Cmd_PrevGrph_ = put(made<QPushButton>(this), {kPageLeft, 338, 198, 44}, {.down = 70, .wider = 50});
  Cmd_PrevGrph_->setProperty("large", true);
  setKeys(*Cmd_PrevGrph_, "Space");
  connect(Cmd_PrevGrph_, &QPushButton::clicked, [this] { acts_.preview(); });
  Cmd_RendertoFile_ = put(made<QPushButton>(tr("Create Movie"), this), {226, 338, 198, 44},
                          {.right = 50, .down = 70, .wider = 50});
  Cmd_RendertoFile_->setProperty("kind", "primary");
  Cmd_RendertoFile_->setProperty("large", true);
  Cmd_RendertoFile_->setAccessibleName(tr("Create Movie"));
  Cmd_RendertoFile_->setToolTip(tr("Make the movie as a file"));
  setKeys(*Cmd_RendertoFile_, "Ctrl+Return");
  connect(Cmd_RendertoFile_, &QPushButton::clicked, [this] { acts_.renderToFile(); });
  KVOBut_SaveProject_ =
      makeKey("save", tr("Save the project"), tr("Save the project and all the current settings"),
              {kPageLeft, 402, 198, 30}, {.down = 100, .wider = 50});
  setKeys(*KVOBut_SaveProject_, "Ctrl+Shift+S");
  connect(KVOBut_SaveProject_, &QPushButton::clicked, [this] { acts_.save(); });
  auto* help = makeKey("help", tr("Help"), tr("How a movie is made"), {226, 402, 96, 30},
                       {.right = 50, .down = 100, .wider = 25});
  connect(help, &QPushButton::clicked, [this] { acts_.help(); });
  auto* quit = makeKey("quit", tr("Quit"), tr("Close the editor"), {328, 402, 96, 30},
                       {.right = 75, .down = 100, .wider = 25});
  connect(quit, &QPushButton::clicked, [this] { acts_.quit(); });
}

void CreatePage::draw() {
  isDrawing_ = true;
  for (QWidget* part : std::initializer_list<QWidget*>{
           Cmb_Res_, txtWidth_, txtHeight_, rate_, Cmb_ColorDepth_, Opt_RenderRange_[0], Opt_RenderRange_[1],
           Sld_CPURequired_, Chk_AutoRewind_, ChkDynamic_}) {
    part->setEnabled(state_.whyNot.empty());
  }
  noteWhyNot(*this, told(state_.whyNot));
  drawOutput();
  setTextOf(*Fra_PreviewOpts_, told(state_.Fra_PreviewOpts));
  setTipOf(*Sld_CPURequired_, told(state_.powerToolTip));
  Sld_CPURequired_->setValue(state_.Sld_CPURequired);
  Sld_CPURequired_->setAccessibleDescription(told(state_.powerToolTip));
  drawLines();
  Chk_AutoRewind_->setChecked(state_.Chk_AutoRewind);
  ChkDynamic_->setChecked(state_.ChkDynamic);
  drawKeys();
  isDrawing_ = false;
}

void CreatePage::drawKeys() {
  const auto& preview = state_.Cmd_PrevGrph;
  if (const auto caption = told(preview.caption); Cmd_PrevGrph_->text() != caption) {
    Cmd_PrevGrph_->setText(caption);
    Cmd_PrevGrph_->setAccessibleName(caption);
    drawIcons();
  }
  setWhyNot(*Cmd_PrevGrph_, told(preview.whyNot), told(preview.tip));
  setWhyNot(*KVOBut_SaveProject_, shown(frame_.whyNoSave()));
  setWhyNot(*Cmd_RendertoFile_, shown(frame_.toolsOffBecause));
}

void CreatePage::drawOutput() {
  Cmb_Res_->setCurrentIndex(state_.sizeRow);
  setFieldText(*txtWidth_, QString::number(state_.txtWidth));
  setFieldText(*txtHeight_, QString::number(state_.txtHeight));
  setFieldText(*rate_->lineEdit(), shown(state_.frameRate));
  Cmb_ColorDepth_->setCurrentIndex(Cmb_ColorDepth_->findData(state_.Cmb_ColorDepth));
  Opt_RenderRange_[state_.Opt_RenderRangeWhole ? 0 : 1]->setChecked(true);
  setFieldText(*Txt_From_, secondsText(state_.Txt_From));
  setFieldText(*Txt_Too_, secondsText(state_.Txt_Too));
  for (auto* field : {Txt_From_, Txt_Too_}) {
    noteWhyNot(*field, told(state_.rangeWhyNot));
    field->setEnabled(state_.rangeWhyNot.empty());
  }
}

// In two columns, each with a sign of its own.
void CreatePage::drawLines() {
  using Sign = PreviewLine::Sign;
  setTextOf(*nothing_, state_.Label42Bold ? shown(state_.Label42).trimmed() : QString());
  for (std::size_t i = 0; i < kLines; ++i) {
    const auto& line = state_.lines[i];
    const auto text = shown(line.text).trimmed();
    if (lines_[i]->text() == text) continue;
    lines_[i]->setText(text);
    const bool isOn = line.sign == Sign::Shown;
    const auto* icon = isOn ? "check" : line.sign == Sign::NotShown ? "close" : "chevr";
    signs_[i]->setPixmap(text.isEmpty() ? QPixmap()
                                        : iconPicture(icon, isOn ? token("teal") : token("text3"), themed(14),
                                                      devicePixelRatio()));
  }
  if (drawnChanges_ == state_.Label42Changes) return;
  drawnChanges_ = state_.Label42Changes;
  for (auto* line : lines_) restyle(*line, "state", "new");
  Tmr_Unbold_.start();
}

// Anew at each size of the interface.
void CreatePage::drawIcons() {
  const auto show = [this](QPushButton* key, const char* icon, Rgb colour) {
    key->setIconSize(QSize(themed(16), themed(16)));
    key->setIcon(QIcon(iconPicture(icon, colour, themed(16), devicePixelRatio())));
  };
  for (const auto& [key, icon] : icons_) show(key, icon, token("text1"));
  show(Cmd_PrevGrph_, state_.IsPreviewRunning ? "stop" : "play", token("text1"));
  show(Cmd_RendertoFile_, "movie", token("onTeal"));
}

void CreatePage::changeEvent(QEvent* event) {
  EditorPage::changeEvent(event);
  if (event->type() == QEvent::StyleChange && Cmd_PrevGrph_ != nullptr) drawIcons();
}

// The ten places of the power slider.
void CreatePage::paintEvent(QPaintEvent* event) {
  EditorPage::paintEvent(event);
  QPainter painter(this);
  const auto slider = Sld_CPURequired_->geometry();
  const int first = slider.left() + themed(kTickInset), last = slider.right() + 1 - themed(kTickInset);
  for (int i = 0; i < kPowers; ++i) {
    painter.fillRect(first + (last - first) * i / (kPowers - 1), slider.top() + themed(kPowerTickTop),
                     themed(1), themed(kTickHeight), toColour(token("line2")));
  }
}

}  // namespace kvo
