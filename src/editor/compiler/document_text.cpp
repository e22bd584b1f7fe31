#include "editor/compiler/document_text.h"

#include "base/text.h"

#include <array>

namespace kvo {
namespace {

constexpr std::size_t kRoom = 400;  // characters: about what a frame and a group's tags take
constexpr std::size_t kGroupColumn = 5;
constexpr std::size_t kClipColumn = 10;
constexpr std::size_t kEffectColumn = 15;
constexpr std::size_t kParamColumn = 20;
constexpr std::size_t kKeyColumn = 25;

std::string opening(std::string_view name, Attributes attributes, std::string_view end) {
  std::string text("<");
  text += name;
  for (const auto& a : attributes) {
    if (a.name.empty()) continue;
    text.append(static_cast<std::size_t>(a.gap), ' ');
    text.append(a.name).append("=\"").append(a.value).append("\"");
  }
  return text.append(end);
}

std::string line(std::size_t column, std::string_view text) {
  return blanks(column).append(text).append(kCrLf);
}

}  // namespace

std::string shortNumber(double value) { return ShortText(value); }

std::string shortNumber(float value) { return ShortText(value); }

std::string fixedText(double seconds) { return FormatMask(seconds, "0.0000"); }

std::string secondsText(const Value& seconds) {
  return seconds.wholeNumber() ? seconds.text() : ShortText(seconds.number());
}

std::string keyTimeText(double seconds) { return FormatMask(seconds, "0#####.#####"); }

std::string stampText(Stamp stamp) {
  constexpr std::array<std::string_view, 4> kMasks = {"", "0.0", "0.00", "0.0000"};
  const auto mask = kMasks.at(static_cast<std::size_t>(stamp.digits));
  return mask.empty() ? ShortText(stamp.seconds) : FormatMask(stamp.seconds, mask);
}

double asWritten(Stamp stamp) { return ToNumber(stampText(stamp)); }

namespace tag {

std::string group(Attributes attributes, std::string_view end) { return opening("group", attributes, end); }

std::string clip(Attributes attributes, std::string_view end) {
  return blanks(kClipColumn) + opening("clip", attributes, end);
}

std::string effect(Attributes attributes, std::string_view end) {
  return line(kEffectColumn, opening("effect", attributes, end));
}

std::string transition(Attributes attributes, std::string_view end) {
  return line(kEffectColumn, opening("transition", attributes, end));
}

std::string param(std::string_view name, std::string_view value, std::string_view end) {
  return line(kParamColumn,
              opening("param", {{"name", std::string(name)}, {"value", std::string(value)}}, end));
}

std::string bareParam(std::string_view name, std::string_view value) {
  return opening("param", {{"name", std::string(name)}, {"value", std::string(value)}}, " />");
}

std::string openParam(std::string_view name, std::string_view value) { return param(name, value, ">"); }

std::string key(std::string_view kind, std::string_view time, std::string_view value) {
  return line(kKeyColumn, opening(kind, {{"time", std::string(time)}, {"value", std::string(value)}}, "/>"));
}

std::string keyframe(std::string_view time, std::string_view value) {
  return line(kParamColumn,
              opening("linear", {{"time", std::string(time)}, {"value", std::string(value), 2}}, "/>"));
}

std::string effectLine(std::string_view effects) {
  return std::string(kCrLf).append(blanks(kEffectColumn)).append(effects);
}

std::string document(std::initializer_list<GroupText> groups, Spacing spacing) {
  const std::string_view wide = "\r\n\r\n\r\n";
  const bool isWide = spacing == Spacing::Wide;
  const auto behindFrame = wide.substr(0, (isWide ? 2 : 1) * kCrLf.size());
  const auto behindGroup = wide.substr(0, (isWide ? 3 : 1) * kCrLf.size());
  std::size_t length = kRoom;
  for (const auto& group : groups) length += (group.tracks ? group.tracks->size() : 0) + kRoom;
  std::string text(kTimeline);
  text.reserve(length);
  text.append(behindFrame);
  for (const auto& group : groups) {
    if (group.open) text.append(blanks(kGroupColumn)).append(*group.open).append(behindGroup);
    if (group.tracks)
      text.append(group.blanksAhead, ' ').append(*group.tracks).append(group.behind).append(kCrLf);
    if (group.isClosed) text.append(kEndGroup).append(behindGroup);
  }
  return text.append(kEndTimeline).append(behindFrame);
}

}  // namespace tag
}  // namespace kvo
