#include "playback/transport/what_follows.h"

#include "support/golden.h"
#include "support/rows.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Rows;

constexpr PlayOrder kAround{.mnu_LoopCollectionsOnPlayback = true};
constexpr PlayOrder kRewind{.mnu_RewAtEnd = true};
constexpr PlayOrder kRewindAround{.mnu_RewAtEnd = true, .mnu_LoopCollectionsOnPlayback = true};
constexpr PlayOrder kLoopAround{.mnu_Looping = true, .mnu_LoopCollectionsOnPlayback = true};

EndedClip ended(int number, int count, const PlayOrder& order = {}, const EndMemory& memory = {}) {
  return {.number = number,
          .count = count,
          .order = order,
          .memory = memory,
          .sectionSeconds = 10,
          .sectionFrames = 250,
          .duration = 10};
}

// "2C": behind clip 2 comes CURR; "-" nothing, "s" the start is shown, "d" the end, "!" the show is over.
std::string told(int number, const WhatFollows& follows) {
  auto line = std::to_string(number) + "-RCNK"[static_cast<int>(follows.command)];
  if (follows.seek != EndSeek::None) line += follows.seek == EndSeek::ToStart ? 's' : 'd';
  return follows.over ? line + "! " : line + " ";
}

// Seven ends in a row; a clip that nothing follows is played again by hand.
std::string walk(int from, int count, const PlayOrder& order, int delay) {
  std::string line;
  EndMemory memory;
  int number = from;
  for (int i = 0; i < 7; ++i) {
    auto clip = ended(number, count, order, memory);
    clip.InterClipDelay = delay;
    const auto follows = whatFollows(clip);
    line += told(number, follows);
    memory = follows.memory;
    if (const int next = clipThatFollows(clip); next > 0) number = next;
  }
  return line;
}

// The last clip, come to by hand, is not left out of a loop.
TEST(WhatFollows, CollectionsWalkByTheirTicks) {
  std::string walks;
  for (const auto& [from, count] : {std::pair{1, 1}, {1, 2}, {1, 5}, {4, 5}, {5, 5}}) {
    for (int ticks = 0; ticks < 8; ++ticks) {
      const PlayOrder order{(ticks & 4) != 0, (ticks & 2) != 0, (ticks & 1) != 0};
      auto name = std::to_string(from) + " of " + std::to_string(count);
      if (order.mnu_Looping) name += " loop";
      if (order.mnu_RewAtEnd) name += " rewind";
      if (order.mnu_LoopCollectionsOnPlayback) name += " around";
      const auto path = walk(from, count, order, 0);
      for (const int delay : {3, 20}) EXPECT_EQ(walk(from, count, order, delay), path) << name << delay;
      walks += name + ": " + path + "\n";
    }
  }
  test::expectGolden("what-follows.txt", walks);
}

TEST(WhatFollows, EdgesOfItsTable) {
  using enum SequencerCommand;
  const auto with = [](EndedClip clip, auto change) {
    change(clip);
    return clip;
  };
  const EndedClip two = ended(1, 2);
  const EndedClip rewinds = ended(1, 2, kRewind);
  for (const auto& [what, clip, expected] : Rows<const char*, EndedClip, WhatFollows>{
           {"plain", two, {Curr, {0, true}, true, 2, EndSeek::None, {KeyWord::PlayOn}}},
           {"a pause is shown as one",
            with(two, [](auto& c) { c.InterClipDelay = 20; }),
            {Curr, {0, true}, true, 2}},
           {"mark held", with(two, [](auto& c) { c.markDragged = true; }), {}},
           {"editor, wave",
            with(two, [](auto& c) { c.KVOIsInEditMode = c.wavInControl = true; }),
            {.autoRewindOff = true}},
           {"editor", with(two, [](auto& c) { c.KVOIsInEditMode = true; }), {Redo, {1, false}}},
           {"editor, 1.25 s",
            with(two, [](auto& c) { c.KVOIsInEditMode = true, c.sectionSeconds = 1.25; }),
            {.memory = {1, false}, .stop = true}},
           {"rewind, 3 frames", with(rewinds, [](auto& c) { c.sectionFrames = 3; }), {Redo, {1, false}}},
           {"rewind, 2 frames",
            with(rewinds, [](auto& c) { c.sectionFrames = 2; }),
            {.memory = {1, false}, .delayed = true}},
           {"one clip, once", ended(1, 1), {.memory = {1, false}}},
           {"waves",
            with(ended(2, 2, {}, {0, true}), [](auto& c) { c.waveSpikesShown = true; }),
            {.memory = {1, true}}},
           {"last, by itself",
            ended(2, 2, {}, {0, true}),
            {.memory = {1, true},
            .delayed = true,
            .buttons = {KeyWord::PauseOn, KeyWord::PlayOff},
            .over = true}},
           {"last, again",
            ended(2, 2, {}, {1, true}),
            {.memory = {2, true}, .delayed = true, .buttons = {KeyWord::AllOff}, .over = true}},
           {"rewound",
            ended(2, 2, kRewind, {0, true}),
            {.memory = {0, true}, .delayed = true, .seek = EndSeek::ToStart, .buttons = {KeyWord::PauseOn}}},
           {"too short to be rewound",
            with(ended(2, 2, kRewind, {0, true}), [](auto& c) { c.duration = 0.74; }),
            {.memory = {0, true}, .delayed = true}},
           {"around, started by hand", ended(2, 2, kAround, {1, false}), {Curr, {2, true}, true}},
           {"around, behind that", ended(2, 2, kAround, {2, true}), {Next, {2, true}, true}},
           // The menus were changed while the clip played.
           {"around since now",
            ended(2, 2, kAround, {3, true}),
            {Kill, {3, true}, false, 0, EndSeek::ToDuration, {KeyWord::PlayOff}}},
           {"around since now, loops", ended(2, 2, kLoopAround, {3, true}), {Curr, {0, true}}},
           {"around since now, rewinds",
            ended(2, 2, kRewindAround, {3, true}),
            {SequencerCommand::None, {0, true}, false, 0, EndSeek::ToStart, {KeyWord::PauseOn}}}}) {
    EXPECT_EQ(whatFollows(clip), expected) << what;
  }
}

}  // namespace
}  // namespace kvo
