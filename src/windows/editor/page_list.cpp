#include "windows/editor/page_list.h"

#include "ui/texts.h"
#include "ui/theme.h"

#include <QEvent>

namespace kvo {
namespace {

constexpr int kPageRow = 23;
constexpr int kPageIcon = 14;
constexpr int kPageIconLeft = 10;
constexpr int kPageTextLeft = 32;
constexpr int kPageBar = 10;

// As the list takes colours: red in the low byte.
ControlColour listColour(Rgb rgb) {
  return ((rgb & 0xFFU) << 16U) | (rgb & 0xFF00U) | ((rgb >> 16U) & 0xFFU);
}

CoolListProperties pageListProperties(bool hasIcons) {
  CoolListProperties p;
  p.BackNormal = listColour(token("ink0"));
  p.BackSelected = listColour(token("tealBg"));
  p.FontNormal = listColour(token("text1"));
  p.FontSelected = listColour(token("text1"));
  p.ItemHeightAuto = false;
  p.ItemHeight = themed(kPageRow);
  p.ItemTextLeft = themed(hasIcons ? kPageTextLeft : kPageIconLeft);
  p.ScrollBarWidth = themed(kPageBar);
  p.WordWrap = false;
  return p;
}

}  // namespace

PageList::PageList(const QString& name, const QString& emptyText, std::span<const char* const> icons,
                   QWidget* parent)
    : CoolListView(parent, pageListProperties(!icons.empty())), emptyText_(emptyText), icons_(icons) {
  setAccessibleName(name);
  setFace();
  events.ListIndexChange = [this] {
    if (!isDrawing_ && list().ListIndex() >= 0 && chosen) chosen(list().ListIndex());
  };
}

void PageList::setFace() {
  CoolListView::Look look;
  look.emptyText = emptyText_;
  look.elide = Qt::ElideMiddle;
  look.iconLeft = themed(kPageIconLeft);
  look.trailing = [this](int index) { return trailing ? trailing(index) : QString(); };
  look.toolTip = [this](int index) {
    const auto row = static_cast<std::size_t>(index);
    return row < rows_.size() ? shown(rows_[row].fault) : QString();
  };
  setLook(std::move(look));
  setProperties(pageListProperties(!icons_.empty()));
  std::vector<QPixmap> icons;
  for (const auto colour : {token("text3"), token("teal")}) {
    for (const auto* icon : icons_)
      icons.push_back(iconPicture(icon, colour, themed(kPageIcon), devicePixelRatio()));
  }
  icons.push_back(iconPicture("warn", token("red"), themed(kPageIcon), devicePixelRatio()));
  SetImageList(std::move(icons));
}

void PageList::drawRows(std::vector<Row> rows, int ListIndex) {
  if (rows_ != rows) setRows(std::move(rows));
  choose(ListIndex);
}

void PageList::setRows(std::vector<Row> rows) {
  rows_ = std::move(rows);
  std::vector<CoolListItem> items;
  items.reserve(rows_.size());
  for (const auto& row : rows_) {
    const auto kinds = static_cast<int>(icons_.size());
    const bool isFaulty = !row.fault.empty();
    const int icon = isFaulty ? 2 * kinds : kinds == 0 ? -1 : row.icon;
    const int chosen = isFaulty || kinds == 0 ? icon : row.icon + kinds;
    items.push_back(
        {row.text, static_cast<std::int16_t>(icon + 1), static_cast<std::int16_t>(chosen + 1), false});
  }
  isDrawing_ = true;
  list().setItems(std::move(items));
  isDrawing_ = false;
}

void PageList::choose(int ListIndex) {
  if (list().ListIndex() == ListIndex) return;
  isDrawing_ = true;
  (void)list().setListIndex(ListIndex);
  isDrawing_ = false;
}

QString PageList::rowName(int row) const {
  QStringList words{CoolListView::rowName(row)};
  if (trailing) words << trailing(row);
  if (const auto i = static_cast<std::size_t>(row); i < rows_.size()) words << shown(rows_[i].fault);
  words.removeAll(QString());
  return words.join(", ");
}

void PageList::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange) setFace();
  CoolListView::changeEvent(event);
}

}  // namespace kvo
