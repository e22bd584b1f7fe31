#include "engine/document/timeline.h"

#include <algorithm>

namespace kvo::engine {

double Transition::progressAt(double time) const {
  const auto* progress = params.find("progress");
  if (progress != nullptr) return std::clamp(progress->number.at(time - start), 0.0, 1.0);
  return stop > start ? std::clamp((time - start) / (stop - start), 0.0, 1.0) : 1;
}

double Timeline::length() const {
  double end = 0;
  for (const auto& layer : video) end = std::max(end, layer.stop);
  for (const auto& clip : audio) end = std::max(end, clip.stop);
  return end;
}

std::vector<std::string> pictureFiles(const std::vector<Layer>& layers) {
  std::vector<std::string> files;
  for (const auto& layer : layers) {
    if (!layer.src.empty()) files.push_back(layer.src);
    for (const auto& transition : layer.transitions) {
      const auto* mask = transition.params.find("maskname");
      if (mask != nullptr && !mask->text.empty()) files.push_back(mask->text);
    }
    const auto inner = pictureFiles(layer.inside);
    files.insert(files.end(), inner.begin(), inner.end());
  }
  return files;
}

}  // namespace kvo::engine
