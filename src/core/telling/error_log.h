// The error log: one entry for each failure, appended to the file that the settings name; and the trace file.
#pragma once

#include "base/paths.h"
#include "core/records/settings.h"
#include "ports/clock.h"
#include "ports/files.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// "07-03-2026"
std::string dateText(const LocalTime& time);
/// "2:05:09 PM"
std::string timeText(const LocalTime& time);

class ErrorLog {
 public:
  ErrorLog(Files& files, const Clock& clock, KVO2& settings, const ProgramFolder& folder)
      : files_(files), clock_(clock), settings_(settings), folder_(folder) {}

  /// Appends `text` with date and time. An empty log path in the settings becomes "\KVOError.Log" beside the
  /// program. A log that cannot be written is told of in "\KVOERROR.LOG" there, and nothing else happens.
  void LogError(std::string_view text);

  /// Appends `text` to "\Trace.LOG" beside the program.
  void trace(std::string_view text);

  /// The texts logged since the program began, without date and time.
  [[nodiscard]] const std::vector<std::string>& texts() const { return texts_; }

 private:
  Files& files_;
  const Clock& clock_;
  KVO2& settings_;
  const ProgramFolder& folder_;
  std::vector<std::string> texts_;
};

}  // namespace kvo
