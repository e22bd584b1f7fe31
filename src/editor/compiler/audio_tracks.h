// The audio group: the clips' own sound under their pictures, the overlay audio of the collection, and the
// checks on where audio clips stand.
#pragma once

#include "editor/compiler/compilation.h"

#include <string_view>

namespace kvo {

inline constexpr std::string_view kAudioRate = "44100";  ///< samples a second of every movie

/// Sets AudioGroupText and starts the count of envelopes.
void CreateAudioGroup(EditorState& editor, std::string_view rate);

/// Starts AudioTrackText and appends a track for each clip with a picture whose sound is wanted.
/// CreateClipLine has to run first: the sound lies where the picture lies.
void CreateAudioClipLine(const Compilation& c);

/// Appends a track for each overlay audio clip and leaves AudioTotalTime. `quiet` shows no status.
void AddOverlayAudioTracks(const Compilation& c, bool quiet);

/// The number of clips that count as audio by their Resolution text.
int GetNumAudioTracks(const Compilation& c);

/// True if any clip is music that can be laid under a movie.
bool CheckForAudiotrack(const Compilation& c);

/// True if any clip is sound alone, also of a kind that cannot.
bool AtLeastOneAudioInCollection(const Compilation& c);

/// The number of the first clip of sound that stands ahead of one with a picture, 0 when there is none.
int misplacedSound(const Compilation& c);

/// Checks that audio clips stand at the end; true, with a warning box that names the clip, when one does not.
bool IsAudioBeforeVideo(const Compilation& c);

}  // namespace kvo
