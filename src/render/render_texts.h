// The words of a render: what is told before, while and after a movie is made.
#pragma once

#include "ports/message_boxes.h"
#include "render/render_state.h"
#include "vocabulary/movie_presets.h"

#include <string>
#include <string_view>

namespace kvo {

/// The extension and the pattern in the dialog of a kind of output: "WMV", "*.wmv".
std::string_view extensionOf(OutputKind kind);
std::string filterOf(OutputKind kind);

/// The caption of the window while a movie is made, and at other times.
std::string creatingCaption(std::string_view outputFile, std::string_view collection);
std::string editorCaption(std::string_view collection);

/// "1280 x 720", pixels
std::string sidesText(int width, int height);

/// What a preset is for, with the megabytes that a movie of it may have, where they are limited.
std::string presetText(const MoviePreset& preset, double megabytes);

/// "Encoding 2 mins 5 secs of video to 'WMV8 for ...'". `seconds` of the movie; `profile` by its text.
std::string renderSummary(OutputKind kind, double seconds, std::string_view profile);

/// "About 00.01.30(s) Remaining"
std::string countdownText(int hours, int minutes, int seconds);

/// "Estimated output file size = 3.20 Mb"
std::string estimatedSizeText(double megabytes);
/// "Output file size = 3.20 Mb"
std::string outputSizeText(double bytes);
/// "Completed in 12.40 (s)" or "Completed in 2 mins 5 (s)"
std::string completedText(double seconds);

/// Warnings and questions; those with Yes and No may have a box for never being asked again.
StyledBox diskSpaceWarning(double megabytes);
StyledBox renderTimeWarning(double seconds);
StyledBox viewQuestion(std::string_view file);
Box diskShortBox(double megabytes);
Box abortedBox();
Box abortFailedBox();
Box nothingToCreateBox();
Box rangeErrorBox();
Box rangeFailedBox();
Box profileFailedBox();
Box noCountdownBox();
/// A file of the movie's name is there.
Box replaceQuestion(std::string_view file);
/// A movie is being made, and the user wants it to end.
Box abortQuestion();
/// The engine has said nothing for so many minutes.
Box silenceQuestion(int minutes);
/// A movie that the engine has not made; `why` is its line.
Box renderFailedBox(std::string_view why);

}  // namespace kvo
