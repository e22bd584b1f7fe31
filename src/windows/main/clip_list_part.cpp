#include "windows/main/clip_list_part.h"

#include "windows/main/widgets.h"

#include <QLabel>
#include <QListView>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

namespace kvo {

void ClipListPart::Names::showAnew() {
  beginResetModel();
  count_ = static_cast<int>(list_.rows().size());
  endResetModel();
}

int ClipListPart::Names::rowCount(const QModelIndex& above) const { return above.isValid() ? 0 : count_; }

QVariant ClipListPart::Names::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (role != Qt::DisplayRole || row >= list_.rows().size()) return {};
  return shown(list_.rows()[row].name);
}

ClipListPart::ClipListPart(const ClipListState& state, ListCommands& commands, std::function<void()> acted,
                           QWidget* parent)
    : QWidget(parent),
      state_(state),
      commands_(commands),
      acted_(std::move(acted)),
      caption_(made<QLabel>(this)),
      list_(made<QListView>(this)),
      names_(made<Names>(std::cref(state.Fillist), this)) {
  auto font = caption_->font();
  font.setBold(true);
  caption_->setFont(font);
  caption_->setTextFormat(Qt::PlainText);
  caption_->setBuddy(list_);
  list_->setModel(names_);
  list_->setStyleSheet("QListView::item { padding: 3px; }");
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setUniformItemSizes(true);
  list_->setAlternatingRowColors(true);
  list_->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, [this](const QModelIndex& row) {
    if (!row.isValid() || row.row() == state_.ListIndex) return;
    commands_.select(row.row() + 1);
    acted_();
  });
  auto* column = made<QVBoxLayout>(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(caption_);
  column->addWidget(list_);
}

void ClipListPart::draw() {
  caption_->setText(shown(state_.caption));
  if (std::exchange(shownRevision_, state_.Fillist.revision()) != state_.Fillist.revision()) {
    const QSignalBlocker quiet(list_->selectionModel());
    names_->showAnew();
  }
  const auto row = names_->index(state_.ListIndex);
  if (row.isValid() && list_->currentIndex() != row) list_->setCurrentIndex(row);
}

}  // namespace kvo
