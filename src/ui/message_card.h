// The face of a message: a sign with its colour at the edge, caption, lines, a box not to be shown again,
// keys.
#pragma once

#include <QFrame>
#include <QStringList>
#include <vector>

class QCheckBox;
class QPushButton;

namespace kvo {

enum class MessageSign { Done, Warning, Error };

struct MessageFace {
  MessageSign sign = MessageSign::Warning;
  QString caption;
  QStringList lines;
  QString prompt;          ///< below the lines, quieter
  QString neverAgain;      ///< of the check box; empty for none
  QStringList keys{"OK"};  ///< the first is the primary one
};

class MessageCard : public QFrame {
 public:
  explicit MessageCard(const MessageFace& face, QWidget* parent = nullptr);

  [[nodiscard]] const std::vector<QPushButton*>& keys() const { return keys_; }
  /// Null without one.
  [[nodiscard]] QCheckBox* neverAgain() const { return neverAgain_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  MessageSign sign_;
  std::vector<QPushButton*> keys_;
  QCheckBox* neverAgain_ = nullptr;
};

}  // namespace kvo
