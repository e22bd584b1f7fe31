// An invisible label over a key that is drawn into the face: takes mouse, keyboard and focus, and lets the
// drawn key answer.
#pragma once

#include "ui/hover_key.h"

#include <QCoreApplication>
#include <QPixmap>
#include <QRect>

namespace kvo {

class KeyLabel : public HoverKey {
  Q_DECLARE_TR_FUNCTIONS(kvo::KeyLabel)

 public:
  /// `name` is what a screen reader is told, and the tool tip unless another one is set.
  KeyLabel(const QString& name, QWidget* parent);

  void setName(const QString& name);

  /// The key's picture as it is drawn in the face, and the part of it that the label lies on, both in logical
  /// pixels of the picture.
  void setPicture(const QPixmap& picture, const QRect& part);
  /// The picture under the pointer, of the same measures; without one the key is lightened.
  void setHoverPicture(const QPixmap& picture) { hover_ = picture; }
  /// What of the label is the key itself, which the ring of focus goes about.
  void setShape(const QRect& key, bool isRound);
  void setLit(bool lit);
  /// A bar that is drawn while the key is lit, for one whose picture does not show it; empty for none.
  void setBar(const QRectF& bar);

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void describe();

  QPixmap picture_;
  QPixmap hover_;
  QRect part_;
  QRectF bar_;
  bool lit_ = false;
};

}  // namespace kvo
