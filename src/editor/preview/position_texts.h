// Places of the preview in figures and among the clips.
#pragma once

#include "core/records/collection.h"
#include "editor/preview/preview_state.h"

#include <string>

namespace kvo {

/// "01:07.2000": minutes, seconds and ten thousandths. Below 0 counts as 0.
std::string positionText(double seconds);

/// The number of the clip that is seen at a place of the compiled movie, seconds: the first with a picture
/// whose TimeLineStop lies behind it; the last behind the end. Without any picture sound counts too. 0 when
/// no clip has a place.
int clipAt(const Collection& collection, double seconds);

/// The clip is seen at a place of the movie, seconds, or heard there.
bool liesAt(const Movie& clip, double seconds);

/// The clip in hand where it lies at `seconds`, else what clipAt tells.
int clipToTake(const Collection& collection, double seconds);

/// What stands over the picture: why there is none, or what is seen.
std::string previewTitle(const PreviewState& state);

/// The name that a clip is shown by.
std::string titleOf(const Movie& clip);

}  // namespace kvo
