// A preview on stand-ins: its host notes what it is asked for.
#pragma once

#include "editor/preview/preview_engine.h"
#include "support/fake_timeline_player.h"
#include "support/fakes.h"
#include "support/virtual_loop.h"

#include <string>
#include <string_view>

namespace kvo::test {

class NotingHost : public PreviewHost {
 public:
  std::string notes;  // "park tools- row:1"
  bool free = true;
  bool rests = true;
  bool rewinds = true;
  int drawn = 0;
  std::function<void()> draws{};
  double playhead = 0;
  std::function<void(bool)> turned = [](bool /*on*/) {};  // the tools

  std::string takeNotes() { return std::exchange(notes, {}); }

  bool edit(std::string_view act, int /*clipNo*/, Integer /*code*/,
            const std::function<void()>& work) override {
    note(std::string(act));
    work();
    return true;
  }
  void UpDateFrmFileOpen(int /*clipNo*/, bool /*pause*/) override {}
  void sample(Sample /*what*/, int /*clipNo*/) override {}
  void KillPreview() override {}
  void ShowClipStats() override {}
  void buildClipSliders() override { note("sliders"); }
  void Buildtabs(int /*tab*/) override {}
  [[nodiscard]] bool mayEdit() const override { return free; }
  [[nodiscard]] bool isAtRest() const override { return rests; }
  void haltPlayer() override { note("halt"); }
  void parkPlayer() override { note("park"); }
  void FrmFileOpenToolsOnOff(bool on) override {
    note(on ? "tools+" : "tools-");
    turned(on);
  }
  void watchChanges(bool on) override { note(on ? "watch+" : "watch-"); }
  void selectRow(int clipNo) override { note("row:" + std::to_string(clipNo)); }
  void movieStands(double seconds) override {
    note("at " + ShortText(seconds));
    playhead = seconds;
  }
  void Displaymovieinfo() override { note("details"); }
  void restoreCaption() override { note("caption"); }
  void deleteWorkFiles() override { note("sweep"); }
  [[nodiscard]] StillControls stillControls() const override { return {}; }
  [[nodiscard]] bool Chk_AutoRewind() const override { return rewinds; }
  void previewChanged() override {
    ++drawn;
    if (draws) draws();
  }

 private:
  void note(const std::string& what) { notes += (notes.empty() ? "" : " ") + what; }
};

/// Two clips of 4 and 8 seconds, the second with a dissolve of 2 seconds.
struct PreviewBench : Bench {
  PreviewBench() {
    addVideo("beach.avi", 1, 5);
    auto& second = addVideo("hills.avi", 0, 8);
    second.TransType("Dissolve");
    second.TransIn(20);
    second.AltName(" The hills ");
    editor.controls.Sld_In = {20, 40};
    settings.change().PreviewCPU = 5;
    settings.change().OutPutFrameRate = 25;
  }
  /// A picture of the player comes home.
  void shows(std::int64_t frame) {
    player.frame = frame;
    pictures.put(frame, std::make_shared<Bitmap>(Bitmap{1, 1, {1, 2, 3}}));
    loop.advance(0);
  }
  std::string takeActs() { return std::exchange(player.acts, {}); }

  VirtualLoop loop;
  FakeTimelinePlayer player;
  NewestPicture pictures{loop};
  NotingHost host;
  PreviewState state;
  PreviewEngine preview{state, editing, player, pictures, loop, host};
};

}  // namespace kvo::test
