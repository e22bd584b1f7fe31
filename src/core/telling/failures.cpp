#include "core/telling/failures.h"

#include "base/text.h"
#include "core/telling/deployment.h"

namespace kvo {
namespace {

constexpr std::string_view kOkPrompt = "Click OK to continue";

std::string_view supportLine(const KVO2& settings) {
  return settings.preferences().Support.empty() ? kSupportLine
                                                : std::string_view(settings.preferences().Support);
}

}  // namespace

void Failures::LogError(std::string_view text, bool fatal, bool trace) {
  if (trace) {
    log_.trace(text);
  } else {
    log_.LogError(text);
  }
  if (!fatal) return;
  boxes_.show({"KVO Fatal Error",
               std::string("An Error has occured - KVO is terminating. ")
                   .append(kCrLf)
                   .append(text)
                   .append(kCrLf)
                   .append(supportLine(settings_)),
               BoxButtons::Ok, BoxIcon::Critical});
  endProgram_();
}

void Failures::ReportInitError(std::string_view text, int number, std::string_view title,
                               std::string_view description, bool show) {
  const auto numberText = std::to_string(number);
  if (show) {
    boxes_.show({"Kavio V5",
                 std::string(text)
                     .append(kCrLf)
                     .append(supportLine(settings_))
                     .append(" with Initialisation Error ")
                     .append(numberText)
                     .append(kCrLf)
                     .append("as the subject header."),
                 BoxButtons::Ok, BoxIcon::Critical});
  }
  LogError("<<ERR" + numberText + ">> - " +
           replaced(text, kCrLf, "").append(" ").append(title).append(" ").append(description));
}

void Failures::ShowErrorBox(std::string_view text, std::string_view prefix, std::string_view title) {
  boxes_.show({std::string(kProductName).append(title), std::string(prefix).append(text), BoxButtons::Ok,
               BoxIcon::Critical});
}

Answer TimedMessageBox(MessageBoxes& boxes, Box box, double seconds) {
  box.seconds = seconds;
  return boxes.show(box);
}

void Frm_Message::ShowWarningOKOnly(std::string_view caption, std::string_view message,
                                    std::string_view key) {
  const auto name = "NoShow-" + std::string(key);
  const bool everyTime = key == kNoShowCheck;
  if (!everyTime && sameText(store_.read(name), "True")) return;
  const auto answer = boxes_.showStyled(
      {std::string(caption), std::string(message), std::string(kOkPrompt), false, !everyTime});
  if (answer.neverAgain) store_.write(name, "True");
}

Answer Frm_Message::ShowWarningBox(std::string_view caption, std::string_view message, BoxIcon icon) {
  return boxes_
      .showStyled({std::string(caption), std::string(message), std::string(kOkPrompt), true, false, icon})
      .answer;
}

}  // namespace kvo
