// Frm_Analysing: shows how far the files of the clips have been looked into while the editor opens, below a
// film or a fixed picture.
#pragma once

#include "editor/desk/editor_window_state.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace kvo {

class ProgressBar;

class FrmAnalysing final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmAnalysing)

 public:
  /// `state` outlives the window; `stop` opens the editor without waiting any longer.
  FrmAnalysing(const AnalysingState& state, std::function<void()> stop);

  /// Brings it in line with the state, above `owner`; null closes it.
  void draw(QWidget* owner);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  [[nodiscard]] QRect picturePlace() const;

  const AnalysingState& state_;
  std::function<void()> stop_;
  QLabel* count_;
  QLabel* file_;
  ProgressBar* bar_;
  QPushButton* stopKey_;
  std::shared_ptr<const Bitmap> drawn_;  // of the film
};

}  // namespace kvo
