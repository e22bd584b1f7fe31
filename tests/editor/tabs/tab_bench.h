// A tab of the editor on a collection of stand-ins, and the desk that it lies on.
#pragma once

#include "editor/tabs/tab_host.h"
#include "support/fakes.h"

#include <functional>

#include <gtest/gtest.h>

namespace kvo::test {

/// Notes what is asked of it: "edit Blur 2 0, sample Effect 2".
class NotingHost final : public TabHost {
 public:
  explicit NotingHost(Collection& collection) : collection_(collection) {}

  bool refuses = false;

  bool edit(std::string_view act, int clipNo, Integer changeCode,
            const std::function<void()>& work) override {
    note("edit " + std::string(act), clipNo, " " + std::to_string(changeCode));
    if (!refuses) work();
    return !refuses;
  }
  void UpDateFrmFileOpen(int clipNo, bool /*pause*/) override {
    note("clip", clipNo);
    collection_.icurMov = clipNo;
  }
  void sample(Sample what, int clipNo) override {
    constexpr const char* kNames[] = {"Transition", "Effect", "Colour", "Keyframe", "PictureInPicture"};
    note(std::string("sample ") + kNames[static_cast<int>(what)], clipNo);
  }
  void KillPreview() override { asked_ += asked_.empty() ? "kill" : ", kill"; }
  void ShowClipStats() override {}
  void buildClipSliders() override {}
  void Buildtabs(int tab) override { note("tab", tab); }

  /// What has been asked since the last look.
  std::string look() { return std::exchange(asked_, {}); }

 private:
  void note(const std::string& what, int number, const std::string& more = {}) {
    asked_ += (asked_.empty() ? "" : ", ") + what + " " + std::to_string(number) + more;
  }

  Collection& collection_;
  std::string asked_;
};

/// Two videos, a still and music; the first is the clip in hand.
struct TabBench : Bench {
  NotingHost host{collection};

  TabBench() {
    addVideo("a.avi", 0, 8).KeyID(1);
    addVideo("b.mpg", 2, 6).KeyID(2);
    auto& still = addStill("photo.jpg", 7);
    still.KeyID(3);
    still.Resolution("N/A");
    still.DurationTime(Value("N/A"));
    streams.all["/v/photo.jpg"] = {.hasVideo = true, .isStill = true};
    addMusic("song.mp3", 0, 20).KeyID(4);
    collection.icurMov = 1;
  }
};

/// A control of a tab set to `choice`, as something to do with its bench.
template <class Act, class... Choice>
auto does(Act act, Choice... choice) {
  return [=](auto& b) { act(b.editing, b.tab, b.host, choice...); };
}

}  // namespace kvo::test
