#include "windows/main/title_rail_part.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/tool_tips.h"
#include "windows/main/icon_key.h"

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

TitleRailPart::TitleRailPart(const FaceState& face, const HistoryState& history, const Acts& acts,
                             QWidget* parent)
    : Plate(kRail, 6, parent),
      face_(face),
      history_(history),
      caption_(made<FaceLabel>(kRailCaption,
                               LabelLook{.pixels = 11.5, .weight = QFont::DemiBold, .elide = Qt::ElideMiddle},
                               this)),
      menu_(made<IconKey>("menu", tr("Menu"), kMenuKey, kRailIcon, parent)),
      undo_(made<IconKey>("undo", tr("Undo"), kUndoKey, kRailIcon, parent)),
      redo_(made<IconKey>("redo", tr("Redo"), kRedoKey, kRailIcon, parent)) {
  menu_->setToolTip(tr("Menu"));
  setKeys(*menu_, "F10");
  setKeys(*undo_, "Ctrl+Z");
  setKeys(*redo_, "Ctrl+Shift+Z");
  connect(menu_, &IconKey::clicked,
          [this, acts] { acts.openMenu(menu_->mapToGlobal(menu_->rect().bottomLeft())); });
  connect(undo_, &IconKey::clicked, acts.undo);
  connect(redo_, &IconKey::clicked, acts.redo);
}

void TitleRailPart::layOut(const FaceScale& scale) {
  Plate::layOut(scale);
  caption_->layOut(scale);
  for (auto* key : {menu_, undo_, redo_}) key->layOut(scale);
}

void TitleRailPart::draw() {
  caption_->write(shown(face_.caption));
  drawStep(*undo_, history_.undo, tr("Nothing to undo"));
  drawStep(*redo_, history_.redo, tr("Nothing to redo"));
}

QWidget* TitleRailPart::menuKey() const { return menu_; }

std::vector<QWidget*> TitleRailPart::tabOrder() const { return {menu_, undo_, redo_}; }

}  // namespace kvo
