// What the two faces' lines of the clip have in common: the handles on them ask and tell the marks, a press
// beside them brings the position, and the pointer over them asks for a small picture.
#pragma once

#include "playback/positions/marks.h"

#include <QWidget>
#include <functional>
#include <vector>

namespace kvo {

class SliderHandle;

class HeldLine : public QWidget {
 public:
  /// What the user does there.
  struct Acts {
    Marks& marks;
    std::function<void()> acted;             ///< called behind each of them
    std::function<void(double part)> hover;  ///< the pointer is at this part of the line
    std::function<void()> hoverEnds;
  };

 protected:
  HeldLine(Acts acts, QWidget* parent);

  /// Hidden. The first one is the position's.
  SliderHandle* addHandle(const QString& name, SliderHandleId id);
  [[nodiscard]] const std::vector<SliderHandle*>& handles() const { return handles_; }
  [[nodiscard]] bool isDragged() const;

  /// The part of the line at `x`; beyond the ends it may lie below 0 or above 1.
  [[nodiscard]] virtual double lineAt(int x) const = 0;
  /// A press there brings the position.
  [[nodiscard]] virtual bool takes(const QPoint& at) const = 0;
  /// The pointer there is asked what the clip shows.
  [[nodiscard]] virtual bool hears(const QPoint& at) const = 0;
  /// A handle is moved by the mouse, or let go.
  virtual void moved(SliderHandle& handle) = 0;
  virtual void letGo() {}

  bool eventFilter(QObject* watched, QEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void hoverAt(const QPoint& at);

  Acts acts_;
  std::vector<SliderHandle*> handles_;
};

}  // namespace kvo
