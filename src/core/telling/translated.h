// Texts that are composed, in the user's language. A text that is whole stands in the state as it is in the
// source, and the window that draws it translates it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace kvo {

/// `pattern` in the user's language with `parts` in the places of "%1", "%2" and so on.
std::string translated(const char* pattern, std::initializer_list<std::string_view> parts = {});

}  // namespace kvo
