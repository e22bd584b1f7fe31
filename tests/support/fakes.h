// Stand-ins for the ports: files in memory that can fail at the n-th call, boxes that answer from a list, a
// clock that stands still, and streams told by name.
#pragma once

#include "editor/compiler/compilation.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/frame_source.h"
#include "ports/message_boxes.h"

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kvo::test {

class MemoryFiles : public Files {
 public:
  std::map<std::string, std::string> all;
  std::set<std::string> unreadable;
  std::set<std::string> unwritable;
  std::vector<std::string> removed;
  int failedReplaces = 0;  // the number of times that writing a file anew fails from now on
  int failAt = 0;          // the number of the changing call that fails, 0 for none
  int calls = 0;

  [[nodiscard]] bool exists(const std::string& path) const override { return all.contains(path); }

  [[nodiscard]] Result<std::string> read(const std::string& path, std::uint64_t limit) const override {
    const auto found = all.find(path);
    if (unreadable.contains(path)) return Error{"cannot read " + path + ": Input/output error"};
    if (found == all.end()) return Error{"cannot read " + path + ": No such file or directory"};
    if (found->second.size() > limit) return Error{"cannot read " + path + ": File too large"};
    return found->second;
  }

  Result<std::unique_ptr<Replacement>> replace(const std::string& path) override {
    if (fails() || (failedReplaces > 0 && failedReplaces-- > 0))
      return Error{"cannot write " + path + ": injected"};
    return std::unique_ptr<Replacement>(std::make_unique<InMemory>(*this, path));
  }

  Outcome append(const std::string& path, std::string_view bytes) override {
    if (unwritable.contains(path)) return Error{"cannot write " + path + ": Permission denied"};
    all[path].append(bytes);
    return {};
  }

  Outcome rename(const std::string& from, const std::string& to) override {
    if (fails()) return Error{"cannot rename " + from + ": injected"};
    all[to] = std::move(all[from]);
    all.erase(from);
    unreadable.erase(from);
    return {};
  }

  bool remove(const std::string& path) override {
    removed.push_back(path);
    all.erase(path);
    return true;
  }

  Outcome makeFolder(const std::string& /*path*/) override { return {}; }
  [[nodiscard]] bool sameFile(const std::string& a, const std::string& b) const override { return a == b; }

 private:
  class InMemory : public Replacement {
   public:
    InMemory(MemoryFiles& files, std::string path) : files_(files), path_(std::move(path)) {}
    Outcome write(std::uint64_t at, std::string_view bytes) override {
      if (files_.fails()) return Error{"cannot write " + path_ + ": injected"};
      bytes_.resize(std::max<std::size_t>(bytes_.size(), at + bytes.size()));
      bytes_.replace(at, bytes.size(), bytes);
      return {};
    }
    [[nodiscard]] std::uint64_t size() const override { return bytes_.size(); }
    Outcome commit() override {
      if (files_.fails()) return Error{"cannot replace " + path_ + ": injected"};
      files_.all[path_] = bytes_;
      return {};
    }

   private:
    MemoryFiles& files_;
    std::string path_;
    std::string bytes_;
  };

  bool fails() { return ++calls == failAt; }
};

class ScriptedBoxes : public MessageBoxes {
 public:
  std::deque<Answer> answers;  // Ok when it runs out
  std::vector<Box> shown;

  Answer show(const Box& box) override {
    shown.push_back(box);
    whileShown();
    if (answers.empty()) return Answer::Ok;
    const auto answer = answers.front();
    answers.pop_front();
    return answer;
  }
  StyledAnswer showStyled(const StyledBox& box) override {
    styled.push_back(box);
    return styledAnswer;
  }
  void answerOpenBox() override { ++answeredByTime; }

  std::function<void()> whileShown = [] {};
  std::vector<StyledBox> styled;
  StyledAnswer styledAnswer;
  int answeredByTime = 0;
};

class StillClock : public Clock {
 public:
  LocalTime time{2026, 3, 7, 14, 5, 9};
  mutable std::vector<int> pauses;  // milliseconds
  [[nodiscard]] LocalTime now() const override { return time; }
  void pause(int milliseconds) const override { pauses.push_back(milliseconds); }
};

class NamedStreams : public FrameSource {
 public:
  std::map<std::string, StreamFacts> all;

  Result<StreamFacts> facts(const std::string& path) override {
    const auto found = all.find(path);
    if (found == all.end()) return Error{"cannot open " + path};
    return found->second;
  }
};

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
  Compilation compilation{collection, settings, editor, streams, files, boxes, folder, log, clock};
  ChangePoster poster{settings};

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
};

}  // namespace kvo::test
