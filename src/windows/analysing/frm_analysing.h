// Frm_Analysing: shows how far the files of the clips have been looked into while the editor opens.
#pragma once

#include "editor/desk/editor_window_state.h"

#include <QCoreApplication>
#include <QWidget>

class QLabel;

namespace kvo {

class ProgressBar;

class FrmAnalysing final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmAnalysing)

 public:
  /// `state` outlives the window.
  explicit FrmAnalysing(const AnalysingState& state);

  /// Brings it in line with the state, above `owner`; null closes it.
  void draw(QWidget* owner);

 private:
  const AnalysingState& state_;
  QLabel* count_;
  ProgressBar* bar_;
};

}  // namespace kvo
