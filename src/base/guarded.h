// The border behind which nothing is thrown: what our libraries and the memory throw ends here as an error.
#pragma once

#include "base/result.h"

#include <exception>
#include <new>
#include <string>

namespace kvo {

/// What was thrown, as one line.
inline Error errorOf(const std::exception& thrown) {
  if (dynamic_cast<const std::bad_alloc*>(&thrown) != nullptr) return {"out of memory"};
  std::string text = thrown.what();
  while (!text.empty() && text.back() == '\n') text.pop_back();
  for (auto& c : text) c = c == '\n' ? ' ' : c;
  return {text};
}

/// The result of `work`, a function that gives back a Result or an Outcome; an error where it throws.
template <class Work>
auto guarded(const Work& work) -> decltype(work()) {
  try {
    return work();
  } catch (const std::exception& thrown) {
    return errorOf(thrown);
  }
}

}  // namespace kvo
