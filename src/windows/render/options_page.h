// BuildFileRenderFrame: the kinds of output, the profiles of one that has them, what the movie is like, and
// the key that makes it.
#pragma once

#include "render/options_view.h"
#include "render/queue_state.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/picture_of_clip.h"
#include "windows/render/render_acts.h"

#include <QCoreApplication>
#include <optional>
#include <vector>

class QCheckBox;
class QPushButton;
class QScrollArea;
class QSpinBox;
class QVBoxLayout;

namespace kvo {

class FactRows;
class KindRow;
class PageList;
class PicturePane;
class QueuePanel;

class OptionsPage final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::OptionsPage)

 public:
  static constexpr QSize kPlace{960, 380};  ///< pixels at size 1

  OptionsPage(const RenderState& state, const QueueState& queue, const RenderActs& acts,
              PictureOfClip picture, QWidget* parent);

  void draw();
  /// The key that leads on; where it cannot, the kind in hand.
  [[nodiscard]] QWidget* first() const;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void makeKinds();
  void makeProfiles();
  void makeMadeFor();
  void makeHardware();
  void makeSummary();
  void drawLists();
  void drawBoxes();
  void layOutLists();
  void drawQueue();
  void layOutKinds();

  const RenderState& state_;
  const QueueState& queueState_;
  const RenderActs& acts_;
  PictureOfClip picture_;
  OptionsView view_;
  QScrollArea* kinds_ = nullptr;
  QVBoxLayout* rows_ = nullptr;
  std::vector<KindRow*> Opt_CompressorType_;
  std::optional<OutputKind> shownKind_;  // that has been brought into sight
  QLabel* listCaption_ = nullptr;
  QLabel* sizeCaption_ = nullptr;
  PageList* Lst_WMVFormats_ = nullptr;
  PageList* Lst_MadeFor_ = nullptr;
  QFrame* tellPlate_ = nullptr;
  QLabel* description_ = nullptr;
  QLabel* hint_ = nullptr;
  QCheckBox* Chk_UseCodecOutputDimensions_ = nullptr;
  QLabel* sizeName_ = nullptr;
  QSpinBox* Num_Megabytes_ = nullptr;
  QCheckBox* Chk_Hardware_ = nullptr;
  FactRows* facts_ = nullptr;
  PicturePane* pane_ = nullptr;
  QLabel* caution_ = nullptr;  // in its place, of what cannot be made
  QPushButton* KVOBut_WriteMovie_ = nullptr;
  QPushButton* KVOBut_AddToQueue_ = nullptr;
  QueuePanel* queue_ = nullptr;
};

}  // namespace kvo
