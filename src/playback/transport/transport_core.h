// What the parts of the transport work on, and the few questions that they all ask.
#pragma once

#include "core/records/collection.h"
#include "playback/buttons.h"
#include "playback/clip_kinds.h"
#include "playback/display/display.h"
#include "playback/play_timers.h"
#include "playback/transport/transport_host.h"
#include "playback/transport/transport_state.h"
#include "ports/files.h"
#include "ports/http.h"
#include "ports/network.h"
#include "ports/web_pages.h"

#include <string_view>

namespace kvo {

/// All outlive the transport.
struct TransportParts {
  TransportState& state;
  DisplayModeState& mode;
  Player& player;
  Buttons& buttons;
  Display& display;
  PlayTimers& timers;
  KVO2& settings;
  Collection& collection;
  Files& files;
  MessageBoxes& boxes;
  EventLoop& loop;
  Desktop& desktop;
  WebPages& pages;
  Network& network;
  Http& http;
  TransportHost& host;
};

struct TransportCore : TransportParts {
  explicit TransportCore(const TransportParts& parts) : TransportParts(parts) {}

  TransportGuests guests;

  /// The number of the clip in hand; 0 for none. Where nothing is selected, it first selects the first.
  [[nodiscard]] int icurMov() const;
  /// The clip in hand, null for none.
  [[nodiscard]] Movie* clip() const;
  [[nodiscard]] PlayOrder order() const;
  [[nodiscard]] bool editing() const { return settings.state.KVOIsInEditMode; }
  /// The picture covers the screen.
  [[nodiscard]] bool fullScreen() const { return mode.IsFullScreenWindow || mode.pictureAlone; }
  [[nodiscard]] bool running() const { return player.PlayerGetPlayState() == EngineState::Running; }

  /// The keys, and the flags that the word stands for: see Buttons.
  void button(KeyWord word) const { buttons.BuildButton(word); }
  /// Plays on from Mark-In, in the player's present unit.
  void toLoopStart() const;
  /// Out of sight, and empty.
  void emptyPlayer() const;
};

/// The kind of the clip's file, in capitals; see extensionOf.
std::string kindOfFile(const Movie& clip);
/// Sound alone, by its name.
bool isSoundClip(const Movie& clip);

}  // namespace kvo
