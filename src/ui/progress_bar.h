// How far a work is; with equal minimum and maximum a third travels, for one whose length is not known.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QProgressBar>

namespace kvo {

class ProgressBar : public QProgressBar {
 public:
  explicit ProgressBar(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override { return {240, 6}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {24, 6}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  QBasicTimer tick_;  // runs while there is a third to see travel
  QElapsedTimer clock_;
};

}  // namespace kvo
