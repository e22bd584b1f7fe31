// What the process that makes sketches and the program say to each other. An order goes there with a byte 0
// behind it; back come lines "data" with bytes in hexadecimal, "busy" while it takes long, and "end".
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kvo {

struct SketchOrder {
  enum class Kind { Picture, Peaks };
  Kind kind = Kind::Picture;
  std::string path;
  std::uint32_t milliseconds = 0;  ///< of a picture
  bool quiet = false;              ///< it is only to be kept; no data comes back
  bool operator==(const SketchOrder&) const = default;
};

/// Without the byte 0.
std::string orderText(const SketchOrder& order);
/// Nothing for a text that makes no sense.
std::optional<SketchOrder> readOrder(std::string_view text);

inline constexpr std::string_view kSketchBusy = "busy";
inline constexpr std::string_view kSketchEnd = "end";

/// Gives each line of an answer, without its end, to `line`.
void sketchLines(std::string_view data, const std::function<void(std::string_view)>& line);
/// Adds what a line "data" holds to `data`; of any other line nothing.
void readSketchLine(std::string_view line, std::string& data);

}  // namespace kvo
