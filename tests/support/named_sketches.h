// Sketches that a test hands out.
#pragma once

#include "sketches/sketches.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kvo::test {

struct NamedSketches : Sketches {
  /// What has come, by path and seconds; null for what has none.
  std::map<std::pair<std::string, double>, Picture> pictures;
  std::vector<std::string> asked;  ///< and has not come: "/v/a.avi 12"
  std::vector<std::string> prepared;

  static std::string named(const std::string& path, double seconds) {
    return path + " " + std::to_string(static_cast<int>(seconds));
  }
  /// One of a single grey, as light as its second.
  void come(const std::string& path, double seconds) {
    const auto grey = static_cast<std::uint8_t>(seconds);
    pictures[{path, seconds}] = std::make_shared<FramePicture>(
        FramePicture{kSketchWidth, kSketchHeight,
                     std::vector<std::uint8_t>(std::size_t{kSketchWidth} * kSketchHeight * 3, grey)});
    heard(path);
  }

  std::optional<Picture> picture(const std::string& path, double seconds) override {
    const auto found = pictures.find({path, seconds});
    if (found != pictures.end()) return found->second;
    asked.push_back(named(path, seconds));
    return std::nullopt;
  }
  std::optional<Peaks> peaks(const std::string& /*path*/, int /*perSecond*/) override { return Peaks(); }
  void preparePicture(const std::string& path, double seconds) override {
    prepared.push_back(named(path, seconds));
  }
  void preparePeaks(const std::string& path) override { prepared.push_back(path + " peaks"); }
  void whenCome(std::function<void(const std::string& path)> hear) override { heard = std::move(hear); }

  std::function<void(const std::string&)> heard = [](const std::string&) {};
};

}  // namespace kvo::test
