// The slider of the clip in hand: its line, the section that plays, the handles of position and marks.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/held_line.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <functional>
#include <vector>

namespace kvo {

class SliderPart : public HeldLine {
  Q_DECLARE_TR_FUNCTIONS(kvo::SliderPart)

 public:
  /// What the user does there.
  struct Acts {
    HeldLine::Acts line;
    std::function<void(double seconds)> look;  ///< a handle is at this place while it is dragged
    std::function<void()> lookEnds;
  };

  /// `folder` has the pictures of the handles: "/prog/Parts/".
  SliderPart(const SliderState& state, const Acts& acts, const std::string& folder, QWidget* parent);

  void layOut(const FaceScale& scale);
  void draw();
  /// The handles in the order of Tab.
  [[nodiscard]] std::vector<QWidget*> tabOrder() const;
  /// Over the line at this part of it, at the upper edge of its plate; in the slider's own pixels.
  [[nodiscard]] QPoint over(double part) const;

 protected:
  [[nodiscard]] double lineAt(int x) const override;
  [[nodiscard]] bool takes(const QPoint& at) const override;
  [[nodiscard]] bool hears(const QPoint& /*at*/) const override { return state_.handles; }
  void moved(SliderHandle& handle) override;
  void letGo() override { acts_.lookEnds(); }
  void paintEvent(QPaintEvent* event) override;

 private:
  enum Handle { Position, MarkIn, MarkOut };  // in the order of SliderHandleId

  void place(SliderHandle& handle) const;
  [[nodiscard]] double part(Handle handle) const;

  const SliderState& state_;
  Acts acts_;
  std::string folder_;
  FaceScale scale_;
  SliderState drawn_;
};

}  // namespace kvo
