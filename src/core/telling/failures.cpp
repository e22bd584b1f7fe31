#include "core/telling/failures.h"

#include "base/text.h"
#include "core/telling/deployment.h"

namespace kvo {
namespace {

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

Answer TimedMessageBox(MessageBoxes& boxes, Box box, double seconds) {
  box.seconds = seconds;
  return boxes.show(box);
}

}  // namespace kvo
