// The renders that wait their turn: a list, keys for the one that is chosen, and why the queue has stopped
// where it has. Ctrl with up and down, or the mouse, moves a render; Delete removes it, Space does
// what its key says, and Enter or a double click shows the movie of one that is done.
#pragma once

#include "render/queue_keys.h"
#include "windows/editor/editor_page.h"
#include "windows/render/render_acts.h"

#include <QCoreApplication>
#include <optional>

class QKeyEvent;
class QMimeData;
class QPushButton;

namespace kvo {

class PageList;

class QueuePanel final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::QueuePanel)

 public:
  static constexpr QSize kPlace{380, 128};  ///< pixels at size 1

  /// Both outlive it.
  QueuePanel(const QueueState& state, const QueueActs& acts, QWidget* parent);

  void draw();
  /// From now on it takes the room that there is.
  void letGrow() { mayBe(1, 10); }

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void makeList();
  void sizeIcons();
  void pressKey(const QKeyEvent& event);
  void view();
  void drop(const QMimeData& carried, int before);
  void drawKeys();
  void drawTrouble();

  const QueueState& state_;
  const QueueActs& acts_;
  std::optional<QueueState> drawn_;
  PageList* Lst_Queue_ = nullptr;
  QLabel* trouble_ = nullptr;
  QPushButton* KVOBut_PauseJob_ = nullptr;
  QPushButton* KVOBut_RemoveJob_ = nullptr;
  QPushButton* KVOBut_UpJob_ = nullptr;
  QPushButton* KVOBut_DownJob_ = nullptr;
  QPushButton* KVOBut_FolderJob_ = nullptr;  // in the place of those two, where a movie is made
};

}  // namespace kvo
