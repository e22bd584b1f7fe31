// The face of a message: a sign with its colour at the edge, caption, lines, a field for an answer that is
// typed, a box not to be shown again, keys.
#pragma once

#include <QFrame>
#include <QStringList>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace kvo {

enum class MessageSign { Done, Information, Question, Warning, Error };

struct MessageFace {
  MessageSign sign = MessageSign::Warning;
  QString caption;
  QStringList lines;
  QString prompt;            ///< below the lines, quieter
  QString neverAgain;        ///< of the check box; empty for none
  QStringList keys{"OK"};    ///< the first is the primary one
  bool asksForText = false;  ///< has a field below the lines
  QString text{};            ///< that the field begins with, chosen as a whole
};

class MessageCard : public QFrame {
 public:
  explicit MessageCard(const MessageFace& face, QWidget* parent = nullptr);

  [[nodiscard]] const std::vector<QPushButton*>& keys() const { return keys_; }
  /// Of its corners, in pixels.
  static int radius();
  /// The cross in the corner.
  [[nodiscard]] QToolButton* closeKey() const { return closeKey_; }
  /// Null without one.
  [[nodiscard]] QCheckBox* neverAgain() const { return neverAgain_; }
  /// Null without one.
  [[nodiscard]] QLineEdit* field() const { return field_; }
  /// What is told, left of the keys, of the time that is left.
  void setCountdown(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* makeText(const MessageFace& face);
  QLayout* makeFoot(const MessageFace& face);

  MessageSign sign_;
  QToolButton* closeKey_;
  std::vector<QPushButton*> keys_;
  QCheckBox* neverAgain_ = nullptr;
  QLineEdit* field_ = nullptr;
  QLabel* countdown_ = nullptr;
};

}  // namespace kvo
