// The one gate through which every change of the collection goes, so that it can be undone and done again.
// What is changed by other roads is nothing that the user did: an intro, what a compile corrects. Where a
// step leaves a transition no room, its length is held within what there is as part of the step. Steps are
// kept as what differs, without a limit, until another collection is open. A clip that lies over another is
// known by its number there, which follows it.
#pragma once

#include "program/clip_list.h"
#include "program/record_step.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {

/// How to go from one state of the collection to another: clips leave, come and take other values, or change
/// places. Lists of numbers are ascending.
struct ListStep {
  std::string name{};  ///< "remove lake at dusk.mpg"
  int group = 0;       ///< steps of one, which follow each other, are taken together; 0 for none
  bool holds = false;  ///< it followed from the one before it: see History::holdTransitions

  RecordStep<Movie> clips{};
  RecordStep<Keyframe> keyframes{};
  PreferenceStep preferences{};
  BesideStep beside{};
  std::vector<int> order{};  ///< alone: for each place the number that its clip has before

  Integer changeCode = 99;    ///< what the editor hears: 96 of marks, 99 of the list, 0 of nothing
  bool loadsAnew = false;     ///< the clip in hand is loaded anew
  bool leadsToSaved = false;  ///< the list is then as its file has it
  std::vector<int> chosen{};  ///< afterwards
  int inHand = 0;             ///< likewise

  /// The collection's file would be the same.
  [[nodiscard]] bool changesNoFile() const {
    return clips.empty() && keyframes.empty() && preferences.empty() && order.empty();
  }
  /// The list of clips stays as long, and in its order.
  [[nodiscard]] bool movesNothing() const { return clips.movesNothing() && order.empty(); }
};

class History {
 public:
  History(MainWindowState& window, Collection& collection, KVO2& settings, ClipList& list)
      : window_(window), collection_(collection), settings_(settings), list_(list) {}

  // Changes, made by a command that holds the pass; with one that was not given nothing happens. False when
  // nothing has changed.

  /// Takes clips out, and their keyframes with them. Numbers are ascending.
  bool remove(const CommandPass& pass, const std::vector<int>& numbers);

  /// Gives each place the clip that has the number in `order` now; `chosen` and `inHand` are numbers
  /// afterwards.
  bool arrange(const CommandPass& pass, std::string name, std::vector<int> order, std::vector<int> chosen,
               int inHand);

  /// Lets `change` give clip `number` other values. Changes of one `series` that follow each other are one
  /// step.
  bool edit(const CommandPass& pass, std::string name, int number, Integer changeCode,
            const std::function<void(Movie&)>& change, std::string_view series = {});

  /// Lets `work` write what it will: into clips, keyframes and preferences, in any number, into the lists of
  /// both, and into the values beside them. All of it is one step, and what differs is found out by
  /// comparing. Changes of one `series` that follow each other are one step. A clip that comes in hand is for
  /// `work` to name (Collection::icurMov).
  bool change(const CommandPass& pass, std::string name, Integer changeCode,
              const std::function<void()>& work, std::string_view series = {});

  /// What `work` does through the operations above is one step, with the name of the first.
  void together(const std::function<void()>& work);

  /// The next change begins a step of its own, whatever its series.
  void endSeries() { series_.clear(); }

  /// Gives clips other values, by their numbers, in one step. The clip in hand is loaded anew where it is
  /// among them.
  bool replace(const CommandPass& pass, std::string name, std::vector<std::pair<int, Movie>> values);

  /// Lets `additions` put clips at the end, and brings them ahead of clip `before`, or leaves them there for
  /// 0. All of it is one step.
  bool add(const CommandPass& pass, const std::function<void()>& additions, int before = 0);

  // The two keys, and so many steps at once from its list. They take a pass of their own.
  void undo(std::size_t steps = 1);
  void redo(std::size_t steps = 1);

  /// Forgets all: another collection is open.
  void clear();

  /// A value beside the collection that changes are to know too.
  void alsoKeep(ValueBeside value) { beside_.push_back(std::move(value)); }

  /// What goes on when clip `number`, in hand before and behind, has got other values. It is not loaded anew.
  void whenEdited(std::function<void(int number)> work) { whenEdited_ = std::move(work); }

  /// The list is on the disk as it stands, or would be if the disk took it: no other state of it is.
  void saved();

 private:
  // What has to be shown behind one or more steps.
  struct Shown {
    bool moved = false;      // the list
    bool loadsAnew = false;  // the clip in hand
    bool edited = false;     // likewise, and it stays loaded
    std::vector<int> chosen{};
    int inHand = 0;
  };

  void carryOut(ListStep step, const CommandPass* pass = nullptr);
  void takeOverlaysAlong(ListStep& step) const;
  ListStep apply(ListStep step, Shown& shown);
  void renew(const ListStep& back);
  void show(Shown shown);
  void keep(ListStep back);
  bool joinsSeries(ListStep& back, const std::string& series);
  void holdTransitions();
  void releaseTransitions();
  [[nodiscard]] std::vector<int> withOtherNeighbours(const ListStep& back) const;
  void take(std::deque<ListStep>& from, std::deque<ListStep>& onto, std::size_t steps);
  void changed();
  [[nodiscard]] bool has(int number) const { return number >= 1 && number <= collection_.MovieList.count(); }

  MainWindowState& window_;
  Collection& collection_;
  KVO2& settings_;
  ClipList& list_;
  std::vector<ValueBeside> beside_;
  std::deque<ListStep> undo_;
  std::deque<ListStep> redo_;
  std::function<void(int)> whenEdited_ = [](int) {};
  std::string series_;  // of the newest step, while it may take in more
  int groups_ = 0;
  int together_ = 0;  // the group of all steps that are made now; 0 for none
};

/// "remove lake at dusk.mpg", "remove 3 clips": what is done, and to which clips.
std::string stepName(std::string_view act, const Collection& collection, const std::vector<int>& numbers);

}  // namespace kvo
