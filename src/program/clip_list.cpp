#include "program/clip_list.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::size_t kMaxCaption = 50;  // characters

std::string secondsText(double seconds) { return FormatMask(seconds, "0.00") + " s"; }

// Name and value of what a user wants to know of a clip.
std::vector<std::pair<std::string, std::string>> detailsOf(const Movie& clip) {
  std::vector<std::pair<std::string, std::string>> details{{"File", clip.MovieName()},
                                                           {"Folder", clip.Path()}};
  const auto add = [&](const char* name, std::string text) {
    if (!text.empty()) details.emplace_back(name, std::move(text));
  };
  add("Format", clip.Resolution().text());
  if (const auto length = clip.DurationTime().wholeNumber()) add("Length", secondsText(*length));
  if (clip.LoopEnd().number() > 0) {
    add("Section", secondsText(clip.LoopStart().number()) + " to " + secondsText(clip.LoopEnd().number()));
  }
  if (clip.Playspeed() != 10) add("Speed", ShortText(static_cast<double>(clip.Playspeed()) / 10) + " x");
  add("Notes", clip.Notes().text());
  return details;
}

}  // namespace

std::string listCaption(const Collection& collection) {
  const auto& name = collection.IniName;
  const auto stop = name.rfind('.');
  const auto caption = name.substr(0, stop == 0 ? std::string::npos : stop) + " Collection";
  return std::string(cutTo(caption, kMaxCaption));
}

void fillClipList(MainWindowState& window, Collection& collection) {
  auto& clips = collection.MovieList;
  std::vector<std::string> names;
  for (int i = 1; i <= clips.count(); ++i) names.push_back(listedName(clips[i]));
  window.list.Fillist.assign(std::move(names));
  collection.icurMov = clips.empty() ? 0 : std::clamp(collection.icurMov, 1, clips.count());
  window.list.ListIndex = collection.icurMov - 1;
  window.list.caption = listCaption(collection);
}

void PreviewMovie(MainWindowState& window, Collection& collection, int number) {
  if (number == 0) number = 1;
  if (number < 1 || number > collection.MovieList.count()) return;
  collection.icurMov = number;
  window.list.ListIndex = number - 1;
  const auto& clip = collection.MovieList[number];
  window.face.caption = listedName(clip) + " - KVO5";
  window.details.rows = detailsOf(clip);
}

void ClipChoice::select(int number) {
  if (const CommandPass pass(window_); pass) PreviewMovie(window_, collection_, number);
}

void showCollection(MainWindowState& window, const Collection& collection) {
  const bool any = !collection.MovieList.empty();
  window.list.visible = any;
  window.emptyPane.visible = !any;
  window.details.visible = any;
  window.menu.clipsEnabled = any;
  window.transport.playerParked = !any;
  if (any) return;
  window.face.caption = "KVO5";
  window.details.rows.clear();
}

}  // namespace kvo
