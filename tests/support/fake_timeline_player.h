// A player of documents that does at once what it is told and shows nothing by itself.
#pragma once

#include "ports/timeline_player.h"

#include <string>
#include <vector>

namespace kvo::test {

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

}  // namespace kvo::test
