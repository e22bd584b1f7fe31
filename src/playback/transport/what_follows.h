// What follows a clip that has ended, as one function from data to data: the next clip, the same one again, a
// rewind, or the end. Whoever asks carries it out.
#pragma once

#include "core/records/field_types.h"
#include "playback/key_words.h"

#include <vector>

namespace kvo {

/// What is put off until the engine's own event has been left, and the pause between two clips is over.
enum class SequencerCommand {
  None,
  Redo,  ///< the same clip, as it is loaded, from its Mark-In
  Curr,  ///< the clip in hand is loaded and plays
  Next,  ///< the clip that clipOfNext tells
  Kill,  ///< nothing more
};

/// What is remembered of the last clip of the list from one end to the next.
struct EndMemory {
  Integer EndCount = 0;
  bool LastClipRestarted = false;
  bool operator==(const EndMemory&) const = default;
};

/// The ticks that say what follows.
struct PlayOrder {
  bool mnu_Looping = false;
  bool mnu_RewAtEnd = false;  ///< ticked; it counts for nothing while clips loop, but here
  bool mnu_LoopCollectionsOnPlayback = false;

  /// The tick of mnu_RewAtEnd can be chosen exactly while clips do not loop.
  [[nodiscard]] bool rewinds() const { return mnu_RewAtEnd && !mnu_Looping; }
};

struct EndedClip {
  int number = 0;  ///< of the clip in hand, from 1
  int count = 0;   ///< of clips in the list
  PlayOrder order{};
  EndMemory memory{};
  int InterClipDelay = 0;        ///< seconds
  double sectionSeconds = 0;     ///< from Mark-In to Mark-Out
  Long sectionFrames = 0;        ///< likewise
  double duration = 0;           ///< of the whole clip, seconds
  bool KVOIsInEditMode = false;  ///< the editor is open
  bool wavInControl = false;     ///< a "WAV" file is in the player
  bool markDragged = false;      ///< a mark is held
  bool waveSpikesShown = false;
};

enum class EndSeek { None, ToStart, ToDuration };

struct WhatFollows {
  SequencerCommand command = SequencerCommand::None;  ///< None leaves what there is
  EndMemory memory{};
  bool delayed = false;  ///< the sequencer is armed anew, by DelayedTimerStart
  int select = 0;        ///< the list goes on to this clip, which is not loaded yet; 0 stays
  EndSeek seek = EndSeek::None;
  std::vector<KeyWord> buttons{};  ///< words for the keys, in order
  bool autoRewindOff = false;
  bool stop = false;  ///< PlayerStop
  bool over = false;  ///< the show is: nothing plays any more
  bool operator==(const WhatFollows&) const = default;
};

WhatFollows whatFollows(const EndedClip& clip);

/// The clip that NEXT loads. Behind the last one of a collection that loops it is the first, and behind one
/// that has been rewound too; else it is the clip in hand.
int clipOfNext(int number, int count, const PlayOrder& order);

/// The clip that will be wanted when `clip` has ended as things are now; 0 for none.
int clipThatFollows(const EndedClip& clip);

}  // namespace kvo
