// The section of the clip in hand, from Mark-In to Mark-Out, as the player is told of it.
#pragma once

#include "core/records/collection.h"
#include "playback/in_seconds.h"

namespace kvo {

/// The clip that the list selects; null for none.
Movie* clipInHand(Collection& collection);
const Movie* clipInHand(const Collection& collection);

/// Pictures a second on the average: DurationFrames / DurationTime. 0 when the record does not know them.
double framesPerSecond(const Movie& clip);

/// What the player shows, and its number.
SeenFrame seenFrame(Player& player);

class Section {
 public:
  Section(Player& player, Collection& collection) : player_(player), collection_(collection) {}

  /// Tells the player of the marks of the clip in hand, and goes to Mark-In; with `keepPosition` it stays
  /// where it is. Marks that lie outside the clip are corrected in its record, which counts as no change of
  /// the user's. Nothing happens without a clip that has a length.
  void SectionToPlay(bool keepPosition);

 private:
  void correct(Movie& clip, double duration);

  Player& player_;
  Collection& collection_;
};

}  // namespace kvo
