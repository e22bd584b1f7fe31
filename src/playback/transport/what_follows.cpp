#include "playback/transport/what_follows.h"

namespace kvo {
namespace {

constexpr double kLeastRepeated = 1.25;  // seconds of a section that repeats while the editor is open
constexpr Long kLeastRewound = 2;        // frames of a section; longer ones are rewound
constexpr double kLeastShown = 0.75;     // seconds of a last clip that is shown as paused at its start

// Behind any clip but the last.
void onWithin(const EndedClip& clip, WhatFollows& follows) {
  follows.memory = {1, false};
  if (clip.KVOIsInEditMode) {
    if (clip.sectionSeconds > kLeastRepeated) {
      follows.command = SequencerCommand::Redo;
    } else {
      follows.stop = true;
    }
    return;
  }
  if (clip.order.mnu_RewAtEnd) {
    if (clip.sectionFrames > kLeastRewound) {
      follows.command = SequencerCommand::Redo;
    } else {
      follows.delayed = true;
    }
    return;
  }
  follows.delayed = true;
  if (clip.order.mnu_Looping) {
    follows.command = SequencerCommand::Next;
    return;
  }
  follows.memory = {0, true};
  follows.select = clip.number + 1;
  follows.command = SequencerCommand::Curr;
  // A pause between the clips is shown as one; PLAYON comes with the clip then.
  if (clip.InterClipDelay <= 0) follows.buttons = {KeyWord::PlayOn};
}

void again(WhatFollows& follows) {
  follows.command = SequencerCommand::Curr;
  follows.memory.EndCount = 0;
}

void rewound(WhatFollows& follows) {
  follows.seek = EndSeek::ToStart;
  follows.buttons = {KeyWord::PauseOn};
  follows.memory.EndCount = 0;
}

// Behind the last clip of a collection that is played once.
void onToTheEnd(const EndedClip& clip, WhatFollows& follows) {
  auto& memory = follows.memory;
  ++memory.EndCount;
  const bool several = memory.EndCount >= 2;
  if (!several && (!memory.LastClipRestarted || clip.waveSpikesShown)) return;
  follows.delayed = true;
  if (several && !memory.LastClipRestarted) {
    follows.command = SequencerCommand::Curr;
    memory.LastClipRestarted = true;
    ++memory.EndCount;
    return;
  }
  if (clip.order.mnu_Looping) return again(follows);
  if (clip.order.mnu_RewAtEnd) {
    if (several || clip.duration >= kLeastShown) return rewound(follows);
    memory.EndCount = 0;
    return;
  }
  if (several) {
    follows.buttons = {KeyWord::AllOff};
  } else {
    follows.buttons = {KeyWord::PauseOn, KeyWord::PlayOff};
  }
  follows.over = true;
}

// Behind the last clip of a collection that begins again.
void onAndAround(const EndedClip& clip, WhatFollows& follows) {
  auto& memory = follows.memory;
  if (memory.EndCount > 1) {
    if (memory.EndCount == 2 && memory.LastClipRestarted) {
      follows.delayed = true;
      follows.command = SequencerCommand::Next;
      return;
    }
    // A count like this was made before the collection was told to loop, while the clip played.
    if (clip.order.mnu_Looping) return again(follows);
    if (clip.order.mnu_RewAtEnd) return rewound(follows);
    follows.seek = EndSeek::ToDuration;
    follows.buttons = {KeyWord::PlayOff};
    follows.command = SequencerCommand::Kill;
    return;
  }
  follows.delayed = true;
  if (!memory.LastClipRestarted) {
    follows.command = SequencerCommand::Curr;
    ++memory.EndCount;
    memory.LastClipRestarted = true;
    return;
  }
  follows.command = SequencerCommand::Next;
  memory = {0, false};
}

}  // namespace

WhatFollows whatFollows(const EndedClip& clip) {
  WhatFollows follows;
  follows.memory = clip.memory;
  if (clip.KVOIsInEditMode && clip.wavInControl) {
    follows.autoRewindOff = true;
  } else if (clip.markDragged) {
    return follows;
  } else if (clip.number < clip.count) {
    onWithin(clip, follows);
  } else if (clip.order.mnu_LoopCollectionsOnPlayback) {
    onAndAround(clip, follows);
  } else {
    onToTheEnd(clip, follows);
  }
  return follows;
}

int clipOfNext(int number, int count, const PlayOrder& order) {
  const bool around = order.rewinds() || (!order.mnu_Looping && order.mnu_LoopCollectionsOnPlayback);
  return around && number >= count ? 1 : number;
}

int clipThatFollows(const EndedClip& clip) {
  const auto follows = whatFollows(clip);
  const int inHand = follows.select > 0 ? follows.select : clip.number;
  switch (follows.command) {
    case SequencerCommand::Redo:
    case SequencerCommand::Curr:
      return inHand;
    case SequencerCommand::Next:
      return clipOfNext(inHand, clip.count, clip.order);
    case SequencerCommand::None:
    case SequencerCommand::Kill:
      break;
  }
  return 0;
}

}  // namespace kvo
