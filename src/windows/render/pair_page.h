// "Render New Picture in Picture Clip": what the clip of a backdrop and its overlay is going to be.
#pragma once

#include "render/render_state.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/picture_of_clip.h"
#include "windows/render/render_acts.h"

#include <QCoreApplication>
#include <QImage>
#include <optional>
#include <utility>

class QPushButton;

namespace kvo {

class FactRows;
class PicturePane;

class PairPage final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::PairPage)

 public:
  static constexpr QSize kPlace{960, 380};  ///< pixels at size 1

  PairPage(const RenderState& state, const RenderActs& acts, PictureOfClip picture, QWidget* parent);

  void draw();
  [[nodiscard]] QPushButton* writeKey() const { return KVOBut_RenderNewPicInPic_; }

 private:
  [[nodiscard]] QImage both();

  const RenderState& state_;
  PictureOfClip picture_;
  PicturePane* pane_;
  FactRows* facts_;
  QPushButton* KVOBut_RenderNewPicInPic_;
  QPushButton* KVOBut1_CancelRenderPicInPic_;
  std::pair<qint64, qint64> madeOf_{};  // the pictures in both_
  std::optional<RenderPair> madeAs_;
  QImage both_;
};

}  // namespace kvo
