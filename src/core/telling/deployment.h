// What differs from one deployment of the program to the next.
#pragma once

#include <string>
#include <string_view>

namespace kvo {

inline constexpr int kMajor = 5;
inline constexpr int kMinor = 0;
inline constexpr int kRevision = 1;

/// The short name of the system's version that the program reports: every effect and transition is on.
inline constexpr std::string_view kSystemTag = "XP";

inline constexpr std::string_view kSupportLine = "Please mail support@kvo5.example if you need help.";
inline constexpr std::string_view kContactAddress = "support@kvo5.example";
inline constexpr std::string_view kReleasePage = "https://kvo5.example/releases";

/// "Ver 5.0 - Rev - 1"
inline std::string programVersionText() {
  return "Ver " + std::to_string(kMajor) + "." + std::to_string(kMinor) + " - Rev - " +
         std::to_string(kRevision);
}

}  // namespace kvo
