#include "program/autosave.h"

#include "base/file_print.h"
#include "core/file/collection_text.h"
#include "core/records/setting_rows.h"
#include "core/telling/failures.h"
#include "core/telling/translated.h"

#include <utility>

namespace kvo {
namespace {

constexpr int kLookInterval = 1000;  // milliseconds

template <class Record>
void copyRecords(const RecordList<Record>& from, RecordList<Record>& into) {
  for (int i = 1; i <= from.count(); ++i) into.add(from[i]);
}

std::vector<std::string> preferenceTexts(const KVO2& settings) {
  std::vector<std::string> texts;
  for (const auto& section : settingSections()) {
    for (const auto& row : section.rows) {
      if (row.kept == Kept::Collection) texts.push_back(row.text(settings));
    }
  }
  return texts;
}

}  // namespace

Autosave::Autosave(const Parts& parts)
    : parts_(parts),
      path_(parts.folder.beside("\\Autosave.INI")),
      timer_(parts.loop.timer([this] { look(); })),
      writer_(std::make_unique<LastWish<Wish, Outcome>>(
          parts.loop, [this](const Wish& wish) { return write(*wish); },
          [this](const Wish& /*wish*/, const Outcome& outcome) {
            isThere_ |= static_cast<bool>(outcome);
            const bool failedBefore = std::exchange(failed_, !outcome);
            if (outcome) return;
            if (!failedBefore) parts_.log.LogError(outcome.error().text);
            revision_.reset();  // the next look tries again
          })) {}

void Autosave::begin() {
  offer();
  timer_->start(kLookInterval);
}

void Autosave::end() {
  timer_->stop();
  writer_.reset();  // what is being written is there then
  parts_.files.remove(path_);
}

void Autosave::offer() {
  if (!parts_.files.exists(path_)) return;
  const auto kept = keptName(parts_.files, path_);
  const auto answer = parts_.boxes.show(
      {std::string(kProductName) + " - Unsaved changes",
       translated("KVO5 ended before the changes of '%1' were saved.\r\nThey have been kept.",
                  {kept.fullPath.empty() ? std::string_view("Untitled") : fileNamePart(kept.fullPath)}),
       BoxButtons::YesNo,
       BoxIcon::Question,
       {{"Yes", "Restore"}, {"No", "Put aside"}}});
  if (answer == Answer::Yes && parts_.commands.openKept(path_, kept)) {
    isThere_ = true;
    return;
  }
  // Beside what has been put aside before.
  auto aside = path_ + ".old";
  for (int i = 2; parts_.files.exists(aside); ++i) aside = path_ + ".old" + std::to_string(i);
  if (const auto done = parts_.files.rename(path_, aside); !done) parts_.log.LogError(done.error().text);
}

void Autosave::look() {
  if (parts_.window.busy()) return;
  if (!isDirty(parts_.collection, parts_.settings)) {
    if (std::exchange(isThere_, false)) parts_.files.remove(path_);
    static_cast<void>(changed());  // nothing of what led here is to be kept
    return;
  }
  if (changed()) writer_->want(copy());
}

// By what the history has heard of, and by the preferences, of which some are changed at other places.
bool Autosave::changed() {
  auto preferences = preferenceTexts(parts_.settings);
  const auto revision = parts_.window.history.revision;
  const bool same = revision == revision_ && preferences == preferences_;
  revision_ = revision;
  preferences_ = std::move(preferences);
  return !same;
}

Autosave::Wish Autosave::copy() const {
  auto copy = std::make_shared<Copy>();
  const auto& from = parts_.collection;
  auto& into = copy->collection;
  copyRecords(from.MovieList, into.MovieList);
  for (int i = 1; i <= into.MovieList.count(); ++i) into.MovieList[i].listener(nullptr);
  copyRecords(from.AudMovieList, into.AudMovieList);
  copyRecords(from.KeyframeList, into.KeyframeList);
  into.kind = from.kind;
  into.IniName = from.IniName;
  into.IniFullPath = from.IniFullPath;
  into.isPortable = from.isPortable;
  for (const auto& section : settingSections()) {
    for (const auto& row : section.rows) row.take(copy->settings, row.text(parts_.settings));
  }
  return copy;
}

// On the thread. A collection, and behind it what its own file is.
Outcome Autosave::write(Copy& copy) const {
  fillUnset(copy.settings, copy.collection, nullptr);
  FilePrint text;
  auto done = print(copy.settings, copy.collection, [&](const PrintedBlock& block) {
    text.print(block.text);
    return Outcome();
  });
  if (!done) return done;
  text.print(keptText({copy.collection.IniFullPath, copy.collection.isPortable}));
  return writeDurably(parts_.files, path_, text.bytes());
}

}  // namespace kvo
