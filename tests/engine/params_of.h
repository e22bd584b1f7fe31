// Parameters as a document would give them.
#pragma once

#include "engine/document/params.h"

namespace kvo::engine {

/// From pairs of name and value.
template <class Values>
Params paramsOf(const Values& values) {
  Params params;
  for (const auto& [name, value] : values) params.add(name, {value, Keyed{valueOf(value), {}}});
  return params;
}

}  // namespace kvo::engine
