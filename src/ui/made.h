// Widgets, layouts and the like that a parent owns.
#pragma once

#include <utility>

namespace kvo {

/// Made from `arguments`; whoever they name as parent, or it is given to, deletes it.
template <class Part, class... Arguments>
Part* made(Arguments&&... arguments) {
  return new Part(std::forward<Arguments>(arguments)...);  // NOLINT(cppcoreguidelines-owning-memory)
}

}  // namespace kvo
