#include "program/clip_list.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/telling/messages.h"
#include "core/telling/translated.h"
#include "playback/positions/displays.h"
#include "program/clip_texts.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr std::size_t kMaxCaption = 50;  // characters

}  // namespace

std::string listName(const Collection& collection) {
  const auto& name = collection.IniName;
  const auto stop = name.rfind('.');
  return name.substr(0, stop == 0 ? std::string::npos : stop);
}

std::string listCaption(const Collection& collection) {
  const auto caption = translated("%1 Collection", {listName(collection)});
  return std::string(cutTo(caption, kMaxCaption));
}

ClipRow ClipList::row(const Movie& clip) const {
  auto row = rowOf(clip, settings_);
  row.missing = missing_.contains(clipFile(clip));
  if (row.missing) row.length = translated("missing");
  return row;
}

void ClipList::missing(std::set<std::string> paths) {
  if (paths == missing_) return;
  missing_ = std::move(paths);
  auto& rows = window_.list.Fillist;
  const int count = std::min(static_cast<int>(rows.rows().size()), collection_.MovieList.count());
  for (int i = 1; i <= count; ++i) rows.set(static_cast<std::size_t>(i - 1), row(collection_.MovieList[i]));
}

void ClipList::fill() {
  const auto& clips = collection_.MovieList;
  std::vector<ClipRow> rows;
  rows.reserve(static_cast<std::size_t>(clips.count()));
  total_ = 0;
  for (int i = 1; i <= clips.count(); ++i) {
    rows.push_back(row(clips[i]));
    total_ += lengthOf(clips[i], settings_).value_or(0);
  }
  window_.list.Fillist.assign(std::move(rows));
  collection_.icurMov = clips.empty() ? 0 : std::clamp(collection_.icurMov, 1, clips.count());
  window_.list.ListIndex = collection_.icurMov - 1;
  window_.list.chosen.clear();
  if (!clips.empty()) window_.list.chosen = {collection_.icurMov};
  window_.list.caption = listCaption(collection_);
  countUp();
}

void ClipList::addLast() {
  const auto& clips = collection_.MovieList;
  window_.list.Fillist.append(row(clips[clips.count()]));
  total_ += lengthOf(clips[clips.count()], settings_).value_or(0);
  window_.list.caption = listCaption(collection_);
  countUp();
}

void ClipList::renew(int number) {
  const auto& clip = collection_.MovieList[number];
  window_.list.Fillist.set(static_cast<std::size_t>(number - 1), row(clip));
  if (number == collection_.icurMov) tell(clip);
}

// What hangs on the number of clips.
void ClipList::countUp() {
  const auto& clips = collection_.MovieList;
  const bool any = !clips.empty();
  const bool several = clips.count() > 1;
  window_.collectionDetails.clips = clipsText(static_cast<std::size_t>(clips.count()));
  window_.collectionDetails.totalTime = totalText(total_);
  window_.menu.clipsEnabled = any;
  window_.listKeys = {.UP = several, .DOWN = several, .ADD = true, .Cross = any, .SORT = several};
}

void ClipList::PreviewMovie(int number) {
  if (number == 0) number = 1;
  inHand_ = nullptr;
  choose({number}, number);
}

void ClipList::select(int number) {
  if (number < 1 || number > collection_.MovieList.count()) return;
  auto& list = window_.list;
  if (number == collection_.icurMov && list.ListIndex == number - 1) return;
  if (std::ranges::find(list.chosen, number) == list.chosen.end()) list.chosen = {number};
  list.ListIndex = number - 1;
  list.rename = false;
  collection_.icurMov = number;
  inHand_ = &collection_.MovieList[number];
  told_ = nullptr;
  tell(*inHand_);
}

void ClipList::choose(std::vector<int> numbers, int number) {
  const int count = collection_.MovieList.count();
  if (number < 1 || number > count) return;
  std::erase_if(numbers, [&](int n) { return n < 1 || n > count; });
  numbers.push_back(number);
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  window_.list.chosen = std::move(numbers);
  window_.list.ListIndex = number - 1;
  window_.list.rename = false;
  collection_.icurMov = number;
  const auto* clip = &collection_.MovieList[number];
  if (std::exchange(inHand_, clip) == clip) {
    window_.mode.player.clip = window_.mode.player.clip > 0 ? number : 0;
    return tell(*clip);
  }
  told_ = nullptr;
  tell(*clip);
  whenInHand_(number);
}

const StreamFacts* ClipList::factsOf(const Movie& clip) {
  if (auto path = clipFile(clip); path != known_.path) {
    known_ = {std::move(path), std::nullopt};
    if (!clip.IsHTML() && !isAddress(known_.path)) whenUnknown_(known_.path);
  }
  return known_.facts ? &*known_.facts : nullptr;
}

void ClipList::tell(const Movie& clip) {
  const auto* facts = factsOf(clip);
  window_.face.caption = windowCaption(clip);
  window_.list.tip = std::string(LoadResString(385)).append(clipFile(clip));
  if (!clip.SrcName().empty())
    window_.list.tip.append(kCrLf).append(
        translated("<Low Res Copy - Full Res Master = %1>", {clip.SrcName()}));
  auto& details = window_.details;
  details.name = listedName(clip);
  details.pairs = detailsOf(clip, settings_, facts);
  details.chips = chipsOf(clip, facts);
  auto& display = window_.display;
  display.sound = hasSound(clip);
  display.volume = percentOf(clip.Volume());
  const auto before = std::exchange(window_.slider, sliderOf(clip));
  if (std::exchange(told_, &clip) == &clip) {
    window_.slider.position = before.position;
    const auto& mode = window_.mode.player;
    if (mode.clip == collection_.icurMov && !mode.clipWaits) {  // the player tells the rest of it
      window_.slider.markIn = before.markIn;
      window_.slider.markOut = before.markOut;
      return;
    }
  }
  const double position = window_.slider.position * window_.slider.length;
  details.position = positionText(clip, position);
  display.digits = digitsAt(clip, position, settings_);
  display.digitsTip =
      display.digits.empty() ? "" : "Point in Time (mm:ss:frames) - Click for Direct Positioner";
  display.rate = display.sound ? rateLabel(static_cast<double>(clip.Playspeed()) / 10) : std::string();
}

void ClipList::show() {
  const bool any = !collection_.MovieList.empty();
  window_.list.visible = any;
  window_.emptyPane.visible = !any;
  window_.collectionDetails.visible = any;
  window_.details.visible = any;
  if (any) return;
  window_.face.caption = "KVO5";
  window_.list.tip.clear();
  window_.details = {};
  window_.slider = {};
  const bool muted = window_.display.muted;  // it is the user's, and no clip's
  window_.display = {};
  window_.display.muted = muted;
  inHand_ = nullptr;
  whenInHand_(0);
}

void ClipList::takeFacts(const std::string& path, const StreamFacts& facts) {
  if (collection_.icurMov == 0 || path != known_.path) return;
  known_.facts = facts;
  tell(collection_.MovieList[collection_.icurMov]);
}

}  // namespace kvo
