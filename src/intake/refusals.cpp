#include "intake/refusals.h"

#include "base/text.h"
#include "core/records/collection.h"
#include "core/telling/failures.h"
#include "core/telling/messages.h"
#include "core/telling/translated.h"
#include "ports/media_looker.h"

#include <initializer_list>

namespace kvo {
namespace {

constexpr std::size_t kShownName = 20;  // characters
constexpr std::size_t kShownAddress = 100;
constexpr std::size_t kNotesLine = 53;  // characters of a line of notes
constexpr std::string_view kLicenseCode = "C00D00C8";

std::string title(int number) { return std::string(LoadResString(number)); }
std::string productTitle(int number) { return std::string(kProductName).append(LoadResString(number)); }

std::string lines(std::initializer_list<std::string_view> all) {
  std::string text;
  for (const auto line : all) text.append(text.empty() ? "" : kCrLf).append(line);
  return text;
}

std::string numbered(std::initializer_list<int> numbers) {
  std::string text;
  for (const int number : numbers) text.append(text.empty() ? "" : kCrLf).append(LoadResString(number));
  return text;
}

Box warning(std::string caption, std::string text) {
  return {std::move(caption), std::move(text), BoxButtons::Ok, BoxIcon::Warning};
}

// Without line ends of its own, in lines of at most so many characters, parted at blanks where there are any.
std::string wrapped(std::string_view notes) {
  const auto plain = replaced(replaced(notes, kCrLf, " "), "\n", " ");
  std::string_view rest = plain;
  std::string text;
  while (characterCount(rest) > kNotesLine) {
    auto line = cutTo(rest, kNotesLine);
    if (const auto blank = line.rfind(' '); blank != std::string_view::npos && blank > 0)
      line = line.substr(0, blank);
    text.append(line).append(kCrLf);
    rest.remove_prefix(line.size());
    rest = rest.substr(std::min(rest.find_first_not_of(' '), rest.size()));
  }
  return text.append(rest);
}

}  // namespace

Box refusedFull() {
  return warning(title(398), "A collection holds at most " + std::to_string(kMaxClips) + " clips.");
}

Box refusedAddress(std::string_view address) {
  return warning(title(398), lines({cutTo(address, kShownAddress), "is no address that KVO can play.",
                                    "An address tells its kind and a server, like http://server/live.asx"}));
}

Box refusedFolder(std::string_view name) {
  return warning(title(398), lines({cutTo(name, kShownAddress),
                                    translated("There is nothing in this folder that KVO can play.")}));
}

Box refusedRealFamily() { return {title(395), title(394), BoxButtons::Ok, BoxIcon::Information}; }

Box refusedNonMedia() { return warning(title(398), numbered({396, 397})); }

Box refusedArchive(const std::string& name) { return warning(title(405), name + title(404)); }

Box refusedImage(bool unreadable) { return warning(title(unreadable ? 400 : 402), numbered({399, 401})); }

Box refusedUnverified(std::string_view name) {
  return warning("KVO - Fatal File access Error",
                 lines({"KVO could not verify the file", cutTo(name, kShownName), "- load aborted"}));
}

Box refusedMovie() { return refusedNonMedia(); }

Box refusedByPlayer(const std::string& name, std::string_view errorText, const CodecNotes* codec) {
  if (errorText == kDrmProtected || holdsText(errorText, kLicenseCode))
    return warning(name + title(416), numbered({406, 407, 408}));
  if (holdsText(errorText, "Text file busy") || holdsText(errorText, "resource busy"))
    return warning(name + title(425), title(424));
  auto text = lines({numbered({409, 410, 411}), errorText});
  if (codec != nullptr) {
    text = lines({text, title(412) + codec->code, title(413) + codec->developer, title(414) + codec->address,
                  title(415) + wrapped(codec->notes)});
  }
  return warning(name + title(416), std::move(text));
}

Box refusedByCrash() { return warning(title(438), numbered({436, 437})); }

Box refusedUnmapped(bool dropped) {
  return warning(productTitle(dropped ? 217 : 389), title(dropped ? 216 : 388));
}

Box warnedOfMpeg(const std::string& name) {
  return warning(
      "KVO - Possible malformed MPEG",
      lines({"The MPEG file <" + name +
                 ">> may be corrupt\\not playable. The file may play if you re-route MPEG playback "
                 "in KVO via the VMR (Prefs - General - MPEG routing).",
             "KVO will now attempt playback."}));
}

Box warnedOfAsf(const std::string& name) {
  return warning("KVO - Old format ASF detected", lines({"The ASF file <" + name + ">> may not be playable.",
                                                         "KVO will attempt playback but may fail."}));
}

Box warnedOfNoLength(const std::string& name) {
  const auto text = numbered({417, 418}) + " <" + name + ">";
  if (extensionOf(name) != "MP3") return warning(name + title(423), text);
  return warning(title(422), lines({text, numbered({419, 420, 421})}));
}

Box askedAboutViewer() { return {productTitle(440), title(439), BoxButtons::YesNo, BoxIcon::Question}; }

Box toldOfSpoiltPlayer() {
  return {title(435), numbered({426, 427, 428, 429, 430, 431, 432, 433}), BoxButtons::Ok, BoxIcon::Critical};
}

}  // namespace kvo
