#include "program/hover_preview.h"

#include "program/clip_texts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kvo {
namespace {

// The line is some 500 pixels long: more places than this nobody tells apart.
constexpr double kPlaces = 250;

double onGrid(double seconds, double length) {
  const double step = std::max(1.0, std::ceil(length / kPlaces));
  return std::floor(seconds / step) * step;
}

}  // namespace

bool HoverPreview::hasPicture() const {
  const auto& rows = window_.list.Fillist.rows();
  const auto index = static_cast<std::size_t>(window_.list.ListIndex);
  return index < rows.size() && rows[index].kind == ClipKind::Video && !window_.mode.player.path.empty();
}

void HoverPreview::over(double part) {
  const double length = window_.slider.length;
  if (!window_.slider.handles || length <= 0) return left();
  auto& hover = window_.hover;
  hover.visible = true;
  hover.part = std::clamp(part, 0.0, 1.0);
  hover.time = playTimeText(hover.part * length);
  const auto before = std::exchange(path_, hasPicture() ? window_.mode.player.path : std::string());
  seconds_ = onGrid(hover.part * length, length);
  if (path_ != before) hover.picture = nullptr;
  show();
}

// Until it has come the one before it stands.
void HoverPreview::show() {
  if (path_.empty()) return;
  if (auto picture = sketches_.picture(path_, seconds_)) window_.hover.picture = std::move(*picture);
}

void HoverPreview::came(const std::string& path) {
  if (window_.hover.visible && path == path_) show();
}

void HoverPreview::settled() {
  if (window_.hover.visible && (hasPicture() ? window_.mode.player.path : std::string()) != path_)
    over(window_.hover.part);
}

void HoverPreview::left() {
  window_.hover = {};
  path_.clear();
}

}  // namespace kvo
