#include "base/text.h"
#include "core/file/clip_rows.h"
#include "core/file/collection_text.h"
#include "core/records/setting_rows.h"

#include <optional>

namespace kvo {
namespace {

constexpr std::size_t kMaxNote = 127;  // characters

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
    if (c == '\r' || c == '\n') c = ' ';
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

  /// Everything, with what the changed rows belong to behind their keys.
  PrintedBlock block(std::string_view step, const std::string& owner) {
    for (auto& key : changedRows_) key += owner;
    return {step, 0, std::move(text_), std::move(changedRows_)};
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

// The clip as a portable collection in `folder` names its files.
Movie asPortable(Movie clip, std::string_view folder) {
  const auto relative = [&](const std::string& path) {
    return path.starts_with(folder) ? "./" + path.substr(folder.size()) : path;
  };
  clip.Path(relative(clip.Path()));
  clip.SrcPath(relative(clip.SrcPath()));
  return clip;
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

}  // namespace

std::string carriedName(std::string_view name) { return std::string(trimmed(smoothed(std::string(name)))); }

void fillUnset(KVO2& settings, Collection& collection, RecordListener* listener) {
  auto& clips = collection.MovieList;
  settings.change().MoviesInGroup = static_cast<Integer>(clips.count());
  settings.adjust().KeyframeCount = collection.KeyframeList.count();
  if (settings.preferences().SkinPath.empty()) settings.adjust().SkinPath = "Quirl";
  for (int i = 1; i <= clips.count(); ++i) {
    fillUnset(clips[i]);
    clips[i].listener(listener);
  }
}

Outcome print(const KVO2& settings, const Collection& collection,
              const std::function<Outcome(const PrintedBlock&)>& take, std::string_view portableFolder) {
  if (auto done = take(headRows(settings).block("Sec 5", "")); !done) return done;
  const auto& clips = collection.MovieList;
  for (int i = 1; i <= clips.count(); ++i) {
    auto rows =
        portableFolder.empty() ? clipRows(clips[i], i) : clipRows(asPortable(clips[i], portableFolder), i);
    auto block = rows.block("Sec 8", " of clip " + std::to_string(i));
    block.clip = i;
    if (auto done = take(block); !done) return done;
  }
  const auto printAll = [&](const auto& list, auto rows, const char* step, const char* name,
                            const char* owner) {
    for (int i = 1; i <= list.count(); ++i) {
      RowWriter out;
      out.section(name + std::to_string(i), rows, list[i]);
      if (auto done = take(out.block(step, owner + std::to_string(i))); !done) return done;
    }
    return Outcome();
  };
  if (auto done = printAll(collection.AudMovieList, audMovieRows(), "Sec 10", "AudMovie", " of animation ");
      !done)
    return done;
  return printAll(collection.KeyframeList, keyframeRows(), "Sec 12", "KeyFrame", " of keyframe ");
}

}  // namespace kvo
