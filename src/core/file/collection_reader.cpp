#include "base/text.h"
#include "core/file/clip_rows.h"
#include "core/file/collection_file.h"
#include "core/records/setting_rows.h"
#include "core/telling/deployment.h"
#include "core/telling/messages.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::size_t kUnusedLength = 128;
constexpr int kMaxAnimations = 100;
constexpr int kMaxCorruptAudio = 4;
constexpr int kShowEvery = 5;

bool isCurrentFolderWord(std::string_view text) { return sameText(text, "CURRDIR"); }

// What a row may mean where it names a file, the likeliest first: its bytes as they stand, to the end of the
// line, ahead of what the platform's reading makes of them.
std::vector<std::string> meaningsOf(const SectionRow& row) {
  const auto line = trimmed(row.bytes);
  std::vector<std::string> meanings{std::string(row.bytes)};
  for (auto text : {std::string(line), lineFromBytes(line), std::string(row.value)}) {
    if (std::find(meanings.begin(), meanings.end(), text) == meanings.end())
      meanings.push_back(std::move(text));
  }
  return meanings;
}

bool isCollectionHead(const std::vector<SectionRow>& rows) {
  return rows.size() >= 5 && rows[4].key == "DefaultStartupVid";
}

template <class Record>
void takeRows(Record& record, std::span<const FieldRow<Record>> rows, const std::vector<SectionRow>& values,
              std::size_t from = 0) {
  for (std::size_t i = from; i < std::min(rows.size(), values.size()); ++i) {
    if (rows[i].take != nullptr) rows[i].take(record, values[i].value);
  }
}

std::string numbered(std::string_view name, int number, std::string_view part = {}) {
  return std::string(name).append(std::to_string(number)).append(part);
}

std::string lines(std::initializer_list<std::string_view> all) {
  std::string out;
  for (const auto line : all) out.append(out.empty() ? "" : kCrLf).append(line);
  return out;
}

Outcome sizeOf(const SectionReader& reader, const std::string& fileName) {
  const int clips = reader.countSections("Movie", "Main");
  if (clips <= kMaxClips) return {};
  return Error{fileName + " holds " + std::to_string(clips) + " clips; a collection holds at most " +
               std::to_string(kMaxClips)};
}

bool shownAndAborted(const ReadOptions& options, std::string_view what, int i, int count) {
  if (options.watch == nullptr || i % kShowEvery != 0) return false;
  options.watch->status(std::string(what) + std::to_string(i) + " of " + std::to_string(count));
  return options.watch->abortClicked();
}

}  // namespace

CollectionFile::CollectionFile(Files& files, const Clock& clock, MessageBoxes& boxes, ErrorLog& log,
                               const ProgramFolder& folder, KVO2& settings, Collection& collection)
    : files_(files),
      clock_(clock),
      boxes_(boxes),
      log_(log),
      folder_(folder),
      settings_(settings),
      collection_(collection),
      poster_(settings),
      failures_(log, boxes, settings, [] {}) {}

ReadReport CollectionFile::ReadINI(const std::string& fileName, const ReadOptions& options) {
  const auto path = fileName.empty() ? folder_.beside(collection_.IniName) : fileName;
  ReadReport report;
  collection_.clearLists();
  collection_.kind = CollectionKind::Plain;
  collection_.filesMissing = false;
  settings_.adjust().ProgramVersion = programVersionText();

  auto bytes = files_.read(path, kMaxCollectionBytes);
  if (!bytes && options.mayRewrite && files_.exists(path)) {
    replaceUnreadable(path, bytes.error());
    bytes = files_.read(path, kMaxCollectionBytes);
  }
  SectionReader reader(bytes ? std::move(*bytes) : std::string());
  Rows rows;
  if (!reader.GetSection("KVO", rows, 0)) {
    failures_.ReportInitError(
        lines({LoadResString(117), LoadResString(118), LoadResString(119), LoadResString(120)}), 6,
        LoadResString(121), bytes ? path : bytes.error().text, true);
    report.end = ReadEnd::NotReadable;
    return report;
  }
  if (!isCollectionHead(rows)) {
    failures_.ReportInitError(LoadResString(122), 8, LoadResString(124), path, true);
    report.end = ReadEnd::NotValid;
    return report;
  }

  if (const auto size = sizeOf(reader, path); !size) {
    boxes_.show({"KVO V5 - Error", size.error().text, BoxButtons::Ok, BoxIcon::Critical});
    report.end = ReadEnd::TooManyClips;
    return report;
  }

  SettingRead head{settings_, folder_};
  readHead(reader, head);
  readAnimations(reader);
  readClips(reader, options, report);
  if (report.end == ReadEnd::Done) readKeyframes(reader, options, report);
  giveMissingKeys();
  if (report.end == ReadEnd::Done) {
    const auto gone =
        report.skippedClips.size() + (options.keepMissingClips ? 0 : report.missingFiles.size());
    const int clips = collection_.MovieList.count() + static_cast<int>(gone);
    report.unreadClips = std::max(0, reader.countSections("Movie", "Main") - clips);
    report.unreadKeyframes = std::max(0, reader.countSections("KeyFrame") - collection_.KeyframeList.count());
  }
  if (report.end == ReadEnd::Done && head.rewrite && options.mayRewrite)
    rewrite(path, reader, report, options);
  return report;
}

// A clip that was saved without a key gets one, now that all keys of the file are known.
void CollectionFile::giveMissingKeys() {
  std::vector<Movie*> without;
  for (int i = 1; i <= collection_.MovieList.count(); ++i) {
    if (collection_.MovieList[i].KeyID() == 0) without.push_back(&collection_.MovieList[i]);
  }
  const auto keys = freshKeyIDs(collection_, toLongClamped(secondsSinceMidnight(clock_)), without.size());
  for (std::size_t i = 0; i < without.size(); ++i) without[i]->KeyID(keys[i]);
}

// A file that the disk does not give back gets a fresh one in its place, so that the program can go on; the
// old one is kept beside it.
void CollectionFile::replaceUnreadable(const std::string& fileName, const Error& why) {
  log_.LogError(std::string(LoadResString(177)).append(why.text));
  log_.LogError("<<Corrupt INI - Re-Write initiated>> on - " + fileName);
  settings_.adjust().AnimMovRand = false;
  settings_.adjust().CDDBMode = 1;
  settings_.adjust().TitleDispClr = "8421504";
  settings_.adjust().NoofUses = 40;
  settings_.change().DisplayColor = "9079296";
  if (auto done = files_.rename(fileName, freeCopyName(fileName, {})); !done)
    return log_.LogError(done.error().text);
  WriteINI(std::string(folderPart(fileName)), std::string(fileNamePart(fileName)), true);
}

void CollectionFile::readHead(SectionReader& reader, SettingRead& head) {
  Rows rows;
  for (const auto& section : headSections()) {
    const bool found = reader.GetSection(section.name, rows, 0);
    if (!found && section.name == "Fonts") {
      log_.LogError("<<ERR031>> - Font Read Failure ");
      boxes_.show(
          {"KVO V5 - Error",
           "Unable to write to disk or sharing violation (Non Fatal) - Please check the access rights. ",
           BoxButtons::Ok, BoxIcon::Warning});
    } else if (!found && section.name == "Directories") {
      log_.LogError("<<ERR031>> - Bmp Save Failure INI Read Error");
    } else if (!found && section.name == "AudioAnimation") {
      log_.LogError("<<ERR031>> - AudioAnimation Read Failure Errc=INI Read Error");
    } else if (!found && section.name == "Prefs") {
      log_.LogError("<<ERR031>> - Prefs Read Failure Errc=");
    }
    if (!found) readWithoutSection(section, head);
    for (std::size_t i = 0; i < std::min(section.rows.size(), rows.size()); ++i)
      readSetting(section.rows[i], head, headText(section.rows[i], rows[i]));
  }
}

// A row's text, or its bytes where it is no UTF-8 and they name something that is there.
std::string_view CollectionFile::headText(const SettingRow& row, const SectionRow& read) const {
  const auto bytes = trimmed(read.bytes);
  if (!row.namesFile() || bytes == read.value || bytes.empty()) return read.value;
  const std::string name(bytes);
  return files_.exists(name) || files_.exists(folder_.beside("\\" + name)) ? bytes : read.value;
}

std::string CollectionFile::folderField(std::string_view value) const {
  if (isCurrentFolderWord(value)) return withSeparator(folder_.path());
  if (characterCount(value) == kUnusedLength) return {};
  return std::string(folderFromFile(value));
}

// True, with `folder` and `name` as the disk knows them, when one of the meanings of their rows is a file.
bool CollectionFile::findFile(std::string& folder, std::string& name, const SectionRow* folderRow,
                              const SectionRow& nameRow) const {
  std::vector<std::string> folders;
  if (folderRow != nullptr) {
    for (const auto& meaning : meaningsOf(*folderRow)) folders.push_back(folderField(meaning));
    if (folderRow->value != folders.back()) folders.emplace_back(folderRow->value);
  }
  if (folders.empty() || folder != folders.back()) folders.push_back(folder);
  for (const auto& f : folders) {
    for (const auto& meaning : meaningsOf(nameRow)) {
      const auto n = fileNamePart(meaning);
      if (n.empty() || !files_.exists(std::string(f).append(n))) continue;
      name = n;
      folder = f;
      return true;
    }
  }
  return false;
}

void CollectionFile::readAnimations(SectionReader& reader) {
  Rows rows;
  for (int i = 1; i <= kMaxAnimations && reader.GetSection(numbered("AudMovie", i), rows, 0); ++i) {
    AudMovies animation;
    takeRows(animation, audMovieRows(), rows);
    if (characterCount(animation.MovieName) == kUnusedLength) animation.MovieName.clear();
    animation.Path = withSeparator(rows.size() > 1 ? folderField(rows[1].value) : std::string());
    const bool found =
        files_.exists(animation.Path + animation.MovieName) ||
        findFile(animation.Path, animation.MovieName, rows.size() > 1 ? &rows[1] : nullptr, rows[0]);
    if (found) {
      collection_.AudMovieList.add(std::move(animation));
    } else {
      collection_.filesMissing = true;
    }
  }
}

void CollectionFile::readClips(SectionReader& reader, const ReadOptions& options, ReadReport& report) {
  const int count = settings_.preferences().MoviesInGroup;
  int audioFailures = 0;
  for (int i = 1; i <= count; ++i) {
    if (shownAndAborted(options, "Loading Clip ", i, count)) {
      report.end = ReadEnd::Aborted;
      return;
    }
    Rows main;
    if (!reader.GetSection(numbered("Movie", i, "Main"), main, i)) {
      log_.LogError(std::string("<<ERR033>> - ").append(LoadResString(172)).append(LoadResString(173)));
      report.damaged = true;
      return;
    }
    Movie clip;
    clip.listener(nullptr);
    clip.MovieName(std::string(fileNamePart(main[0].value)));
    if (holdsText(clip.MovieName(), ".CDA")) collection_.kind = CollectionKind::HoldsCDTracks;
    if (main.size() > 1) clip.Path(folderField(main[1].value));
    takeRows(clip, movieMainRows(), main, 2);
    if (clip.Playspeed() == 999) {
      clip.IsExtendedCD(true);
      collection_.kind = CollectionKind::HoldsExtendedCD;
    }

    bool skipped =
        clip.MovieName().empty() || (clip.Path().empty() && clip.MovieName().find("//") == std::string::npos);
    if (skipped) {
      report.skippedClips.push_back(i);
      continue;
    }
    if (!readClip(reader, i, clip, audioFailures, report.damaged)) return;
    if (audioFailures > kMaxCorruptAudio) return;

    if (!fileIsThere(clip, main)) {
      report.missingFiles.push_back(clip.Path() + clip.MovieName());
      collection_.filesMissing = true;
      if (!options.keepMissingClips) {
        if (askAboutMissing(clip)) continue;
        report.end = ReadEnd::Cancelled;
        return;
      }
    }
    findOtherFiles(clip, main);
    collection_.MovieList.add(std::move(clip)).listener(&poster_);
  }
}

// The sections behind Main. False when the load has to stop here.
bool CollectionFile::readClip(SectionReader& reader, int number, Movie& clip, int& failures, bool& damaged) {
  Rows rows;
  if (reader.GetSection(numbered("Movie", number, "Audio"), rows, number)) {
    takeRows(clip, movieAudioRows(), rows);
  } else {
    damaged = true;
    if (++failures > kMaxCorruptAudio) return false;
    log_.LogError("<<ERR034>> - Corrupt Audio Descriptions. ");
  }
  if (rows.size() < 2) clip.AudioOutputLevel(1.0F);

  if (reader.GetSection(numbered("Movie", number, "Looping"), rows, number)) {
    takeRows(clip, movieLoopingRows(), rows);
    // Once more, now that the durations are known, so that the frame fields can be derived.
    if (!rows.empty()) clip.LoopEnd(Value(rows[0].value));
  } else {
    damaged = true;
    log_.LogError(std::string("<<ERR035>> - Corrupt Looping Descriptions. ").append(LoadResString(174)));
  }

  if (reader.GetSection(numbered("Movie", number, "Display"), rows, number)) {
    takeRows(clip, movieDisplayRows(), rows);
  } else {
    damaged = true;
    log_.LogError(std::string(LoadResString(175)).append("<<ERR036>> - Corrupt Display Failure "));
  }
  return true;
}

bool CollectionFile::fileIsThere(Movie& clip, const Rows& main) const {
  if (isAddress(clip.MovieName()) || clip.IsExtendedCD()) return true;
  auto folder = clip.Path();
  auto name = clip.MovieName();
  if (!findFile(folder, name, main.size() > 1 ? &main[1] : nullptr, main[0])) return false;
  clip.Path(std::move(folder));
  clip.MovieName(std::move(name));
  return true;
}

// The files beside the clip's own: what an overlay is made of, and the mask.
void CollectionFile::findOtherFiles(Movie& clip, const Rows& main) const {
  if (main.size() > kSrcNameRow && !clip.SrcName().empty()) {
    auto folder = clip.SrcPath();
    auto name = clip.SrcName();
    if (findFile(folder, name, &main[kSrcPathRow], main[kSrcNameRow])) {
      clip.SrcPath(std::move(folder));
      clip.SrcName(std::move(name));
    }
  }
  if (main.size() > kMaskNameRow) clip.MaskName(fileField(main[kMaskNameRow]));
}

// A name with its folder, in the meaning that is a file where there is one.
std::string CollectionFile::fileField(const SectionRow& row) const {
  for (auto& meaning : meaningsOf(row)) {
    if (!meaning.empty() && files_.exists(meaning)) return meaning;
  }
  return std::string(row.value);
}

bool CollectionFile::askAboutMissing(const Movie& clip) {
  const auto text = lines(
      {"KVO could not verify the file :- ", std::string("Path = ").append(cutTo(clip.Path(), 20)),
       std::string("File Name = ").append(cutTo(clip.MovieName(), 20)),
       "Click OK to continue loading the collection and all",
       "missing files will be removed or Cancel to abort", "and no changes will be made to the collection"});
  return boxes_.show({"KVO5 - File or Drive not found ", text, BoxButtons::OkCancel, BoxIcon::Question}) ==
         Answer::Ok;
}

void CollectionFile::readKeyframes(SectionReader& reader, const ReadOptions& options, ReadReport& report) {
  const int count = settings_.preferences().KeyframeCount;
  Rows rows;
  for (int i = 1; i <= count; ++i) {
    if (shownAndAborted(options, "Loading Keyframe ", i, count)) {
      report.end = ReadEnd::Aborted;
      return;
    }
    if (!reader.GetSection(numbered("KeyFrame", i), rows, i)) {
      log_.LogError(std::string("<<ERR033>> - ").append(LoadResString(172)).append(LoadResString(173)));
      report.damaged = true;
      return;
    }
    Keyframe keyframe;
    takeRows(keyframe, keyframeRows(), rows);
    if (rows.size() > kTextureFileRow) keyframe.TextureFile = fileField(rows[kTextureFileRow]);
    if (keyframe.FrameNo >= 0) collection_.KeyframeList.add(std::move(keyframe));
  }
}

void CollectionFile::rewrite(const std::string& fileName, const SectionReader& reader,
                             const ReadReport& report, const ReadOptions& options) {
  if (options.watch != nullptr) options.watch->status("Please Wait \r\nAnalysing Collection");
  const bool loses = report.damaged || !report.skippedClips.empty() || reader.droppedText() ||
                     reader.countSections("Movie", "Main") > collection_.MovieList.count() ||
                     reader.countSections("AudMovie") > collection_.AudMovieList.count() ||
                     reader.countSections("KeyFrame") > collection_.KeyframeList.count();
  if (loses && !keepCopy(fileName)) {
    log_.LogError("Cannot keep a copy of the old collection, so it is left as it stands - " + fileName);
    return;
  }
  WriteINI(std::string(folderPart(fileName)), std::string(fileNamePart(fileName)), true);
}

// Whether two files differ by nothing, or by the count of uses alone, which every load raises.
static bool isSameCollection(std::string_view a, std::string_view b) {
  const auto withoutUses = [](std::string_view text) {
    const auto at = std::min(text.find("TimesUsed"), text.size());
    const auto end = std::min(text.find('\n', at), text.size());
    return std::pair(text.substr(0, at), text.substr(end));
  };
  return withoutUses(a) == withoutUses(b);
}

// The first name of "x.INI.old", "x.INI.old2" and so on that is free, or holds the same collection already.
std::string CollectionFile::freeCopyName(const std::string& fileName, const std::string& bytes) const {
  auto name = fileName + ".old";
  for (int n = 2; files_.exists(name); ++n) {
    const auto there = files_.read(name, kMaxCollectionBytes);
    if (!bytes.empty() && there && isSameCollection(*there, bytes)) break;
    name = fileName + ".old" + std::to_string(n);
  }
  return name;
}

// The name of the copy.
Result<std::string> CollectionFile::keepCopy(const std::string& fileName) {
  const auto bytes = files_.read(fileName, kMaxCollectionBytes);
  if (!bytes) return bytes.error();
  auto name = freeCopyName(fileName, *bytes);
  if (auto done = writeDurably(files_, name, *bytes); !done) return done.error();
  return name;
}

Outcome CollectionFile::checkSize(const std::string& fileName) {
  auto bytes = files_.read(fileName, kMaxCollectionBytes);
  return bytes ? sizeOf(SectionReader(std::move(*bytes)), fileName) : Outcome(bytes.error());
}

bool CollectionFile::IsValidCollection(const std::string& fileName) {
  auto bytes = files_.read(fileName, kMaxCollectionBytes);
  if (!bytes) return false;
  SectionReader reader(std::move(*bytes));
  Rows rows;
  return reader.GetSection("KVO", rows, 0) && isCollectionHead(rows);
}

std::string CollectionFile::CollectionVersion(const std::string& fileName, bool& isOther) {
  auto bytes = files_.read(fileName, kMaxCollectionBytes);
  SectionReader reader(bytes ? std::move(*bytes) : std::string());
  Rows rows;
  std::string version = "Unknown and Corrupt";
  if (reader.GetSection("KVO", rows, 0)) version = rows[0].value;
  isOther = version.substr(0, 7) != "Ver 3.1";
  return version;
}

}  // namespace kvo
