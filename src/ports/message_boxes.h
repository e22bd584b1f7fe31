// The port to the boxes a user answers. With no display the adapter prints the box on standard error and
// gives the default answer.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

enum class Answer { Ok, Cancel, Yes, No };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class BoxIcon { Information, Question, Warning, Critical, Done };

struct Box {
  std::string caption;
  std::string text;  ///< lines joined by CR LF
  BoxButtons buttons = BoxButtons::Ok;
  BoxIcon icon = BoxIcon::Information;
  /// Other captions for buttons: "Yes" to "Replace".
  std::vector<std::pair<std::string, std::string>> renamed{};
  /// The box, which tells how long that still is, answers itself with its default button after so many
  /// seconds; 0 waits for the user.
  double seconds = 0;
  bool isRisky = false;  ///< Enter presses the last button, the harmless one, and not the first
  /// Whether what is asked still is: once it says no, the box goes with its harmless answer. Empty for
  /// always.
  std::function<bool()> stands{};
};

/// The button that Enter presses: Ok or Yes.
constexpr Answer defaultAnswer(BoxButtons buttons) {
  return buttons == BoxButtons::YesNo || buttons == BoxButtons::YesNoCancel ? Answer::Yes : Answer::Ok;
}

/// The program's own box for tips and warnings.
struct StyledBox {
  std::string caption;
  std::string message;  ///< lines joined by CR LF
  std::string prompt;   ///< beside the buttons
  bool yesAndNo = false;
  bool offersNeverAgain = false;  ///< has a check box for never showing the message again
  BoxIcon icon = BoxIcon::Warning;
};

struct StyledAnswer {
  Answer answer = Answer::Ok;
  bool neverAgain = false;
};

class MessageBoxes {
 public:
  MessageBoxes() = default;
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;
  virtual ~MessageBoxes() = default;

  virtual Answer show(const Box& box) = 0;
  virtual StyledAnswer showStyled(const StyledBox& box) = 0;
};

}  // namespace kvo
