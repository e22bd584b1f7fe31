#include "program/record_step.h"

#include "editor/compiler/picture_in_picture.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <unordered_map>

namespace kvo {
namespace {

template <class Work>
void eachKeptPreference(Work work) {
  std::size_t i = 0;
  for (const auto& section : settingSections()) {
    for (const auto& row : section.rows) {
      if (row.kept == Kept::Collection || row.marks) work(row, i++);
    }
  }
}

template <class Record>
using Shots = std::vector<std::pair<const Record*, Record>>;

template <class Record>
Shots<Record> shotsOf(const RecordList<Record>& list) {
  Shots<Record> shots;
  shots.reserve(static_cast<std::size_t>(list.count()));
  for (int i = 1; i <= list.count(); ++i) shots.emplace_back(&list[i], list[i]);
  return shots;
}

// All of the list goes, and what was there comes: where records have changed places.
template <class Record>
RecordStep<Record> wholeWayBack(const RecordList<Record>& list, const Shots<Record>& shots) {
  RecordStep<Record> back;
  for (int i = 1; i <= list.count(); ++i) back.leave.push_back(i);
  for (std::size_t i = 0; i < shots.size(); ++i)
    back.come.emplace_back(static_cast<int>(i) + 1, std::make_unique<Record>(shots[i].second));
  return back;
}

template <class Record>
bool standAsThey(const Shots<Record>& shots, const RecordList<Record>& list) {
  if (static_cast<std::size_t>(list.count()) != shots.size()) return false;
  for (std::size_t i = 0; i < shots.size(); ++i) {
    if (shots[i].first != &list[static_cast<int>(i) + 1]) return false;
  }
  return true;
}

// Records are known by where they are kept, which stays as long as they are in the list.
template <class Record>
std::unordered_map<const Record*, int> numbersIn(const RecordList<Record>& list) {
  std::unordered_map<const Record*, int> numbers;
  for (int i = 1; i <= list.count(); ++i) numbers.emplace(&list[i], i);
  return numbers;
}

template <class Record>
RecordStep<Record> recordsBack(const RecordList<Record>& list, const Shots<Record>& shots) {
  const bool unmoved = standAsThey(shots, list);
  const auto numbers = unmoved ? std::unordered_map<const Record*, int>() : numbersIn(list);
  RecordStep<Record> back;
  int last = 0;  // of those that were there before
  for (std::size_t i = 0; i < shots.size(); ++i) {
    const auto& [place, record] = shots[i];
    const int then = static_cast<int>(i) + 1;
    const auto found = numbers.find(place);
    const int number = unmoved ? then : found == numbers.end() ? 0 : found->second;
    if (number == 0) {
      back.come.emplace_back(then, std::make_unique<Record>(record));
      continue;
    }
    if (number < last) return wholeWayBack(list, shots);
    while (++last < number) back.leave.push_back(last);
    if (!(list[number] == record)) back.values.emplace_back(then, record);
  }
  while (++last <= list.count()) back.leave.push_back(last);
  return back;
}

}  // namespace

int carriedNumber(int number, const std::vector<int>& leaving, const std::vector<int>& coming) {
  const auto at = std::lower_bound(leaving.begin(), leaving.end(), number);
  if (at != leaving.end() && *at == number) return 0;
  int carried = number - static_cast<int>(at - leaving.begin());
  for (const int come : coming) {
    if (come > carried) break;
    ++carried;
  }
  return carried;
}

// Of a copy, as reading it may take RenderAudio away.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void keepFacts(Movie& clip, Movie known) { clip.HasAudio(known.HasAudio()); }

PreferenceStep takeStep(PreferenceStep step, KVO2& settings) {
  const bool wasDirty = settings.state.IsDirty;
  for (auto& [row, text] : step) {
    auto now = row->text(settings);
    row->take(settings, text);
    text = std::move(now);
  }
  settings.state.IsDirty = wasDirty;
  return step;
}

BesideStep takeStep(BesideStep step, const std::vector<ValueBeside>& values) {
  for (auto& [place, text] : step) {
    auto now = values[place].text();
    values[place].take(text);
    text = std::move(now);
  }
  return step;
}

CollectionShot::CollectionShot(const Collection& collection, const KVO2& settings)
    : keyframes_(shotsOf(collection.KeyframeList)) {
  for (int i = 1; i <= collection.MovieList.count(); ++i) {
    const auto& clip = collection.MovieList[i];
    // Two fields are settled by being read, and read alike before.
    static_cast<void>(clip.Playspeed());
    static_cast<void>(clip.Balance());
  }
  clips_ = shotsOf(collection.MovieList);
  eachKeptPreference([&](const SettingRow& row, std::size_t) { preferences_.push_back(row.text(settings)); });
}

void CollectionShot::takeOverlaysAlong(RecordList<Movie>& clips) const {
  if (standAsThey(clips_, clips)) return;
  const auto numbers = numbersIn(clips);
  followOverlays(
      clips,
      [&](int overlay) {
        if (overlay > static_cast<int>(clips_.size())) return overlay;
        const auto found = numbers.find(clips_[static_cast<std::size_t>(overlay - 1)].first);
        return found == numbers.end() ? 0 : found->second;
      },
      [&](int number, std::string text) { clips[number].HasPicInPic(std::move(text)); });
}

RecordStep<Movie> CollectionShot::wayBack(RecordList<Movie>& clips) const {
  auto back = recordsBack(clips, clips_);
  std::erase_if(back.values, [&](const auto& value) {
    auto& clip = clips[carriedNumber(value.first, back.coming(), back.leave)];
    if (clip.IsDirty() == value.second.IsDirty()) return false;
    Movie unmarked = clip;
    unmarked.IsDirty(value.second.IsDirty());
    const bool same = unmarked == value.second;
    if (same) clip.IsDirty(value.second.IsDirty());
    return same;
  });
  return back;
}

RecordStep<Keyframe> CollectionShot::wayBack(const RecordList<Keyframe>& keyframes) const {
  return recordsBack(keyframes, keyframes_);
}

PreferenceStep CollectionShot::wayBack(const KVO2& settings) const {
  PreferenceStep back;
  eachKeptPreference([&](const SettingRow& row, std::size_t i) {
    if (row.text(settings) != preferences_[i]) back.emplace_back(&row, preferences_[i]);
  });
  return back;
}

}  // namespace kvo
