// The button of the skinned windows: three pictures, at rest, under the pointer and pressed. Without them it
// is a key of the theme with its text or icon.
#pragma once

#include "ui/hover_key.h"

#include <QPixmap>
#include <array>

namespace kvo {

class KVOBut : public HoverKey {
 public:
  explicit KVOBut(QWidget* parent = nullptr);

  /// Files of the pictures for interface size 1; of those that lie beside them for other sizes the fitting
  /// one is taken. The widget takes the size of the first. Where one is missing the first stands in for it,
  /// and where that one is, all of them do not count.
  void setPictures(const QString& rest, const QString& hover, const QString& pressed,
                   double interfaceSize = 1);
  void setPictures(const QPixmap& rest, const QPixmap& hover, const QPixmap& pressed);
  [[nodiscard]] bool hasPictures() const { return !pictures_[Rest].isNull(); }

  /// The icon of the key that is drawn without pictures, by its name among the icons.
  void setIconName(const QString& name);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void checkStateSet() override;
  void nextCheckState() override;

 private:
  enum Picture { Rest, Hover, Pressed };

  void drawKey(QPainter& painter) const;
  void describe();

  std::array<QPixmap, 3> pictures_;
  QString iconName_;
};

}  // namespace kvo
