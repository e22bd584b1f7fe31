#include "windows/render/options_page.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/page_list.h"
#include "windows/render/fact_rows.h"
#include "windows/render/kind_row.h"
#include "windows/render/picture_pane.h"
#include "windows/render/queue_panel.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr int kKindGap = 8;
constexpr int kKindColumn = 330;  // with its bar
constexpr int kLessOfKind = 24;   // that a row can do without
constexpr QRect kProfileList{350, 38, 380, 235};
constexpr QRect kProfileTold{350, 283, 380, 88};
constexpr QRect kText{362, 288, 356, 52};
constexpr QRect kLongText{362, 288, 356, 78};  // where nothing stands below it
constexpr QRect kOwnSize{358, 343, 364, 24};
constexpr QRect kHardware = kOwnSize;  // never both
constexpr QRect kSizeName{362, 338, 180, 26};
constexpr QRect kMegabytes{612, 338, 106, 26};
constexpr QRect kQueuePlace{350, 244, 380, 128};  // the profiles give way to it
constexpr QRect kPicture{750, 204, 203, 58};
// Who gets the room of a larger card: the kinds, the lists in the middle, the summary.
constexpr Share kKindsGrow{0, 0, 25, 100};
constexpr Share kOptionListGrows{25, 0, 40, 100};
constexpr Share kBelowList{25, 100, 40, 0};
constexpr Share kAtListsEnd{65, 100, 0, 0};
constexpr Share kOverList{25, 0, 40, 0};
constexpr Share kSummaryHead{65, 0, 35, 0};
constexpr Share kSummaryGrows{65, 0, 35, 100};
constexpr Share kSummaryKeys{65, 100, 35, 0};
constexpr int kQueueGrows = 30;  // hundredths of what is taller, while there is one
constexpr FactRows::Form kOptionFacts{203, 20, 0};

void drawRows(PageList& list, const std::vector<OptionsView::Row>& rows, int chosen) {
  list.setVisible(!rows.empty());
  std::vector<PageList::Row> drawn;
  drawn.reserve(rows.size());
  for (const auto& row : rows) drawn.push_back({row.name});
  list.drawRows(std::move(drawn), chosen);
}

}  // namespace

OptionsPage::OptionsPage(const RenderState& state, const QueueState& queue, const RenderActs& acts,
                         PictureOfClip picture, QWidget* parent)
    : EditorPage(parent, kPlace, "plain"),
      state_(state),
      queueState_(queue),
      acts_(acts),
      picture_(std::move(picture)) {
  makeKinds();
  makeProfiles();
  makeMadeFor();
  makeHardware();
  makeSummary();
  layOutKinds();
}

void OptionsPage::makeKinds() {
  kinds_ = put(made<QScrollArea>(this), {18, 18, kKindColumn, 354}, kKindsGrow);
  kinds_->setAccessibleName(tr("Kind of movie"));
  kinds_->setFrameShape(QFrame::NoFrame);
  kinds_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  kinds_->setFocusPolicy(Qt::NoFocus);
  auto* column = made<QWidget>(kinds_);
  rows_ = made<QVBoxLayout>(column);
  rows_->setContentsMargins(0, 0, 0, 0);
  for (const auto& row : outputKinds()) {
    auto* button = made<KindRow>(row, column);
    rows_->addWidget(button);
    connect(button, &QRadioButton::clicked, [this, kind = row.kind] { acts_.chooseKind(kind); });
    Opt_CompressorType_.push_back(button);
  }
  rows_->addStretch(1);
  kinds_->setWidget(column);
  kinds_->setWidgetResizable(true);
  kinds_->viewport()->setAutoFillBackground(false);  // the card is seen between the rows
  column->setAutoFillBackground(false);
}

void OptionsPage::makeProfiles() {
  listCaption_ = write(tr("Profile"), "caption", {350, 16, 200, 18}, kOverList);
  sizeCaption_ = write(tr("Picture size"), "hint", {600, 16, 116, 18}, {65, 0, 0, 0});
  sizeCaption_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  Lst_WMVFormats_ =
      put(made<PageList>(tr("Profile"), QString(), std::span<const char* const>(), this), kProfileList);
  Lst_WMVFormats_->trailing = [this](int index) {
    const auto row = static_cast<std::size_t>(index);
    return row < view_.profiles.size() ? shown(view_.profiles[row].size) : QString();
  };
  Lst_WMVFormats_->chosen = [this](int row) { acts_.chooseProfile(row); };
  tellPlate_ = put(made<QFrame>(this), kProfileTold);
  tellPlate_->setProperty("role", "list");
  description_ = write({}, "field", kText);
  description_->setWordWrap(true);
  description_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  hint_ = write({}, "field", {350, 42, 380, 200}, kOptionListGrows);
  hint_->setWordWrap(true);
  hint_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  Chk_UseCodecOutputDimensions_ = put(made<QCheckBox>(this), kOwnSize);
  connect(Chk_UseCodecOutputDimensions_, &QCheckBox::clicked,
          [this](bool on) { acts_.tickCodecDimensions(on); });
}

void OptionsPage::makeMadeFor() {
  Lst_MadeFor_ =
      put(made<PageList>(tr("Made for"), QString(), std::span<const char* const>(), this), kProfileList);
  Lst_MadeFor_->trailing = [this](int index) {
    const auto row = static_cast<std::size_t>(index);
    return row < view_.purposes.size() ? shown(view_.purposes[row].size) : QString();
  };
  Lst_MadeFor_->chosen = [this](int row) { acts_.chooseMadeFor(row); };
  sizeName_ = write(tr("At most"), "hint", kSizeName);
  Num_Megabytes_ = put(made<QSpinBox>(this), kMegabytes);
  Num_Megabytes_->setRange(kLeastMegabytes, kMostMegabytes);
  Num_Megabytes_->setSuffix(tr(" MB"));
  Num_Megabytes_->setKeyboardTracking(false);
  Num_Megabytes_->setAccessibleName(tr("Size of the file at most, in megabytes"));
  Num_Megabytes_->setToolTip(tr("What the mail takes. The picture is as fine as this allows"));
  connect(Num_Megabytes_, &QSpinBox::valueChanged, [this](int megabytes) {
    if (megabytes != state_.wishedMegabytes) acts_.wishMegabytes(megabytes);
  });
}

void OptionsPage::makeHardware() {
  Chk_Hardware_ = put(made<QCheckBox>(tr("Encode by the graphics card"), this), kHardware);
  Chk_Hardware_->setToolTip(
      tr("Sooner done, in a larger file of the same quality, which other machines would not make alike"));
  connect(Chk_Hardware_, &QCheckBox::clicked, [this](bool on) { acts_.tickHardware(on); });
}

void OptionsPage::makeSummary() {
  write(tr("Your movie"), "caption", {750, 16, 203, 18}, kSummaryHead);
  facts_ = put(made<FactRows>(kOptionFacts, this), {750, 38, 203, 160}, kSummaryHead);
  pane_ = put(made<PicturePane>(tr("The clip in hand"), this), kPicture, kSummaryGrows);
  caution_ = write({}, "caution", kPicture, kSummaryGrows);
  caution_->setWordWrap(true);
  caution_->setAlignment(Qt::AlignBottom | Qt::AlignLeft);
  KVOBut_WriteMovie_ = put(made<QPushButton>(tr("Write Movie"), this), {750, 268, 203, 40}, kSummaryKeys);
  KVOBut_WriteMovie_->setProperty("kind", "primary");
  KVOBut_WriteMovie_->setProperty("large", true);
  KVOBut_WriteMovie_->setToolTip(tr("Choose a name, and make the movie"));
  connect(KVOBut_WriteMovie_, &QPushButton::clicked, [this] { acts_.write(); });
  KVOBut_AddToQueue_ = put(made<QPushButton>(tr("Add to Queue"), this), {750, 316, 203, 28}, kSummaryKeys);
  KVOBut_AddToQueue_->setToolTip(tr("Choose a name, and have the movie made in the background"));
  connect(KVOBut_AddToQueue_, &QPushButton::clicked, [this] { acts_.addToQueue(); });
  queue_ = put(made<QueuePanel>(queueState_, acts_.queue, this), kQueuePlace);
  queue_->hide();
  auto* back = put(made<QPushButton>(tr("Back to editing"), this), {750, 352, 203, 26}, kSummaryKeys);
  back->setProperty("kind", "quiet");
  back->setToolTip(tr("Back to editing") + " (Esc)");
  connect(back, &QPushButton::clicked, [this] { acts_.leave(); });
}

QWidget* OptionsPage::first() const {
  const auto inHand = std::ranges::find(Opt_CompressorType_, true, &KindRow::isChecked);
  if (state_.canMake || inHand == Opt_CompressorType_.end()) return KVOBut_WriteMovie_;
  return *inHand;
}

void OptionsPage::layOutKinds() {
  rows_->setSpacing(themed(kKindGap));
  for (auto* row : Opt_CompressorType_) {
    row->setFixedHeight(row->sizeHint().height());
    row->setMinimumWidth(row->sizeHint().width() - themed(kLessOfKind));
  }
  const int side = themed(16);
  KVOBut_WriteMovie_->setIconSize({side, side});
  KVOBut_WriteMovie_->setIcon(QIcon(iconPicture("movie", token("onTeal"), side, devicePixelRatio())));
}

void OptionsPage::changeEvent(QEvent* event) {
  EditorPage::changeEvent(event);
  if (event->type() == QEvent::StyleChange && KVOBut_WriteMovie_ != nullptr) layOutKinds();
}

void OptionsPage::draw() {
  if (std::exchange(shownKind_, state_.kind) != state_.kind) {
    for (auto* row : Opt_CompressorType_) {
      if (row->kind() != state_.kind) continue;
      row->setChecked(true);
      rows_->activate();  // so that it has its place
      kinds_->ensureWidgetVisible(row);
    }
  }
  view_ = optionsView(state_);
  drawLists();
  drawBoxes();
  drawQueue();
  facts_->draw(state_.facts);
  pane_->draw(picture_(0));
  pane_->setVisible(state_.caution.empty());
  caution_->setVisible(!state_.caution.empty());
  setTextOf(*caution_, shown(state_.caution));
  KVOBut_WriteMovie_->setEnabled(state_.canMake);
  KVOBut_AddToQueue_->setEnabled(state_.canMake);
}

// While there is a queue the lists are shorter, and what is told of a row stands higher.
void OptionsPage::layOutLists() {
  const bool hasQueue = !queue_->isHidden();
  const int up = hasQueue ? kProfileTold.bottom() - kQueuePlace.top() + 9 : 0;
  const int taken = hasQueue ? kQueueGrows : 0;
  const auto less = [taken](Share share) {
    share.down -= share.down > 0 ? taken : 0;
    share.taller -= share.taller > 0 ? taken : 0;
    return share;
  };
  const auto below = less(kBelowList);
  for (auto* list : {Lst_WMVFormats_, Lst_MadeFor_})
    put(list, kProfileList.adjusted(0, 0, 0, -up), less(kOptionListGrows));
  put(tellPlate_, kProfileTold.translated(0, -up), below);
  put(description_, (view_.isTellingAlone ? kLongText : kText).translated(0, -up), below);
  put(Chk_UseCodecOutputDimensions_, kOwnSize.translated(0, -up), below);
  put(Chk_Hardware_, kHardware.translated(0, -up), below);
  put(sizeName_, kSizeName.translated(0, -up), below);
  put(Num_Megabytes_, kMegabytes.translated(0, -up), less(kAtListsEnd));
  put(queue_, kQueuePlace, {25, 100 - kQueueGrows, 40, kQueueGrows});
}

void OptionsPage::drawQueue() {
  queue_->setVisible(!queueState_.Lst_Queue.empty() || !queueState_.trouble.empty());
  layOutLists();
  queue_->draw();
}

// Which of the two lists there is, or the words that stand in their place.
void OptionsPage::drawLists() {
  drawRows(*Lst_WMVFormats_, view_.profiles, state_.profileRow);
  drawRows(*Lst_MadeFor_, view_.purposes, state_.madeForRow);
  tellPlate_->setVisible(view_.isListed());
  description_->setVisible(view_.isListed());
  sizeCaption_->setVisible(view_.showsSizes);
  hint_->setVisible(!view_.isListed());
  setTextOf(*listCaption_, shown(view_.caption));
  setTextOf(*hint_, shown(view_.hint).replace("\r\n", "\n\n"));
  setTextOf(*description_, shown(view_.told).replace("\r\n", "\n"));
}

// What can be set beside the choice of a row.
void OptionsPage::drawBoxes() {
  sizeName_->setVisible(state_.hasWishedSize);
  Num_Megabytes_->setVisible(state_.hasWishedSize);
  Num_Megabytes_->setValue(state_.wishedMegabytes);
  Chk_Hardware_->setVisible(state_.offersHardware);
  Chk_Hardware_->setChecked(state_.Chk_Hardware);
  Chk_UseCodecOutputDimensions_->setVisible(view_.offersOwnSize);
  Chk_UseCodecOutputDimensions_->setChecked(state_.Chk_UseCodecOutputDimensions);
  setTextOf(*Chk_UseCodecOutputDimensions_, shown(view_.ownSize));
}

}  // namespace kvo
