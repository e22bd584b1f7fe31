// A slider of the editor with its heading over it.
#pragma once

#include "editor/tabs/editor_parts_state.h"
#include "ui/tokens.h"

#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

class QLabel;
class QSlider;

namespace kvo {

class HeadedSlider final : public QWidget {
 public:
  static constexpr int kHeight = 36;  ///< pixels at size 1; where it has less, the slider stands alone
  static constexpr int kBareHeight = 24;

  /// `name` is what a screen reader calls it, and its tool tip.
  explicit HeadedSlider(const QString& name, QWidget* parent);

  /// The user has moved it.
  std::function<void(int value)> moved;
  /// The user has let it go, or the key that moved it; a wheel lets go at each step.
  std::function<void()> letGo;

  /// What the slider stands for: a dot behind the heading, and the slot up to the handle.
  void setDot(Rgb colour);

  /// The slider and its heading; `value` stands at the right, for eyes and screen readers.
  void draw(const ClipSlider& state, const QString& heading, const QString& value = {});

  [[nodiscard]] QSlider* slider() const { return slider_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void layOut();
  void endMove();

  QLabel* heading_;
  QLabel* value_;
  QSlider* slider_;
  std::optional<Rgb> dot_;
  bool isDrawing_ = false;
  bool hasMoved_ = false;  // since it was let go last
  bool keyIsDown_ = false;
};

}  // namespace kvo
