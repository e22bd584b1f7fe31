// The command line of the render engine:
//   KVORender [/[from-to]] [/P n or preset] [/C codec] [/Q quality] [/E effort] [/M megabytes]
//             [/H encoder] [/S process] [/K folder [/J n/of]] /W OUTPUT DOCUMENT
//   KVORender --sheet FILE.png DOCUMENT...
//   KVORender --try-encoder NAME
#pragma once

#include "base/result.h"
#include "engine/run/renderer.h"

#include <optional>
#include <string>
#include <vector>

namespace kvo {

struct EngineArguments {
  engine::RenderJob job;
  std::optional<int> profile;  ///< number of a Windows Media system profile
  std::optional<int> starter;  ///< number of the process that it ends with
  EncoderWish encoder = EncoderWish::Software;
  std::string workFolder;                     ///< of its segments; empty for none
  std::optional<engine::SegmentShare> share;  ///< of them that it makes, and no movie
  std::string document;
};

struct SheetArguments {
  std::string output;
  std::vector<std::string> documents;
};

/// Nothing when the command line asks for no contact sheet. Fails when it asks for one in the wrong way.
Result<std::optional<SheetArguments>> readSheetArguments(const std::vector<std::string>& arguments);

/// Fails with a line on what is wrong with the arguments (without the program's name).
Result<EngineArguments> readEngineArguments(const std::vector<std::string>& arguments);

}  // namespace kvo
