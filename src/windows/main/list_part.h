// The clip list on its plate, with its caption and the five keys beside it.
#pragma once

#include "program/list_commands.h"
#include "program/list_pictures.h"
#include "program/mailbox.h"
#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <QPixmap>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QMimeData;

namespace kvo {

class CoolListView;
class KVOBut;

class ListPart : public Plate {
  Q_DECLARE_TR_FUNCTIONS(kvo::ListPart)

 public:
  struct Logic {
    ListCommands& commands;
    ListPictures& pictures;
    Mailbox& mailbox;
    std::function<void()> addMedia;
    /// Opens the menu of sort keys with its corner at that place of the screen.
    std::function<void(const QPoint& at)> sortMenu;
    /// Opens the list's menu there.
    std::function<void(const QPoint& at)> listMenu;
    /// What a letter, digit or blank does; false for nothing.
    std::function<bool(const QString& typed)> key;
    std::function<void()> play;   ///< the clip in hand
    std::function<void()> acted;  ///< behind each act
  };

  /// `folder` has the pictures of the keys: "/prog/Buttons/".
  ListPart(ClipListState& state, const ListKeysState& keys, Logic logic, const std::string& folder,
           QWidget* parent);

  void layOut(const FaceScale& scale);
  /// `colour` is that of the names.
  void draw(Rgb colour);

  [[nodiscard]] CoolListView& list() const { return *list_; }
  [[nodiscard]] std::vector<QWidget*> tabOrder() const;

 private:
  void setLook();
  [[nodiscard]] QPixmap rowPicture(int index);
  void listen();
  void fill();
  void showChosen();
  void tellChoice();
  void openMenu(const QPoint& at);
  void dropRows(const QMimeData& carried, int before);

  ClipListState& state_;
  const ListKeysState& keysState_;
  Logic logic_;
  std::string folder_;
  FaceScale scale_;
  Rgb colour_ = token("detail");
  FaceLabel* caption_;
  CoolListView* list_;
  std::array<KVOBut*, 5> keys_{};
  std::uint64_t shownRevision_ = 0;
  std::uint64_t shownPictures_ = 0;
  std::map<Sketches::Picture, QPixmap> drawnPictures_;  // of rows that have been seen
  std::optional<std::vector<int>> shownChosen_;         // while the list shows just these
  bool drawing_ = false;  // what the list tells now is nothing that the user did
};

}  // namespace kvo
