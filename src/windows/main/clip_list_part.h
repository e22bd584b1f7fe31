// The clip list with its caption.
#pragma once

#include "program/list_commands.h"

#include <QAbstractListModel>
#include <QWidget>
#include <cstdint>
#include <functional>

class QLabel;
class QListView;

namespace kvo {

class ClipListPart : public QWidget {
 public:
  /// `acted` is called behind each choice that the user has made.
  ClipListPart(const ClipListState& state, ListCommands& commands, std::function<void()> acted,
               QWidget* parent);

  void draw();
  /// Where the keyboard goes.
  [[nodiscard]] QListView* list() const { return list_; }

 private:
  // Reads the names where they stand. The view sees as many as there were when they were shown last.
  class Names : public QAbstractListModel {
   public:
    Names(const RevisedList<ClipRow>& list, QObject* parent) : QAbstractListModel(parent), list_(list) {}
    void showAnew();
    [[nodiscard]] int rowCount(const QModelIndex& above) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

   private:
    const RevisedList<ClipRow>& list_;
    int count_ = 0;
  };

  const ClipListState& state_;
  ListCommands& commands_;
  std::function<void()> acted_;
  QLabel* caption_;
  QListView* list_;
  Names* names_;
  std::uint64_t shownRevision_ = 0;
};

}  // namespace kvo
