// The card of a render over page and preview: its head, and the frame that it is in.
#pragma once

#include "render/queue_state.h"
#include "windows/editor/picture_of_clip.h"
#include "windows/render/render_acts.h"

#include <QCoreApplication>
#include <QFrame>

class QStackedWidget;

namespace kvo {

class OptionsPage;
class PairPage;
class RenderHead;
class WorkPage;

class RenderCard final : public QFrame {
  Q_DECLARE_TR_FUNCTIONS(kvo::RenderCard)

 public:
  /// The states outlive the card. `picture` gives that of the clip in hand for clip 0.
  RenderCard(const RenderState& state, const QueueState& queue, RenderActs acts, const PictureOfClip& picture,
             QWidget* parent);

  void draw();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] QWidget* firstFocus() const;
  void layOut();

  const RenderState& state_;
  RenderActs acts_;
  RenderHead* head_;
  QStackedWidget* frames_;
  OptionsPage* options_;
  PairPage* pair_;
  WorkPage* work_;
  RenderFrame drawn_ = RenderFrame::None;
};

}  // namespace kvo
