// What a clip is for the timeline, by its name and record.
#pragma once

#include "editor/compiler/compilation.h"

#include <string>
#include <string_view>

namespace kvo {

inline std::string clipFile(const Movie& clip) { return clip.Path() + clip.MovieName(); }

/// A clip of sound alone, which has no place in the video group.
bool isSound(const Compilation& c, const Movie& clip);

/// The same, of a kind that can be laid under a movie.
bool isMusic(const Compilation& c, const Movie& clip);

/// "CUT" in any case, or empty: no transition leads into the clip.
bool isCut(std::string_view transType);

/// The clip number at the end of a list's row: its last four characters, trimmed. 0 gives 1.
int GetIndividualClipNo(std::string_view row);

/// The same of the effect lists, whose rows end in ten characters for the number; 0 when there is none.
int GetEffectClipNo(std::string_view row);

/// The stretchmode attribute of a still, spelled as readers of a document know it.
std::string_view stretchModeText(Integer mode);

}  // namespace kvo
