// A region and the windows that have taken its shape.
#pragma once

#include "ports/files.h"
#include "ui/region.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace kvo {

/// What can take a shape.
class ShapedWindow {
 public:
  ShapedWindow() = default;
  ShapedWindow(const ShapedWindow&) = delete;
  ShapedWindow& operator=(const ShapedWindow&) = delete;
  virtual ~ShapedWindow() = default;

  /// Shows the window in this shape; null is its whole rectangle.
  virtual void setShape(const Region* region) = 0;
};

/// A widget, which outlives the object.
class ShapedWidget : public ShapedWindow {
 public:
  explicit ShapedWidget(QWidget& widget) : widget_(widget) {}
  void setShape(const Region* region) override;

 private:
  QWidget& widget_;
};

/// A failure and where it comes from.
struct RegionFault {
  std::string source;
  std::string text;
};

class cDIBSectionRegion {
 public:
  cDIBSectionRegion() = default;
  cDIBSectionRegion(const cDIBSectionRegion&) = delete;
  cDIBSectionRegion& operator=(const cDIBSectionRegion&) = delete;
  ~cDIBSectionRegion() { Destroy(); }

  /// Holds the pixels of `surface` that do not have the colour `key` (red in the low byte), in place of what
  /// was held. False, and nothing held, for an empty surface.
  bool Create(const cDIBSection& surface, std::uint32_t key);

  /// Whether `window` has the shape.
  [[nodiscard]] bool Applied(const ShapedWindow& window) const;

  /// Gives `window` the shape, or its whole rectangle back. A window that has it is to outlive the region, or
  /// to give it up first. With nothing held every window gets its rectangle.
  void Applied(ShapedWindow& window, bool on);

  [[nodiscard]] int AppliedToCount() const { return static_cast<int>(windows_.size()); }

  /// The windows in the order in which they took the shape, from 1 to `AppliedToCount`; null beyond.
  [[nodiscard]] ShapedWindow* hWndForIndex(int index) const;

  /// Gives all windows their rectangles back and holds nothing.
  void Destroy();

  /// What is held; null for nothing.
  [[nodiscard]] const Region* region() const { return region_ ? &*region_ : nullptr; }

  /// Writes the region's data as they are, in place of an old file. Nothing is the good end.
  [[nodiscard]] std::optional<RegionFault> Save(Files& files, const std::string& path) const;

  /// Holds the region of a file that `Save` wrote, in place of what was held. False, and nothing held, when
  /// there is none.
  bool LoadFromFile(const Files& files, const std::string& path);

  /// The same from a library of the program's resources, compiled by rcc: the resource `type`/`id`.
  [[nodiscard]] std::optional<RegionFault> LoadFromResource(const std::string& libraryPath,
                                                            std::string_view type, std::string_view id);

 private:
  std::optional<Region> region_;
  std::vector<ShapedWindow*> windows_;
};

}  // namespace kvo
