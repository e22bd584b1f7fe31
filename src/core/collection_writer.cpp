#include "base/file_print.h"
#include "base/text.h"
#include "core/clip_rows.h"
#include "core/collection_file.h"
#include "core/head_rows.h"
#include "core/messages.h"

namespace kvo {
namespace {

constexpr std::size_t kMaxNote = 127;  // characters
constexpr int kMaxClips = 32767;       // the count in the head is a 16-bit number
constexpr int kMaxKeyframes = 10000;   // a reader takes a larger count for none
constexpr int kShowEvery = 10;

// A value stands on one line; a line end in it would end its section early.
void appendRow(std::string& out, std::string_view key, std::string value) {
  for (char& c : value) {
    if (c == '\r' || c == '\n') c = ' ';
  }
  out.append(key).append(value).append(kCrLf);
}

void appendHeading(std::string& out, std::string_view name) {
  out.append("[").append(name).append("]").append(kCrLf);
}

void endSection(std::string& out) { out.append(kCrLf).append(kCrLf); }

template <class Record>
void appendSection(std::string& out, const std::string& name, std::span<const FieldRow<Record>> rows,
                   const Record& record) {
  appendHeading(out, name);
  for (const auto& row : rows) appendRow(out, row.key, row.text(record));
  endSection(out);
}

std::string headText(const KVO2& settings) {
  std::string out;
  for (const auto& section : headSections()) {
    appendHeading(out, section.name);
    for (const auto& row : section.rows) appendRow(out, row.key, row.text(settings));
    endSection(out);
  }
  return out;
}

// Notes are cut to 127 characters, whole characters of UTF-8.
std::string cutNote(const std::string& note) {
  std::size_t at = 0;
  for (std::size_t n = 0; at < note.size() && n < kMaxNote; ++n) {
    ++at;
    while (at < note.size() && (static_cast<unsigned char>(note[at]) & 0xC0U) == 0x80U) ++at;
  }
  return note.substr(0, at);
}

// The unset fields get the texts that a reader expects; this is no change of the user's.
void fillUnset(Movie& clip) {
  const bool wasDirty = clip.IsDirty();
  const auto note = clip.Notes().text();
  if (const auto cut = cutNote(note); !clip.Notes().isSet() || cut.size() != note.size())
    clip.Notes(Value(cut));
  if (clip.AltName().empty()) clip.AltName(" ");
  if (clip.LoopStart().text().empty()) {
    clip.listener(nullptr);
    clip.LoopStart(Value("0"));
  }
  clip.IsDirty(wasDirty);
}

std::string clipText(const Movie& clip, int number) {
  const auto name = "Movie" + std::to_string(number);
  std::string out;
  out.reserve(4096);
  appendSection(out, name + "Main", movieMainRows(), clip);
  appendSection(out, name + "Audio", movieAudioRows(), clip);
  appendSection(out, name + "Looping", movieLoopingRows(), clip);
  appendSection(out, name + "Display", movieDisplayRows(), clip);
  return out;
}

// Collects prints and hands them to the file in large pieces.
class PrintTo {
 public:
  explicit PrintTo(Replacement& out) : out_(out) {}

  Outcome print(std::string_view text) {
    pending_.append(text).append(kCrLf);
    return pending_.size() < kPiece ? Outcome() : flush();
  }

  Outcome flush() {
    auto written = out_.write(out_.size(), pending_);
    pending_.clear();
    return written;
  }

 private:
  static constexpr std::size_t kPiece = 1U << 18U;
  Replacement& out_;
  std::string pending_;
};

}  // namespace

bool CollectionFile::failWrite(std::string_view step, std::string_view why) {
  boxes_.show({"KVO V5 - Error", std::string(LoadResString(188)), BoxButtons::Ok, BoxIcon::Critical});
  log_.LogError(
      std::string("<<ERR040>> - General WriteINI Failure - Sect=").append(step).append("  -  ").append(why));
  return false;
}

bool CollectionFile::WriteINI(std::string folder, const std::string& file, bool quiet, LoadWatch* watch) {
  std::string step = "Sec 0";
  const auto inBrackets = [&] { return "<" + folder + "> & <" + file + ">"; };
  if (folder.size() < 3) {
    log_.LogError("<<Warning001>> WriteINI - Bad input parameter of " + inBrackets() + " passed to Iniwrite");
    return false;
  }
  if (file.empty()) {
    log_.LogError("<<Warning002>> WriteINI - Bad input parameter of " + inBrackets() + " passed to Iniwrite");
    return false;
  }
  folder = withSeparator(folder);
  if (folder.ends_with("//")) folder.pop_back();
  const auto path = folder + file;

  if (collection_.MovieList.count() > kMaxClips || collection_.KeyframeList.count() > kMaxKeyframes) {
    return failWrite(step, "A collection holds at most 32767 clips and 10000 keyframes");
  }
  step = "Sec 1";
  auto out = files_.replace(path);
  if (!out) return failWrite("Sec 2", out.error().text);
  if (auto written = writeSections(**out, quiet, watch, step); !written)
    return failWrite(step, written.error().text);
  if (auto committed = (*out)->commit(); !committed) return failWrite(step, committed.error().text);

  if (!files_.exists(path)) {
    log_.LogError(
        "<<Warning003>> >> - WriteINI - Failed to write - Probable cause is Access Permissions or Sharing "
        "Violation if "
        "the INI is being edited. Passed in values were " +
        inBrackets() + " ");
    return false;
  }
  const auto failCheck = [&](std::string_view warning) {
    log_.LogError(std::string(warning) + path);
    boxes_.show({"KVO V5 - Error",
                 "Failed to read Written initialisation data - \r\nClose any other programs you may have "
                 "open and try "
                 "again.",
                 BoxButtons::Ok, BoxIcon::Critical});
    return false;
  };
  auto bytes = files_.read(path, kMaxCollectionBytes);
  SectionReader reader(bytes ? std::move(*bytes) : std::string());
  Rows rows;
  if (!reader.GetSection("KVO", rows, 0)) {
    return failCheck("<<Warning004>> - WriteINI - Failed to retrieve written section value ");
  }
  if (rows.size() < 5 || rows[4].key != "DefaultStartupVid") {
    return failCheck("<<Warning006>> - WriteINI - Failed to retrieve written Integrity value ");
  }
  settings_.IsDirty(false);
  return true;
}

Outcome CollectionFile::writeSections(Replacement& out, bool quiet, LoadWatch* watch, std::string& step) {
  PrintTo file(out);
  step = "Sec 3";
  auto& clips = collection_.MovieList;
  settings_.MoviesInGroup(static_cast<Integer>(clips.count()));
  settings_.KeyframeCount(collection_.KeyframeList.count());
  step = "Sec 41";
  if (settings_.SkinPath().empty()) settings_.SkinPath("Quirl");
  step = "Sec 5";
  if (auto done = file.print(headText(settings_)); !done) return done;

  step = "Sec 6";
  for (int i = 1; i <= clips.count(); ++i) {
    fillUnset(clips[i]);
    clips[i].listener(&poster_);
    if (!quiet && watch != nullptr && i % kShowEvery == 0) {
      watch->status("Saving Clip " + std::to_string(i) + " of " + std::to_string(clips.count()));
    }
    step = "Sec 8";
    if (auto done = file.print(clipText(clips[i], i)); !done) return done;
  }
  step = "Sec 10";
  for (int i = 1; i <= collection_.AudMovieList.count(); ++i) {
    std::string text;
    appendSection(text, "AudMovie" + std::to_string(i), audMovieRows(), collection_.AudMovieList[i]);
    if (auto done = file.print(text); !done) return done;
  }
  step = "Sec 12";
  for (int i = 1; i <= collection_.KeyframeList.count(); ++i) {
    std::string text;
    appendSection(text, "KeyFrame" + std::to_string(i), keyframeRows(), collection_.KeyframeList[i]);
    if (auto done = file.print(text); !done) return done;
  }
  return file.flush();
}

}  // namespace kvo
