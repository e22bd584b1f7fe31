#include "program/media_commands.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/messages.h"
#include "intake/clip_names.h"
#include "intake/refusals.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace kvo {
namespace {

constexpr std::string_view kNoFolder = "C:\\";  // as a collection file has it ahead of the first addition

// A name and its patterns in turn. The first three take in whatever else is known of their class.
constexpr std::string_view kFilters =
    "All supported Movie Media "
    "|*.mpg;*.avi;*.mov;*.asf;*.m2v;*.asx;*.flc;*.fli;*.mpeg;*.m2p;*.m1v;*.wvx;*.wmv;"
    "*.vcr;*.swf;autorun.inf;*.SDP|"
    "All supported Audio Files "
    "|*.wma;*.wax;*.cda;*.mp3;*mp2;*.wax;*.cda;*.mid;*.wav;autorun.inf;*.aif;*.aiff|"
    "All supported Still Files |*.jpg;*.bmp;*.gif;*.pcx|All Files (*.*)|*.*|"
    "Avi Files (*.Avi)|*.Avi|Mpg Files (*.Mpg;*.m1v;*.m2p)|*.Mpg;*.mpeg;*.m2p;*.m2v;*.m1v|"
    "Mov Files (*.Mov)|*.Mov|MP3 Files (*.Mp3)|*.Mp3|MP2 Files (*.Mp2)|*.Mp2|Audio CD Files (*.Cda)|*.CDA|"
    "Extended Audio CD's (autorun.inf)|autorun.inf|Aif Files (*.Aif)|*.Aif|"
    "Microsoft Audio\\Video Stream Wax\\Wvx|*.wax;*.wvx|Shockwave Flash (*.Swf)|*.swf|Asf Files "
    "(*.Asf)|*.Asf|"
    "Asx Files (*.Asx)|*.Asx|Wma Files (*.Wma)|*.wma|Wmv Files (*.Wmv)|*.wmv|VCR Files (*.Vcr)|*.vcr|"
    "Fli \\ Flc Files (*.Flc)|*.Flc;*.fli|Jpeg Files (*.Jpg)|*.jpg;*.jpeg|Bmp Files (*.Bmp)|*.Bmp|"
    "Gif Files (*.Gif)|*.Gif|Tga Files (*.Tga)|*.Tga|Pcx Files (*.Pcx)|*.Pcx|M1v\\M2v Files "
    "(*.M1v)|*.M1v;*.m2v|"
    "Mid Files (*.Mid)|*.Mid|Wav Files (*.Wav)|*.Wav|Html Files (*.html)|*.html;*.htm;*.shtml|QT Files "
    "(*.QT)|*.QT";

constexpr Long kUsesWithHint = 30;

std::string streamHint() {
  std::string text;
  for (const int line : {374, 375, 376, 377})
    text.append(text.empty() ? "" : kCrLf).append(LoadResString(line));
  return text;
}

std::string_view nextPart(std::string_view& text) {
  const auto end = std::min(text.find('|'), text.size());
  const auto part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

std::vector<FileFilter> mediaFilters() {
  std::vector<FileFilter> filters;
  for (auto text = kFilters; !text.empty();) {
    const auto name = nextPart(text);
    const auto patterns = nextPart(text);
    filters.push_back({std::string(name), patterns == "*.*" ? "*" : replaced(patterns, ";", " ")});
  }
  for (const auto& kind : mediaKinds()) {
    const std::size_t first = kind.mediaClass == MediaClass::Video   ? 0
                              : kind.mediaClass == MediaClass::Sound ? 1
                                                                     : 2;
    filters[first].patterns.append(" *.").append(lower(kind.extension));
  }
  return filters;
}

}  // namespace

void MediaCommands::AddMedia() {
  FileChoice choice;
  if (const CommandPass pass(window_); pass) {
    choice = ports_.dialogs.openSeveral({std::string(LoadResString(386)),
                                         mediaFilters(),
                                         mediaFolder(settings_, ports_.desktop),
                                         {},
                                         LastFilterIndex_});
    LastFilterIndex_ = choice.filter;
  }
  if (std::any_of(choice.paths.begin(), choice.paths.end(), isUnmapped)) {
    ports_.boxes.show(refusedUnmapped(false));
    return;
  }
  mailbox_.takeFiles(choice.paths);
}

void MediaCommands::AddWebPage() { takeTyped(260, 259, {.IsWebPageAdd = true}); }

void MediaCommands::ViewStream() {
  if (const CommandPass pass(window_); pass && settings_.preferences().NoofUses < kUsesWithHint)
    ports_.boxes.show({std::string(LoadResString(378)), streamHint()});
  takeTyped(380, 379, {});
}

void MediaCommands::takeTyped(int title, int prompt, const AddManner& manner) {
  std::string address;
  if (const CommandPass pass(window_); pass)
    address = ports_.questions.ask(std::string(LoadResString(title)), std::string(LoadResString(prompt)))
                  .value_or("");
  if (address.empty()) return;
  // A page by its host's name alone.
  if (manner.IsWebPageAdd && !isAddress(address) && !address.starts_with(kSeparator))
    address.insert(0, "http://");
  mailbox_.takeAddress(address, manner);
}

std::string mediaFolder(const KVO2& settings, const Desktop& desktop) {
  const auto& last = settings.preferences().LoadFrom;
  return last.empty() || last == kNoFolder ? desktop.videosFolder() : last;
}

}  // namespace kvo
