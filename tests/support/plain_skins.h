// What a skin works on, without pictures and player.
#pragma once

#include "base/text.h"
#include "program/skins.h"
#include "support/memory_files.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kvo::test {

/// Pictures by the names of the files of the test; what they hold begins with "picture" where it is one.
class PlainSkinPictures : public SkinPictures {
 public:
  explicit PlainSkinPictures(MemoryFiles& files) : files_(files) {}
  std::string held;

  [[nodiscard]] std::optional<std::string> find(const std::string& path) const override {
    for (const auto& [name, bytes] : files_.all) {
      if (sameText(name, replaced(path, "\\", "/"))) return name;
    }
    return std::nullopt;
  }
  Outcome load(const std::string& path) override {
    const auto read = check(path);
    if (read) held = path;
    return read;
  }
  Outcome loadMask(const std::string& path) override { return check(path); }

 private:
  [[nodiscard]] Outcome check(const std::string& path) const {
    const auto name = find(path);
    return name && files_.all[*name].starts_with("picture") ? Outcome() : Error{"no picture " + path};
  }

  MemoryFiles& files_;
};

/// Notes what the skin asks of the player and of the buttons.
class NotedSkinCalls : public SkinCalls {
 public:
  std::string calls;
  bool holdsClip = false;
  bool hasPath = true;
  std::function<void()> whileBuilding = [] {};

  void BuildAllButs(bool stepButtons) override {
    calls += stepButtons ? "all+ " : "all ";
    whileBuilding();
  }
  void BuildButton(KeyWord word) override { calls += word == KeyWord::PlayOn ? "PLAYON " : "? "; }
  void PlayerPause() override { calls += "pause "; }
  void PlayerStop() override { calls += "stop "; }
  void GlobalMediaPlay() override { calls += "play "; }
  [[nodiscard]] bool playerHoldsClip() const override { return holdsClip; }
  [[nodiscard]] bool clipHasPath() const override { return hasPath; }
};

}  // namespace kvo::test
