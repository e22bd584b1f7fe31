// The program without its window on stand-ins for its ports: everything that start-up and the File menu
// touch.
#pragma once

#include "intake/clip_intake.h"
#include "program/shut_down.h"
#include "program/start_up.h"
#include "support/fakes.h"
#include "support/memory_handover.h"
#include "support/memory_store.h"
#include "support/plain_desktop.h"
#include "support/plain_skins.h"
#include "support/scripted_dialogs.h"
#include "support/store_bench.h"
#include "support/virtual_loop.h"

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

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
  ProgramBench() {
    for (const auto* name : {"/prog/Skins/blue.bmp", "/prog/Skins/Plastique.bmp", "/prog/Skins/SkinMask.bmp"})
      files.all[name] = "picture";
  }

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
  PlainSkinPictures pictures{files};
  NotedSkinCalls calls;
  Skins skins{{dialogs, loop, pictures, log, folder}, calls, settings, window};
  StartUp startUp{parts, skins, intro, mailbox};
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
