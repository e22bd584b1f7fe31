// What the editor asks of the clips of a collection: which are sound, whether they stand where they may, and
// which clip a row of its lists means.
#pragma once

#include "editor/tabs/editing.h"

#include <string_view>

namespace kvo {

/// True if any clip is music that can be laid under a movie.
bool CheckForAudiotrack(const Editing& e);

/// True if any clip is sound alone, also of a kind that cannot.
bool AtLeastOneAudioInCollection(const Editing& e);

/// Checks that audio clips stand at the end; true, with a warning box that names the clip, when one does not.
bool IsAudioBeforeVideo(const Editing& e);

/// The clip number at the end of a list's row: its last four characters, trimmed. 0 gives 1.
int GetIndividualClipNo(std::string_view row);

/// The same of the effect lists, whose rows end in ten characters for the number; 0 when there is none.
int GetEffectClipNo(std::string_view row);

}  // namespace kvo
