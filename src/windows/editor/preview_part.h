// The picture of the preview: on black, in its own shape, with what it shows of written over it.
#pragma once

#include "editor/preview/preview_state.h"

#include <QCoreApplication>
#include <QWidget>

class QFontMetricsF;

namespace kvo {

class PreviewPart final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::PreviewPart)

 public:
  /// `state` outlives the part.
  PreviewPart(const PreviewState& state, QWidget* parent);

  void draw();
  /// Of the picture, on the desktop; empty where there is none.
  [[nodiscard]] QRect picturePlace() const;
  /// Where the picture stands in the part, by its shape; empty while there is none.
  [[nodiscard]] QRectF pictureRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  /// The title as there is room for it.
  [[nodiscard]] QString shortTitle(const QFontMetricsF& metrics) const;
  void drawOverlayFrame(QPainter& painter) const;
  void drawTitle(QPainter& painter) const;
  void drawEmpty(QPainter& painter) const;

  const PreviewState& state_;
  std::shared_ptr<const Bitmap> drawn_;
  QString drawnText_;
};

}  // namespace kvo
