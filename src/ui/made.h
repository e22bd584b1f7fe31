// Widgets, layouts and the like that a parent owns.
#pragma once

#include <memory>
#include <utility>

namespace kvo {

/// Made from `arguments`; whoever they name as parent, or it is given to, deletes it.
template <class Part, class... Arguments>
Part* made(Arguments&&... arguments) {
  return std::make_unique<Part>(std::forward<Arguments>(arguments)...).release();
}

}  // namespace kvo
