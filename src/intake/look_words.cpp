#include "intake/look_words.h"

#include "base/escaped_line.h"
#include "base/numbers.h"

#include <algorithm>
#include <iterator>

namespace kvo {
namespace {

struct Word {
  std::string_view name;
  std::string (*write)(const MediaLook&);
  void (*read)(MediaLook&, std::string_view);
};

int wholeOf(std::string_view value) { return toLongClamped(ToNumber(value)); }

// 17 digits, so that a rate comes back as the number that it was.
std::string exact(double value) {
  const double whole = RoundToWhole(value);
  return ShortText(whole) + (value == whole ? "" : " " + ShortText((value - whole) * 1e9));
}

double exactOf(std::string_view value) {
  const auto apart = value.find(' ');
  const double rest = apart == std::string_view::npos ? 0 : ToNumber(value.substr(apart)) / 1e9;
  return ToNumber(value.substr(0, apart)) + rest;
}

#define KVO_NUMBER(name, field, write, read)                                            \
  Word {                                                                                \
    name, [](const MediaLook& look) { return write(look.facts.field); },                \
        [](MediaLook& look, std::string_view value) { look.facts.field = read(value); } \
  }
#define KVO_TEXT(name, field)                                                              \
  Word {                                                                                   \
    name, [](const MediaLook& look) { return escapedLine(look.field); },                   \
        [](MediaLook& look, std::string_view value) { look.field = unescapedLine(value); } \
  }

std::string flagText(bool flag) { return flag ? "1" : "0"; }
bool flagOf(std::string_view value) { return value == "1"; }
std::string wholeText(int value) { return std::to_string(value); }

const Word kWords[] = {
    KVO_NUMBER("video", hasVideo, flagText, flagOf),
    KVO_NUMBER("audio", hasAudio, flagText, flagOf),
    KVO_NUMBER("still", isStill, flagText, flagOf),
    KVO_NUMBER("width", width, wholeText, wholeOf),
    KVO_NUMBER("height", height, wholeText, wholeOf),
    KVO_NUMBER("rate", frameRate, exact, exactOf),
    KVO_NUMBER("steady", steadyRate, exact, exactOf),
    KVO_NUMBER("samples", sampleRate, wholeText, wholeOf),
    KVO_NUMBER("channels", channels, wholeText, wholeOf),
    KVO_NUMBER("duration", duration, exact, exactOf),
    KVO_NUMBER("whole", wholeDuration, exact, exactOf),
    KVO_TEXT("codec", facts.codec),
    KVO_TEXT("title", tags.title),
    KVO_TEXT("artist", tags.artist),
    KVO_TEXT("album", tags.album),
    KVO_TEXT("genre", tags.genre),
    KVO_TEXT("error", errorText),
};

#undef KVO_NUMBER
#undef KVO_TEXT

}  // namespace

std::string lookLines(const MediaLook& look) {
  std::string lines;
  for (const auto& word : kWords) lines.append(word.name).append(" ").append(word.write(look)).append("\n");
  return lines.append(kEndOfLook).append("\n");
}

void readLookLine(std::string_view line, MediaLook& look) {
  const auto apart = line.find(' ');
  if (apart == std::string_view::npos) return;
  const auto* word = std::find_if(std::begin(kWords), std::end(kWords),
                                  [&](const auto& w) { return w.name == line.substr(0, apart); });
  if (word != std::end(kWords)) word->read(look, line.substr(apart + 1));
}

}  // namespace kvo
