// BuildEstimateFrame, BuildRenderingFrame and the report: how far the movie is, and what has come of it.
#pragma once

#include "windows/editor/editor_page.h"
#include "windows/editor/picture_of_clip.h"
#include "windows/render/render_acts.h"

#include <QCoreApplication>

class QPushButton;

namespace kvo {

class FactRows;
class FilmStrip;
class PicturePane;
class RenderPieBar;

class WorkPage final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::WorkPage)

 public:
  static constexpr QSize kPlace{960, 380};  ///< pixels at size 1

  WorkPage(const RenderState& state, const RenderActs& acts, const PictureOfClip& picture, QWidget* parent);

  void draw();
  /// The key that has the keyboard when the frame comes; none while it works: Space and Enter are pressed
  /// for other things too often to end a movie.
  [[nodiscard]] QWidget* first();

 private:
  QPushButton* makeKey(const QString& text, const char* kind, const QRect& place);
  void setIcons();

  const RenderState& state_;
  RenderPieBar* Picture2_;
  QLabel* headline_;
  QLabel* below_;
  FactRows* facts_;
  PicturePane* pane_;
  FilmStrip* film_;
  QPushButton* KVOBut_AbortRender_;
  QPushButton* view_;
  QPushButton* back_;
  QLabel* live_;
  QLabel* notes_;
  int iconSide_ = 0;  // pixels, as they were made
};

}  // namespace kvo
