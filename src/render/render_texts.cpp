#include "render/render_texts.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/telling/translated.h"

#include <array>
#include <cmath>

namespace kvo {
namespace {

constexpr double kMegabytesOfAGigabyte = 1024;
constexpr const char* kRenderFailedCaption = "KVO - Failed to Render Movie";

Box warningBox(std::string caption, std::string text) {
  return {std::move(caption), std::move(text), BoxButtons::Ok, BoxIcon::Warning};
}

StyledBox question(std::string caption, std::string message, std::string prompt, BoxIcon icon) {
  return {std::move(caption), std::move(message), std::move(prompt), true, true, icon};
}

std::string twoDigits(int number) { return FormatMask(number, "00"); }

// Whole seconds, and the minutes in them.
struct Length {
  long minutes;
  long seconds;
};
Length lengthOf(double seconds) {
  const auto whole = std::lround(seconds);
  return {whole / 60, whole % 60};
}

// A summary of seconds alone, and one with minutes too; "%3" is the profile.
struct SummaryPatterns {
  const char* seconds;
  const char* minutes;
};
constexpr SummaryPatterns kPictureSummary = {"Encoding %2 secs of video to %3",
                                             "Encoding %1 mins %2 secs of video to %3"};
constexpr SummaryPatterns kSoundSummary = {"Encoding %2 secs of audio to %3",
                                           "Encoding %1 mins %2 secs of audio to %3"};
constexpr std::array<SummaryPatterns, 4> kSummaries = {
    {{"Encoding %2 secs of video to '%3'", "Encoding %1 mins %2 secs of video to '%3'"},
     {"Encoding %2 secs of audio to '%3'", "Encoding %1 mins %2 secs of audio to '%3'"},
     {"Writing %2 secs of uncompressed video.", "Writing %1 mins %2 secs of uncompressed video."},
     {"Writing %2 secs of '44.1Khz Stereo PCM' Audio only.",
      "Writing %1 mins - %2 of '44.1Khz Stereo PCM' Audio only."}}};

}  // namespace

std::string_view extensionOf(OutputKind kind) { return movieFileOf(kind).extension; }

std::string filterOf(OutputKind kind) { return "*." + lower(extensionOf(kind)); }

std::string creatingCaption(std::string_view outputFile, std::string_view collection) {
  return "   " + translated("Creating %1 from %2 Collection", {fileNamePart(outputFile), collection});
}

std::string editorCaption(std::string_view collection) {
  return "   " + translated("Create New Movie from %1 Collection", {collection});
}

std::string sidesText(int width, int height) {
  return std::to_string(width) + " x " + std::to_string(height);
}

std::string presetText(const MoviePreset& preset, double megabytes) {
  return translated(preset.text, {ShortText(megabytes)});
}

std::string renderSummary(OutputKind kind, double seconds, std::string_view profile) {
  const auto length = lengthOf(seconds);
  const auto number = static_cast<std::size_t>(kind);
  const auto& file = movieFileOf(kind);
  const bool hasOwn = number < kSummaries.size();
  const auto& patterns = hasOwn ? kSummaries.at(number) : file.hasPicture ? kPictureSummary : kSoundSummary;
  const auto target = std::string(file.extension) + " (" + translated(file.about) + ")";
  return translated(length.minutes > 0 ? patterns.minutes : patterns.seconds,
                    {std::to_string(length.minutes), std::to_string(length.seconds),
                     hasOwn ? profile : std::string_view(target)});
}

std::string countdownText(int hours, int minutes, int seconds) {
  return translated("About %1(s) Remaining",
                    {twoDigits(hours) + "." + twoDigits(minutes) + "." + twoDigits(seconds)});
}

std::string estimatedSizeText(double megabytes) {
  return translated("Estimated output file size = %1 Mb", {FormatMask(megabytes, "0.00")});
}

std::string outputSizeText(double bytes) {
  return translated("Output file size = %1 Mb", {FormatMask(bytes / 1024 / 1024, "0.00")});
}

std::string completedText(double seconds) {
  if (seconds < 60) return translated("Completed in %1 (s)", {FormatMask(seconds, "###0.00")});
  const double minutes = std::floor(seconds / 60);
  return translated("Completed in %1 mins %2 (s)",
                    {FormatMask(minutes, "#####"), FormatMask(std::floor(seconds - minutes * 60), "##")});
}

StyledBox diskSpaceWarning(double megabytes) {
  const bool isLarge = megabytes > 1000;
  const auto size = isLarge ? FormatMask(megabytes / kMegabytesOfAGigabyte, "##.#0") + " Gb"
                            : FormatMask(megabytes, "###.##") + " Mb";
  return question("KVO - Disk space warning",
                  translated("This render will create a movie about %1 in size.", {size}).append(kCrLf),
                  "Do you wish to proceed ?", BoxIcon::Warning);
}

StyledBox renderTimeWarning(double seconds) {
  return question("KVO - Render Time warning",
                  translated("This render may take longer than %1 mins.", {FormatMask(seconds / 60, "0.00")})
                      .append(kCrLf),
                  "Do you wish to proceed", BoxIcon::Warning);
}

StyledBox viewQuestion(std::string_view file) {
  return question("KVO - Movie Successfully Created",
                  translated("%1 has been created !", {fileNamePart(file)}).append(kCrLf).append(kCrLf),
                  "Do you wish to view the new Movie ?", BoxIcon::Done);
}

Box diskShortBox(double megabytes) {
  return warningBox("KVO - Not enough Disk Space Warning",
                    "There is not enough disk space to create your movie.\r\n" +
                        translated("KVO requires at least %1 MB of disk space to create this movie.",
                                   {ShortText(megabytes)}) +
                        "\r\nReduce the output resolution or Free up some space and try again.");
}

Box abortedBox() { return warningBox("KVO - Movie Render aborted", "Render Aborted !"); }

Box abortFailedBox() {
  return warningBox("KVO Failed to stop the Render Engine.",
                    "KVO Failed to halt the Render Engine - Please check your security settings.\r\n\r\n"
                    "Your security settings may however allow you to kill the 'KVORender' task\r\n"
                    "with Windows Task Manager.");
}

Box nothingToCreateBox() { return warningBox("KVO - No Movies in Collection", "Nothing to create"); }

Box rangeErrorBox() {
  return warningBox("KVO - ERR0233:REERR - Please tell Tarnwick Systems about this error",
                    "ERR0233:REERR:- RenderEngine has received incorrect starttime and Stoptime parameters - "
                    "Error");
}

Box rangeFailedBox() {
  return warningBox(kRenderFailedCaption,
                    "An error occured rendering your movie - Please contact Tarnwick Systems and report "
                    "Error 2333 - Render Fail");
}

Box profileFailedBox() {
  return warningBox(kRenderFailedCaption,
                    "An error occured creating the WM8 Render profile - Please contact Tarnwick Systems and "
                    "report Error '2833 - Render Fail'.");
}

Box noCountdownBox() {
  return warningBox("KVO5 - Render Engine Failure",
                    "Render Failed - Probable cause is output dimensions - Change the dimensions and re-try "
                    "the render");
}

Box replaceQuestion(std::string_view file) {
  return {"KVO - Create Movie",
          translated("%1 is there already. Do you wish to replace it ?", {fileNamePart(file)}),
          BoxButtons::YesNo, BoxIcon::Warning};
}

Box abortQuestion() {
  return {.caption = "KVO - Create Movie",
          .text = "A movie is being made. Do you wish to abort it ?",
          .buttons = BoxButtons::YesNo,
          .icon = BoxIcon::Question,
          .isRisky = true};
}

Box silenceQuestion(int minutes) {
  return {"KVO - Render Engine",
          translated("The render engine has said nothing for %1 min. It may hang, or have much to do.\r\n"
                     "Do you wish to abort the render ?",
                     {std::to_string(minutes)}),
          BoxButtons::YesNo,
          BoxIcon::Warning,
          {{"Yes", "Abort"}, {"No", "Go on waiting"}},
          0,
          true};
}

Box renderFailedBox(std::string_view why) {
  return {kRenderFailedCaption, std::string(why), BoxButtons::Ok, BoxIcon::Critical};
}

}  // namespace kvo
