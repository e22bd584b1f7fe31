// Which of the two engines a clip is played by, as a function of its name, its record and the settings.
#pragma once

#include "playback/player.h"

#include <functional>
#include <string>
#include <string_view>

namespace kvo {

/// The word that this system goes by where routing asks for the operating system.
inline constexpr std::string_view kSystemWord = "Linux";

struct RoutingFacts {
  std::string_view system;  ///< "NT4", "NT3", "95" and "98" have no graphs
  std::string_view path;    ///< full path, or an address
  bool IsCorona = false;    ///< of the record: an AVI goes by a graph
  bool MPEGRoutingVMR = false;
};

struct Routing {
  EngineRoute route = EngineRoute::NotForced;
  std::string codecWord;  ///< "WMV9", "MPEG", "DVD", "NOTCORONA"; empty where nothing had to be known
  bool corona = false;    ///< a graph is to be tried first
  bool operator==(const Routing&) const = default;
};

/// `videoCodec` gives the probe's word for the picture of the file, or an empty one. It is called at most
/// once, and only where the word decides.
Routing routeOf(const RoutingFacts& facts, const std::function<std::string()>& videoCodec);

/// Sound that never has a picture on a graph, by its name.
bool isSoundOfGraph(std::string_view path);

}  // namespace kvo
