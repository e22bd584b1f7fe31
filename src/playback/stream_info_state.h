// frmStreamInfo: what a stream that plays tells of itself, as data.
#pragma once

#include <string>
#include <vector>

namespace kvo {

struct StreamFactLine {
  std::string caption;
  std::string value;  ///< "-" for what the stream does not tell
  bool operator==(const StreamFactLine&) const = default;
};

/// A sound or a text that can be chosen.
struct StreamChoice {
  std::string text;
  bool chosen = false;
  bool operator==(const StreamChoice&) const = default;
};

struct StreamInfoState {
  bool visible = false;
  bool more = false;  ///< whatever else the stream tells stands with its properties
  std::vector<StreamFactLine> properties;
  std::vector<StreamFactLine> codecs;
  std::vector<StreamFactLine> connection;
  std::vector<StreamChoice> choices;  ///< for "Player Stream Options"; empty when there is nothing to choose
  bool operator==(const StreamInfoState&) const = default;
};

}  // namespace kvo
