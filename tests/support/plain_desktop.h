// A desktop of one screen.
#pragma once

#include "ports/desktop.h"

#include <string>
#include <vector>

namespace kvo::test {

class PlainDesktop : public Desktop {
 public:
  ScreenFacts facts{1920, 1080, 24, 1};
  std::vector<std::string> pages;
  std::string videos;
  [[nodiscard]] ScreenFacts screen() const override { return facts; }
  std::vector<Screen> all;  // empty: one as `facts` has it
  int beeps = 0;
  [[nodiscard]] std::vector<Screen> screens() const override {
    if (!all.empty()) return all;
    const ScreenArea whole{0, 0, facts.width, facts.height};
    return {{"first", whole, whole, 1}};
  }
  void beep() override { ++beeps; }
  [[nodiscard]] std::string videosFolder() const override { return videos; }
  bool openPage(const std::string& address) override {
    pages.push_back(address);
    return true;
  }
  std::vector<std::string> files;
  bool openFile(const std::string& path) override {
    files.push_back(path);
    return true;
  }
};

}  // namespace kvo::test
