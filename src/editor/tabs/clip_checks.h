// What the editor asks of the clips of a collection: whether they stand where they may, and which clip a row
// of its lists means.
#pragma once

#include "editor/tabs/editing.h"

#include <string>
#include <string_view>

namespace kvo {

/// Checks that audio clips stand at the end; true, with a warning box that names the clip, when one does not.
bool IsAudioBeforeVideo(const Editing& e);

/// The clip that the music begins with, behind all that has a picture; 0 without any.
int firstSound(const Collection& collection);

/// What is told of a clip whose file is gone.
std::string missingText(const std::string& name);

/// The clip number at the end of a list's row, behind its last blank. 0 gives 1.
int GetIndividualClipNo(std::string_view row);

}  // namespace kvo
