// Ways from one state of the collection to another, kept as what differs.
#pragma once

#include "core/records/collection.h"
#include "core/records/setting_rows.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

/// The number that a record has once those of the numbers `leaving` have left a list and others have come,
/// under the numbers `coming` that they have then. 0 for one that leaves. All are ascending.
int carriedNumber(int number, const std::vector<int>& leaving, const std::vector<int>& coming);

/// How to go from one state of a list of records to another: some leave, some come, and of those that stay
/// some take other values. Numbers are ascending.
template <class Record>
struct RecordStep {
  std::vector<int> leave{};                      ///< numbers as they are before
  typename RecordList<Record>::Numbered come{};  ///< with the numbers that they have afterwards
  std::vector<std::pair<int, Record>> values{};  ///< likewise

  [[nodiscard]] bool movesNothing() const { return leave.empty() && come.empty(); }
  [[nodiscard]] bool empty() const { return movesNothing() && values.empty(); }
  [[nodiscard]] std::vector<int> coming() const {
    std::vector<int> numbers;
    numbers.reserve(come.size());
    for (const auto& [number, record] : come) numbers.push_back(number);
    return numbers;
  }
};

/// What is known of the file is nothing that a step changes: `clip`, which comes, is told it by the record
/// whose place it takes.
void keepFacts(Movie& clip, Movie known);
inline void keepFacts(Keyframe& /*keyframe*/, const Keyframe& /*known*/) {}

/// Takes a step, which is used up, and gives back the one that takes it back.
template <class Record>
RecordStep<Record> takeStep(RecordStep<Record> step, RecordList<Record>& list) {
  RecordStep<Record> back;
  back.leave = step.coming();
  back.come = list.takeOut(step.leave);
  list.putIn(std::move(step.come));
  for (auto& [number, value] : step.values) {
    std::swap(list[number], value);
    keepFacts(list[number], value);
    back.values.emplace_back(carriedNumber(number, back.leave, step.leave), std::move(value));
  }
  return back;
}

/// Gives `way`, which leads from where the list stood a moment ago to an older state, what it also has to
/// take back now: `latest` leads from the list as it stands to a moment ago, and gives values alone.
template <class Record>
void addLatest(RecordStep<Record>& way, RecordStep<Record> latest) {
  const auto coming = way.coming();
  for (auto& [number, value] : latest.values) {
    const int then = carriedNumber(number, way.leave, coming);
    const auto at = std::lower_bound(way.values.begin(), way.values.end(), then,
                                     [](const auto& kept, int wanted) { return kept.first < wanted; });
    if (then == 0 || (at != way.values.end() && at->first == then)) continue;
    way.values.emplace(at, then, std::move(value));
  }
}

/// Preferences and the texts that they are to take.
using PreferenceStep = std::vector<std::pair<const SettingRow*, std::string>>;

/// Takes a step, and gives back the one that takes it back. What tells that preferences have changed stays.
PreferenceStep takeStep(PreferenceStep step, KVO2& settings);

/// A value that no file of a collection has and that the user changes all the same, as text.
struct ValueBeside {
  std::function<std::string()> text;
  std::function<void(const std::string&)> take;
};
/// Such values by their places in a list, and the texts that they are to take.
using BesideStep = std::vector<std::pair<std::size_t, std::string>>;

/// Takes a step, and gives back the one that takes it back.
BesideStep takeStep(BesideStep step, const std::vector<ValueBeside>& values);

/// The clips, keyframes and preferences as they were when it was made.
class CollectionShot {
 public:
  CollectionShot(const Collection& collection, const KVO2& settings);

  /// Brings overlays of clips, which are known by the numbers that these had, in line with a list that has
  /// changed since.
  void takeOverlaysAlong(RecordList<Movie>& clips) const;

  // The ways back from what has become of them. A clip that was only marked as changed is so no longer.
  [[nodiscard]] RecordStep<Movie> wayBack(RecordList<Movie>& clips) const;
  [[nodiscard]] RecordStep<Keyframe> wayBack(const RecordList<Keyframe>& keyframes) const;
  [[nodiscard]] PreferenceStep wayBack(const KVO2& settings) const;

 private:
  std::vector<std::pair<const Movie*, Movie>> clips_;
  std::vector<std::pair<const Keyframe*, Keyframe>> keyframes_;
  std::vector<std::string> preferences_;
};

}  // namespace kvo
