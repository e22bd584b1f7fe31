// What is told of a clip in the main window, as texts and numbers. Times are seconds.
#pragma once

#include "core/records/movie.h"
#include "core/records/settings.h"
#include "ports/media_contents.h"
#include "program/main_window_state.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

ClipKind kindOf(const Movie& clip);

/// How long a clip is as a whole: a still as long as stills are set to last; nothing when it is not known.
std::optional<double> lengthOf(const Movie& clip, const KVO2& settings);

/// The length of what plays, as its file tells: nothing for a still, and when it is not known.
std::optional<double> playedLength(const Movie& clip);

/// Where the section of a clip of this length begins and ends; an end that was never set is the clip's.
std::pair<double, double> sectionOf(const Movie& clip, double length);

/// It has a speed, a volume and a balance: neither still nor page.
bool hasSound(const Movie& clip);

/// "2:33", "1:02:33"
std::string playTimeText(double seconds);
/// "1 clip", "7 clips"
std::string clipsText(std::size_t count);
/// "3m 41s"
std::string totalText(double seconds);

ClipRow rowOf(const Movie& clip, const KVO2& settings);

/// "lake at dusk.mpg - Video"
std::string windowCaption(const Movie& clip);

/// The nine pairs. `facts` is what the clip's file tells, null while that is not known.
std::array<Detail, 9> detailsOf(const Movie& clip, const KVO2& settings, const StreamFacts* facts);

/// Size, rate and channels, as far as they are known.
std::vector<std::string> chipsOf(const Movie& clip, const StreamFacts* facts);

/// The position label; empty for a clip without a length.
std::string positionText(const Movie& clip, double position);

/// The digits of the glass: minutes, seconds, frames since the clip's start; empty for a clip without a
/// length. One without frames counts those of the movie.
std::string digitsAt(const Movie& clip, double position, const KVO2& settings);

/// Where marks stand on the slider's line.
SliderState sliderOf(const Movie& clip);

/// Volume is kept as attenuation in hundredths of a decibel; per cent are of the amplitude. The softest is 0.
int percentOf(Integer attenuation);
Integer attenuationOf(int percent);

}  // namespace kvo
