#include "ui/dib_section_region.h"

#include "base/guarded.h"
#include "ui/dib_section.h"

#include <QRegion>
#include <QResource>
#include <QWidget>
#include <algorithm>

namespace kvo {
namespace {

constexpr std::uint64_t kMostRegionBytes = 64U << 20U;
constexpr std::string_view kSource = ".cDIBSectionRegion";
constexpr std::string_view kSourceOfProgram = "KVO5.cDIBSectionRegion";

RegionFault resourceFault(std::string text) { return {std::string(kSourceOfProgram), std::move(text)}; }

// A library's resources, to be looked up below `root` while the object lives.
class OpenLibrary {
 public:
  explicit OpenLibrary(const std::string& path)
      : path_(QString::fromStdString(path)), isOpen_(QResource::registerResource(path_, root)) {}
  OpenLibrary(const OpenLibrary&) = delete;
  OpenLibrary& operator=(const OpenLibrary&) = delete;
  ~OpenLibrary() {
    if (isOpen_) QResource::unregisterResource(path_, root);
  }
  [[nodiscard]] bool isOpen() const { return isOpen_; }

  static constexpr const char* root = "/regions-of-library";

 private:
  QString path_;
  bool isOpen_;
};

}  // namespace

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

ShapedWindow* cDIBSectionRegion::hWndForIndex(int index) const {
  return index < 1 || index > AppliedToCount() ? nullptr : windows_[static_cast<std::size_t>(index) - 1];
}

void cDIBSectionRegion::Destroy() {
  for (auto* window : windows_) window->setShape(nullptr);
  windows_.clear();
  region_.reset();
}

std::optional<RegionFault> cDIBSectionRegion::Save(Files& files, const std::string& path) const {
  const auto fault = [](std::string text) { return RegionFault{std::string(kSource), std::move(text)}; };
  if (!region_) return fault("Unable to determine size of region");
  const auto data = guarded([&]() -> Result<std::string> { return regionData(*region_); });
  if (!data) return fault("Unable to get region data");
  if (const auto written = writeDurably(files, path, *data); !written) return fault(written.error().text);
  return {};
}

bool cDIBSectionRegion::LoadFromFile(const Files& files, const std::string& path) {
  Destroy();
  const auto data = files.read(path, kMostRegionBytes);
  if (data) region_ = regionOfData(*data);
  return region_.has_value();
}

std::optional<RegionFault> cDIBSectionRegion::LoadFromResource(const std::string& libraryPath,
                                                               std::string_view type, std::string_view id) {
  Destroy();
  const OpenLibrary library(libraryPath);
  if (!library.isOpen()) return resourceFault("Can't open DLL for Resource Access");
  const auto name =
      std::string(":").append(OpenLibrary::root).append("/").append(type).append("/").append(id);
  const QResource resource(QString::fromStdString(name));
  if (!resource.isValid())
    return resourceFault("Resource with ID " + std::string(id) + " could not be found");
  const auto data = resource.uncompressedData();
  region_ = regionOfData({data.constData(), static_cast<std::size_t>(data.size())});
  if (!region_) return resourceFault("Cannot access data for resource with ID " + std::string(id));
  return {};
}

}  // namespace kvo
