// The toolbar of Free Zoom: twelve labels over its picture, and the line of the slider.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/face_scale.h"
#include "windows/main/held_line.h"
#include "windows/main/step_acts.h"
#include "windows/main/toolbar_picture.h"

#include <QCoreApplication>
#include <array>
#include <functional>
#include <string>
#include <vector>

namespace kvo {

class ToolKey;

class ToolbarPart : public HeldLine {
  Q_DECLARE_TR_FUNCTIONS(kvo::ToolbarPart)

 public:
  struct Acts {
    /// What the labels do, in their order. One that does nothing yet is disabled.
    std::array<std::function<void()>, kHitLabels> clicks;
    StepActs steps;
    HeldLine::Acts line;
  };

  /// `folder` is the program's, with its pictures in "Buttons/" and "Parts/".
  ToolbarPart(const MainWindowState& state, const Acts& acts, const std::string& folder, QWidget* parent);

  void layOut(const FaceScale& scale);
  void draw();
  /// Below the line at this part of it, at the toolbar's foot; in its own pixels.
  [[nodiscard]] QPoint below(double part) const;

 protected:
  [[nodiscard]] double lineAt(int x) const override;
  [[nodiscard]] bool takes(const QPoint& at) const override;
  [[nodiscard]] bool hears(const QPoint& at) const override { return takes(at); }
  void moved(SliderHandle& /*handle*/) override { draw(); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] int pixels(Twips twips) const;
  [[nodiscard]] QString tipOf(HitLabel label) const;
  [[nodiscard]] bool showsLine() const;
  void placeHandle();

  // Of the slider: what is painted below the labels.
  struct Line {
    SliderPlace place;
    double position = 0;
    bool handles = false;
    bool operator==(const Line&) const = default;
  };

  const MainWindowState& state_;
  Line drawn_;
  Acts acts_;
  std::string folder_;
  FaceScale scale_;
  ToolbarPicture picture_;
  std::array<ToolKey*, kHitLabels> keys_{};
  SliderHandle* handle_;
};

}  // namespace kvo
