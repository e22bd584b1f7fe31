// A notice on a page: a bar, a sign and two lines; teal when all is well, red when something is to be done.
#pragma once

#include <QWidget>

class QLabel;

namespace kvo {

class NoticeLine final : public QWidget {
 public:
  explicit NoticeLine(QWidget* parent);

  /// Both lines in one piece for a screen reader. An empty title hides it.
  void draw(const QString& title, const QString& text, bool isGood);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void layOut();

  QLabel* title_;
  QLabel* text_;
  QRect card_;  // about the two lines, in the middle of the widget
  bool isGood_ = true;
};

}  // namespace kvo
