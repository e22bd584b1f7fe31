// The menus.
#pragma once

#include "program/collection_commands.h"
#include "program/media_commands.h"

#include <functional>

class QAction;
class QMainWindow;

namespace kvo {

/// Fills the menu bar of `window`. `acted` is called behind each command. Gives back the entry that adds
/// media, for other menus to offer it too.
QAction* makeMenus(QMainWindow& window, CollectionCommands& collection, MediaCommands& media,
                   const std::function<void()>& acted);

}  // namespace kvo
