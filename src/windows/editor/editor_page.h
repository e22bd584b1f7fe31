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

/// What a part gets of the room that its page has beyond its own size, or too little, in hundredths.
struct Share {
  int right = 0;  ///< that it moves
  int down = 0;
  int wider = 0;
  int taller = 0;
};

class EditorPage : public QFrame {
 public:
  static constexpr QSize kSize{440, 448};  ///< pixels at size 1
  static constexpr int kLeastHeight = 398;
  /// Pixels at size 1 from the left of a box or an option to its mark, where the ring of the focus has room.
  static constexpr int kMarkRoom = 4;

  /// `role` is that of the frame in the sheet.
  explicit EditorPage(QWidget* parent, QSize size = kSize, const char* role = "card");

  /// A page that takes the room that there is, and scrolls up and down where it is less than it needs. Owned
  /// by `parent`. Down to `least`, in pixels at size 1, its parts are squeezed instead.
  static QScrollArea* scrolled(EditorPage* page, const QString& name, QWidget* parent,
                               QSize least = {kSize.width(), kLeastHeight});

 protected:
  /// Places a part of the page, or puts it elsewhere; it moves with the sizes of interface and page.
  template <class Part>
  Part* put(Part* part, const QRect& place, const Share& share = {}) {
    remember(part, place, share);
    return part;
  }
  /// A heading or another text that stands still; `role` as the sheet has it.
  QLabel* write(const QString& text, const char* role, const QRect& place, const Share& share = {});

  /// Its height may be so many times its own, by the room of its column, its width so many or more.
  void mayBe(double least, double most, double leastWide = 1);

  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  [[nodiscard]] QSize sizeHint() const override;

 private:
  struct Placed {
    QWidget* part;
    QRect place;
    Share share;
  };
  void remember(QWidget* part, const QRect& place, const Share& share);
  void layOut();
  void lay(const Placed& placed) const;

  QSize size_;
  double least_ = 1;  // times its own height
  double leastWide_ = 1;
  double most_ = 1;
  std::vector<Placed> places_;
  QTimer again_;  // lays it out once more
};

/// A page whose controls write what they mean into the collection.
class TabPage : public EditorPage {
 protected:
  TabPage(QWidget* parent, PageLogic logic, QSize size = kSize, const char* role = "card")
      : EditorPage(parent, size, role), logic_(std::move(logic)) {}

  /// Does what the user has asked for, and tells of it.
  void act(const std::function<void()>& work) const {
    work();
    logic_.acted();
  }

  PageLogic logic_;
};

/// Sets a text or a tip only where it differs: what has not changed is not painted.
void setTextOf(QLabel& label, const QString& text);
void setTextOf(QAbstractButton& button, const QString& text);
void setTipOf(QWidget& widget, const QString& tip);

/// What a label says is wrong, or is not any more.
void markBad(QLabel& label, bool isBad);

}  // namespace kvo
