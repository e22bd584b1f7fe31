#include "windows/main/create_movie_key.h"

#include "ui/painting.h"
#include "ui/theme.h"
#include "windows/main/plate.h"

#include <QLinearGradient>
#include <QPainter>

namespace kvo {
namespace {

constexpr QRectF kCreateMovie(428, 233, 116, 22);
constexpr double kCreateRadius = 5;
constexpr double kCreateText = 11.5;

}  // namespace

CreateMovieKey::CreateMovieKey(const MenuState& menu, QWidget* parent) : HoverKey(parent), menu_(menu) {
  setFocusPolicy(Qt::TabFocus);
  setText(tr("Create Movie"));
  setAccessibleName(text());
  setToolTip(tr("Edit the collection and make a movie of it (Ctrl+M)"));
}

void CreateMovieKey::layOut(const FaceScale& scale) {
  scale_ = scale;
  setGeometry(placedIn(*parentWidget(), scale, kCreateMovie));
  update();
}

void CreateMovieKey::draw() {
  if (isEnabled() != menu_.clipsEnabled) setEnabled(menu_.clipsEnabled);
}

void CreateMovieKey::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  QLinearGradient fill(0, 0, 0, height());
  const bool hot = underMouse() && isEnabled();
  const auto top = !isEnabled() ? token("ink3")
                   : isDown()   ? token("primaryDown")
                   : hot        ? token("primaryHover")
                                : token("primaryTop");
  const auto foot = !isEnabled() ? token("ink3")
                    : isDown()   ? token("primaryDown")
                    : hot        ? token("teal")
                                 : token("primaryFoot");
  fill.setColorAt(0, toColour(top));
  fill.setColorAt(1, toColour(foot));
  painter.setPen(Qt::NoPen);
  painter.setBrush(fill);
  const double radius = kCreateRadius * scale_.size();
  painter.drawRoundedRect(QRectF(rect()), radius, radius);
  painter.setPen(toColour(isEnabled() ? token("onTeal") : token("textOff")));
  painter.setFont(scale_.text(kCreateText, QFont::DemiBold));
  painter.drawText(rect(), Qt::AlignCenter, text());
}

}  // namespace kvo
