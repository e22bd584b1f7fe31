// A movie made in virtual time: an engine that needs as long as it is told, and a host that notes what it is
// asked for.
#pragma once

#include "render/movie_render.h"
#include "support/fakes.h"
#include "support/memory_folders.h"
#include "support/memory_locks.h"
#include "support/memory_store.h"
#include "support/noted_work.h"
#include "support/scripted_dialogs.h"
#include "support/virtual_loop.h"

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo::test {

/// What the engine does when it is started for the n-th time.
struct EngineTurn {
  double seconds = 1;
  std::size_t bytes = 1;  ///< of the file that it makes
  int exitCode = 0;
  std::string says{};  ///< on standard error
  bool heedsStop = true;
};

class TimedEngine : public Processes {
 public:
  TimedEngine(VirtualLoop& loop, MemoryFiles& files) : loop_(loop), files_(files) {}

  std::deque<EngineTurn> turns;
  std::vector<std::string> calls;  // the line of the script that runs the engine
  int running = 0;

  Result<std::unique_ptr<Process>> start(EventLoop& /*loop*/, const ProcessOrder& order,
                                         ProcessHearing hearing) override {
    const auto& script = files_.all.at(order.arguments.back());
    const auto begin = script.find('\n') + 1;
    calls.push_back(script.substr(begin, script.find('\n', begin) - begin));
    turn_ = turns.empty() ? EngineTurn() : turns.front();
    if (!turns.empty()) turns.pop_front();
    hearing_ = std::move(hearing);
    ++running;
    end_ = loop_.timer([this] { end(); });
    end_->start(static_cast<int>(turn_.seconds * 1000));
    hearing_.line("progress 1.000 4.000 1000000 1.000");
    return std::unique_ptr<Process>(std::make_unique<Handle>(*this));
  }
  [[nodiscard]] int ownNumber() const override { return 77; }

 private:
  class Handle : public Process {
   public:
    explicit Handle(TimedEngine& engine) : engine_(engine) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() override {
      --engine_.running;
      engine_.end_->stop();
    }
    bool write(std::string_view /*bytes*/) override { return false; }
    void stop() override {
      if (!engine_.turn_.heedsStop) return engine_.end_->stop();
      engine_.turn_.exitCode = 143;
      engine_.end_->start(100);
    }
    void kill() override {}

   private:
    TimedEngine& engine_;
  };

  void end() {
    end_->stop();
    const auto& call = calls.back();
    const auto at = call.find("'/W' '") + 6;
    if (turn_.exitCode == 0)
      files_.all[call.substr(at, call.find('\'', at) - at)] = std::string(turn_.bytes, 'x');
    if (turn_.exitCode != 0) hearing_.line("progress 1.000 4.000 1000000 1.000");
    if (!turn_.says.empty()) hearing_.errorLine(turn_.says);
    const auto hearing = hearing_;
    hearing.ended({turn_.exitCode, 0});
  }

  VirtualLoop& loop_;
  MemoryFiles& files_;
  EngineTurn turn_;
  ProcessHearing hearing_;
  std::unique_ptr<Timer> end_;
};

class NotingRenderHost : public RenderHost {
 public:
  using Strip = std::function<Outcome(const std::string& source, const std::string& wav)>;
  explicit NotingRenderHost(Strip strip) : strips(std::move(strip)) {}
  std::string notes;
  std::function<void()> onChange = [] {};
  Strip strips;

  void PlayerStop() override { note("stop"); }
  void ImagesOff() override { note("images-"); }
  void UpdLastRead() override { note("read"); }
  void AddMoviesm(const std::string& path) override { note("add:" + path); }
  void DisabEditControls(bool disabled) override { note(disabled ? "controls-" : "controls+"); }
  void ApplyStillSettings() override { note("stills"); }
  void KillPreview() override { note("kill"); }
  void Buildtabs() override { note("tabs"); }
  void deleteWorkFiles() override { note("sweep"); }
  Outcome StripWavFromCurrentVideo(const std::string& source, const std::string& wav) override {
    note("strip:" + source);
    return strips(source, wav);
  }
  void renderChanged() override { onChange(); }

 private:
  void note(const std::string& what) { notes += (notes.empty() ? "" : " ") + what; }
};

/// Two clips of 4 and 8 seconds, and a system profile file.
struct RenderBench : Bench {
  /// `used` is what an earlier start has left to be remembered.
  explicit RenderBench(const decltype(MemoryStore::all)& used = {}) {
    store.all = used;
    addVideo("beach.avi", 0, 4);
    addVideo("hills.avi", 0, 8);
    collection.IniName = "Holiday.INI";
    files.all["/prog/wmsysprx.prx"] = "system";
    files.all["/out/notes.txt"] = "";  // the folder is there
    settings.adjust().RenderDiskWarning = false;
    settings.adjust().RenderTimeWarning = false;
    settings.adjust().RenderEstimateSecs = 5;
    dialogs.answers = {"/out/my film.wmv"};
  }
  /// The options as the user has them: a kind, and of its list a profile.
  void choose(OutputKind kind, int number = -1) {
    render.Rendertofile();
    render.chooseKind(kind);
    for (std::size_t row = 0; row < state.Lst_WMVFormats.size(); ++row) {
      if (GetWMVRenderProfileInt(state.Lst_WMVFormats[row]) == number)
        render.chooseProfile(static_cast<int>(row));
    }
    host.notes.clear();
  }
  /// What the movie is made for, by the name of its preset.
  void chooseFor(std::string_view preset) {
    const auto row = std::ranges::find(state.Lst_MadeFor, preset, &MadeForRow::preset);
    if (row != state.Lst_MadeFor.end())
      render.chooseMadeFor(static_cast<int>(row - state.Lst_MadeFor.begin()));
  }

  VirtualLoop loop;
  MemoryFolders folders;
  MemoryLocks locks;
  ScriptedDialogs dialogs;
  TimedEngine engine{loop, files};
  CreateTab create;
  double freeMegabytes = 1e6;
  MemoryStore store;
  NotedWork work;
  RenderState state;
  NotingRenderHost host{[this](const std::string& source, const std::string& wav) {
    files.all[wav] = files.all.at(source);
    return Outcome();
  }};
  std::vector<RenderOrder> queued;
  std::string queuedProfile;
  int asksForHardware = 0;
  MovieRender render{{editing,
                      create,
                      dialogs,
                      locks,
                      {files, folders, engine, loop, "/bin/KVORender"},
                      [this](const std::string&) { return freeMegabytes; },
                      host,
                      store,
                      work,
                      [] { return std::string("/videos"); },
                      [this](const std::string&, const RenderOrder& order, const std::string& profile) {
                        queued.push_back(order);
                        queuedProfile = profile;
                        return Result<int>(1);
                      },
                      [this] { ++asksForHardware; }},
                     state};
};

}  // namespace kvo::test
