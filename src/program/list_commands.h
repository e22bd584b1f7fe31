// What the list, its keys and the volume ask for. Numbers of clips count from 1, times
// are seconds. While a load or another command runs nothing happens.
#pragma once

#include "ports/clock.h"
#include "ports/message_boxes.h"
#include "program/clip_copies.h"
#include "program/clip_order.h"
#include "program/history.h"
#include "program/intro.h"

#include <functional>
#include <optional>
#include <random>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {

class ListCommands {
 public:
  struct Ports {
    const Files& files;
    const Clock& clock;
    MessageBoxes& boxes;
  };

  ListCommands(const Ports& ports, History& history, ClipList& list, Intro& intro, Collection& collection,
               MainWindowState& window, const KVO2& settings)
      : ports_(ports),
        history_(history),
        list_(list),
        intro_(intro),
        collection_(collection),
        window_(window),
        settings_(settings) {}

  /// Makes the clip of this number the one in hand, and the only one that is chosen.
  void select(int number);

  /// Chooses these together; `number` among them is in hand.
  void choose(std::vector<int> numbers, int number);

  // For all that are chosen.

  /// Clip `number` and its keyframes, or for 0 what is chosen.
  void Removeit(int number = 0);
  /// By one place. What stands at the end stays there.
  void moveUp();
  void moveDown();
  /// Puts them together, ahead of the clip that has number `before` now; the count + 1 is the end.
  void moveTo(int before);

  /// Sorts the whole list. Clips with equal keys keep their order.
  void sort(SortKey key);

  // For the clip in hand.

  /// Has the window edit the name in its row; nothing in Free Zoom, which has no list.
  void beginRename();
  /// What brings the list in sight for it.
  void whenUnseen(std::function<void()> work) { showList_ = std::move(work); }
  /// Gives it another name in the list; an empty one takes it away again, when the user says so in a box.
  void rename(std::string_view name);

  /// 0 to 100 per cent; not for stills and pages, which have no sound.
  void setVolume(int percent);

  /// Puts a copy behind it, or the second part of it, when there is something to copy. The new clip is in
  /// hand then.
  void copy(CopyMode mode);
  /// The same with a split at a place of its file. Why it cannot be split, or empty.
  std::string split(const PlayerPlace& place);
  /// What goes on behind each of these.
  void whenCopied(std::function<void()> work) { copied_ = std::move(work); }
  /// What tells where the player stands, none while it is empty.
  void placedBy(std::function<std::optional<PlayerPlace>()> place) { place_ = std::move(place); }
  /// Why there is nothing to copy now; composed, empty where there is.
  [[nodiscard]] std::string whyNoCopy(CopyMode mode) const { return whyNoCopy(mode, place_()); }
  [[nodiscard]] std::string whyNoCopy(CopyMode mode, const std::optional<PlayerPlace>& place) const;

 private:
  void pass(const std::function<void(const CommandPass&, const Movie&)>& command);
  bool mayChoose();
  void copy(CopyMode mode, const std::optional<PlayerPlace>& place);
  void arrange(const CommandPass& pass, std::string_view act, std::vector<int> order);
  [[nodiscard]] std::string named(std::string_view act) const;

  Ports ports_;
  History& history_;
  ClipList& list_;
  Intro& intro_;
  Collection& collection_;
  MainWindowState& window_;
  const KVO2& settings_;
  std::function<void()> showList_ = [] {};
  std::function<void()> copied_ = [] {};
  std::function<std::optional<PlayerPlace>()> place_ = [] { return std::optional<PlayerPlace>(); };
  std::mt19937 shuffle_{std::random_device{}()};
};

}  // namespace kvo
