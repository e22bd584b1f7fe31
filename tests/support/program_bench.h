// The program without its window on stand-ins for its ports: everything that start-up and the File menu
// touch.
#pragma once

#include "intake/clip_intake.h"
#include "program/shut_down.h"
#include "program/start_up.h"
#include "support/memory_store.h"
#include "support/store_bench.h"
#include "support/virtual_loop.h"

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

class MemoryHandover : public Handover {
 public:
  bool isFirst = true;
  std::vector<std::string> sent;
  std::optional<std::string> mailbox;

  bool becomeFirst() override { return isFirst; }
  bool send(std::string_view text) override {
    sent.emplace_back(text);
    return true;
  }
  std::optional<std::string> take() override { return std::exchange(mailbox, std::nullopt); }
};

class PlainDesktop : public Desktop {
 public:
  ScreenFacts facts{1920, 1080, 24, 1};
  std::vector<std::string> pages;
  std::string videos;
  [[nodiscard]] ScreenFacts screen() const override { return facts; }
  [[nodiscard]] std::string videosFolder() const override { return videos; }
  bool openPage(const std::string& address) override {
    pages.push_back(address);
    return true;
  }
};

class ScriptedDialogs : public FileDialogs {
 public:
  std::deque<std::optional<std::string>> answers;
  std::vector<FileQuestion> asked;
  std::optional<std::string> open(const FileQuestion& question) override { return next(question); }
  std::optional<std::string> save(const FileQuestion& question) override { return next(question); }
  std::vector<std::string> openSeveral(const FileQuestion& question) override {
    const auto one = next(question);
    return one ? std::vector{*one} : std::vector<std::string>();
  }

 private:
  std::optional<std::string> next(const FileQuestion& question) {
    asked.push_back(question);
    if (answers.empty()) return std::nullopt;
    auto answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

/// Adds what the file system of the test holds, and refuses everything else.
class PlainIntake : public ClipIntake {
 public:
  PlainIntake(MemoryFiles& files, Collection& collection) : files_(files), collection_(collection) {}
  std::vector<std::string> asked;
  KVO2* settings = nullptr;  // changed by an addition as the real intake changes them
  bool AddMoviesm(const std::string& text) override {
    asked.push_back(text);
    if (!files_.exists(text)) return false;
    Movie clip;
    clip.MovieName(std::string(fileNamePart(text)));
    clip.Path(std::string(folderPart(text)));
    clip.IsStill(text.ends_with(".jpg"));
    collection_.MovieList.add(std::move(clip));
    if (settings != nullptr) {
      settings->change().LoadFrom = std::string(folderPart(text));
      settings->state.IsDirty = true;
    }
    return true;
  }

 private:
  MemoryFiles& files_;
  Collection& collection_;
};

/// The program without its window: everything that start-up and the File menu touch.
struct ProgramBench : StoreBench {
  VirtualLoop loop;
  MemoryStore store;
  MemoryHandover handover;
  PlainDesktop desktop;
  ScriptedDialogs dialogs;
  MainWindowState window;
  PlainIntake intake{files, collection};
  CollectionCommands commands{{files, boxes, dialogs, loop, folder}, file, settings, collection, window};
  ProgramParts parts{files, boxes,    loop,       handover, store,  desktop, folder,
                     file,  settings, collection, commands, intake, window};
  Intro intro{parts};
  Mailbox mailbox{parts, intro};
  StartUp startUp{parts, intro, mailbox};
  ShutDown shutDown{parts, intro, mailbox};

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
};

}  // namespace kvo::test
