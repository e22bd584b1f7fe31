// The places where an overlay can stand in the picture, as small diagrams of which one is chosen.
#pragma once

#include <QCoreApplication>
#include <QWidget>
#include <functional>
#include <vector>

class QAbstractButton;

namespace kvo {

class OverlayPositions final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::OverlayPositions)

 public:
  explicit OverlayPositions(QWidget* parent);

  /// The user has chosen one, counted from 1.
  std::function<void(int position)> chosen;

  void draw(int position, bool enabled);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::vector<QAbstractButton*> keys_;
};

}  // namespace kvo
