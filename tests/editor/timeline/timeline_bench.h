// A collection as a timeline shows it, and a desk that carries out what is done there.
#pragma once

#include "editor/tabs/operations.h"
#include "editor/timeline/timeline_hand.h"
#include "editor/timeline/timeline_writes.h"
#include "support/fakes.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace kvo::test {

struct TimelineBench : Bench, TimelineActs {
  TimelineState state;
  TimelineHand hand{state, *this};
  std::string told;  ///< what the desk was asked for, joined by ", "
  int changes = 0;   ///< that it has made

  /// At 25 pictures a second.
  Movie& video(const std::string& name, double start, double end, double length) {
    auto& clip = addVideo(name, start, end);
    clip.DurationTime(Value(length));
    clip.DurationFrames(Value(length * 25));
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
    auto& lake = video("lake.mpg", 2, 10.4, 20);
    lake.TransType("Dissolve");
    lake.TransIn(20);
    lake.EffectWord("11" + std::string(44, '0'));
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

  template <class... Numbers>
  void note(std::string what, Numbers... numbers) {
    ((what += " " + ShortText(static_cast<double>(numbers))), ...);
    told += (told.empty() ? "" : ", ") + what;
  }
  /// The desk makes a change, and shows what has become of it.
  template <class... Numbers>
  void change(const char* what, int clip, Numbers... numbers) {
    note(what, clip, numbers...);
    ++changes;
    show();
  }
  /// What it was asked for since the last look.
  std::string look() { return std::exchange(told, {}); }

  void select(int clip) override { note("select", clip); }
  void moveTo(int clip, int before) override {
    std::vector<int> order(static_cast<std::size_t>(collection.MovieList.count()));
    std::iota(order.begin(), order.end(), 1);
    const auto from = order.begin() + (clip - 1);
    const auto to = order.begin() + (before - 1);
    from < to ? std::rotate(from, from + 1, to) : std::rotate(to, from, from + 1);
    collection.MovieList.arrange(order);
    change("move", clip, before);
  }
  void setMark(const MarkGesture& mark) override {
    writeMark(collection.MovieList[mark.clip], mark);
    change("mark", mark.clip);
  }
  void setTransIn(const TransInGesture& transition) override {
    writeTransIn(collection.MovieList[transition.clip], transition);
    change("transition", transition.clip, transition.tenths);
  }
  void setFade(const FadeGesture& fade) override {
    writeFade(collection.MovieList[fade.clip], fade);
    change("fade", fade.clip, fade.tenths);
  }
  void seek(double seconds) override { note("seek", seconds); }
  void setRange(const TimelineRange& range) override { note("range", range.from, range.to); }
  void showFrame(int clip, double seconds) override { note("frame", clip, seconds); }
  void endFrame() override { note("frame ends"); }
  void insertFiles(const std::vector<std::string>& files, int before) override {
    note("insert " + files.front() + " before " + std::to_string(before));
  }
  void remove(int clip) override { note("remove", clip); }
  std::string copy(int clip) override { return note("copy", clip), std::string(); }
  std::string split(int clip) override { return note("split", clip), std::string(); }
  void openTab(int tab, int clip) override { note("tab", tab, clip); }
  void openTrimmer(int clip) override { note("trimmer", clip); }
  void openMenu(int clip, int /*x*/, int /*y*/) override { note("menu", clip); }
};

}  // namespace kvo::test
