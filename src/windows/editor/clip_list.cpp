#include "windows/editor/clip_list.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "editor/tabs/clip_checks.h"
#include "ui/theme.h"

#include <QEvent>
#include <array>

namespace kvo {
namespace {

constexpr int kClipRow = 23;
constexpr int kClipIcon = 14;
constexpr int kClipIconLeft = 10;
constexpr int kClipTextLeft = 32;
constexpr int kClipBar = 10;
constexpr std::array kClipIcons = {"music", "film", "still"};  // by MediaClass

// As the list takes colours: red in the low byte.
ControlColour listColour(Rgb rgb) {
  return ((rgb & 0xFFU) << 16U) | (rgb & 0xFF00U) | ((rgb >> 16U) & 0xFFU);
}

CoolListProperties clipListProperties() {
  CoolListProperties p;
  p.BackNormal = listColour(token("ink0"));
  p.BackSelected = listColour(token("tealBg"));
  p.FontNormal = listColour(token("text1"));
  p.FontSelected = listColour(token("text1"));
  p.ItemHeightAuto = false;
  p.ItemHeight = themed(kClipRow);
  p.ItemTextLeft = themed(kClipTextLeft);
  p.ScrollBarWidth = themed(kClipBar);
  p.WordWrap = false;
  return p;
}

}  // namespace

ClipList::ClipList(const QString& name, const QString& emptyText, QWidget* parent)
    : CoolListView(parent, clipListProperties()) {
  setAccessibleName(name);
  setProperty("role", "list");
  CoolListView::Look look;
  look.emptyText = emptyText;
  look.elide = Qt::ElideMiddle;
  look.iconLeft = themed(kClipIconLeft);
  setLook(std::move(look));
  setFace();
  events.ListIndexChange = [this] { tell(); };
}

void ClipList::setFace() {
  setProperties(clipListProperties());
  std::vector<QPixmap> icons;
  for (const auto colour : {token("text3"), token("teal")}) {
    for (const auto* icon : kClipIcons)
      icons.push_back(iconPicture(icon, colour, themed(kClipIcon), devicePixelRatio()));
  }
  SetImageList(std::move(icons));
}

void ClipList::draw(const ListBox& state, const Collection& collection) {
  isDrawing_ = true;
  if (drawn_.rows != state.rows) {
    std::vector<CoolListItem> items;
    items.reserve(state.rows.size());
    for (const auto& row : state.rows) {
      const int clipNo = GetIndividualClipNo(row);
      const auto kind = clipNo <= collection.MovieList.count()
                            ? mediaClass(collection.MovieList[clipNo].MovieName(), nullptr)
                            : MediaClass::Video;
      const auto icon = static_cast<std::int16_t>(static_cast<int>(kind) + 1);
      items.push_back({std::string(trimmed(nameOfRow(row))), icon,
                       static_cast<std::int16_t>(icon + static_cast<int>(kClipIcons.size())), false});
    }
    list().setItems(std::move(items));
    drawn_.rows = state.rows;
  }
  if (list().ListIndex() != state.ListIndex) (void)list().setListIndex(state.ListIndex);
  isDrawing_ = false;
}

void ClipList::tell() {
  if (isDrawing_ || list().ListIndex() < 0 || !chosen) return;
  chosen(list().ListIndex());
}

void ClipList::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange) setFace();
  CoolListView::changeEvent(event);
}

}  // namespace kvo
