// The commands that add what the user chooses or types.
#pragma once

#include "ports/desktop.h"
#include "ports/file_dialogs.h"
#include "ports/text_questions.h"
#include "program/mailbox.h"

#include <cstddef>
#include <string>

namespace kvo {

class MediaCommands {
 public:
  struct Ports {
    FileDialogs& dialogs;
    Desktop& desktop;
    TextQuestions& questions;
    MessageBoxes& boxes;
  };

  MediaCommands(const Ports& ports, const KVO2& settings, MainWindowState& window, Mailbox& mailbox)
      : ports_(ports), settings_(settings), window_(window), mailbox_(mailbox) {}

  /// Asks for files and takes them, a collection among them too. The filter that was chosen last holds at
  /// first.
  void AddMedia();

  /// Asks for an address and adds it as a page.
  void AddWebPage();

  /// Asks for an address and adds it as a stream. Users of less than 30 starts are told what to type.
  void ViewStream();

 private:
  void takeTyped(int title, int prompt, const AddManner& manner);

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
