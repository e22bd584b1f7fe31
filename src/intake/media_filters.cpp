#include "intake/media_filters.h"

#include "base/text.h"
#include "core/records/media_kinds.h"

#include <algorithm>
#include <string_view>

namespace kvo {
namespace {

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

std::string_view nextPart(std::string_view& text, char end) {
  const auto at = std::min(text.find(end), text.size());
  const auto part = text.substr(0, at);
  text.remove_prefix(std::min(at + 1, text.size()));
  return part;
}

}  // namespace

std::vector<FileFilter> mediaFilters() {
  std::vector<FileFilter> filters;
  for (auto text = kFilters; !text.empty();) {
    const auto name = nextPart(text, '|');
    const auto patterns = nextPart(text, '|');
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

std::set<std::string> filteredExtensions() {
  std::set<std::string> extensions;
  for (const auto& filter : mediaFilters()) {
    for (std::string_view patterns = filter.patterns; !patterns.empty();) {
      const auto pattern = nextPart(patterns, ' ');
      if (pattern.starts_with("*.")) extensions.insert(upper(pattern.substr(2)));
    }
  }
  return extensions;
}

}  // namespace kvo
