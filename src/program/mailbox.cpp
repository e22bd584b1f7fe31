#include "program/mailbox.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/messages.h"
#include "intake/clip_names.h"
#include "intake/folders.h"
#include "intake/refusals.h"
#include "program/search_progress.h"

#include <algorithm>
#include <functional>

namespace kvo {
namespace {

constexpr int kMailboxInterval = 200;  // milliseconds

// The first of the music that a list of pictures ends with; 0 where it has none, or sounds among the
// pictures.
int closingMusic(const Collection& collection) {
  const auto& clips = collection.MovieList;
  int first = clips.count() + 1;
  while (first > 1 && isSoundByName(clips[first - 1].MovieName())) --first;
  for (int number = 1; number < first; ++number)
    if (isSoundByName(clips[number].MovieName())) return 0;
  return first > 1 && first <= clips.count() ? first : 0;
}

}  // namespace

Mailbox::Mailbox(const ProgramParts& parts, Intro& intro)
    : parts_(parts), intro_(intro), timer6_(parts.loop.timer([this] { look(); })) {}

void Mailbox::open(const std::string& workingFolder) {
  workingFolder_ = workingFolder;
  timer6_->start(kMailboxInterval);
}

void Mailbox::look() {
  if (parts_.window.busy()) return;  // it is taken at a later tick
  if (const auto text = parts_.handover.take()) takeHandover(*text);
}

void Mailbox::takeHandover(const std::string& text) {
  intro_.leave();
  if (trimmed(text) == kRemovePreview) {
    const auto& clips = parts_.collection.MovieList;
    std::vector<int> previews;
    for (int i = 1; i <= clips.count(); ++i) {
      if (sameText(clips[i].MovieName(), "PREVIEW.WMV")) previews.push_back(i);
    }
    parts_.history.remove(CommandPass(parts_.window), previews);
    return;
  }
  parts_.window.face.visible = parts_.window.face.raise = true;
  auto arguments = handedOver(text);
  for (auto& argument : arguments) {
    if (!parts_.files.exists(argument)) argument = trimmed(replaced(argument, "\"", ""));
  }
  parts_.window.mode.player.IsPaused = false;
  const auto command = readStartCommand(arguments, parts_.files, workingFolder_);
  if (take(command, {}) && transport_ != nullptr) transport_->Img_Play_Click();
  tellMissing(command.missing);
}

void Mailbox::tellMissing(const std::vector<std::string>& paths) {
  parts_.refusals.together([&] {
    for (const auto& path : paths) parts_.refusals.show(refusedUnverified(fileNamePart(path)));
  });
}

void Mailbox::takeFiles(const std::vector<std::string>& paths, int before) { takePaths(paths, {before}); }

void Mailbox::takeForMovie(const std::vector<std::string>& paths, int before) {
  takePaths(paths, {before, true});
}

void Mailbox::takePaths(const std::vector<std::string>& paths, const Place& place) {
  StartCommand command;
  bool unmapped = false;
  for (const auto& path : paths) {
    if (isUnmapped(path)) {
      unmapped = true;
    } else if (paths.size() == 1 && namesCollection(path)) {
      command.collection = path;
    } else {
      command.clips.push_back(path);
    }
  }
  if (unmapped) parts_.boxes.show(refusedUnmapped(true));
  take(command, place);
}

void Mailbox::takeDropped(std::vector<std::string> paths, int before) {
  std::sort(paths.begin(), paths.end(), naturalLess);
  takeFiles(paths, before);
}

void Mailbox::takeAddress(const std::string& address, const AddManner& manner) {
  const bool isTrusted = isAddress(address) || isUnmapped(address) || address.starts_with(kSeparator);
  if (!isTrusted && !parts_.files.exists(address)) {
    if (const CommandPass pass(parts_.window); pass) parts_.boxes.show(refusedAddress(address));
    return;
  }
  StartCommand command;
  command.clips = {address};
  take(command, {}, manner);
}

std::vector<std::string> Mailbox::clipsOf(const std::vector<std::string>& names) {
  SearchProgress search(parts_.window, parts_.loop, LoadResString(387), LoadResString(341));
  auto clips = withClipsOfFolders(names, parts_.files, [&] { return search.goesOn(); });
  if (search.stopped()) {
    clips.clear();
  } else {
    tellEmpty(names, clips);
  }
  return clips;
}

void Mailbox::tellEmpty(const std::vector<std::string>& names, const std::vector<std::string>& clips) {
  for (const auto& name : names) {
    if (!parts_.files.isFolder(name)) continue;
    const auto inside = withSeparator(name);
    if (std::ranges::none_of(clips, [&](const auto& clip) { return clip.starts_with(inside); }))
      parts_.refusals.show(refusedFolder(name));
  }
}

bool Mailbox::take(const StartCommand& command, Place place, const AddManner& manner) {
  if (!command.collection.empty() && !parts_.commands.openNamed(command.collection)) return false;
  const CommandPass pass(parts_.window);
  if (!pass || command.clips.empty()) return false;
  intro_.leave();
  if (place.before == 0) {
    place.before = closingMusic(parts_.collection);
    place.isMovie |= place.before > 0;
  }
  if (guard_) guard_->player.beforeAdding();
  bool added = false;
  bool stopped = false;
  const auto add = [&](const std::vector<std::string>& some, int before) {
    if (some.empty() || stopped) return;
    added |= parts_.history.add(
        pass, [&] { parts_.intake.add(some, manner); }, before);
    stopped = parts_.intake.wasStopped();
  };
  parts_.refusals.together([&] {
    auto clips = clipsOf(command.clips);
    const auto music = place.isMovie
                           ? std::stable_partition(clips.begin(), clips.end(), std::not_fn(isSoundByName))
                           : clips.end();
    parts_.history.together([&] {
      add({clips.begin(), music}, place.before);
      add({music, clips.end()}, 0);
    });
  });
  parts_.list.show();
  if (added) return show(pass);
  if (guard_) guard_->player.nothingAdded();
  return false;
}

bool Mailbox::show(const CommandPass& pass) {
  const int number = parts_.collection.icurMov;
  const auto load = [&] { parts_.list.PreviewMovie(number); };
  if (!guard_) {
    load();
    return true;
  }
  const auto file = clipFile(parts_.collection.MovieList[number]);
  switch (guardLoad(guard_->player, file, load, parts_.boxes, guard_->log)) {
    case GuardedLoad::Done:
      return true;
    case GuardedLoad::Refused:
      parts_.history.remove(pass, {number});
      return false;
    case GuardedLoad::Fatal:
      parts_.settings.state.IsDirty = false;
      guard_->endProgram();
  }
  return false;
}

}  // namespace kvo
