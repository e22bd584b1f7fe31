#include "ui/colour_button.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QColorDialog>

namespace kvo {
namespace {

constexpr QSize kSwatch(28, 14);

QPixmap swatch(Rgb colour, double pixelRatio) {
  QPixmap picture(kSwatch * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(toColour(token("line3")));
  painter.setBrush(toColour(colour));
  painter.drawRoundedRect(onPixels(QRectF(QPointF(), QSizeF(kSwatch))), 3, 3);
  return picture;
}

}  // namespace

ColourButton::ColourButton(Rgb colour, QWidget* parent) : QPushButton(parent) {
  setIconSize(kSwatch);
  ask = [this](Rgb present) -> std::optional<Rgb> {
    const auto wanted =
        QColorDialog::getColor(toColour(present), this, accessibleName(), QColorDialog::DontUseNativeDialog);
    return wanted.isValid() ? std::optional<Rgb>(wanted.rgb() & 0xFFFFFFU) : std::nullopt;
  };
  connect(this, &QPushButton::clicked, [this] {
    const auto wanted = ask(colour_);
    if (!wanted) return;
    setColour(*wanted);
    if (chosen) chosen(*wanted);
  });
  setColour(colour);
}

void ColourButton::setColour(Rgb colour) {
  colour_ = colour;
  setIcon(swatch(colour, devicePixelRatio()));
  setText(toColour(colour).name().toUpper());  // no state by colour alone
  setAccessibleDescription(text());
}

}  // namespace kvo
