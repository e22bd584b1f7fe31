#include "windows/main/list_part.h"

#include "ui/cool_list_view.h"
#include "ui/dropped_files.h"
#include "ui/kvo_but.h"
#include "ui/made.h"
#include "ui/skin_face.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "ui/tool_tips.h"
#include "windows/main/frame_pixmap.h"

#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>
#include <numeric>
#include <utility>

namespace kvo {
namespace {

constexpr QRectF kListPlate(30, 27, 238, 202);
constexpr QRectF kListCaption(40, 31, 220, 18);
constexpr QRectF kListPlace(80, 54, 184, 174);
constexpr QPointF kListKeys(36, 54);
constexpr double kListKeyPitch = 35;
constexpr double kListRow = 24;
constexpr double kListIcon = 14;
constexpr double kListIconLeft = 9;
constexpr double kListTextLeft = 29;
constexpr QSizeF kRowPicture(20, 15);
constexpr double kRowPictureLeft = 6;
constexpr std::size_t kMostRowPictures = 256;
constexpr double kListBar = 10;
constexpr int kListText = 12;
constexpr auto kRowsFormat = "application/x-kvo5-rows";
constexpr std::array kKindIcons = {"film", "still", "music", "globe", "globe"};  // by ClipKind

// As the list takes colours: red in the low byte.
ControlColour forList(Rgb rgb) { return ((rgb & 0xFFU) << 16U) | (rgb & 0xFF00U) | ((rgb >> 16U) & 0xFFU); }

CoolListProperties frameless() {
  CoolListProperties properties;
  properties.Appearance = 0;
  properties.BorderStyle = 0;
  return properties;
}

}  // namespace

ListPart::ListPart(ClipListState& state, const ListKeysState& keys, Logic logic, const std::string& folder,
                   QWidget* parent)
    : Plate(kListPlate, 7, parent),
      state_(state),
      keysState_(keys),
      logic_(std::move(logic)),
      folder_(folder),
      caption_(made<FaceLabel>(kListCaption, LabelLook{.weight = QFont::DemiBold}, this)),
      list_(made<CoolListView>(this, frameless())) {
  list_->setAccessibleName(tr("Clips"));
  const std::array<QString, 5> names = {tr("Advance Clip in playlist"), tr("Move clip down in playlist"),
                                        tr("Add media"), tr("Remove"), tr("Sort")};
  constexpr std::array kShortcuts = {"Ctrl+Up", "Ctrl+Down", "Ins", "Del", ""};
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    keys_[i] = made<KVOBut>(this);
    keys_[i]->setToolTip(names[i]);
    setKeys(*keys_[i], kShortcuts[i]);
    keys_[i]->setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard in the list
    keys_[i]->setAutoRepeat(i < 2);
  }
  const auto press = [this](KVOBut* key, std::function<void()> act) {
    connect(key, &KVOBut::clicked, [this, act = std::move(act)] {
      act();
      logic_.acted();
    });
  };
  press(keys_[0], [this] { logic_.commands.moveUp(); });
  press(keys_[1], [this] { logic_.commands.moveDown(); });
  press(keys_[2], logic_.addMedia);
  press(keys_[3], [this] { logic_.commands.Removeit(); });
  press(keys_[4], [this] { logic_.sortMenu(keys_[4]->mapToGlobal(keys_[4]->rect().bottomLeft())); });
  listen();
}

void ListPart::listen() {
  list_->events.SelectionChange = [this] { tellChoice(); };
  list_->events.Edited = [this](int index) {
    logic_.commands.rename(list_->list().item(index).ItemText);
    shownRevision_ = 0;  // the clip may bear another name than was typed
    logic_.acted();
  };
  const auto play = [this] {
    logic_.play();
    logic_.acted();
  };
  list_->events.DblClick = play;
  list_->events.KeyDown = [play](const QKeyEvent& event) {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) play();
  };
  list_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(list_, &QWidget::customContextMenuRequested, [this](const QPoint& at) { openMenu(at); });
  list_->commandKey = [this](const QKeyEvent& event) { return logic_.key(event.text()); };
  list_->dragOut = [](int /*index*/) {
    auto carried = std::make_unique<QMimeData>();
    carried->setData(kRowsFormat, QByteArray("rows"));
    return carried;
  };
  list_->accepts = [](const QMimeData& carried) {
    return carried.hasFormat(kRowsFormat) || carried.hasUrls();
  };
  list_->dropped = [this](const QMimeData& carried, int before) { dropRows(carried, before); };
}

// A menu is about what is chosen, and that is what was pointed at.
void ListPart::openMenu(const QPoint& at) {
  const auto index = list_->list().itemAt(at.y() - list_->contentsRect().top());
  if (index && !list_->list().item(*index).ItemSelected) {
    logic_.commands.select(*index + 1);
    logic_.acted();
  }
  logic_.listMenu(list_->mapToGlobal(at));
}

void ListPart::dropRows(const QMimeData& carried, int before) {
  if (carried.hasFormat(kRowsFormat)) {
    logic_.commands.moveTo(before + 1);
  } else {
    logic_.mailbox.takeDropped(droppedFiles(carried), before + 1);
  }
  logic_.acted();
}

void ListPart::layOut(const FaceScale& scale) {
  scale_ = scale;
  Plate::layOut(scale);
  caption_->layOut(scale);
  list_->setGeometry(placedIn(*this, scale, kListPlace));
  LoadPlayListImages(keys_, folder_, scale.size());
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    const QPointF corner = kListKeys + QPointF(0, static_cast<double>(i) * kListKeyPitch);
    keys_[i]->setGeometry({placedIn(*this, scale, {corner, QSizeF(1, 1)}).topLeft(), keys_[i]->sizeHint()});
  }
  setLook();
}

void ListPart::setLook() {
  auto properties = frameless();
  properties.BackNormal = forList(token("void"));
  properties.BackSelected = forList(token("tealBg"));
  properties.FontNormal = forList(colour_);
  properties.FontSelected = forList(token("text1"));
  properties.ItemHeightAuto = false;
  properties.ItemHeight = scale_.at(kListRow);
  properties.ItemTextLeft = scale_.at(kListTextLeft);
  properties.ScrollBarWidth = scale_.at(kListBar);
  properties.SelectMode = 2;
  properties.WordWrap = false;
  list_->setStyleSheet(QString("font-size: %1px").arg(scale_.at(kListText)));
  list_->setProperties(properties);
  std::vector<QPixmap> icons;
  for (const auto colour : {token("text3"), token("teal")}) {
    for (const auto* icon : kKindIcons) {
      icons.push_back(iconPicture(icon, colour, scale_.at(kListIcon), devicePixelRatio()));
    }
  }
  list_->SetImageList(std::move(icons));
  CoolListView::Look look;
  look.emptyText = tr("No clips");
  look.iconLeft = scale_.at(kListIconLeft);
  look.elide = Qt::ElideMiddle;
  look.trailing = [this](int index) {
    const auto& rows = state_.Fillist.rows();
    const auto row = static_cast<std::size_t>(index);
    return row < rows.size() ? shown(rows[row].length) : QString();
  };
  look.picture = [this](int index) { return rowPicture(index); };
  look.pictureLeft = scale_.at(kRowPictureLeft);
  drawnPictures_.clear();
  list_->setLook(std::move(look));
}

// Its middle, as large as the place of the icon.
QPixmap ListPart::rowPicture(int index) {
  const auto picture = logic_.pictures.of(index);
  if (picture == nullptr) return {};
  if (drawnPictures_.size() > kMostRowPictures) drawnPictures_.clear();
  auto& drawn = drawnPictures_[picture];
  if (drawn.isNull()) {
    const double pixels = scale_.size() * devicePixelRatio();
    const QSize size = (kRowPicture * pixels).toSize();
    const auto whole =
        framePixmap(*picture, 1).scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    drawn = whole.copy(
        QRect(QPoint((whole.width() - size.width()) / 2, (whole.height() - size.height()) / 2), size));
    drawn.setDevicePixelRatio(devicePixelRatio());
  }
  return drawn;
}

void ListPart::draw(Rgb colour) {
  drawing_ = true;
  caption_->write(shown(state_.caption));
  if (const auto tip = plainTip(shown(state_.tip)); tip != list_->toolTip()) list_->setToolTip(tip);
  if (std::exchange(colour_, colour) != colour) setLook();
  if (std::exchange(shownRevision_, state_.Fillist.revision()) != state_.Fillist.revision()) fill();
  if (std::exchange(shownPictures_, state_.pictures) != state_.pictures) list_->update();
  showChosen();
  if (std::exchange(state_.rename, false)) list_->list().StartEdit();
  const std::array enabled = {keysState_.UP, keysState_.DOWN, keysState_.ADD, keysState_.Cross,
                              keysState_.SORT};
  for (std::size_t i = 0; i < keys_.size(); ++i) keys_[i]->setEnabled(enabled[i]);
  drawing_ = false;
}

void ListPart::fill() {
  std::vector<CoolListItem> items;
  items.reserve(state_.Fillist.rows().size());
  for (const auto& row : state_.Fillist.rows()) {
    const auto icon = static_cast<std::int16_t>(static_cast<int>(row.kind) + 1);
    items.push_back(
        {row.name, icon, static_cast<std::int16_t>(icon + static_cast<int>(kKindIcons.size())), false});
  }
  list_->list().setItems(std::move(items));
  shownChosen_.reset();
}

void ListPart::showChosen() {
  auto& list = list_->list();
  if (shownChosen_ == state_.chosen && list.ListIndex() == state_.ListIndex) return;
  shownChosen_ = state_.chosen;
  if (list.ListIndex() != state_.ListIndex && state_.ListIndex < list.ListCount()) {
    (void)list.setListIndex(state_.ListIndex);
  }
  auto next = state_.chosen.begin();
  for (int index = 0; index < list.ListCount(); ++index) {
    const bool chosen = next != state_.chosen.end() && *next == index + 1;
    if (chosen) ++next;
    if (list.item(index).ItemSelected != chosen) (void)list.setItemSelected(index, chosen);
  }
}

void ListPart::tellChoice() {
  if (drawing_) return;
  shownChosen_.reset();
  const auto& list = list_->list();
  std::vector<int> chosen;
  for (int index = 0; index < list.ListCount(); ++index) {
    if (list.item(index).ItemSelected) chosen.push_back(index + 1);
  }
  const int number = list.ListIndex() + 1;
  if (chosen.size() == 1 && chosen.front() == number) {
    logic_.commands.select(number);
  } else {
    logic_.commands.choose(std::move(chosen), number);
  }
  logic_.acted();
}

std::vector<QWidget*> ListPart::tabOrder() const {
  std::vector<QWidget*> order{list_};
  order.insert(order.end(), keys_.begin(), keys_.end());
  return order;
}

}  // namespace kvo
