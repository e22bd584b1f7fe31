// A preview on stand-ins: its host notes what it is asked for.
#pragma once

#include "editor/preview/preview_engine.h"
#include "ports/timeline_player.h"
#include "support/fakes.h"
#include "support/virtual_loop.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo::test {

/// A player of documents that does at once what it is told and shows nothing by itself.
class FakeTimelinePlayer : public TimelinePlayer {
 public:
  PlayState now = PlayState::Empty;
  std::string why;
  std::int64_t frame = 0;
  std::int64_t length = 100;  // frames of whatever is loaded, 10 a second
  bool refuses = false;       // no document makes sense
  std::vector<std::string> documents;
  std::string acts;  // "load seek:3 play"

  Outcome load(std::string document) override {
    told("load");
    frame = 0;
    now = refuses ? PlayState::Empty : PlayState::Stopped;
    documents.push_back(std::move(document));
    return refuses ? Outcome(Error{"line 3 makes no sense"}) : Outcome();
  }
  void clear() override {
    told("clear");
    now = PlayState::Empty;
    frame = 0;
  }
  void play() override {
    told("play");
    now = PlayState::Playing;
  }
  void pause() override {
    told("pause");
    now = PlayState::Paused;
  }
  void stop() override {
    told("stop");
    now = PlayState::Stopped;
    frame = 0;
  }
  void seek(std::int64_t to) override {
    told("seek:" + std::to_string(to));
    frame = to;
  }
  [[nodiscard]] PlayState state() const override { return now; }
  [[nodiscard]] std::string failure() const override { return why; }
  [[nodiscard]] std::int64_t position() const override { return frame; }
  [[nodiscard]] std::int64_t frames() const override { return now == PlayState::Empty ? 0 : length; }
  [[nodiscard]] double frameRate() const override { return now == PlayState::Empty ? 0 : 10; }

 private:
  void told(const std::string& act) { acts += (acts.empty() ? "" : " ") + act; }
};

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
