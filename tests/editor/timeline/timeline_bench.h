// A collection as a timeline shows it, and a desk that carries out what is done there.
#pragma once

#include "editor/tabs/operations.h"
#include "editor/timeline/timeline_hand.h"
#include "editor/timeline/timeline_writes.h"
#include "support/fakes.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace kvo::test {

struct TimelineBench : Bench, TimelineActs {
  TimelineState state;
  TimelineHand hand{state, *this};
  std::vector<std::string> told;  ///< what the desk was asked for

  /// At 25 pictures a second.
  Movie& video(const std::string& name, double start, double end, double length) {
    auto& clip = addVideo(name, start, end);
    clip.DurationTime(Value(length));
    clip.DurationFrames(Value(length * 25));
    return clip;
  }
  Movie& dissolve(Movie& clip, Single tenths) {
    clip.TransType("Dissolve");
    clip.TransIn(tenths);
    return clip;
  }
  Movie& music(const std::string& name, double length) {
    auto& clip = addMusic(name, 0, length);
    clip.DurationTime(Value(length));
    clip.MovieHeight(0);
    return clip;
  }
  /// Clips of 6, 8.4 and 7 seconds, the second dissolving in over 2, and music of 153 that ends with them.
  void holiday() {
    video("opening.mp4", 0, 6, 6);
    dissolve(video("lake.mpg", 2, 10.4, 20), 20).EffectWord("11" + std::string(44, '0'));
    video("sailing.avi", 0, 7, 7);
    auto& song = music("music.mp3", 153);
    song.AudioFadeInTime(2);
    song.HasAudioFade(true);
    show();
  }

  void show() { hand.show(blocksOf(TimelineClips(collection, streams), collection, optionsOf(editing))); }

  [[nodiscard]] TimelinePoint at(double seconds, double y) const { return {state.sight.xOf(seconds), y}; }
  void drag(const TimelinePoint& from, const TimelinePoint& to, const TimelineHeld& held = {.alt = true}) {
    hand.press(from, held);
    hand.move(to, held);
  }

  void note(const std::string& what) { told.push_back(what); }
  void select(int clip) override { note("select " + std::to_string(clip)); }
  void moveTo(int clip, int before) override {
    note("move " + std::to_string(clip) + " before " + std::to_string(before));
    std::vector<int> order(static_cast<std::size_t>(collection.MovieList.count()));
    std::iota(order.begin(), order.end(), 1);
    const auto from = order.begin() + (clip - 1);
    const auto to = order.begin() + (before - 1);
    from < to ? std::rotate(from, from + 1, to) : std::rotate(to, from, from + 1);
    collection.MovieList.arrange(order);
    show();
  }
  void setMark(const MarkGesture& mark) override {
    writeMark(collection.MovieList[mark.clip], mark);
    note("mark " + std::to_string(mark.clip));
    show();
  }
  void setTransIn(const TransInGesture& transition) override {
    writeTransIn(collection.MovieList[transition.clip], transition);
    note("transition " + std::to_string(transition.clip) + " " + std::to_string(transition.tenths));
    show();
  }
  void setFade(const FadeGesture& fade) override {
    writeFade(collection.MovieList[fade.clip], fade);
    note("fade " + std::to_string(fade.clip) + " " + std::to_string(fade.tenths));
    show();
  }
  void seek(double seconds) override { note("seek " + ShortText(seconds)); }
  void setRange(const TimelineRange& range) override {
    note("range " + ShortText(range.from) + " " + ShortText(range.to));
  }
  void showFrame(int clip, double seconds) override {
    note("frame " + std::to_string(clip) + " " + ShortText(seconds));
  }
  void endFrame() override { note("frame ends"); }
  void insertFiles(const std::vector<std::string>& files, int before) override {
    note("insert " + files.front() + " before " + std::to_string(before));
  }
  void remove(int clip) override { note("remove " + std::to_string(clip)); }
  std::string whyNot;  ///< nothing is copied or split
  std::string copy(int clip) override {
    note("copy " + std::to_string(clip));
    return whyNot;
  }
  std::string split(int clip) override {
    note("split " + std::to_string(clip));
    return whyNot;
  }
  void openTab(int tab, int clip) override {
    note("tab " + std::to_string(tab) + " " + std::to_string(clip));
  }
  void openTrimmer(int clip) override { note("trimmer " + std::to_string(clip)); }
  void openMenu(int clip, int /*x*/, int /*y*/) override { note("menu " + std::to_string(clip)); }
};

}  // namespace kvo::test
