#include "program/history.h"

#include "base/text.h"
#include "core/telling/translated.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/picture_in_picture.h"
#include "program/clip_texts.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace kvo {
namespace {

constexpr std::size_t kMaxName = 40;  // characters of a clip's name in a menu

std::vector<int> range(int first, int last) {
  std::vector<int> numbers(static_cast<std::size_t>(std::max(0, last - first + 1)));
  std::iota(numbers.begin(), numbers.end(), first);
  return numbers;
}

std::vector<int> inverseOf(const std::vector<int>& order) {
  std::vector<int> inverse(order.size());
  for (std::size_t i = 0; i < order.size(); ++i)
    inverse[static_cast<std::size_t>(order[i] - 1)] = static_cast<int>(i) + 1;
  return inverse;
}

std::vector<int> keyframesOf(const Collection& collection, const std::vector<int>& clips) {
  std::set<Long> keys;
  for (const int number : clips) keys.insert(collection.MovieList[number].KeyID());
  std::vector<int> numbers;
  for (int i = 1; i <= collection.KeyframeList.count(); ++i) {
    if (keys.contains(collection.KeyframeList[i].ClipName)) numbers.push_back(i);
  }
  return numbers;
}

bool gives(const RecordStep<Movie>& step, int number) {
  return std::ranges::any_of(step.values, [&](const auto& value) { return value.first == number; });
}

// What a drag sets anew with each move is kept as it was ahead of the first.
template <class Step>
void addFirst(Step& way, const Step& latest) {
  for (const auto& [value, text] : latest) {
    if (std::ranges::find(way, value, &Step::value_type::first) == way.end()) way.emplace_back(value, text);
  }
}

}  // namespace

std::string stepName(std::string_view act, const Collection& collection, const std::vector<int>& numbers) {
  const auto pattern = std::string(act).append(" %1");
  if (numbers.size() != 1) return translated(pattern.c_str(), {clipsText(numbers.size())});
  const auto clip = listedName(collection.MovieList[numbers[0]]);
  const auto shown = cutTo(clip, kMaxName);
  return translated(pattern.c_str(), {std::string(shown).append(shown.size() < clip.size() ? "..." : "")});
}

bool History::remove(const CommandPass& pass, const std::vector<int>& numbers) {
  if (!pass || numbers.empty() || !has(numbers.front()) || !has(numbers.back())) return false;
  ListStep step{.name = stepName("remove", collection_, numbers)};
  step.clips.leave = numbers;
  step.keyframes.leave = keyframesOf(collection_, numbers);
  const int left = collection_.MovieList.count() - static_cast<int>(numbers.size());
  step.inHand = std::min(numbers.front(), left);
  carryOut(std::move(step), &pass);
  return true;
}

bool History::arrange(const CommandPass& pass, std::string name, std::vector<int> order,
                      std::vector<int> chosen, int inHand) {
  if (!pass || static_cast<int>(order.size()) != collection_.MovieList.count() ||
      std::is_sorted(order.begin(), order.end()))
    return false;
  carryOut(
      {.name = std::move(name), .order = std::move(order), .chosen = std::move(chosen), .inHand = inHand});
  return true;
}

bool History::edit(const CommandPass& pass, std::string name, int number, Integer changeCode,
                   const std::function<void(Movie&)>& change, std::string_view series) {
  if (!pass || !has(number)) return false;
  auto& clip = collection_.MovieList[number];
  const auto thisSeries = series.empty() ? std::string() : std::string(series) + std::to_string(number);
  if (!thisSeries.empty() && thisSeries == series_) {
    releaseTransitions();
    change(clip);
    holdTransitions();
    settings_.state.postChange(changeCode, changeCode);
    list_.renew(number);
    if (number == collection_.icurMov) whenEdited_(number);
    this->changed();
    return true;
  }
  Movie changed = clip;
  change(changed);
  ListStep step{.name = std::move(name), .changeCode = changeCode, .inHand = number};
  step.clips.values.emplace_back(number, std::move(changed));
  carryOut(std::move(step));
  series_ = thisSeries;
  return true;
}

bool History::change(const CommandPass& pass, std::string name, Integer changeCode,
                     const std::function<void()>& work, std::string_view series) {
  if (!pass) return false;
  const auto thisSeries = series.empty() ? std::string() : std::string(series) + "*";
  if (!thisSeries.empty() && thisSeries == series_) releaseTransitions();
  const bool wasDirty = settings_.state.IsDirty;
  const auto told = settings_.state.ObjectChange;
  const CollectionShot before(collection_, settings_);
  std::vector<std::string> beside;
  for (const auto& value : beside_) beside.push_back(value.text());
  ListStep back{.name = std::move(name),
                .changeCode = changeCode,
                .leadsToSaved = !settings_.state.ListIsDirty,
                .chosen = window_.list.chosen,
                .inHand = collection_.icurMov};
  work();
  before.takeOverlaysAlong(collection_.MovieList);
  settings_.state.IsDirty = wasDirty;
  back.clips = before.wayBack(collection_.MovieList);
  back.keyframes = before.wayBack(collection_.KeyframeList);
  back.preferences = before.wayBack(settings_);
  for (std::size_t i = 0; i < beside.size(); ++i) {
    if (beside_[i].text() != beside[i]) back.beside.emplace_back(i, std::move(beside[i]));
  }
  if (back.changesNoFile() && back.beside.empty()) {
    if (!thisSeries.empty() && thisSeries == series_) holdTransitions();
    settings_.state.ObjectChange = told;
    return false;
  }
  if (!back.changesNoFile()) settings_.state.ListIsDirty = true;
  settings_.state.postChange(changeCode, changeCode);
  renew(back);
  const Shown shown{.moved = !back.movesNothing(),
                    .edited = gives(back.clips, collection_.icurMov),
                    .inHand = collection_.icurMov};
  if (!joinsSeries(back, thisSeries)) {
    keep(std::move(back));
    series_ = thisSeries;
  }
  holdTransitions();
  if (shown.moved) pass.open();
  show(shown);
  return true;
}

// Values alone go into the newest step of the series; what moves records is a step more, taken with it.
bool History::joinsSeries(ListStep& back, const std::string& series) {
  if (series.empty() || series != series_ || undo_.empty()) return false;
  auto& newest = undo_.back();
  if (back.clips.movesNothing() && back.keyframes.movesNothing()) {
    addLatest(newest.clips, std::move(back.clips));
    addLatest(newest.keyframes, std::move(back.keyframes));
    addFirst(newest.preferences, back.preferences);
    addFirst(newest.beside, back.beside);
  } else {
    if (newest.group == 0) newest.group = ++groups_;
    back.group = newest.group;
    undo_.push_back(std::move(back));
  }
  changed();
  return true;
}

bool History::replace(const CommandPass& pass, std::string name, std::vector<std::pair<int, Movie>> values) {
  if (!pass || values.empty() || !has(values.front().first) || !has(values.back().first)) return false;
  ListStep step{.name = std::move(name),
                .loadsAnew = true,
                .chosen = window_.list.chosen,
                .inHand = collection_.icurMov};
  step.clips.values = std::move(values);
  carryOut(std::move(step));
  return true;
}

bool History::add(const CommandPass& pass, const std::function<void()>& additions, int before) {
  if (!pass) return false;
  const int there = collection_.MovieList.count();
  ListStep inverse{.leadsToSaved = !settings_.state.ListIsDirty,
                   .chosen = window_.list.chosen,
                   .inHand = collection_.icurMov};
  additions();
  const int added = collection_.MovieList.count() - there;
  if (added <= 0) return false;
  const int first = before >= 1 && before <= there ? before : there + 1;
  if (first <= there) {
    auto order = range(1, there + added);
    std::rotate(order.begin() + first - 1, order.begin() + there, order.end());
    ListStep moves{.order = std::move(order), .inHand = first + collection_.icurMov - there - 1};
    Shown shown;
    takeOverlaysAlong(moves);
    auto values = std::exchange(moves.clips.values, {});
    for (auto& [number, value] : values) std::swap(collection_.MovieList[number], value);
    inverse.clips.values = std::move(values);  // of clips that stand ahead of the additions, then
    apply(std::move(moves), shown);
    show(std::move(shown));
  }
  inverse.clips.leave = range(first, first + added - 1);
  inverse.name = stepName("add", collection_, inverse.clips.leave);
  settings_.state.ListIsDirty = true;
  keep(std::move(inverse));
  holdTransitions();
  return true;
}

// The clips that are longer or shorter behind a step that `back` takes back, or stand behind one that is, or
// behind another clip than before.
std::vector<int> History::withOtherNeighbours(const ListStep& back) const {
  const auto& clips = collection_.MovieList;
  std::set<int> numbers;
  const auto take = [&](int number) {
    if (has(number)) numbers.insert(number);
  };
  const auto coming = back.clips.coming();
  const auto carried = [&](int number) { return carriedNumber(number, coming, back.clips.leave); };
  for (const auto& [number, before] : back.clips.values) {
    const int now = carried(number);
    if (!has(now) || timelineLength(before) == timelineLength(clips[now])) continue;
    take(now);
    take(now + 1);
  }
  int ahead = 0;
  for (const int number : back.order) {
    if (number != ahead + 1) take(number);
    ahead = number;
  }
  for (const int number : back.clips.leave) {
    take(number);
    take(number + 1);
  }
  for (const int number : coming) take(carried(number + 1));
  return {numbers.begin(), numbers.end()};
}

// The step is taken back with the newest, whose act it followed from.
void History::holdTransitions() {
  if (undo_.empty()) return;
  const auto numbers = withOtherNeighbours(undo_.back());
  if (std::ranges::all_of(numbers, [&](int i) { return isCut(collection_.MovieList[i].TransType()); }))
    return;
  const auto still = settings_.state.DefaultStillDuration;
  TimelineClips clips(collection_);
  ListStep step{.changeCode = undo_.back().changeCode, .inHand = collection_.icurMov};
  for (const int number : numbers) {
    const auto& clip = collection_.MovieList[number];
    if (isCut(clip.TransType()) || longestTransition(clips, number, still) <= 0) continue;
    holdTransition(clips, number, still);
    if (clips[number].TransIn == clip.TransIn()) continue;
    Movie held = clip;
    held.TransIn(clips[number].TransIn);
    step.clips.values.emplace_back(number, std::move(held));
  }
  if (step.clips.empty()) return;
  auto& newest = undo_.back();
  if (newest.group == 0) newest.group = ++groups_;
  step.group = newest.group;
  step.name = newest.name;
  step.chosen = newest.chosen;
  Shown unseen;
  undo_.push_back(apply(std::move(step), unseen));
  undo_.back().holds = true;
}

// Ahead of more of a gesture, or of a clip's way: the hand may make the room again.
void History::releaseTransitions() {
  if (undo_.empty() || !undo_.back().holds) return;
  for (const auto& [number, before] : undo_.back().clips.values) {
    collection_.MovieList[number].TransIn(before.TransIn());
    list_.renew(number);
  }
  undo_.pop_back();
}

// Numbers of values are those behind what leaves and comes, and ahead of the order.
void History::takeOverlaysAlong(ListStep& step) const {
  if (step.movesNothing()) return;
  const auto places = inverseOf(step.order);
  const auto coming = step.clips.coming();
  const auto carried = [&](int number) { return carriedNumber(number, step.clips.leave, coming); };
  const auto now = [&](int number) {
    const int there = carried(number);
    return there < 1 || places.empty() ? there : places[static_cast<std::size_t>(there - 1)];
  };
  followOverlays(
      collection_.MovieList, [&](int overlay) { return has(overlay) ? now(overlay) : overlay; },
      [&](int number, std::string text) {
        const int there = carried(number);
        if (there < 1) return;
        Movie changed = collection_.MovieList[number];
        changed.HasPicInPic(std::move(text));
        step.clips.values.emplace_back(there, std::move(changed));
      });
}

// Takes the step and keeps the one that takes it back. With a pass that is at its end with that others are
// let in while it is shown.
void History::carryOut(ListStep step, const CommandPass* pass) {
  // What a clip passes by on its way keeps its length.
  const bool goesOn = !step.order.empty() && undo_.size() > 1 && !undo_[undo_.size() - 2].order.empty();
  if (goesOn) releaseTransitions();
  Shown shown;
  takeOverlaysAlong(step);
  keep(apply(std::move(step), shown));
  holdTransitions();
  if (pass != nullptr) pass->open();
  show(std::move(shown));
}

// Takes the step, and gives back the one that takes it back. It is not shown yet.
ListStep History::apply(ListStep step, Shown& shown) {
  ListStep back{.name = step.name,
                .group = step.group,
                .changeCode = step.changeCode,
                .loadsAnew = step.loadsAnew,
                .leadsToSaved = !settings_.state.ListIsDirty,
                .chosen = window_.list.chosen,
                .inHand = collection_.icurMov};
  if (!step.changesNoFile()) settings_.state.ListIsDirty = !step.leadsToSaved;
  shown.moved |= !step.movesNothing();
  shown.loadsAnew |= step.loadsAnew;
  shown.edited |= gives(step.clips, step.inHand);
  shown.chosen = std::move(step.chosen);
  shown.inHand = step.inHand;
  back.clips = takeStep(std::move(step.clips), collection_.MovieList);
  back.keyframes = takeStep(std::move(step.keyframes), collection_.KeyframeList);
  back.preferences = takeStep(std::move(step.preferences), settings_);
  back.beside = takeStep(std::move(step.beside), beside_);
  if (!step.order.empty()) {
    collection_.MovieList.arrange(step.order);
    back.order = inverseOf(step.order);
    for (auto& [number, value] : back.clips.values) number = back.order[static_cast<std::size_t>(number - 1)];
  }
  settings_.state.postChange(step.changeCode, step.changeCode);
  renew(back);
  return back;
}

// The rows of the list, behind a step that `back` takes back.
void History::renew(const ListStep& back) {
  if (!back.movesNothing()) return list_.fill();
  for (const auto& [number, clip] : back.clips.values) list_.renew(number);
}

void History::show(Shown shown) {
  if (!shown.moved && !shown.loadsAnew && shown.inHand == collection_.icurMov) {
    if (!shown.chosen.empty()) window_.list.chosen = std::move(shown.chosen);
    if (!shown.edited) return;
    window_.list.rename = false;
    return whenEdited_(shown.inHand);
  }
  if (shown.loadsAnew) list_.forgetLoaded();
  list_.choose(std::move(shown.chosen), std::clamp(shown.inHand, 0, collection_.MovieList.count()));
  list_.show();
}

void History::together(const std::function<void()>& work) {
  together_ = ++groups_;
  work();
  together_ = 0;
}

void History::keep(ListStep back) {
  if (together_ != 0) back.group = together_;
  const bool isFirst = undo_.empty() || back.group == 0 || undo_.back().group != back.group;
  if (isFirst) window_.history.done.push_back(back.name);
  window_.history.undone.clear();
  undo_.push_back(std::move(back));
  redo_.clear();
  series_.clear();
  changed();
}

void History::undo(std::size_t steps) { take(undo_, redo_, steps); }
void History::redo(std::size_t steps) { take(redo_, undo_, steps); }

void History::take(std::deque<ListStep>& from, std::deque<ListStep>& onto, std::size_t steps) {
  const CommandPass pass(window_);
  if (!pass || from.empty() || steps == 0) return;
  auto& names = window_.history;
  Shown shown;
  for (; steps > 0 && !from.empty(); --steps) {
    const int group = from.back().group;
    auto& taken = &from == &undo_ ? names.done : names.undone;
    (&from == &undo_ ? names.undone : names.done).push_back(std::move(taken.back()));
    taken.pop_back();
    do {
      auto step = std::move(from.back());
      from.pop_back();
      onto.push_back(apply(std::move(step), shown));
    } while (group != 0 && !from.empty() && from.back().group == group);
  }
  series_.clear();
  changed();
  pass.open();
  show(std::move(shown));
}

void History::clear() {
  undo_.clear();
  redo_.clear();
  series_.clear();
  window_.history.done.clear();
  window_.history.undone.clear();
  changed();
}

void History::saved() {
  for (auto* steps : {&undo_, &redo_}) {
    for (auto& step : *steps) step.leadsToSaved = false;
  }
  series_.clear();
}

void History::changed() {
  auto& state = window_.history;
  ++state.revision;
  state.undo = state.done.empty() ? "" : translated("Undo %1", {state.done.back()});
  state.redo = state.undone.empty() ? "" : translated("Redo %1", {state.undone.back()});
}

}  // namespace kvo
