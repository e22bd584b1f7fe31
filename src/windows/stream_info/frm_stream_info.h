// The window "KVO5 - Stream Info".
#pragma once

#include "playback/stream_info.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>
#include <vector>

class QFormLayout;
class QLabel;
class QPushButton;

namespace kvo {

class FrmStreamInfo final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmStreamInfo)

 public:
  /// `acted` is called behind each act.
  FrmStreamInfo(const StreamInfoState& state, StreamInfo& logic, std::function<void()> acted);

  /// Brings it in line with the state, above `owner`, the face that is shown; null closes it.
  void draw(QWidget* owner);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Line {
    QLabel* caption;
    QLabel* value;
  };
  /// A group of lines, which are made as they are needed.
  struct Group {
    QFormLayout* rows = nullptr;
    std::vector<Line> lines;
  };

  void write(Group& group, const std::vector<StreamFactLine>& lines);
  void offerChoices();

  const StreamInfoState& state_;
  StreamInfo& logic_;
  std::function<void()> acted_;
  StreamInfoState drawn_;
  Group properties_;
  Group codecs_;
  Group connection_;
  QPushButton* options_ = nullptr;
  QPushButton* more_ = nullptr;
};

}  // namespace kvo
