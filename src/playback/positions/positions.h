// All that has to do with places in the clip in hand, as one.
#pragma once

#include "playback/positions/key_command.h"
#include "playback/positions/markers.h"
#include "playback/positions/marks.h"
#include "playback/positions/positioner.h"

#include <utility>

namespace kvo {

class Positions {
 public:
  /// What the parts name outlives it.
  explicit Positions(const PositionParts& parts, PositionDoors doors = {}) : core(parts, std::move(doors)) {}
  Positions(const Positions&) = delete;
  Positions& operator=(const Positions&) = delete;
  ~Positions() = default;

  /// A file has been loaded into the player, its section told: levels, rate, handles, index.
  void loaded();
  /// The record of the clip in hand has other values, by whatever road: the player takes them over.
  void takeRecord();
  /// A new end of the section: what plays stops there. For RecordListener::endOfPlayMoved.
  void endOfPlayMoved(const Movie& clip);
  /// What lies over the picture closes, and what the shuttle drives ends, ahead of another clip.
  void closeDisplays();

  PositionsCore core;
  Marks marks{core};
  Stepping stepping{core};
  Rate rate{core};
  Levels levels{core};
  Markers markers{core};
  Positioner positioner{core, marks, stepping};
  RemoteCommands remote{core, stepping, rate, levels};
  Shuttle shuttle{{core, marks, stepping, rate, remote, positioner}};
  KeyCommands keys{core, remote, shuttle};
};

}  // namespace kvo
