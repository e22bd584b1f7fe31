// The program with an engine that halts in the middle of its work and waits to be killed: what is cut off is
// cut off at the same place on every machine.
#pragma once

#include "support/real_world.h"

namespace kvo::test {

class HeldEngine {
 public:
  /// `programs` is the folder of the real ones.
  explicit HeldEngine(const std::string& programs);

  /// The kvo5 whose engine it is.
  [[nodiscard]] std::string kvo5() const { return folder_ / "bin/kvo5"; }

  /// The next engine that begins makes `share` of its segments, as "1/3", and halts then; without one, and
  /// where its starter has given it a share, it halts ahead of its work. All others do theirs.
  void haltNext(const std::string& share) const;

  /// Waits until it halts: its process.
  [[nodiscard]] int halted() const;

 private:
  ScratchFolder folder_;
};

}  // namespace kvo::test
