// The program without its window on stand-ins for its ports: everything that start-up and the File menu
// touch.
#pragma once

#include "base/text.h"
#include "intake/clip_intake.h"
#include "playback/play_timers.h"
#include "ports/handover.h"
#include "ports/text_questions.h"
#include "program/intake_window.h"
#include "program/list_commands.h"
#include "program/media_commands.h"
#include "program/shut_down.h"
#include "program/skins.h"
#include "program/start_up.h"
#include "support/fakes.h"
#include "support/memory_store.h"
#include "support/plain_desktop.h"
#include "support/scripted_dialogs.h"
#include "support/store_bench.h"
#include "support/virtual_loop.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

/// A mailbox in memory.
class MemoryHandover : public Handover {
 public:
  bool isFirst = true;
  bool isTaken = true;  // what is sent
  std::vector<std::string> sent;
  std::optional<std::string> mailbox;

  bool becomeFirst() override { return isFirst; }
  bool send(std::string_view text) override {
    sent.emplace_back(text);
    return isTaken;
  }
  std::optional<std::string> take() override { return std::exchange(mailbox, std::nullopt); }
};

/// Lines that are typed from a list; Cancel when it runs out.
class ScriptedQuestions : public TextQuestions {
 public:
  std::deque<std::optional<std::string>> answers;
  std::optional<std::string> ask(const std::string& /*title*/, const std::string& /*prompt*/,
                                 const std::string& /*text*/) override {
    return nextOf(answers, std::nullopt);
  }
};

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
    const auto read = loadMask(path);
    if (read) held = path;
    return read;
  }
  Outcome loadMask(const std::string& path) override {
    const auto name = find(path);
    return name && files_.all[*name].starts_with("picture") ? Outcome() : Error{"no picture " + path};
  }

 private:
  MemoryFiles& files_;
};

/// Notes what the skin asks of the player and of the buttons.
class NotedSkinCalls : public SkinCalls {
 public:
  std::string calls;
  bool holdsClip = false;
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
  [[nodiscard]] bool clipHasPath() const override { return true; }
};

/// Adds what the file system of the test holds, and refuses everything else.
class PlainIntake : public ClipIntake {
 public:
  PlainIntake(MemoryFiles& files, Collection& collection, IntakeHost& host)
      : files_(files), collection_(collection), host_(host) {}
  std::vector<std::string> asked;
  std::function<void()> whenAsked = [] {};
  std::function<void()> whenAdded = [] {};

  bool AddMoviesm(const std::string& text, const AddManner& manner) override { return add({text}, manner); }
  bool add(std::vector<std::string> names, const AddManner& /*manner*/) override {
    int number = 0;
    bool any = false;
    for (const auto& name : names) {
      if (!host_.stopped()) host_.analysing(++number, static_cast<int>(names.size()), name);
      if (host_.stopped()) break;
      whenAsked();
      asked.push_back(name);
      if (!files_.exists(name)) continue;
      Movie& clip = collection_.MovieList.add({});
      clip.MovieName(std::string(fileNamePart(name)));
      clip.Path(std::string(folderPart(name)));
      clip.IsStill(name.ends_with(".jpg"));
      host_.added(collection_.MovieList.count());
      whenAdded();
      any = true;
    }
    wasStopped_ = host_.stopped();
    host_.analysed();
    return any;
  }
  [[nodiscard]] bool wasStopped() const override { return wasStopped_; }

 private:
  MemoryFiles& files_;
  Collection& collection_;
  IntakeHost& host_;
  bool wasStopped_ = false;
};

/// The program without its window: everything that start-up and the File menu touch.
struct ProgramBench : StoreBench {
  ProgramBench() {
    files.put({"/prog/Skins/blue.bmp", "/prog/Skins/Plastique.bmp", "/prog/Skins/SkinMask.bmp"}, "picture");
  }

  VirtualLoop loop;
  PlayTimers timers{loop};
  MemoryStore store;
  MemoryHandover handover;
  PlainDesktop desktop;
  ScriptedDialogs dialogs;
  ScriptedQuestions questions;
  MainWindowState window;
  ClipList list{window, collection, settings};
  History history{window, collection, settings, list};
  RecentCollections recent{store, files};
  GatheredBoxes refusals{boxes};
  IntakeWindow intakeWindow{{window, settings, collection, loop, list, desktop, refusals}};
  PlainIntake intake{files, collection, intakeWindow};
  CollectionCommands commands{{files, boxes, dialogs, loop, folder, desktop},
                              file,
                              settings,
                              collection,
                              {window, list, history, recent}};
  ProgramParts parts{files,      boxes,    loop,   handover, store,  desktop, folder,  settings,
                     collection, commands, intake, refusals, window, list,    history, timers};
  Intro intro{parts};
  Mailbox mailbox{parts, intro};
  PlainSkinPictures pictures{files};
  NotedSkinCalls calls;
  Skins skins{{dialogs, boxes, loop, pictures, log, folder}, calls, settings, window};
  StartUp startUp{parts, skins, intro, mailbox};
  ShutDown shutDown{parts, mailbox};
  ListCommands listCommands{{files, clock, boxes}, history, list, intro, collection, window, settings};
  MediaCommands media{{dialogs, desktop, questions, boxes}, settings, window, mailbox};

  /// Ten seconds and 250 frames for each clip, their keys from 1; the first is in hand and nothing is to be
  /// saved.
  void makeEven() {
    for (int i = 1; i <= collection.MovieList.count(); ++i) {
      clip(i).DurationTime(Value(10));
      clip(i).DurationFrames(Value(250));
      clip(i).KeyID(i);
    }
    list.fill();
    list.PreviewMovie(1);
    ClearDirtyFlags(collection, settings);
    settings.state.ObjectChange = 0;
  }

  /// What the list shows, which is what the collection has.
  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const auto& row : window.list.Fillist.rows()) names.push_back(row.name);
    EXPECT_EQ(static_cast<int>(names.size()), collection.MovieList.count());
    return names;
  }

  [[nodiscard]] std::string initials() const {
    std::string all;
    for (const auto& name : names()) all += name[0];
    return all;
  }

  /// Puts a collection of these clips at `path`; their files are there.
  void saveCollection(const std::string& path, const std::vector<std::string>& clips,
                      const std::function<void(KVO2&)>& change = {}) {
    StoreBench b;
    for (const auto& clip : clips) {
      b.addVideo(clip, 0, 5);
      files.all["/v/" + clip] = "x";
    }
    b.settings.adjust().NoofUses = 30;
    b.settings.change().PreviewType = 10;
    if (change) change(b.settings);
    EXPECT_TRUE(b.file.WriteINI(std::string(folderPart(path)), std::string(fileNamePart(path)), true));
    files.all[path] = b.files.all[path];
  }
  /// The program begins with these clips.
  void start(const std::vector<std::string>& clips) {
    saveCollection("/prog/KVO5.INI", clips);
    EXPECT_EQ(startUp.run({}, "/"), StartEnd::Run);
  }
};

}  // namespace kvo::test
