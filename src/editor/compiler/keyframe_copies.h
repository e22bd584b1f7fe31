// What becomes of a clip's keyframes where another clip is made of it: effects look there as they did before.
#pragma once

#include "editor/compiler/keyframes.h"

#include <vector>

namespace kvo {

/// The keyframes for `copy`, a copy of `clip` with a KeyID of its own: the same where both begin at one
/// place, else those behind the copy's Mark-In, with one there that has what each effect has come to.
std::vector<Keyframe> keyframesOfCopy(const Collection& collection, const Movie& clip, const Movie& copy,
                                      Single movieRate);

/// Takes out the keyframes of `clip` that its new Mark-Out leaves behind, and puts in what its effects have
/// come to there. `before` is the clip as it was.
void endKeyframes(Collection& collection, const Movie& before, const Movie& clip, Single movieRate);

}  // namespace kvo
