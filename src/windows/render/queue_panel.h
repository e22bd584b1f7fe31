// The renders that wait their turn: a list, and keys for the one that is chosen.
#pragma once

#include "windows/editor/editor_page.h"
#include "windows/render/render_acts.h"

#include <QCoreApplication>

class QPushButton;

namespace kvo {

class PageList;

class QueuePanel final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::QueuePanel)

 public:
  static constexpr QSize kPlace{380, 128};  ///< pixels at size 1

  QueuePanel(const RenderState& state, const RenderActs& acts, QWidget* parent);

  void draw();

 private:
  [[nodiscard]] const QueuedRow* chosen() const;

  const RenderState& state_;
  PageList* Lst_Queue_ = nullptr;
  QPushButton* KVOBut_PauseJob_ = nullptr;
  QPushButton* KVOBut_RemoveJob_ = nullptr;
};

}  // namespace kvo
