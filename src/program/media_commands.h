// The command that adds media which the user chooses.
#pragma once

#include "ports/desktop.h"
#include "ports/file_dialogs.h"
#include "program/mailbox.h"

#include <cstddef>
#include <string>

namespace kvo {

class MediaCommands {
 public:
  struct Ports {
    FileDialogs& dialogs;
    Desktop& desktop;
  };

  MediaCommands(const Ports& ports, const KVO2& settings, MainWindowState& window, Mailbox& mailbox)
      : ports_(ports), settings_(settings), window_(window), mailbox_(mailbox) {}

  /// Asks for files and takes them, a collection among them too. The filter that was chosen last holds at
  /// first.
  void AddMedia();

 private:
  static constexpr std::size_t kAllFiles = 3;  // among the filters: clips, stills and music go in together

  Ports ports_;
  const KVO2& settings_;
  MainWindowState& window_;
  Mailbox& mailbox_;
  std::size_t LastFilterIndex_ = kAllFiles;
};

/// Where the dialog that adds media starts: the folder of the last addition, or the user's videos ahead of
/// the first.
std::string mediaFolder(const KVO2& settings, const Desktop& desktop);

}  // namespace kvo
