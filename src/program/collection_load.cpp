#include "base/text.h"
#include "core/telling/deployment.h"
#include "core/telling/messages.h"
#include "core/telling/translated.h"
#include "intake/asx_stream.h"
#include "program/collection_store.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kShowLoadEvery = 5;

std::string lines(std::initializer_list<std::string_view> all) {
  std::string out;
  for (const auto line : all) out.append(out.empty() ? "" : kCrLf).append(line);
  return out;
}

std::string tooMany(const std::string& fileName, int clips) {
  return translated("%1 holds %2 clips; a collection holds at most %3",
                    {fileName, std::to_string(clips), std::to_string(kMaxClips)});
}

bool shownAndAborted(const ReadOptions& options, const char* what, int i, int count) {
  if (options.watch == nullptr || i % kShowLoadEvery != 0) return false;
  options.watch->status(translated(what, {std::to_string(i), std::to_string(count)}), i, count);
  return options.watch->abortClicked();
}

}  // namespace

Result<std::string> CollectionStore::bytesOf(const std::string& path, const ReadOptions& options) {
  auto bytes = files_.read(path, kMaxCollectionBytes);
  if (bytes || !options.isNeeded || !options.mayRewrite || !files_.exists(path)) return bytes;
  replaceUnreadable(path, bytes.error());
  return files_.read(path, kMaxCollectionBytes);
}

ReadReport CollectionStore::ReadINI(const std::string& fileName, const ReadOptions& options) {
  const auto path = fileName.empty() ? folder_.beside(collection_.IniName) : fileName;
  ReadReport report;
  settings_.adjust().ProgramVersion = programVersionText();
  auto bytes = bytesOf(path, options);
  CollectionReader reader(bytes ? std::move(*bytes) : std::string(), folder_, settings_.preferences());
  const auto& text = reader.facts();
  report.end = text.end;
  if (report.end != ReadEnd::Done) {
    report.why = !bytes                                ? bytes.error().text
                 : report.end == ReadEnd::TooManyClips ? tooMany(path, text.clipSections)
                                                       : translated("%1 is not a collection", {path});
    if (options.isNeeded) tellUnreadable(report, path);
    return report;
  }

  collection_.clearLists();
  collection_.kind = CollectionKind::Plain;
  collection_.filesMissing = collection_.isPortable = false;
  names_.begin(std::string(folderPart(path)));
  if (options.watch != nullptr) options.watch->begins();
  const bool needsRewrite = takeHead(text);
  takeAnimations(reader);
  takeClips(reader, options, report);
  if (report.end == ReadEnd::Done) takeKeyframes(reader, options, report);
  giveMissingKeys();
  if (report.end != ReadEnd::Done) return report;

  const int gone = static_cast<int>(report.skippedClips.size()) + report.removedClips;
  const int clips = collection_.MovieList.count() + gone;
  report.unreadClips = std::max(0, text.clipSections - clips);
  report.unreadKeyframes = std::max(0, text.keyframeSections - collection_.KeyframeList.count());
  if (needsRewrite && options.mayRewrite) rewrite(path, reader, report, options);
  return report;
}

void CollectionStore::tellUnreadable(const ReadReport& report, const std::string& path) {
  if (report.end == ReadEnd::NotReadable) {
    failures_.ReportInitError(
        lines({LoadResString(117), LoadResString(118), LoadResString(119), LoadResString(120)}), 6,
        LoadResString(121), report.why, true);
  } else if (report.end == ReadEnd::NotValid) {
    failures_.ReportInitError(LoadResString(122), 8, LoadResString(124), path, true);
  } else {
    boxes_.show({"KVO V5 - Error", report.why, BoxButtons::Ok, BoxIcon::Critical});
  }
}

// True when the file has to be brought up to date.
bool CollectionStore::takeHead(const TextFacts& text) {
  SettingRead read{settings_, folder_};
  for (std::size_t s = 0; s < text.head.size(); ++s) {
    const auto& section = headSections()[s];
    const auto& rows = text.head[s];
    if (rows.empty()) {
      tellMissing(section.name);
      readWithoutSection(section, read);
    }
    for (std::size_t i = 0; i < std::min(section.rows.size(), rows.size()); ++i)
      readSetting(section.rows[i], read, names_.headText(section.rows[i], rows[i]));
  }
  return read.rewrite;
}

void CollectionStore::tellMissing(std::string_view section) {
  if (section == "Fonts") {
    log_.LogError("<<ERR031>> - Font Read Failure ");
    boxes_.show(
        {"KVO V5 - Error",
         "Unable to write to disk or sharing violation (Non Fatal) - Please check the access rights. ",
         BoxButtons::Ok, BoxIcon::Warning});
  } else if (section == "Directories") {
    log_.LogError("<<ERR031>> - Bmp Save Failure INI Read Error");
  } else if (section == "AudioAnimation") {
    log_.LogError("<<ERR031>> - AudioAnimation Read Failure Errc=INI Read Error");
  } else if (section == "Prefs") {
    log_.LogError("<<ERR031>> - Prefs Read Failure Errc=");
  }
}

void CollectionStore::takeAnimations(CollectionReader& reader) {
  for (auto& [animation, folder, name] : reader.animations()) {
    if (files_.exists(animation.Path + animation.MovieName) ||
        names_.find(animation.Path, animation.MovieName, folder, name)) {
      collection_.AudMovieList.add(std::move(animation));
    } else {
      collection_.filesMissing = true;
    }
  }
}

void CollectionStore::takeClips(CollectionReader& reader, const ReadOptions& options, ReadReport& report) {
  const int count = reader.facts().clips;
  bool keepsMissing = options.keepMissingClips;
  for (int i = 1; i <= count; ++i) {
    if (shownAndAborted(options, "Loading Clip %1 of %2", i, count)) {
      report.end = ReadEnd::Aborted;
      return;
    }
    auto next = reader.nextClip();
    auto& clip = next.clip;
    if (holdsText(clip.MovieName(), ".CDA")) collection_.kind = CollectionKind::HoldsCDTracks;
    if (clip.IsExtendedCD()) collection_.kind = CollectionKind::HoldsExtendedCD;
    report.damaged |= next.damaged;
    for (const auto& line : next.told) log_.LogError(line);
    if (next.ends) return;
    if (!next.usable) {
      report.skippedClips.push_back(next.number);
      continue;
    }
    const auto placed = names_.placeOf(clip.Path());
    collection_.isPortable |= placed != clip.Path();
    clip.Path(placed);
    if (!names_.findClip(next)) {
      report.missingFiles.push_back(clipFile(clip));
      const auto answer = keepsMissing ? Answer::Yes : askAboutMissing(clip);
      collection_.filesMissing |= answer != Answer::Yes;
      keepsMissing = answer == Answer::Yes;
      if (answer == Answer::Cancel) {
        report.end = ReadEnd::Cancelled;
        return;
      }
      if (answer != Answer::Yes) {
        ++report.removedClips;
        continue;
      }
    }
    names_.findOthers(next);
    clip.SrcPath(names_.placeOf(clip.SrcPath()));
    // No row of the file says so.
    const bool isOnTheWeb = isAddress(clip.MovieName()) && !clip.IsHTML();
    clip.IsStream(isOnTheWeb || IsASXAStream(clip, files_));
    collection_.MovieList.add(std::move(clip)).listener(&poster_);
  }
}

void CollectionStore::takeKeyframes(CollectionReader& reader, const ReadOptions& options,
                                    ReadReport& report) {
  const int count = reader.facts().keyframes;
  for (int i = 1; i <= count; ++i) {
    if (shownAndAborted(options, "Loading Keyframe %1 of %2", i, count)) {
      report.end = ReadEnd::Aborted;
      return;
    }
    auto [keyframe, texture, ends] = reader.nextKeyframe();
    if (ends) {
      log_.LogError(lineOfEnd());
      report.damaged = true;
      return;
    }
    keyframe.TextureFile = names_.whole(texture);
    if (keyframe.FrameNo >= 0) collection_.KeyframeList.add(std::move(keyframe));
  }
}

// Yes, which Enter presses, keeps the clip and all others like it, to be found elsewhere; No takes it out.
Answer CollectionStore::askAboutMissing(const Movie& clip) {
  const auto text = lines(
      {"KVO could not verify the file :- ", translated("Path = %1", {cutTo(clip.Path(), 20)}),
       translated("File Name = %1", {cutTo(clip.MovieName(), 20)}),
       "Click OK to continue loading the collection and all",
       "missing files will be removed or Cancel to abort", "and no changes will be made to the collection"});
  return boxes_.show({.caption = "KVO5 - File or Drive not found ",
                      .text = text,
                      .buttons = BoxButtons::YesNoCancel,
                      .icon = BoxIcon::Question,
                      .renamed = {{"Yes", "Keep All"}, {"No", "OK"}}});
}

// A clip that was saved without a key gets one, now that all keys of the file are known.
void CollectionStore::giveMissingKeys() {
  std::vector<Movie*> without;
  for (int i = 1; i <= collection_.MovieList.count(); ++i) {
    if (collection_.MovieList[i].KeyID() == 0) without.push_back(&collection_.MovieList[i]);
  }
  const auto keys = freshKeyIDs(collection_, toLongClamped(secondsSinceMidnight(clock_)), without.size());
  for (std::size_t i = 0; i < without.size(); ++i) without[i]->KeyID(keys[i]);
}

bool CollectionStore::IsValidCollection(const std::string& fileName) {
  auto bytes = files_.read(fileName, kMaxCollectionBytes);
  return bytes && kindOfText(std::move(*bytes)).isCollection;
}

}  // namespace kvo
