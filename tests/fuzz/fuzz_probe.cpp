// Any text as the probe's report, and any texts of a file as what a report is made from: no word of the
// file's can pass for a phrase of ours.
#include "base/text.h"
#include "intake/batch_probe.h"
#include "intake/codec_words.h"
#include "intake/property_report.h"

#include <cstdlib>

namespace {

bool isOneWord(std::string_view word) {
  // What the shell makes of it: quotes open and close, "\'" is a quote outside of them.
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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  for (const auto* kind : {"WMV", "ASF"}) {
    const auto words = kvo::readCodecWords(text, kind);
    if (words.videoBitRate.find_first_of("bps") != std::string::npos || words.audioCodec.empty())
      std::abort();
  }
  static_cast<void>(kvo::tellsOfWindowsMedia(text));
  kvo::StreamProperties properties;
  properties.tags = {{text, text}};
  properties.streams.resize(2);
  properties.streams[0].language = text;
  const auto report = kvo::propertyReport(properties);
  if (kvo::tellsOfWindowsMedia(report) || kvo::readCodecWords(report, "WMV").isDrm) std::abort();
  if (!kvo::isUtf8(kvo::propertyJson(text, properties))) std::abort();
  if (!isOneWord(kvo::shellWord(text))) std::abort();
  return 0;
}
