// A probe of streams that a test speaks for.
#pragma once

#include "ports/stream_probe.h"

#include <functional>
#include <optional>
#include <string>

namespace kvo::test {

/// Tells what it was given, and nothing by itself.
class ScriptedProbe : public StreamProbe {
 public:
  std::optional<std::string> told;
  int asked = 0;
  std::function<void()> meanwhile = [] {};
  std::optional<std::string> report(const std::string& /*path*/, int /*tries*/) override {
    ++asked;
    meanwhile();
    return told;
  }
};

}  // namespace kvo::test
