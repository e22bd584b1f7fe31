// A collection on stand-ins for the ports.
#pragma once

#include "editor/tabs/editing.h"
#include "support/memory_files.h"
#include "support/named_streams.h"
#include "support/scripted_boxes.h"
#include "support/still_clock.h"
#include "support/texts.h"

#include <string>

namespace kvo::test {

/// A collection with everything round it that reading, writing and compiling need.
struct Bench {
  MemoryFiles files;
  ScriptedBoxes boxes;
  StillClock clock;
  NamedStreams streams;
  ProgramFolder folder{"/prog"};
  KVO2 settings;
  Collection collection;
  EditorState editor;
  ErrorLog log{files, clock, settings, folder};
  Editing editing{collection, settings, editor, streams, files, boxes, folder, log, clock};
  ChangePoster poster{settings};

  Movie& clip(int number) { return collection.MovieList[number]; }
  [[nodiscard]] bool dirty() const { return isDirty(collection, settings); }

  /// A clip with picture and sound at normal speed.
  Movie& addVideo(const std::string& name, double start, double end, const std::string& path = "/v/") {
    Movie& clip = collection.MovieList.add({});
    clip.MovieName(name);
    clip.Path(path);
    clip.LoopStart(Value(start));
    clip.LoopEnd(Value(end));
    clip.AudioOutputLevel(1);
    clip.RenderAudio(true);
    clip.Resolution("640 x 480");
    clip.TransType("CUT");
    streams.all[path + name] = {
        .hasVideo = true, .hasAudio = true, .width = 640, .height = 480, .frameRate = 25};
    files.all[path + name] = "x";
    clip.listener(&poster);  // as a clip of the running program, which has been loaded or added
    return clip;
  }

  Movie& addMusic(const std::string& name, double start, double end) {
    Movie& clip = addVideo(name, start, end);
    clip.Resolution("44.1 Khz");
    streams.all["/v/" + name] = {.hasAudio = true};
    return clip;
  }

  /// Without an `end` it has no length yet.
  Movie& addStill(const std::string& name, double end = 0, const std::string& path = "/v/") {
    Movie& clip = addVideo(name, 0, end, path);
    clip.IsStill(true);
    return clip;
  }
};

/// The clip with a transition into it, over tenths of a second.
inline Movie& withTransition(Movie& clip, const std::string& name, double tenths) {
  clip.TransType(name);
  clip.TransIn(static_cast<Single>(tenths));
  return clip;
}

}  // namespace kvo::test
