// Exit codes of the programs.
#pragma once

namespace kvo {

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitStopped = 130;  ///< by the user

}  // namespace kvo
