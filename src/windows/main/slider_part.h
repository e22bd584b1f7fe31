// The slider of the clip in hand: its line, the section that plays, the handles of position and marks.
#pragma once

#include "playback/positions/marks.h"
#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <array>
#include <functional>
#include <vector>

namespace kvo {

class SliderHandle;

class SliderPart : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::SliderPart)

 public:
  /// What the user does there.
  struct Acts {
    Marks& marks;
    std::function<void()> acted;                 ///< called behind each of them
    std::function<void(double seconds)> look{};  ///< a mark is at this place while it is dragged
    std::function<void()> lookEnds{};
    std::function<void(double part)> hover{};  ///< the pointer is at this part of the line
    std::function<void()> hoverEnds{};
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
  bool eventFilter(QObject* watched, QEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  enum Handle { Position, MarkIn, MarkOut };  // in the order of SliderHandleId

  void place(SliderHandle& handle) const;
  [[nodiscard]] double lineAt(int x) const;
  [[nodiscard]] double partAt(int x) const;
  [[nodiscard]] double part(Handle handle) const;
  void connectHandle(Handle handle);
  void hoverAt(int x);

  const SliderState& state_;
  Acts acts_;
  std::string folder_;
  FaceScale scale_;
  std::array<SliderHandle*, 3> handles_;
  SliderState drawn_;
};

}  // namespace kvo
