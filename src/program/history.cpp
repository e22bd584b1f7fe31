#include "program/history.h"

#include "base/text.h"
#include "core/telling/translated.h"
#include "program/clip_texts.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace kvo {
namespace {

constexpr std::size_t kMaxName = 40;  // characters of a clip's name in a menu

std::vector<int> numbersOf(const RecordList<Movie>::Numbered& records) {
  std::vector<int> numbers;
  numbers.reserve(records.size());
  for (const auto& [number, record] : records) numbers.push_back(number);
  return numbers;
}

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

// The clip in hand is the same behind a step, with other values.
bool staysLoaded(const ListStep& step, const ListStep& back) {
  return !step.loadsAnew && step.inHand == back.inHand && back.values.size() == 1 &&
         back.values.front().first == back.inHand;
}

std::size_t recordsKept(const std::deque<ListStep>& steps) {
  return std::accumulate(steps.begin(), steps.end(), std::size_t{0}, [](std::size_t sum, const auto& step) {
    return sum + step.come.size() + step.keyframesCome.size() + step.values.size();
  });
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
  ListStep step{.name = stepName("remove", collection_, numbers), .leave = numbers};
  step.keyframesLeave = keyframesOf(collection_, numbers);
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

bool History::insert(const CommandPass& pass, std::string name, int number, Movie clip) {
  if (!pass || number < 1 || number > collection_.MovieList.count() + 1) return false;
  ListStep step{.name = std::move(name), .inHand = number};
  step.come.emplace_back(number, std::make_unique<Movie>(std::move(clip)));
  carryOut(std::move(step), &pass);
  return true;
}

bool History::edit(const CommandPass& pass, std::string name, int number, Integer changeCode,
                   const std::function<void(Movie&)>& change, std::string_view series) {
  if (!pass || !has(number)) return false;
  auto& clip = collection_.MovieList[number];
  const auto thisSeries = series.empty() ? std::string() : std::string(series) + std::to_string(number);
  if (!thisSeries.empty() && thisSeries == series_) {
    change(clip);
    list_.renew(number);
    if (number == collection_.icurMov) whenEdited_(number);
    return true;
  }
  Movie changed = clip;
  change(changed);
  ListStep step{.name = std::move(name), .changeCode = changeCode, .inHand = number};
  step.values.emplace_back(number, std::move(changed));
  carryOut(std::move(step));
  series_ = thisSeries;
  return true;
}

bool History::replace(const CommandPass& pass, std::string name, std::vector<std::pair<int, Movie>> values) {
  if (!pass || values.empty() || !has(values.front().first) || !has(values.back().first)) return false;
  carryOut({.name = std::move(name),
            .values = std::move(values),
            .loadsAnew = true,
            .chosen = window_.list.chosen,
            .inHand = collection_.icurMov});
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
    apply(moves);
    show(std::move(moves), false);
  }
  inverse.leave = range(first, first + added - 1);
  inverse.name = stepName("add", collection_, inverse.leave);
  settings_.state.ListIsDirty = true;
  keep(std::move(inverse));
  return true;
}

// Takes the step and keeps the one that takes it back. With a pass that is at its end with that others are
// let in while it is shown.
void History::carryOut(ListStep step, const CommandPass* pass) {
  auto back = apply(step);
  const bool stays = staysLoaded(step, back);
  keep(std::move(back));
  if (pass != nullptr) pass->open();
  show(std::move(step), stays);
}

// Takes the step, and gives back the one that takes it back. It is not shown yet.
ListStep History::apply(ListStep& step) {
  auto& clips = collection_.MovieList;
  ListStep inverse{.name = step.name,
                   .changeCode = step.changeCode,
                   .loadsAnew = step.loadsAnew,
                   .leadsToSaved = !settings_.state.ListIsDirty,
                   .chosen = window_.list.chosen,
                   .inHand = collection_.icurMov};
  inverse.come = clips.takeOut(step.leave);
  inverse.keyframesCome = collection_.KeyframeList.takeOut(step.keyframesLeave);
  inverse.leave = numbersOf(step.come);
  clips.putIn(std::move(step.come));
  for (const auto& [number, keyframe] : step.keyframesCome) inverse.keyframesLeave.push_back(number);
  collection_.KeyframeList.putIn(std::move(step.keyframesCome));
  if (!step.order.empty()) {
    clips.arrange(step.order);
    inverse.order = inverseOf(step.order);
  }
  for (auto& [number, clip] : step.values) std::swap(clips[number], clip);
  inverse.values = std::move(step.values);

  settings_.state.ListIsDirty = !step.leadsToSaved;
  settings_.state.postChange(step.changeCode, step.changeCode);
  if (inverse.values.empty()) list_.fill();
  for (const auto& [number, clip] : inverse.values) list_.renew(number);
  return inverse;
}

void History::show(ListStep step, bool stays) {
  if (stays) {
    if (!step.chosen.empty()) window_.list.chosen = std::move(step.chosen);
    window_.list.rename = false;
    return whenEdited_(step.inHand);
  }
  if (step.loadsAnew) list_.forgetLoaded();
  list_.choose(std::move(step.chosen), std::clamp(step.inHand, 0, collection_.MovieList.count()));
  list_.show();
}

void History::keep(ListStep inverse) {
  undo_.push_back(std::move(inverse));
  while (undo_.size() > 1 && (undo_.size() > kMaxSteps || recordsKept(undo_) > kMaxKept)) undo_.pop_front();
  redo_.clear();
  series_.clear();
  tellNames();
}

void History::undo() { step(undo_, redo_); }
void History::redo() { step(redo_, undo_); }

void History::step(std::deque<ListStep>& from, std::deque<ListStep>& onto) {
  const CommandPass pass(window_);
  if (!pass || from.empty()) return;
  auto step = std::move(from.back());
  from.pop_back();
  auto back = apply(step);
  const bool stays = staysLoaded(step, back);
  onto.push_back(std::move(back));
  series_.clear();
  tellNames();
  pass.open();
  show(std::move(step), stays);
}

void History::clear() {
  undo_.clear();
  redo_.clear();
  series_.clear();
  tellNames();
}

void History::saved() {
  for (auto* steps : {&undo_, &redo_}) {
    for (auto& step : *steps) step.leadsToSaved = false;
  }
  series_.clear();
}

void History::tellNames() {
  window_.history.undo = undo_.empty() ? "" : translated("Undo %1", {undo_.back().name});
  window_.history.redo = redo_.empty() ? "" : translated("Redo %1", {redo_.back().name});
}

}  // namespace kvo
