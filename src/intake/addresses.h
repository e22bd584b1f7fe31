// Whether a text that looks like an address can be one.
#pragma once

#include <string_view>

namespace kvo {

/// A kind of address that a player knows, and a server that can be one: "http://host:8000/live.asx",
/// "rtp://@239.0.0.1:5004". What stands behind the server is not looked at, but for signs that control.
bool isPlayableAddress(std::string_view address);

}  // namespace kvo
