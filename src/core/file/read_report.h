// How a collection was read, and what of it is not there.
#pragma once

#include <string>
#include <vector>

namespace kvo {

enum class ReadEnd {
  Done,
  Cancelled,     ///< the user chose not to go on without a missing file; nothing was written
  Aborted,       ///< the user stopped the load; what came before is in the lists; nothing was written
  NotReadable,   ///< no [KVO] section could be read: the program cannot go on with this file
  NotValid,      ///< [KVO] is there and is not that of a collection
  TooManyClips,  ///< more than a collection can hold; nothing was read
};

struct ReadReport {
  ReadEnd end = ReadEnd::Done;
  std::string why{};  ///< a line for a person where the file cannot be read
  std::vector<std::string> missingFiles{};
  int removedClips = 0;             ///< of those whose file is missing
  std::vector<int> skippedClips{};  ///< numbers of clip sections without a usable name or folder
  bool damaged = false;             ///< sections were missing or out of order
  int unreadClips = 0;              ///< sections of clips that the file's count leaves out
  int unreadKeyframes = 0;
};

}  // namespace kvo
