// A desk for the tabs of the editor: the gate of the history lets everything through, and all is noted.
#pragma once

#include "editor/tabs/tab_host.h"
#include "support/fakes.h"
#include "support/memory_store.h"

#include <string>
#include <vector>

namespace kvo::test {

class NotingHost : public TabHost {
 public:
  explicit NotingHost(Bench& bench) : bench_(bench) {}

  bool edit(std::string_view act, int clipNo, Integer changeCode, const std::function<void()>& work,
            std::string_view series) override {
    if (refuses) return false;
    work();
    edits.push_back(std::string(act) + " " + std::to_string(clipNo) + " " + std::to_string(changeCode) +
                    (series.empty() ? "" : " ~"));
    return true;
  }
  void UpDateFrmFileOpen(int clipNo, bool /*pause*/) override { bench_.collection.icurMov = clipNo; }
  void sample(Sample what, int clipNo) override {
    samples.push_back(std::to_string(static_cast<int>(what)) + " " + std::to_string(clipNo));
  }
  void KillPreview() override { ++kills; }
  void ShowClipStats() override {}
  void buildClipSliders() override { ++sliders; }
  void Buildtabs(int tab) override { tabs.push_back(tab); }

  bool refuses = false;              ///< another command runs
  std::vector<std::string> edits;    ///< "Transition 2 98", with " ~" where it is one of a series
  std::vector<std::string> samples;  ///< "0 2": of which kind, of which clip
  std::vector<int> tabs;
  int kills = 0;
  int sliders = 0;

 private:
  Bench& bench_;
};

}  // namespace kvo::test
