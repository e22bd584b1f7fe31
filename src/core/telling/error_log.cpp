#include "core/telling/error_log.h"

#include "base/numbers.h"
#include "base/text.h"
#include "core/telling/messages.h"

namespace kvo {

std::string dateText(const LocalTime& t) {
  return FormatMask(t.day, "00") + "-" + FormatMask(t.month, "00") + "-" + FormatMask(t.year, "0000");
}

std::string timeText(const LocalTime& t) {
  const int hour = t.hour % 12 == 0 ? 12 : t.hour % 12;
  return std::to_string(hour) + ":" + FormatMask(t.minute, "00") + ":" +
         FormatMask(static_cast<int>(t.second), "00") + (t.hour < 12 ? " AM" : " PM");
}

namespace {

// One entry: the text, the date field, the time.
std::string entryOf(std::string_view text, std::string_view date, std::string_view time) {
  return std::string(text).append(" ").append(date).append(" ").append(time).append(kCrLf);
}

}  // namespace

void ErrorLog::LogError(std::string_view text) {
  texts_.emplace_back(text);
  if (settings_.preferences().ErrorLog.empty())
    settings_.adjust().ErrorLog = folder_.beside("\\KVOError.Log");
  const auto now = clock_.now();
  const auto date = dateText(now) + "  -  ";
  const auto told = std::string(text) + " Error Logged at >>  - " + date + "\r";
  if (files_.append(settings_.preferences().ErrorLog, entryOf(told, date, timeText(now)))) return;
  // Should this fail too, there is nobody left to tell: the work that had something to say goes on.
  static_cast<void>(files_.append(folder_.beside("\\KVOERROR.LOG"), std::string(" **** W A R N I N G ****")
                                                                        .append(LoadResString(180))
                                                                        .append(LoadResString(181))
                                                                        .append(LoadResString(182))
                                                                        .append(kCrLf)));
}

void ErrorLog::trace(std::string_view text) {
  static_cast<void>(files_.append(folder_.beside("\\Trace.LOG"), entryOf(text, "", "")));
}

}  // namespace kvo
