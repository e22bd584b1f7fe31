#include "ui/cool_list_rows.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <array>

namespace kvo {
namespace {

constexpr ControlColour kOfDesktop = 0x80000000;
constexpr int kTrailingGap = 8;

enum Style { kFilled, kCombined, kGradientDown, kGradientRight, kBox, kUnderlined, kPicture };

struct Colours {
  const CoolListProperties& properties;
  const QPalette& palette;
  [[nodiscard]] QColor operator()(ControlColour colour) const { return resolved(colour, palette); }
};

// With round corners and a bar at the left, in the row's measure: 4 and 3 pixels for one of 24.
void drawFilled(QPainter& painter, const QRect& row, const Colours& of) {
  const Painting kept(painter);
  painter.fillRect(row, of(of.properties.BackNormal));
  painter.setPen(Qt::NoPen);
  painter.setBrush(of(of.properties.BackSelected));
  const double corner = row.height() / 6.0;
  painter.drawRoundedRect(row, corner, corner);
  const double bar = row.height() / 8.0;
  painter.setBrush(toColour(token("teal")));
  painter.drawRoundedRect(QRectF(row.left(), row.top() + corner, bar, row.height() - 2 * corner), bar / 2,
                          bar / 2);
}

void drawGradient(QPainter& painter, const QRect& row, const Colours& of, bool downward) {
  QLinearGradient blend(row.topLeft(), downward ? row.bottomLeft() : row.topRight());
  blend.setColorAt(0, of(of.properties.BackSelectedG1));
  blend.setColorAt(1, of(of.properties.BackSelectedG2));
  painter.fillRect(row, blend);
}

void drawBox(QPainter& painter, const QRect& row, const Colours& of) {
  const Painting kept(painter);
  const auto& p = of.properties;
  painter.fillRect(row, of(p.BackNormal));
  painter.setPen(of(p.BoxBorder));
  painter.setBrush(of(p.BackSelected));
  const auto box = QRectF(row).adjusted(p.BoxOffset, p.BoxOffset, -p.BoxOffset, -p.BoxOffset);
  painter.drawRoundedRect(onPixels(box), p.BoxRadius, p.BoxRadius);
}

void drawSelectedGround(QPainter& painter, const QRect& row, const Colours& of, const QPixmap& picture) {
  switch (of.properties.SelectModeStyle) {
    case kCombined:
    case kUnderlined:
      return painter.fillRect(row, of(of.properties.BackNormal));
    case kGradientDown:
    case kGradientRight:
      return drawGradient(painter, row, of, of.properties.SelectModeStyle == kGradientDown);
    case kBox:
      return drawBox(painter, row, of);
    case kPicture:
      if (!picture.isNull()) return painter.drawPixmap(row, picture);
      [[fallthrough]];
    default:
      drawFilled(painter, row, of);
  }
}

// Each bit of what stands there stays where the colour has it too.
void combine(QPainter& painter, const QRect& row, const QColor& colour) {
  const Painting kept(painter);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
  painter.fillRect(row, colour);
}

int widthOfTrailing(const QString& text, const QFont& face) {
  return text.isEmpty() ? 0 : QFontMetrics(face).horizontalAdvance(text) + 2 * kTrailingGap;
}

QFont trailingFace(const QFont& font) { return numberFont(font.pixelSize() > 0 ? font.pixelSize() - 1 : 11); }

QRect placeOfText(const CoolListRow& row, const QFont& font) {
  return row.text.adjusted(0, 0, -widthOfTrailing(row.trailing, trailingFace(font)), 0);
}

int wrappedFlags(const CoolListProperties& properties) {
  return Qt::TextWordWrap | static_cast<int>(Qt::AlignTop | sideOf(properties));
}

void drawText(QPainter& painter, const CoolListRow& row, const CoolListProperties& properties, bool enabled) {
  const auto place = placeOfText(row, painter.font());
  if (properties.WordWrap) {
    painter.drawText(place, wrappedFlags(properties), row.shown);
  } else {
    const auto text = painter.fontMetrics().elidedText(row.shown, row.elide, place.width());
    painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, text);
  }
  if (row.trailing.isEmpty()) return;
  painter.setFont(trailingFace(painter.font()));
  painter.setPen(toColour(!enabled ? token("textOff") : row.selected ? token("text2") : token("text3")));
  painter.drawText(row.text.adjusted(0, 0, -kTrailingGap, 0),
                   Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, row.trailing);
}

}  // namespace

Qt::Alignment sideOf(const CoolListProperties& properties) {
  constexpr std::array kSides = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  const auto side = static_cast<std::size_t>(properties.Alignment);
  return side < kSides.size() ? kSides[side] : Qt::AlignLeft;
}

QRect toRect(const CoolList::Rect& rect) {
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

QColor resolved(ControlColour colour, const QPalette& palette) {
  if ((colour & kOfDesktop) == 0) {
    return {static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
            static_cast<int>((colour >> 16) & 0xFF)};
  }
  switch (colour & ~kOfDesktop) {
    case 5:
      return palette.color(QPalette::Base);
    case 8:
      return palette.color(QPalette::Text);
    case 13:
      return palette.color(QPalette::Highlight);
    case 14:
      return palette.color(QPalette::HighlightedText);
    case 17:
      return palette.color(QPalette::Disabled, QPalette::Text);
    default:
      return palette.color(QPalette::Window);
  }
}

void drawRow(QPainter& painter, const CoolListRow& row, const CoolListProperties& properties,
             const QPalette& palette, const QPixmap& picture) {
  painter.save();
  painter.setClipRect(row.row, Qt::IntersectClip);
  const Colours of{properties, palette};
  if (row.selected) {
    drawSelectedGround(painter, row.row, of, picture);
  } else {
    painter.fillRect(row.row, of(properties.BackNormal));
  }
  if (!row.icon.isNull()) {
    const int height = row.icon.deviceIndependentSize().toSize().height();
    painter.drawPixmap(row.row.left() + row.iconLeft, row.row.top() + (row.row.height() - height) / 2,
                       row.icon);
  }
  if (row.selected && properties.SelectModeStyle == kCombined) {
    combine(painter, row.row, of(properties.BackSelected));
  }
  auto font = painter.font();
  font.setUnderline(row.selected && properties.SelectModeStyle == kUnderlined);
  painter.setFont(font);
  painter.setPen(of(row.selected ? properties.FontSelected : properties.FontNormal));
  drawText(painter, row, properties, palette.currentColorGroup() != QPalette::Disabled);
  painter.restore();
}

bool isCut(const CoolListRow& row, const CoolListProperties& properties, const QFont& font) {
  const auto place = placeOfText(row, font);
  const QFontMetrics metrics(font);
  if (!properties.WordWrap) return metrics.horizontalAdvance(row.shown) > place.width();
  const auto needed = metrics.boundingRect(place, wrappedFlags(properties), row.shown);
  return needed.height() > place.height() || needed.width() > place.width();
}

}  // namespace kvo
