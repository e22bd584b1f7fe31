#include "core/error_log.h"

#include "base/numbers.h"
#include "base/text.h"

namespace kvo {
namespace {

std::string dateText(const LocalTime& t) {
  return FormatMask(t.day, "00") + "-" + FormatMask(t.month, "00") + "-" + FormatMask(t.year, "0000");
}

std::string timeText(const LocalTime& t) {
  const int hour = t.hour % 12 == 0 ? 12 : t.hour % 12;
  return std::to_string(hour) + ":" + FormatMask(t.minute, "00") + ":" +
         FormatMask(static_cast<int>(t.second), "00") + (t.hour < 12 ? " AM" : " PM");
}

}  // namespace

void ErrorLog::LogError(std::string_view text) {
  texts_.emplace_back(text);
  if (settings_.ErrorLog().empty()) settings_.ErrorLog(folder_.beside("\\KVOError.Log"));
  const auto now = clock_.now();
  const auto date = dateText(now) + "  -  ";
  std::string entry(text);
  entry.append(" Error Logged at >> ").append(" - ").append(date).append("\r");
  entry.append(" ").append(date).append(" ").append(timeText(now)).append(kCrLf);
  // A log that cannot be written must not stop the work that had something to say.
  static_cast<void>(files_.append(settings_.ErrorLog(), entry));
}

}  // namespace kvo
