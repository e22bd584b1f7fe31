// The open collection: its three ordered lists, the clip in hand, its name. Clip numbers are 1-based.
#pragma once

#include "base/paths.h"
#include "core/records/movie.h"
#include "core/records/settings.h"
#include "core/records/small_records.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

/// An ordered list of records, numbered from 1. A record keeps its address while the list changes.
template <class Record>
class RecordList {
 public:
  using Numbered = std::vector<std::pair<int, std::unique_ptr<Record>>>;

  [[nodiscard]] int count() const { return static_cast<int>(records_.size()); }
  [[nodiscard]] bool empty() const { return records_.empty(); }

  /// Number 1 to count().
  Record& operator[](int number) { return *records_[static_cast<std::size_t>(number - 1)]; }
  const Record& operator[](int number) const { return *records_[static_cast<std::size_t>(number - 1)]; }

  /// 0 for none of the list; the record may be gone.
  [[nodiscard]] int numberOf(const Record* record) const {
    const auto found = std::find_if(records_.begin(), records_.end(),
                                    [&](const auto& kept) { return kept.get() == record; });
    return found == records_.end() ? 0 : static_cast<int>(found - records_.begin()) + 1;
  }

  Record& add(Record record) { return *records_.emplace_back(std::make_unique<Record>(std::move(record))); }
  void remove(int number) { records_.erase(records_.begin() + (number - 1)); }
  void clear() { records_.clear(); }

  template <class Predicate>
  void removeIf(Predicate unwanted) {
    std::erase_if(records_, [&](const auto& r) { return unwanted(*r); });
  }

  // Several at once. Numbers are ascending.

  /// Takes records out; each comes with the number that it had.
  Numbered takeOut(const std::vector<int>& numbers) {
    Numbered out;
    out.reserve(numbers.size());
    for (const int number : numbers) out.emplace_back(number, std::move(slot(number)));
    std::erase(records_, nullptr);
    return out;
  }

  /// Puts records in, each with the number that it has then.
  void putIn(Numbered records) {
    std::vector<std::unique_ptr<Record>> all;
    all.reserve(records_.size() + records.size());
    auto next = records_.begin();
    for (auto& [number, record] : records) {
      while (static_cast<int>(all.size()) + 1 < number) all.push_back(std::move(*next++));
      all.push_back(std::move(record));
    }
    std::move(next, records_.end(), std::back_inserter(all));
    records_.swap(all);
  }

  /// Gives each place the record that has the number in `order` now.
  void arrange(const std::vector<int>& order) {
    std::vector<std::unique_ptr<Record>> all;
    all.reserve(order.size());
    for (const int number : order) all.push_back(std::move(slot(number)));
    records_.swap(all);
  }

 private:
  std::unique_ptr<Record>& slot(int number) { return records_[static_cast<std::size_t>(number - 1)]; }

  std::vector<std::unique_ptr<Record>> records_;
};

inline constexpr int kMaxClips = 32767;      ///< of a collection: its file counts them in 16 bits
inline constexpr int kMaxKeyframes = 10000;  ///< of a collection: a reader takes a larger count for none

enum class CollectionKind { Plain = 0, HoldsCDTracks = 1, HoldsExtendedCD = 2 };

struct Collection {
  RecordList<Movie> MovieList;
  RecordList<AudMovies> AudMovieList;
  RecordList<Keyframe> KeyframeList;
  CollectionKind kind = CollectionKind::Plain;
  int icurMov = 0;  ///< clip selected in the list, 0 for none
  std::string IniName = "KVO5.INI";
  std::string IniFullPath;
  bool isPortable = false;    ///< its file names clips from its own folder on
  bool filesMissing = false;  ///< the last load met files that are not there

  /// A name for what has no file of its own; `folder` is the program's.
  void becomeUntitled(const ProgramFolder& folder) {
    IniName = "Untitled.INI";
    IniFullPath = folder.beside(IniName);
  }

  void clearLists() {
    MovieList.clear();
    AudMovieList.clear();
    KeyframeList.clear();
    icurMov = 0;
  }
};

/// KeyIDs for `count` clips that come in at `clock` seconds since midnight: that number, raised past those of
/// clips and of keyframes, which would else go over to the new clip. Never 0, which means none.
std::vector<Long> freshKeyIDs(const Collection& collection, Long clock, std::size_t count);

/// Makes every record and the settings equal to the file.
void ClearDirtyFlags(Collection& collection, KVO2& settings);

/// True when saving would change the file.
bool isDirty(const Collection& collection, const KVO2& settings);

/// Carries what records tell into the settings' change code.
class ChangePoster : public RecordListener {
 public:
  explicit ChangePoster(KVO2& settings) : settings_(settings) {}
  void postChange(Integer code, Integer below) override { settings_.state.postChange(code, below); }
  void endOfPlayMoved(const Movie& clip) override { endOfPlayMoved_(clip); }

  /// Whom a new end of play is passed on to.
  void whenEndOfPlayMoved(std::function<void(const Movie&)> heard) { endOfPlayMoved_ = std::move(heard); }

 private:
  KVO2& settings_;
  std::function<void(const Movie&)> endOfPlayMoved_ = [](const Movie&) {};
};

}  // namespace kvo
