// The window on the codec of the clip in hand.
#pragma once

#include "program/codec_window_state.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>

class QLabel;

namespace kvo {

class FrmCodec final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmCodec)

 public:
  /// `hide` is called when the user closes it.
  FrmCodec(const CodecWindowState& state, std::function<void()> hide);

  /// Brings it in line with the state, above `owner`, the face that is shown; null closes it.
  void draw(QWidget* owner);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const CodecWindowState& state_;
  std::function<void()> hide_;
  CodecWindowState drawn_;
  QLabel* code_;
  QLabel* developer_;
  QLabel* address_;
  QLabel* notes_;
};

}  // namespace kvo
