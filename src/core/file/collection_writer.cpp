#include "base/file_print.h"
#include "base/text.h"
#include "core/file/clip_rows.h"
#include "core/file/collection_file.h"
#include "core/records/setting_rows.h"
#include "core/telling/messages.h"

#include <optional>

namespace kvo {
namespace {

constexpr std::size_t kMaxNote = 127;       // characters
constexpr std::size_t kUnusedLength = 128;  // characters: a reader takes such a text for none
constexpr int kShowEvery = 10;

// What a reader makes of one line, in a section with a row behind it.
struct ReadBack {
  std::string value;
  std::string bytes;
  bool keepsItsSection = false;
};

ReadBack readBack(std::string_view value, bool inQuotes) {
  const auto mark = inQuotes ? "\"" : "";
  SectionReader reader(
      std::string("[A]\r\n").append(mark).append("k= ").append(value).append(mark).append("\r\nl= 1"));
  std::vector<SectionRow> rows;
  if (!reader.GetSection("A", rows, 1)) return {};
  return {std::string(rows[0].value), std::string(rows[0].bytes), rows.size() == 2};
}

bool isHarmless(std::string_view value) {
  return value.find_first_of(",\"[]\r\n") == std::string_view::npos &&
         trimmed(value).size() == value.size() && value.size() < kUnusedLength;
}

enum class Quotes { None, Around };

// How a value has to be written so that it reads back as it is; nothing when it cannot be. Of what names a
// file the bytes count: a reader looks whether they are a file.
std::optional<Quotes> formOf(std::string_view value, bool namesFile) {
  const auto wanted = lineFromBytes(namesFile ? value : trimmed(value));
  for (const auto quotes : {Quotes::None, Quotes::Around}) {
    const auto read = readBack(value, quotes == Quotes::Around);
    if (read.keepsItsSection && read.value == wanted) return quotes;
  }
  const auto plain = readBack(value, false);
  if (namesFile && plain.keepsItsSection && plain.bytes == value) return Quotes::None;
  return std::nullopt;
}

// The value without what makes a reader stumble.
std::string smoothed(std::string value) {
  for (char& c : value) {
    if (c == '\r') c = ' ';
    if (c == '[') c = '(';
    if (c == ']') c = ')';
    if (c == '"') c = '\'';
  }
  return value;
}

// Puts the rows of sections together, and remembers the texts that could not be carried as they were.
class RowWriter {
 public:
  void row(std::string_view key, std::string value, bool namesFile = false) {
    if (isHarmless(value)) return append(key, value, Quotes::None);
    bool changed = false;
    for (std::size_t i = 0; i < value.size(); ++i) {  // a value stands on one line, which ends at a feed
      if (value[i] != '\n') continue;
      if (i > 0 && value[i - 1] == '\r') value[i - 1] = ' ';
      value[i] = ' ';
      changed = true;
    }
    auto form = formOf(value, namesFile);
    if (value.starts_with('/') && (!form || characterCount(value) == kUnusedLength)) {
      value.insert(0, "/.");  // another text for the same place
      form = formOf(value, namesFile);
    }
    if (!form) {
      value = smoothed(std::move(value));
      form = formOf(value, namesFile);
      changed = true;
    }
    if (changed) changedRows_.emplace_back(key.substr(0, key.find_first_of(" =")));
    append(key, value, form.value_or(Quotes::None));
  }

  void heading(std::string_view name) { text_.append("[").append(name).append("]").append(kCrLf); }
  void endSection() { text_.append(kCrLf).append(kCrLf); }

  template <class Record>
  void section(const std::string& name, std::span<const FieldRow<Record>> rows, const Record& record) {
    heading(name);
    for (const auto& r : rows) row(r.key, r.text(record), r.namesFile);
    endSection();
  }

  [[nodiscard]] const std::string& text() const { return text_; }

  /// Adds the keys of the changed rows, with what they belong to.
  void tellChanged(std::vector<std::string>& texts, const std::string& owner) const {
    for (const auto& key : changedRows_) texts.push_back(key + owner);
  }

 private:
  void append(std::string_view key, std::string_view value, Quotes quotes) {
    const auto mark = quotes == Quotes::Around ? "\"" : "";
    text_.append(mark).append(key).append(value).append(mark).append(kCrLf);
  }

  std::string text_;
  std::vector<std::string> changedRows_;
};

RowWriter headRows(const KVO2& settings) {
  RowWriter out;
  for (const auto& section : headSections()) {
    out.heading(section.name);
    for (const auto& row : section.rows) out.row(row.key, row.text(settings), row.namesFile());
    out.endSection();
  }
  return out;
}

// The unset fields get the texts that a reader expects; this is no change of the user's.
void fillUnset(Movie& clip) {
  const bool wasDirty = clip.IsDirty();
  const auto note = clip.Notes().text();
  if (const auto cut = cutTo(note, kMaxNote); !clip.Notes().isSet() || cut.size() != note.size())
    clip.Notes(Value(cut));
  if (clip.AltName().empty()) clip.AltName(" ");
  if (clip.LoopStart().text().empty()) {
    clip.listener(nullptr);
    clip.LoopStart(Value("0"));
  }
  clip.IsDirty(wasDirty);
}

RowWriter clipRows(const Movie& clip, int number) {
  const auto name = "Movie" + std::to_string(number);
  RowWriter out;
  out.section(name + "Main", movieMainRows(), clip);
  out.section(name + "Audio", movieAudioRows(), clip);
  out.section(name + "Looping", movieLoopingRows(), clip);
  out.section(name + "Display", movieDisplayRows(), clip);
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

bool CollectionFile::failWrite(std::string_view step, std::string_view why, std::string_view told) {
  if (told.empty()) told = LoadResString(188);
  boxes_.show({"KVO V5 - Error", std::string(told), BoxButtons::Ok, BoxIcon::Critical});
  log_.LogError(
      std::string("<<ERR040>> - General WriteINI Failure - Sect=").append(step).append("  -  ").append(why));
  return false;
}

// A save that changes texts keeps what stands under the name. What is to be said of it once it is done; empty
// when no text changes.
Result<std::string> CollectionFile::keepAhead(const std::string& path,
                                              const std::vector<std::string>& changedTexts) {
  if (changedTexts.empty()) return std::string();
  auto told = changedTexts.front();
  if (const auto more = changedTexts.size() - 1; more > 0) told += " and " + std::to_string(more) + " more";
  told += ": a collection cannot keep every line end, bracket and quote. They were changed in the file.";
  if (files_.exists(path)) {
    const auto copy = keepCopy(path);
    if (!copy) return copy.error();
    told.append(kCrLf).append("What was saved before is kept as ").append(*copy);
  }
  return told;
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
    const auto why = "A collection holds at most " + std::to_string(kMaxClips) + " clips and " +
                     std::to_string(kMaxKeyframes) + " keyframes. This one has " +
                     std::to_string(collection_.MovieList.count()) + " and " +
                     std::to_string(collection_.KeyframeList.count()) + " and was not written.";
    return failWrite(step, why, why);
  }
  step = "Sec 1";
  auto out = files_.replace(path);
  if (!out) return failWrite("Sec 2", out.error().text);
  std::vector<std::string> changedTexts;
  if (auto written = writeSections(**out, quiet, watch, step, changedTexts); !written)
    return failWrite(step, written.error().text);
  const auto changes = keepAhead(path, changedTexts);
  if (!changes) return failWrite(step, changes.error().text);
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
  settings_.state.IsDirty = false;
  if (!changes->empty()) {
    log_.LogError(*changes);
    if (!quiet) boxes_.show({std::string(kProductName), *changes, BoxButtons::Ok, BoxIcon::Warning});
  }
  return true;
}

Outcome CollectionFile::writeSections(Replacement& out, bool quiet, LoadWatch* watch, std::string& step,
                                      std::vector<std::string>& changedTexts) {
  PrintTo file(out);
  step = "Sec 3";
  auto& clips = collection_.MovieList;
  settings_.change().MoviesInGroup = static_cast<Integer>(clips.count());
  settings_.adjust().KeyframeCount = collection_.KeyframeList.count();
  step = "Sec 41";
  if (settings_.preferences().SkinPath.empty()) settings_.adjust().SkinPath = "Quirl";
  step = "Sec 5";
  const auto printRows = [&](const RowWriter& rows, const std::string& owner) {
    rows.tellChanged(changedTexts, owner);
    return file.print(rows.text());
  };
  if (auto done = printRows(headRows(settings_), ""); !done) return done;

  step = "Sec 6";
  for (int i = 1; i <= clips.count(); ++i) {
    fillUnset(clips[i]);
    clips[i].listener(&poster_);
    if (!quiet && watch != nullptr && i % kShowEvery == 0) {
      watch->status("Saving Clip " + std::to_string(i) + " of " + std::to_string(clips.count()));
    }
    step = "Sec 8";
    if (auto done = printRows(clipRows(clips[i], i), " of clip " + std::to_string(i)); !done) return done;
  }
  step = "Sec 10";
  for (int i = 1; i <= collection_.AudMovieList.count(); ++i) {
    RowWriter rows;
    rows.section("AudMovie" + std::to_string(i), audMovieRows(), collection_.AudMovieList[i]);
    if (auto done = printRows(rows, " of animation " + std::to_string(i)); !done) return done;
  }
  step = "Sec 12";
  for (int i = 1; i <= collection_.KeyframeList.count(); ++i) {
    RowWriter rows;
    rows.section("KeyFrame" + std::to_string(i), keyframeRows(), collection_.KeyframeList[i]);
    if (auto done = printRows(rows, " of keyframe " + std::to_string(i)); !done) return done;
  }
  return file.flush();
}

}  // namespace kvo
