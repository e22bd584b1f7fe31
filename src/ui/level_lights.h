// Ten lights that show a level.
#pragma once

#include <QWidget>

namespace kvo {

class LevelLights : public QWidget {
 public:
  static constexpr int kLights = 10;

  /// Sides and distance of the lights in pixels.
  explicit LevelLights(int side = 11, double pitch = 13.4, QWidget* parent = nullptr);

  /// How many are lit, 0 to 10: six of teal, then amber.
  void setLevel(int level);
  [[nodiscard]] int level() const { return level_; }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int side_;
  double pitch_;
  int level_ = 0;
};

}  // namespace kvo
