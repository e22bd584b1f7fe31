#include "windows/main/title_rail_part.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/tool_tips.h"
#include "ui/work_key.h"
#include "windows/main/icon_key.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr QRectF kRail(30, 4, 388, 19);
constexpr QRectF kRailCaption(57, 4, 308, 19);
constexpr QRectF kMenuKey(30, 2, 24, 24);
constexpr QRectF kUndoKey(368, 2, 24, 24);
constexpr QRectF kRedoKey(393, 2, 24, 24);
constexpr double kRailIcon = 13;

// The key of a step that can be taken back or done again; its tip names it.
void drawStep(IconKey& key, const std::string& step, const QString& nothing) {
  key.setEnabled(!step.empty());
  key.setToolTip(step.empty() ? nothing : plainTip(shown(step)));
}

}  // namespace

TitleRailPart::TitleRailPart(const State& state, const Acts& acts, QWidget* parent)
    : Plate(kRail, 6, parent),
      state_(state),
      caption_(made<FaceLabel>(kRailCaption,
                               LabelLook{.pixels = 11.5, .weight = QFont::DemiBold, .elide = Qt::ElideMiddle},
                               this)),
      menu_(made<IconKey>("menu", tr("Menu"), kMenuKey, kRailIcon, parent)),
      undo_(made<IconKey>("undo", tr("Undo"), kUndoKey, kRailIcon, parent)),
      redo_(made<IconKey>("redo", tr("Redo"), kRedoKey, kRailIcon, parent)),
      queue_(made<WorkKey>(parent)) {
  menu_->setToolTip(tr("Menu"));
  setKeys(*menu_, "F10");
  setKeys(*undo_, "Ctrl+Z");
  setKeys(*redo_, "Ctrl+Shift+Z");
  connect(menu_, &IconKey::clicked,
          [this, acts] { acts.openMenu(menu_->mapToGlobal(menu_->rect().bottomLeft())); });
  connect(undo_, &IconKey::clicked, acts.undo);
  connect(redo_, &IconKey::clicked, acts.redo);
  connect(queue_, &WorkKey::clicked, acts.showQueue);
}

void TitleRailPart::layOut(const FaceScale& scale) {
  railScale_ = scale;
  Plate::layOut(scale);
  caption_->layOut(scale);
  for (auto* key : {menu_, undo_, redo_}) key->layOut(scale);
}

void TitleRailPart::draw() {
  caption_->write(shown(state_.face.caption));
  drawStep(*undo_, state_.history.undo, tr("Nothing to undo"));
  drawStep(*redo_, state_.history.redo, tr("Nothing to redo"));
  drawQueue();
}

// It stands at the end of the caption, which gives way to it.
void TitleRailPart::drawQueue() {
  const auto& queue = state_.queue;
  queue_->draw(shown(queue.text), shown(queue.about), queue.share, queue.isBad, railScale_.size());
  const auto caption = railScale_.place(kRailCaption);
  const int most = caption.width() * 2 / 3;
  const int wide = queue_->isHidden() ? 0 : std::min(queue_->sizeHint().width(), most);
  queue_->setGeometry(caption.right() + 1 - wide, railScale_.place(kMenuKey).top(), wide,
                      railScale_.at(WorkKey::kHeight));
  caption_->resize(caption.width() - wide, caption_->height());
}

QWidget* TitleRailPart::menuKey() const { return menu_; }

std::vector<QWidget*> TitleRailPart::tabOrder() const { return {menu_, queue_, undo_, redo_}; }

}  // namespace kvo
