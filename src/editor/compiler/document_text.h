// The spelling of a timeline document: how its numbers are written, and each of its tags. The blanks ahead of
// a tag and within it are part of the format, and nothing is escaped.
#pragma once

#include "base/value.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace kvo {

/// A number written short: 4, 4.125, -0.115.
std::string shortNumber(double value);
std::string shortNumber(float value);

/// Four decimals, always: 5.0000.
std::string fixedText(double seconds);

/// Seconds of a record as they stand there where they are a number, else the number that they read as.
std::string secondsText(const Value& seconds);

/// The time of a keyframe: six digits and at most five decimals, "000002.5" and "000003.".
std::string keyTimeText(double seconds);

/// How a time is written.
enum class Digits { Short, One, Two, Four };

struct Stamp {
  double seconds = 0;
  Digits digits = Digits::Short;
};

std::string stampText(Stamp stamp);

/// The number that a reader of the document takes the time for.
double asWritten(Stamp stamp);
inline double asWritten(double seconds, Digits digits) { return asWritten(Stamp{seconds, digits}); }

/// One attribute of a tag, its value in quotes. One without a name is left out.
struct Attribute {
  std::string_view name;
  std::string value;
  int gap = 1;  ///< blanks ahead of it
};
using Attributes = std::initializer_list<Attribute>;

namespace tag {

inline constexpr std::string_view kTimeline = "<timeline>";
inline constexpr std::string_view kEndTimeline = "</timeline>";
inline constexpr std::string_view kEndGroup = "     </group>";
inline constexpr std::string_view kTrack = "          <track>\r\n";
inline constexpr std::string_view kEndTrack = "          </track>";
inline constexpr std::string_view kComposite = "     <composite username=\"KVO PicInPic\">\r\n";
inline constexpr std::string_view kEndComposite = "     </composite>\r\n";
inline constexpr std::string_view kEndClip = "          </clip>\r\n";
inline constexpr std::string_view kEndEffect = "               </effect>\r\n";
inline constexpr std::string_view kEndTransition = "               </transition>\r\n";
inline constexpr std::string_view kEndParam = "                    </param>\r\n";

/// The opening tags, with what ends them: ">", " >", "/>" and the like. A group stands at no column of its
/// own and has no line end; the others are whole lines but for a clip, behind which more may stand.
std::string group(Attributes attributes, std::string_view end);
std::string clip(Attributes attributes, std::string_view end);
std::string effect(Attributes attributes, std::string_view end);
std::string transition(Attributes attributes, std::string_view end);

/// A parameter that stands still, as a line.
std::string param(std::string_view name, std::string_view value, std::string_view end = "/>");

/// The same without its blanks and its line end, which a document has even where the parameter is left out.
std::string bareParam(std::string_view name, std::string_view value);

/// A parameter that moves: keys and kEndParam follow.
std::string openParam(std::string_view name, std::string_view value);

/// A key of it: `kind` is "linear", towards which it moves, or "at", where it jumps.
std::string key(std::string_view kind, std::string_view time, std::string_view value);

/// The key of a keyframe, which stands under its parameter.
std::string keyframe(std::string_view time, std::string_view value);

/// The line ahead of a clip's effects, which stands even when there are none.
std::string effectLine(std::string_view effects);

/// A group of a document, of texts that outlive it. What it does not have has no line either.
struct GroupText {
  std::optional<std::string_view> open{};    ///< its opening tag
  std::optional<std::string_view> tracks{};  ///< all of them
  std::size_t blanksAhead = 0;               ///< of the tracks
  std::string_view behind{};                 ///< line ends behind them, beside their own
  bool isClosed = true;
};

/// How far its lines stand apart.
enum class Spacing { Close, Wide };

/// The text of a whole document: the frame about its groups.
std::string document(std::initializer_list<GroupText> groups, Spacing spacing);

}  // namespace tag
}  // namespace kvo
