#include "intake/property_report.h"

#include "base/numbers.h"
#include "base/text.h"
#include "intake/stream_phrases.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace kvo {
namespace {

using StreamKind = StreamProperty::Kind;

// One of the names apart at blanks.
bool hasName(std::string_view names, std::string_view name) {
  while (!names.empty()) {
    const auto end = std::min(names.find(' '), names.size());
    if (names.substr(0, end) == name) return true;
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return false;
}

// What a codec is called in the report: by its phrase where it has one, so that it is found again.
std::string calledIn(std::span<const CodecPhrase> phrases, const StreamProperty& stream) {
  for (const auto& row : phrases) {
    if (!hasName(row.names, stream.codec)) continue;
    const bool open = row.phrase.find('(') != std::string_view::npos;
    return std::string(row.phrase) + (open ? "), " : ", ") + stream.codec;
  }
  return stream.codec;
}

std::string whole(double number) { return FormatMask(number, "0"); }

// The bit rate comes first: a reader looks for the next one behind the stream's phrase.
std::string streamLines(const StreamProperty& stream) {
  const bool audio = stream.kind == StreamKind::Audio;
  std::string text(audio ? kAudioPhrase : kVideoPhrase);
  text.append("ties\n  Bit ").append(kRateBegin).append(" ").append(whole(stream.bitRate)).append(" ");
  text.append(kRateEnd).append("\n  Codec: ");
  text.append(calledIn(audio ? std::span<const CodecPhrase>(kAudioCodecs) : kVideoCodecs, stream));
  if (audio) {
    text.append("\n  Samples a second: ").append(whole(stream.sampleRate));
    text.append("\n  Channels: ").append(whole(stream.channels));
  } else {
    text.append("\n  Size: ").append(whole(stream.width)).append(" x ").append(whole(stream.height));
    if (stream.frameRate > 0)
      text.append("\n  Frames a second: ").append(FormatMask(stream.frameRate, "0.00"));
  }
  return text + "\n";
}

const StreamProperty* firstOf(const StreamProperties& properties, StreamKind kind) {
  const auto& all = properties.streams;
  const auto found = std::ranges::find(all, kind, &StreamProperty::kind);
  return found == all.end() ? nullptr : &*found;
}

std::string jsonText(std::string_view text) {
  std::string out = "\"";
  for (const char c : isUtf8(text) ? std::string(text) : lineFromBytes(text)) {
    const auto byte = static_cast<unsigned char>(c);
    constexpr std::string_view kDigits = "0123456789abcdef";
    if (c == '"' || c == '\\') {
      out.append(1, '\\').append(1, c);
    } else if (byte < 0x20 || byte == 0x7F) {
      out.append("\\u00").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 15U]);
    } else {
      out.append(1, c);
    }
  }
  return out + "\"";
}

std::string field(std::string_view name, std::string_view value) {
  return jsonText(name) + ": " + std::string(value);
}

std::string yesNo(bool yes) { return yes ? "true" : "false"; }

std::string jsonStream(const StreamProperty& stream) {
  constexpr std::array kKinds = {"audio", "video", "other"};
  std::string text = "    {" + field("kind", jsonText(kKinds[static_cast<std::size_t>(stream.kind)]));
  text += ", " + field("codec", jsonText(stream.codec)) + ", " + field("name", jsonText(stream.codecName));
  if (stream.bitRate > 0) text += ", " + field("bitRate", whole(stream.bitRate));
  if (!stream.language.empty()) text += ", " + field("language", jsonText(stream.language));
  if (stream.kind == StreamKind::Audio) {
    text += ", " + field("sampleRate", whole(stream.sampleRate)) + ", " +
            field("channels", whole(stream.channels));
  } else if (stream.kind == StreamKind::Video) {
    text += ", " + field("width", whole(stream.width)) + ", " + field("height", whole(stream.height));
    if (stream.frameRate > 0) text += ", " + field("frameRate", FormatMask(stream.frameRate, "0.0##"));
  }
  return text + "}";
}

// `items` one below the other, between brackets.
std::string jsonRows(const std::vector<std::string>& items, char open, char close) {
  std::string text(1, open);
  for (std::size_t i = 0; i < items.size(); ++i) text.append(i == 0 ? "\n" : ",\n").append(items[i]);
  return text.append(items.empty() ? "" : "\n  ").append(1, close);
}

}  // namespace

std::string propertyReport(const Result<StreamProperties>& properties) {
  if (!properties) return std::string(kProbeFailed) + "\n";
  std::string text =
      properties->isWindowsMedia ? "Is Windows Media: true" : std::string(kOtherContainerPhrase);
  text.append("\n").append(properties->isProtected ? kProtectedPhrase : "Is Protected (DRM): false");
  text.append("\n").append(properties->isSeekable ? "Seekable: true" : kUnseekablePhrase);
  text.append("\n");
  if (properties->duration > 0)
    text.append("Duration: ").append(FormatMask(properties->duration, "0.000")).append(" s\n");
  text.append(kStreamsPhrase).append(std::to_string(properties->streams.size())).append(" \n");
  // Sound first: what is said of a picture must not be read for the sound's.
  for (const auto kind : {StreamKind::Audio, StreamKind::Video}) {
    if (const auto* stream = firstOf(*properties, kind)) text += streamLines(*stream);
  }
  return text;
}

std::string propertyJson(const std::string& path, const Result<StreamProperties>& properties) {
  std::string text = "{\n  " + field("file", jsonText(path));
  if (!properties) return text + ",\n  " + field("error", jsonText(properties.error().text)) + "\n}\n";
  text += ",\n  " + field("container", jsonText(properties->container));
  text += ",\n  " + field("windowsMedia", yesNo(properties->isWindowsMedia));
  text += ",\n  " + field("protected", yesNo(properties->isProtected));
  text += ",\n  " + field("seekable", yesNo(properties->isSeekable));
  text += ",\n  " + field("still", yesNo(properties->isStill));
  if (properties->duration > 0) text += ",\n  " + field("seconds", FormatMask(properties->duration, "0.0##"));
  if (properties->bitRate > 0) text += ",\n  " + field("bitRate", whole(properties->bitRate));
  std::vector<std::string> rows;
  for (const auto& stream : properties->streams) rows.push_back(jsonStream(stream));
  text += ",\n  " + field("streams", jsonRows(rows, '[', ']'));
  rows.clear();
  for (const auto& [name, value] : properties->tags) rows.push_back("    " + field(name, jsonText(value)));
  return text + ",\n  " + field("tags", jsonRows(rows, '{', '}')) + "\n}\n";
}

}  // namespace kvo
