#include "ui/dib_section_region.h"

#include "ui/dib_section.h"

#include <QRegion>
#include <QWidget>
#include <algorithm>

namespace kvo {
void ShapedWidget::setShape(const Region* region) {
  if (region == nullptr) {
    widget_.clearMask();
    return;
  }
  std::vector<QRect> rectangles;
  rectangles.reserve(region->rectangles.size());
  for (const auto& r : region->rectangles)
    rectangles.emplace_back(QPoint(r.left, r.top), QPoint(r.right - 1, r.bottom - 1));
  // An empty mask is none; a pixel beside the window shows nothing of it.
  if (rectangles.empty()) rectangles.emplace_back(-1, -1, 1, 1);
  QRegion shape;
  shape.setRects(rectangles.data(), static_cast<int>(rectangles.size()));
  widget_.setMask(shape);
}

bool cDIBSectionRegion::Create(const cDIBSection& surface, std::uint32_t key) {
  Destroy();
  if (surface.dib_width() == 0) return false;
  region_ = regionWithout(surface, key);
  return true;
}

bool cDIBSectionRegion::Applied(const ShapedWindow& window) const {
  return std::find(windows_.begin(), windows_.end(), &window) != windows_.end();
}

void cDIBSectionRegion::Applied(ShapedWindow& window, bool on) {
  if (!on) std::erase(windows_, &window);
  if (on && region_ && !Applied(window)) windows_.push_back(&window);
  window.setShape(on ? region() : nullptr);
}

void cDIBSectionRegion::Destroy() {
  for (auto* window : windows_) window->setShape(nullptr);
  windows_.clear();
  region_.reset();
}

}  // namespace kvo
