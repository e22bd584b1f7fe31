#include "program/list_commands.h"

#include "base/numbers.h"
#include "base/text.h"
#include "core/telling/messages.h"
#include "core/telling/translated.h"
#include "editor/compiler/keyframe_copies.h"
#include "program/clip_texts.h"

#include <algorithm>
#include <array>
#include <memory>

namespace kvo {
namespace {

constexpr Integer kListChanged = 99;

constexpr std::array<std::string_view, 7> kSortNames = {
    "sort by name",   "sort by date",       "sort by type", "sort by size",
    "sort by length", "sort by resolution", "shuffle"};

// What the row of a collection file can hold of a name.
std::string asOneLine(std::string_view text) {
  auto line = std::string(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c >= '\0' && c < ' '; }, ' ');
  return std::string(trimmed(cutTo(trimmed(line), kUnusedLength - 1)));
}

}  // namespace

// The intro leaves ahead of whatever the user asks of the list.
void ListCommands::pass(const std::function<void(const CommandPass&, const Movie&)>& command) {
  const CommandPass pass(window_);
  if (!pass) return;
  intro_.leave();
  if (collection_.icurMov >= 1) command(pass, collection_.MovieList[collection_.icurMov]);
}

std::string ListCommands::named(std::string_view act) const {
  return stepName(act, collection_, {collection_.icurMov});
}

// What is chosen is loaded with the gate open: a file that takes long to open lets events through, and of two
// choices the later one counts.
bool ListCommands::mayChoose() {
  bool may = false;
  pass([&](const CommandPass& /*pass*/, const Movie& /*inHand*/) { may = true; });
  return may;
}

void ListCommands::select(int number) {
  if (mayChoose()) list_.PreviewMovie(number);
}

void ListCommands::choose(std::vector<int> numbers, int number) {
  if (mayChoose()) list_.choose(std::move(numbers), number);
}

void ListCommands::Removeit(int number) {
  pass([&](const CommandPass& pass, const Movie& /*inHand*/) {
    history_.remove(pass, number > 0 ? std::vector{number} : window_.list.chosen);
  });
}

void ListCommands::arrange(const CommandPass& pass, std::string_view act, std::vector<int> order) {
  auto chosen = placesIn(order, window_.list.chosen);
  const int inHand = placesIn(order, {collection_.icurMov}).front();
  auto name = act.starts_with("move") ? stepName(act, collection_, window_.list.chosen)
                                      : translated(std::string(act).c_str());
  history_.arrange(pass, std::move(name), std::move(order), std::move(chosen), inHand);
}

void ListCommands::moveUp() {
  pass([&](const CommandPass& pass, const Movie& /*inHand*/) {
    arrange(pass, "move", orderMoved(collection_.MovieList.count(), window_.list.chosen, -1));
  });
}

void ListCommands::moveDown() {
  pass([&](const CommandPass& pass, const Movie& /*inHand*/) {
    arrange(pass, "move", orderMoved(collection_.MovieList.count(), window_.list.chosen, 1));
  });
}

void ListCommands::moveTo(int before) {
  pass([&](const CommandPass& pass, const Movie& /*inHand*/) {
    arrange(pass, "move", orderGathered(collection_.MovieList.count(), window_.list.chosen, before));
  });
}

void ListCommands::sort(SortKey key) {
  pass([&](const CommandPass& pass, const Movie& /*inHand*/) {
    std::uniform_real_distribution<double> random;
    arrange(pass, kSortNames[static_cast<std::size_t>(key)],
            orderSorted(collection_.MovieList, key, ports_.files, [&] { return random(shuffle_); }));
  });
}

void ListCommands::beginRename() {
  pass([&](const CommandPass& /*pass*/, const Movie& /*inHand*/) {
    if (window_.mode.IsMiniMode) return;
    if (!window_.mode.panels.Fillist.visible) showList_();
    window_.list.rename = true;
  });
}

void ListCommands::rename(std::string_view name) {
  pass([&](const CommandPass& pass, const Movie& clip) {
    const auto now = std::string(trimmed(clip.AltName()));
    auto then = asOneLine(name);
    if (then == clip.MovieName() && now.empty()) return;
    if (then == now) return;
    if (then.empty() && ports_.boxes.show({std::string(LoadResString(367)), std::string(LoadResString(366)),
                                           BoxButtons::YesNo, BoxIcon::Question}) != Answer::Yes)
      return;
    if (then.empty()) then = " ";  // what a record has that has no name of its own
    history_.edit(pass, named("rename"), collection_.icurMov, kListChanged,
                  [&](Movie& changed) { changed.AltName(then); });
  });
}

void ListCommands::setVolume(int percent) {
  pass([&](const CommandPass& pass, const Movie& clip) {
    const auto attenuation = attenuationOf(percent);
    if (!hasSound(clip) || clip.Volume() == attenuation) return;
    history_.edit(
        pass, named("volume of"), collection_.icurMov, 0,
        [&](Movie& changed) { changed.Volume(attenuation); }, "volume");
  });
}

std::string ListCommands::whyNoCopy(CopyMode mode, const std::optional<PlayerPlace>& place) const {
  if (collection_.icurMov < 1) return translated("There is no clip");
  if (collection_.MovieList.count() >= kMaxClips)
    return translated("A collection has no more than %1 clips", {std::to_string(kMaxClips)});
  return kvo::whyNoCopy(collection_.MovieList[collection_.icurMov], mode, place);
}

void ListCommands::copy(CopyMode mode) { copy(mode, place_()); }

std::string ListCommands::split(const PlayerPlace& place) {
  auto why = whyNoCopy(CopyMode::Split, place);
  if (why.empty()) copy(CopyMode::Split, place);
  return why;
}

void ListCommands::copy(CopyMode mode, const std::optional<PlayerPlace>& place) {
  pass([&](const CommandPass& pass, const Movie& clip) {
    if (!whyNoCopy(mode, place).empty()) return;
    const int number = collection_.icurMov;
    const bool isSplit = mode == CopyMode::Split;
    auto copy = copyOf(clip, mode, place.value_or(PlayerPlace{}));
    copy.KeyID(freshKeyIDs(collection_, toLongClamped(secondsSinceMidnight(ports_.clock)), 1).front());
    history_.change(pass, named(isSplit ? "split" : "copy"), kListChanged, [&] {
      auto& original = collection_.MovieList[number];
      const Single rate = settings_.preferences().OutPutFrameRate;
      auto keyframes = keyframesOfCopy(collection_, original, copy, rate);
      if (isSplit) {
        const Movie whole = original;
        endAhead(original, *place);
        endKeyframes(collection_, whole, original, rate);
      }
      for (auto& k : keyframes) collection_.KeyframeList.add(std::move(k));
      RecordList<Movie>::Numbered parts;
      parts.emplace_back(number + 1, std::make_unique<Movie>(std::move(copy)));
      collection_.MovieList.putIn(std::move(parts));
      collection_.icurMov = number + 1;
    });
    copied_();
  });
}

}  // namespace kvo
