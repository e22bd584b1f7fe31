#include "windows/main/slider_part.h"

#include "ui/painting.h"
#include "ui/theme.h"
#include "windows/main/part_pictures.h"
#include "windows/main/slider_handle.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr QRectF kSliderPlace(16, 312, 545, 24);  // with room for handles that stand over the ends
constexpr QRectF kSliderPlate(31, 319.5, 513, 10.5);
constexpr double kLineFrom = 40;
constexpr double kLineTo = 540;
constexpr double kLineMiddle = 324.6;
constexpr double kLineWidth = 2;
constexpr double kMarkReach = 21;    // of a mark's widget, outward from its place
constexpr double kMarkInside = 3;    // and inward
constexpr double kHandleSide = 13;   // the pictures' height, and the width of the position's
constexpr double kHandleReach = 24;  // of the position's widget
constexpr double kMarkWidth = 8;

}  // namespace

SliderPart::SliderPart(const SliderState& state, const Acts& acts, const std::string& folder, QWidget* parent)
    : HeldLine(acts.line, parent), state_(state), acts_(acts), folder_(folder) {
  addHandle(tr("Position"), SliderHandleId::ImageBlob);
  addHandle(tr("Mark-In"), SliderHandleId::Img_MarkIn);
  addHandle(tr("Mark-Out"), SliderHandleId::Img_MarkOut);
}

void SliderPart::moved(SliderHandle& handle) {
  place(handle);
  update();
  acts_.look(handle.part() * state_.length);
}

void SliderPart::layOut(const FaceScale& scale) {
  scale_ = scale;
  setGeometry(placedIn(*parentWidget(), scale, kSliderPlace));
  constexpr std::array kPictures = {"ImageBlob.bmp", "Img_MarkIn.bmp", "Img_MarkOut.bmp"};
  for (std::size_t i = 0; i < handles().size(); ++i) {
    handles()[i]->setPicture(partPicture(folder_ + kPictures[i], scale.size(), devicePixelRatio()));
    place(*handles()[i]);
  }
  update();
}

double SliderPart::part(Handle handle) const {
  const auto* held = handles()[handle];
  return held->isDragged()    ? held->part()
         : handle == Position ? state_.position
         : handle == MarkIn   ? state_.markIn
                              : state_.markOut;
}

// Beyond the ends too.
double SliderPart::lineAt(int x) const {
  return (x / scale_.size() + kSliderPlace.left() - kLineFrom) / (kLineTo - kLineFrom);
}

// The position stands on its place, a mark beside it: Mark-In with its right edge there, Mark-Out with its
// left one.
void SliderPart::place(SliderHandle& handle) const {
  const double at = kLineFrom + handle.part() * (kLineTo - kLineFrom);
  QRectF hit(at - kHandleReach / 2, kSliderPlace.top(), kHandleReach, kSliderPlace.height());
  double pictureLeft = at - kHandleSide / 2;
  if (&handle == handles()[MarkIn]) {
    hit.setRect(at - kMarkReach, kSliderPlace.top(), kMarkReach + kMarkInside, kSliderPlace.height());
    pictureLeft = at - kMarkWidth;
  } else if (&handle == handles()[MarkOut]) {
    hit.setRect(at - kMarkInside, kSliderPlace.top(), kMarkReach + kMarkInside, kSliderPlace.height());
    pictureLeft = at;
  }
  const auto geometry = placedIn(*this, scale_, hit);
  const auto picture =
      placedIn(*this, scale_, {pictureLeft, kLineMiddle - kHandleSide / 2, kHandleSide, kHandleSide})
          .topLeft();
  handle.setGeometry(geometry);
  handle.pictureAt = picture - geometry.topLeft();
}

void SliderPart::draw() {
  for (const auto which : {Position, MarkIn, MarkOut}) {
    auto* handle = handles()[which];
    handle->setPart(part(which));
    handle->setVisible(state_.handles);
    if (!handle->isDragged()) place(*handle);
  }
  if (drawn_ == state_) return;
  drawn_ = state_;
  update();
}

std::vector<QWidget*> SliderPart::tabOrder() const { return {handles().begin(), handles().end()}; }

QPoint SliderPart::over(double part) const {
  const double x = kLineFrom + part * (kLineTo - kLineFrom) - kSliderPlace.left();
  return {scale_.at(x), scale_.at(kSliderPlate.top() - kSliderPlace.top())};
}

bool SliderPart::takes(const QPoint& at) const {
  return state_.handles && placedIn(*this, scale_, kSliderPlate).contains(at);
}

void SliderPart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const double s = scale_.size();
  drawPlate(painter, placedIn(*this, scale_, kSliderPlate), 5 * s, scale_, plateColour());
  const Painting kept(painter);
  painter.setPen(Qt::NoPen);
  const auto line = [&](double from, double to, Rgb colour) {
    const auto x = [&](double part) {
      return (kLineFrom + part * (kLineTo - kLineFrom) - kSliderPlace.left()) * s;
    };
    painter.setBrush(toColour(colour));
    const double top = (kLineMiddle - kLineWidth / 2 - kSliderPlace.top()) * s;
    painter.drawRoundedRect(QRectF(x(from), top, x(to) - x(from), kLineWidth * s), s, s);
  };
  line(0, 1, token("line1"));
  if (!state_.handles) return;
  const double in = part(MarkIn);
  line(in, std::max(in, part(MarkOut)), token("line3"));
  line(in, std::clamp(part(Position), in, std::max(in, part(MarkOut))), token("teal"));
}

}  // namespace kvo
