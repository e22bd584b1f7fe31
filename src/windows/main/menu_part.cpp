#include "windows/main/menu_part.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>
#include <utility>

namespace kvo {

QAction* makeMenus(QMainWindow& window, CollectionCommands& collection, MediaCommands& media,
                   const std::function<void()>& acted) {
  auto* file = window.menuBar()->addMenu(QMainWindow::tr("&File"));
  const auto add = [&](const QString& text, const QKeySequence& keys, std::function<void()> command) {
    auto* action = file->addAction(text);
    action->setShortcut(keys);
    QObject::connect(action, &QAction::triggered, [acted, command = std::move(command)] {
      command();
      acted();
    });
    return action;
  };
  add(QMainWindow::tr("&New"), QKeySequence::New, [&] { collection.New(); });
  add(QMainWindow::tr("&Open..."), QKeySequence::Open, [&] { collection.Open(); });
  add(QMainWindow::tr("&Save..."), QKeySequence::Save, [&] { collection.Save(); });
  file->addSeparator();
  auto* addMedia =
      add(QMainWindow::tr("&Add Media..."), QKeySequence(Qt::Key_Insert), [&] { media.AddMedia(); });
  file->addSeparator();
  add(QMainWindow::tr("E&xit"), QKeySequence::Quit, [&window] { window.close(); });
  return addMedia;
}

}  // namespace kvo
