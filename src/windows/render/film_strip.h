// The movie as a strip of its clips' pictures: the part that is rendered first stands out, then what is done.
#pragma once

#include "render/render_state.h"
#include "windows/editor/picture_of_clip.h"

#include <QCoreApplication>
#include <QWidget>

namespace kvo {

class FilmStrip final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::FilmStrip)

 public:
  FilmStrip(PictureOfClip picture, QWidget* parent);

  /// The state outlives the strip; `follows` shows how far the movie is.
  void draw(const RenderState& state, bool follows);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double placeOf(double seconds) const;
  void paintCut(QPainter& painter, const FilmCut& cut) const;

  PictureOfClip picture_;
  std::vector<FilmCut> film_;
  double length_ = 0;
  std::optional<std::pair<double, double>> sample_;
  double done_ = -1;  // seconds; below 0 while it is not followed
};

}  // namespace kvo
