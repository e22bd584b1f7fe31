// clsPieBar: a ring that fills clockwise, with its share in the middle; full and with a tick when all is
// done.
#pragma once

#include "render/render_state.h"

#include <QWidget>

namespace kvo {

class RenderPieBar final : public QWidget {
 public:
  static constexpr int kSide = 232;  ///< pixels at size 1

  explicit RenderPieBar(QWidget* parent);

  /// `below` stands under the share.
  void draw(const RenderPie& pie, const QString& below, bool isDone);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void paintShare(QPainter& painter, const QRectF& hole) const;

  RenderPie pie_;
  QString below_;
  bool isDone_ = false;
};

}  // namespace kvo
