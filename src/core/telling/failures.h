// How a failure reaches the user: the box, the log, and, where there is no going on, the end of the program.
#pragma once

#include "core/telling/error_log.h"
#include "ports/message_boxes.h"

#include <functional>
#include <string>
#include <string_view>

namespace kvo {

/// Captions begin with it.
inline constexpr std::string_view kProductName = "KVO5";

class Failures {
 public:
  /// `endProgram` is called when a fatal failure has been told; it may return, and then so does the call.
  Failures(ErrorLog& log, MessageBoxes& boxes, const KVO2& settings, std::function<void()> endProgram)
      : log_(log), boxes_(boxes), settings_(settings), endProgram_(std::move(endProgram)) {}

  /// Logs `text`, or traces it. A fatal one is then shown and ends the program.
  void LogError(std::string_view text, bool fatal = false, bool trace = false);

  /// A failure of start-up with its number: shows `text` (lines joined by CR LF) where `show` is on, and logs
  /// it with `title` and `description`.
  void ReportInitError(std::string_view text, int number, std::string_view title,
                       std::string_view description, bool show);

  /// One critical box: `prefix` ahead of `text`, captioned by the product's name and `title`.
  void ShowErrorBox(std::string_view text, std::string_view prefix, std::string_view title);

 private:
  ErrorLog& log_;
  MessageBoxes& boxes_;
  const KVO2& settings_;
  std::function<void()> endProgram_;
};

/// A box that answers itself with its default button after `seconds`, for work that may run with nobody
/// there; 0 waits for the user.
Answer TimedMessageBox(MessageBoxes& boxes, Box box, double seconds);

/// The key of a message that is shown every time.
inline constexpr std::string_view kNoShowCheck = "NOSHOWCHK";

/// The styled box of tips and warnings.
class Frm_Message {
 public:
  Frm_Message(MessageBoxes& boxes, UserStore& store) : boxes_(boxes), store_(store) {}

  /// Shows `message` with an OK button. Under any key but kNoShowCheck the user may turn it off for good.
  void ShowWarningOKOnly(std::string_view caption, std::string_view message, std::string_view key);

  /// Shows `message` with Yes and No buttons, every time.
  Answer ShowWarningBox(std::string_view caption, std::string_view message, BoxIcon icon = BoxIcon::Warning);

 private:
  MessageBoxes& boxes_;
  UserStore& store_;
};

}  // namespace kvo
