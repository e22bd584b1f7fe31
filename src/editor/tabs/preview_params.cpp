#include "editor/tabs/preview_params.h"

#include "base/text.h"
#include "core/telling/translated.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kvo {
namespace {

struct Row {
  std::string_view scale;
  int depth;
  int rate;
  int effects;
  int transitions;
};

constexpr std::array<Row, 10> kDefaults = {{{"6", 16, 10, 0, 0},
                                            {"5", 24, 15, 1, 1},
                                            {"4", 24, 15, 1, 1},
                                            {"3", 16, 10, 0, 1},
                                            {"3", 24, 10, 1, 1},
                                            {"2", 24, 10, 0, 1},
                                            {"2", 24, 10, 1, 1},
                                            {"1.25", 24, 99, 1, 1},
                                            {"1", 24, 15, 1, 1},
                                            {"1", 24, 99, 1, 1}}};
constexpr Single kOutputRate = 99;

std::string defaultFile() {
  std::string out;
  for (std::size_t i = 0; i < kDefaults.size(); ++i) {
    const auto& row = kDefaults[i];
    out.append(i == 0 ? "" : "\r\n");
    out.append("[Preview").append(std::to_string(i + 1)).append("]\r\n");
    out.append("ScaleFactor = ").append(row.scale).append(kCrLf);
    out.append("BitDepth = ").append(std::to_string(row.depth)).append(kCrLf);
    out.append("FrameRate = ").append(std::to_string(row.rate)).append(kCrLf);
    out.append("Effects = ").append(std::to_string(row.effects)).append(kCrLf);
    out.append("Transitions = ").append(std::to_string(row.transitions)).append(kCrLf);
  }
  return out;
}

std::vector<std::string> upperLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) lines.push_back(upper(trimmed(nextLine(text))));
  return lines;
}

}  // namespace

PreviewParams GetPreviewParams(const Editing& e, int power) {
  if (power == 0) power = 10;
  const auto path = e.folder.beside("\\PreviewDefaults.dat");
  const auto section = "[PREVIEW" + std::to_string(power) + "]";
  const auto bytes = e.files.read(path, kMaxTableFile);
  auto lines = upperLines(bytes ? textFromBytes(*bytes) : std::string());
  auto line = std::find(lines.begin(), lines.end(), section);
  if (line == lines.end()) {
    // A file that is missing or broken is written anew. A folder that cannot be written does not hinder the
    // preview: the values are the same.
    static_cast<void>(writeDurably(e.files, path, defaultFile()));
    lines = upperLines(defaultFile());
    line = std::find(lines.begin(), lines.end(), section);
  }
  const auto next = [&](std::string_view key, double otherwise) {
    if (line == lines.end() || ++line == lines.end()) return otherwise;
    return ToNumber(replaced(*line, key, ""));
  };

  const auto& settings = e.settings;
  PreviewParams params;
  params.Scale = next("SCALEFACTOR = ", 1);
  if (params.Scale <= 0) params.Scale = 1;
  params.Depth = toLongClamped(next("BITDEPTH = ", 24));
  params.Rate = static_cast<Single>(next("FRAMERATE = ", 99));
  params.Effects = next("EFFECTS = ", 1) != 0;
  params.Transitions = next("TRANSITIONS = ", 1) != 0;
  if (params.Rate == kOutputRate) params.Rate = settings.preferences().OutPutFrameRate;
  params.Depth = std::min<int>(params.Depth, settings.preferences().OutputColorDepth);
  params.Rate = std::min(params.Rate, settings.preferences().OutPutFrameRate);
  e.settings.state.RenderEffects = params.Effects;
  e.settings.state.RenderTransitions = params.Transitions;
  return params;
}

PreviewLines previewLines(const Editing& e, const PreviewParams& p) {
  using Sign = PreviewLine::Sign;
  const auto& preferences = e.settings.preferences();
  const auto depth = std::to_string(p.Depth);
  const auto rate = ShortText(p.Rate);
  return {{{p.Scale == 1 ? translated("H x W is output dimensions ")
                         : translated("H x W reduced by %1", {ShortText(p.Scale)})},
           {translated("Aspect Ratio is maintained")},
           {preferences.OutputColorDepth <= p.Depth
                ? translated("Color maintained at %1 bit", {depth})
                : translated("Color drop from %1 to %2 bit",
                             {std::to_string(preferences.OutputColorDepth), depth})},
           {p.Rate >= preferences.OutPutFrameRate
                ? translated("FPS maintained at %1 fps", {rate})
                : translated("FPS drop from %1 to %2 fps ", {ShortText(preferences.OutPutFrameRate), rate})},
           {translated(p.Transitions ? "Transitions ARE shown" : "Transitions are NOT shown"),
            p.Transitions ? Sign::Shown : Sign::NotShown},
           {translated(p.Effects ? "Clip Effects ARE shown" : "Clip Effects are NOT shown"),
            p.Effects ? Sign::Shown : Sign::NotShown}}};
}

std::string ShowUserPreviewParams(const Editing& e, const PreviewParams& params) {
  constexpr std::string_view kBehind[] = {"\r\n\r\n", kCrLf, kCrLf, "\r\n\r\n", kCrLf, kCrLf};
  const auto lines = previewLines(e, params);
  std::string text = "\r\n\r\n";
  for (std::size_t i = 0; i < lines.size(); ++i) text.append(lines[i].text).append(kBehind[i]);
  return text;
}

}  // namespace kvo
