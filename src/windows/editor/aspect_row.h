// One way of fitting a still into the frame: an option with a small picture of what comes of it.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QRadioButton>

namespace kvo {

class AspectRow final : public QRadioButton {
 public:
  /// `aspect` as records have it: 0 stretched, 1 with bars, 2 filling, 3 cut.
  AspectRow(int aspect, const QString& caption, QWidget* parent);

  /// The still that is fitted; without one a picture of our own stands for it.
  void setStill(const QImage& still);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  [[nodiscard]] QImage fitted(const QSize& size) const;

  int aspect_;
  QImage still_;
};

}  // namespace kvo
