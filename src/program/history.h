// The one gate through which every change of the collection's list goes, so that it can be undone and done
// again. What is changed by other roads is nothing that the user did: an intro, what a compile corrects.
#pragma once

#include "program/clip_list.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {

/// How to go from one state of the list to another: clips leave, or come, or change places, or take other
/// values. It does one of the four. Lists of numbers are ascending.
struct ListStep {
  std::string name{};  ///< "remove lake at dusk.mpg"

  std::vector<int> leave{};  ///< clips, and the keyframes that go with them
  std::vector<int> keyframesLeave{};
  RecordList<Movie>::Numbered come{};  ///< with the numbers that they have afterwards
  RecordList<Keyframe>::Numbered keyframesCome{};
  std::vector<int> order{};                     ///< for each place the number that its clip has before
  std::vector<std::pair<int, Movie>> values{};  ///< of clips by their numbers

  Integer changeCode = 99;    ///< what the editor hears: 96 of marks, 99 of the list, 0 of nothing
  bool loadsAnew = false;     ///< the clip in hand is loaded anew
  bool leadsToSaved = false;  ///< the list is then as its file has it
  std::vector<int> chosen{};  ///< afterwards
  int inHand = 0;             ///< likewise
};

class History {
 public:
  static constexpr std::size_t kMaxSteps = 200;
  static constexpr std::size_t kMaxKept = 65534;  ///< records, in all steps back

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

  /// Puts a clip in under this number.
  bool insert(const CommandPass& pass, std::string name, int number, Movie clip);

  /// Lets `change` give clip `number` other values. Changes of one `series` that follow each other are one
  /// step.
  bool edit(const CommandPass& pass, std::string name, int number, Integer changeCode,
            const std::function<void(Movie&)>& change, std::string_view series = {});

  /// Gives clips other values, by their numbers, in one step. The clip in hand is loaded anew where it is
  /// among them.
  bool replace(const CommandPass& pass, std::string name, std::vector<std::pair<int, Movie>> values);

  /// Lets `additions` put clips at the end, and brings them ahead of clip `before`, or leaves them there for
  /// 0. All of it is one step.
  bool add(const CommandPass& pass, const std::function<void()>& additions, int before = 0);

  // The two keys. They take a pass of their own.
  void undo();
  void redo();

  /// Forgets all: another collection is open.
  void clear();

  /// What goes on when clip `number`, in hand before and behind, has got other values. It is not loaded anew.
  void whenEdited(std::function<void(int number)> work) { whenEdited_ = std::move(work); }

  /// The list is on the disk as it stands, or would be if the disk took it: no other state of it is.
  void saved();

 private:
  void carryOut(ListStep step, const CommandPass* pass = nullptr);
  ListStep apply(ListStep& step);
  void show(ListStep step, bool stays);
  void keep(ListStep inverse);
  void step(std::deque<ListStep>& from, std::deque<ListStep>& onto);
  void tellNames();
  [[nodiscard]] bool has(int number) const { return number >= 1 && number <= collection_.MovieList.count(); }

  MainWindowState& window_;
  Collection& collection_;
  KVO2& settings_;
  ClipList& list_;
  std::deque<ListStep> undo_;
  std::deque<ListStep> redo_;
  std::function<void(int)> whenEdited_ = [](int) {};
  std::string series_;  // of the newest step, while it may take in more
};

/// "remove lake at dusk.mpg", "remove 3 clips": what is done, and to which clips.
std::string stepName(std::string_view act, const Collection& collection, const std::vector<int>& numbers);

}  // namespace kvo
