// What the pages of the editor have in common: a card on which everything has its place in pixels at size 1.
#pragma once

#include "editor/tabs/tab_host.h"

#include <QFrame>
#include <QRect>
#include <QTimer>
#include <functional>
#include <utility>
#include <vector>

class QAbstractButton;
class QLabel;
class QScrollArea;

namespace kvo {

struct Editing;

/// What a page asks when the user acts on it.
struct PageLogic {
  const Editing& editing;
  TabHost& host;
  std::function<void()> acted;  ///< behind each act
};

class EditorPage : public QFrame {
 public:
  static constexpr QSize kSize{440, 448};  ///< pixels at size 1
  /// Pixels at size 1 from the left of a box or an option to its mark, where the ring of the focus has room.
  static constexpr int kMarkRoom = 4;

  /// `role` is that of the frame in the sheet.
  explicit EditorPage(QWidget* parent, QSize size = kSize, const char* role = "card");

  /// A page where it has less room than it needs: it scrolls up and down. Owned by `parent`.
  static QScrollArea* scrolled(EditorPage* page, const QString& name, QWidget* parent);

 protected:
  /// Places a part of the page, or puts it elsewhere; it moves with the size of the interface.
  template <class Part>
  Part* put(Part* part, const QRect& place) {
    remember(part, place);
    return part;
  }
  /// A heading or another text that stands still; `role` as the sheet has it.
  QLabel* write(const QString& text, const char* role, const QRect& place);

  void changeEvent(QEvent* event) override;

 private:
  void remember(QWidget* part, const QRect& place);
  void layOut();

  QSize size_;
  std::vector<std::pair<QWidget*, QRect>> places_;
  QTimer again_;  // lays it out once more
};

/// Sets a text or a tip only where it differs: what has not changed is not painted.
void setTextOf(QLabel& label, const QString& text);
void setTextOf(QAbstractButton& button, const QString& text);
void setTipOf(QWidget& widget, const QString& tip);

/// What a label says is wrong, or is not any more.
void markBad(QLabel& label, bool isBad);

}  // namespace kvo
