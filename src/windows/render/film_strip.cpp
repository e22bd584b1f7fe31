#include "windows/render/film_strip.h"

#include "ui/painting.h"
#include "ui/theme.h"

#include <QPainterPath>
#include <cmath>

namespace kvo {
namespace {

constexpr int kFilmEdge = 4;
constexpr int kFilmVeil = 166;    // of 255
constexpr double kFilmPixel = 1;  // a move of less is not drawn

}  // namespace

FilmStrip::FilmStrip(PictureOfClip picture, QWidget* parent) : QWidget(parent), picture_(std::move(picture)) {
  setAccessibleName(tr("The movie"));
}

void FilmStrip::draw(const RenderState& state, bool follows) {
  const double done = follows ? state.movieSeconds : -1;
  const bool moved = std::abs(placeOf(done) - placeOf(done_)) >= kFilmPixel || (done < 0) != (done_ < 0);
  if (film_ == state.film && length_ == state.filmLength && sample_ == state.sample && !moved) return;
  film_ = state.film;
  length_ = state.filmLength;
  sample_ = state.sample;
  done_ = done;
  update();
}

double FilmStrip::placeOf(double seconds) const {
  const double inset = themed(kFilmEdge);
  const double part = length_ > 0 ? std::clamp(seconds / length_, 0.0, 1.0) : 0;
  return inset + part * (width() - 2 * inset);
}

void FilmStrip::paintCut(QPainter& painter, const FilmCut& cut) const {
  const QRectF place(placeOf(cut.from), themed(kFilmEdge), placeOf(cut.to) - placeOf(cut.from),
                     height() - 2 * themed(kFilmEdge));
  if (place.width() < 1) return;
  painter.fillRect(place, toColour(token("ink3")));
  const auto image = picture_(cut.clip);
  if (image.isNull()) return;
  const double wide = place.height() * image.width() / std::max(1, image.height());
  painter.save();
  painter.setClipRect(place, Qt::IntersectClip);
  for (double x = place.left(); x < place.right() && wide >= 1; x += wide)
    painter.drawImage(QRectF(x, place.top(), wide, place.height()), image);
  painter.restore();
  painter.fillRect(QRectF(place.right() - 1, place.top(), 1, place.height()), toColour(token("ink0")));
}

void FilmStrip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toColour(token("ink0")));
  painter.drawRoundedRect(rect(), themed(5), themed(5));
  for (const auto& cut : film_) paintCut(painter, cut);
  // What is not worked on, or not done yet, stands back.
  auto veil = toColour(token("ink0"));
  veil.setAlpha(kFilmVeil);
  const QRectF all(themed(kFilmEdge), themed(kFilmEdge), width() - 2 * themed(kFilmEdge),
                   height() - 2 * themed(kFilmEdge));
  if (sample_) {
    const double from = placeOf(sample_->first), to = placeOf(sample_->second);
    painter.fillRect(QRectF(all.left(), all.top(), from - all.left(), all.height()), veil);
    painter.fillRect(QRectF(to, all.top(), all.right() - to, all.height()), veil);
    painter.setPen(QPen(toColour(token("teal")), themed(2)));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(from, themed(2), to - from, height() - 2 * themed(2)), themed(3),
                            themed(3));
  } else if (done_ >= 0) {
    const double at = placeOf(done_);
    painter.fillRect(QRectF(at, all.top(), all.right() - at, all.height()), veil);
    painter.fillRect(QRectF(at - themed(1), 0, themed(2), height()), toColour(token("amber")));
  }
}

}  // namespace kvo
