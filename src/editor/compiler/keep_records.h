// Compiling is no change of the user's: what it writes into records leaves no mark that says so.
#pragma once

#include "editor/compiler/compilation.h"

#include <vector>

namespace kvo {

/// Puts the change code and every dirty flag back as they were when it ends. The list of clips stays the same
/// meanwhile.
class KeepRecords {
 public:
  explicit KeepRecords(const Compilation& c);
  KeepRecords(const KeepRecords&) = delete;
  KeepRecords& operator=(const KeepRecords&) = delete;
  ~KeepRecords();

 private:
  const Compilation& c_;
  Integer change_;
  bool settings_;
  std::vector<bool> clips_;
};

/// Gives a still without a length the default one, from 0 on; another clip is left alone. The change code
/// stays.
void giveStillLength(const Compilation& c, Movie& clip);

/// The same for all clips.
void giveStillsLength(const Compilation& c);

}  // namespace kvo
