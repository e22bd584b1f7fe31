// The head of the card: what the frame is called, and where it stands between the options and the report.
#pragma once

#include <QCoreApplication>
#include <QWidget>

namespace kvo {

class RenderHead final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::RenderHead)

 public:
  static constexpr int kHeight = 56;  ///< pixels at size 1
  static constexpr int kSteps = 4;

  explicit RenderHead(QWidget* parent);

  /// `step` from 1; those before it are done, and with kSteps + 1 all are.
  void draw(const QString& title, int step);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] static QString nameOf(int step);

  QString title_;
  int step_ = 0;
};

}  // namespace kvo
