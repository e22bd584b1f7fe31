// The clip list of the main window and what it tells of the clip in hand: brought in line with the
// collection, of which it sets only which clip is in hand.
#pragma once

#include "core/records/collection.h"
#include "ports/media_contents.h"
#include "program/main_window_state.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

/// The collection's name without its extension.
std::string listName(const Collection& collection);
/// The same and " Collection"; 50 characters at most.
std::string listCaption(const Collection& collection);

class ClipList {
 public:
  ClipList(MainWindowState& window, Collection& collection, const KVO2& settings)
      : window_(window), collection_(collection), settings_(settings) {}

  // Clips count from 1.

  /// Fills the list anew. The clip that was in hand stays so where there still is one of its number; else the
  /// first is.
  void fill();

  /// A clip has joined at the end.
  void addLast();

  /// Clip `number` has other values.
  void renew(int number);

  /// The files that are not there: their clips say so.
  void missing(std::set<std::string> paths);

  /// The clip that comes in hand next is told of, even if it is the one that was.
  void forgetLoaded() { inHand_ = nullptr; }

  /// Makes clip `number` the one in hand and the only one that is chosen; 0 is the first. Numbers that are
  /// not there change nothing.
  void PreviewMovie(int number);

  /// Chooses several, of which `number` is in hand: where it was that already, it only has another number.
  void choose(std::vector<int> numbers, int number);

  /// Makes clip `number` the one in hand. Nobody is told of it, and what is chosen with it stays chosen.
  void select(int number);

  /// Shows the list, or the empty pane when there is no clip.
  void show();

  /// What goes on when another clip, by its number, has come in hand, or the same one anew; 0 for none.
  void whenInHand(std::function<void(int number)> work) { whenInHand_ = std::move(work); }

  /// What looks into the file of a clip that has come in hand; the answer is for takeFacts.
  void whenUnknown(std::function<void(const std::string& path)> work) { whenUnknown_ = std::move(work); }

  /// What a file holds. Nothing happens unless it is the file of the clip in hand.
  void takeFacts(const std::string& path, const StreamFacts& facts);

 private:
  // The file of the clip in hand, and what it holds as far as that has been found out.
  struct KnownFile {
    std::string path;
    std::optional<StreamFacts> facts;
  };

  [[nodiscard]] ClipRow row(const Movie& clip) const;
  void countUp();
  const StreamFacts* factsOf(const Movie& clip);
  void tell(const Movie& clip);

  MainWindowState& window_;
  Collection& collection_;
  const KVO2& settings_;
  const Movie* inHand_ = nullptr;  // that whoever waits for it was told of
  const Movie* told_ = nullptr;    // the clip in hand, while what is told of it is no other's
  double total_ = 0;               // seconds, of all clips
  KnownFile known_;
  std::set<std::string> missing_;
  std::function<void(int)> whenInHand_ = [](int) {};
  std::function<void(const std::string&)> whenUnknown_ = [](const std::string&) {};
};

}  // namespace kvo
