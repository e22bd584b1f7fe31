// Any text as the probe's report, and any texts of a file as what a report is made from: no word of the
// file's can pass for a phrase of ours.
#include "base/text.h"
#include "fuzz/fuzz.h"
#include "intake/batch_probe.h"
#include "intake/codec_words.h"
#include "intake/property_report.h"

namespace {

// What the shell makes of it: quotes open and close, "\'" is a quote outside of them.
bool isOneWord(std::string_view word) {
  bool quoted = false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (word[i] == '\'') {
      quoted = !quoted;
    } else if (!quoted && word.substr(i, 2) == "\\'") {
      ++i;
    } else if (!quoted) {
      return false;
    }
  }
  return !quoted;
}

}  // namespace

void kvo::fuzz(std::string_view bytes) {
  const std::string text(bytes);
  for (const auto* kind : {"WMV", "ASF"}) {
    const auto words = readCodecWords(text, kind);
    require(words.videoBitRate.find_first_of("bps") == std::string::npos && !words.audioCodec.empty());
  }
  static_cast<void>(tellsOfWindowsMedia(text));
  StreamProperties properties;
  properties.tags = {{text, text}};
  properties.streams.resize(2);
  properties.streams[0].language = text;
  const auto report = propertyReport(properties);
  require(!tellsOfWindowsMedia(report) && !readCodecWords(report, "WMV").isDrm);
  require(isUtf8(propertyJson(text, properties)));
  require(isOneWord(shellWord(text)));
}
