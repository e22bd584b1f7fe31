// One message as a window of its own: the card, moved by its face, with its shadow where there is a
// compositor. Enter presses the key that has the focus, which at first is the primary one; Esc and the cross
// give the harmless answer; the first letter of a key presses it; Copy copies the text. A field has the focus
// where there is one, and the letters.
#pragma once

#include "ports/message_boxes.h"
#include "ui/message_card.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <vector>

namespace kvo {

/// What is asked: the face, the answer of each of its keys, and how long it waits.
struct MessageQuestion {
  MessageFace face;
  std::vector<Answer> answers{
      Answer::Ok};                 ///< of each key; the first is the default, the last the harmless one
  double seconds = 0;              ///< until the first answers by itself; 0 waits for ever
  bool isRisky = false;            ///< the default is the last
  std::function<bool()> stands{};  ///< once it says no, the last answers; empty for always
};

class MessageWindow : public QDialog {
 public:
  MessageWindow(const MessageQuestion& question, QWidget* parent);

  /// Shows it until it is answered.
  StyledAnswer ask();
  /// What is in the field; empty without one.
  [[nodiscard]] QString typed() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void reject() override;

 private:
  void answer(std::size_t key);
  void look();
  void countDown();

  std::vector<Answer> answers_;
  Answer given_;
  QString copied_;
  MessageCard* card_;
  double seconds_;
  std::function<bool()> stands_;
  QElapsedTimer since_;
  QTimer tick_;
};

}  // namespace kvo
