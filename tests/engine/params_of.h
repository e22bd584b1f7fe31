// Parameters as a document would give them.
#pragma once

#include "engine/document/params.h"

#include <sstream>
#include <string>

namespace kvo::engine {

/// From words like "bands=5 direction=Up".
inline Params paramsOf(const std::string& words) {
  Params params;
  std::istringstream in(words);
  for (std::string word; in >> word;) {
    const auto at = word.find('=');
    const auto value = word.substr(at + 1);
    params.add(word.substr(0, at), {value, Keyed{valueOf(value), {}}});
  }
  return params;
}

}  // namespace kvo::engine
