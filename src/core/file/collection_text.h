// A collection as text, and back: one INI-form text holds the preferences and the clips. Text in, records
// out; what is not for here: files, boxes, the log.
#pragma once

#include "base/paths.h"
#include "base/result.h"
#include "core/file/read_report.h"
#include "core/file/section_reader.h"
#include "core/records/collection.h"
#include "core/records/setting_rows.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// The rows of one of headSections(), none where the text does not have it.
using HeadText = std::vector<SectionRow>;

/// A clip's four sections. The rows that name files come along, as only the disk tells what they mean; one
/// that the text does not have has no bytes.
struct ParsedClip {
  int number = 0;
  Movie clip;
  SectionRow folder{}, name{}, overlayFolder{}, overlayName{}, mask{};
  bool usable = true;               ///< false without a name or folder
  bool damaged = false;             ///< sections are missing or out of order
  bool ends = false;                ///< the text cannot be read past this one, which is no clip
  std::vector<std::string> told{};  ///< lines for the log
};

struct ParsedAnimation {
  AudMovies animation;
  SectionRow folder{}, name{};
};

struct ParsedKeyframe {
  Keyframe keyframe;
  SectionRow texture{};
  bool ends = false;  ///< as of ParsedClip
};

/// What a text holds as a whole. Sections are counted by their headings.
struct TextFacts {
  ReadEnd end = ReadEnd::Done;   ///< or NotReadable, NotValid, TooManyClips: then there is nothing else
  std::vector<HeadText> head{};  ///< as many as headSections()
  int clipSections = 0;
  int animationSections = 0;
  int keyframeSections = 0;
  int clips = 0;  ///< as the head counts them
  int keyframes = 0;
};

/// Reads the text of a collection: the head at once, and then a record at each call, in file order. Rows are
/// views of the text, which lives in here.
class CollectionReader {
 public:
  /// `bytes` as they stand in the file. What the head does not count is as it was `before`. A folder
  /// "CURRDIR" is `folder`, which outlives the reader.
  CollectionReader(std::string bytes, const ProgramFolder& folder, const Preferences& before = {});

  [[nodiscard]] const TextFacts& facts() const { return facts_; }

  std::vector<ParsedAnimation> animations();
  /// The next clip: for `facts().clips` calls, or until one `ends`.
  ParsedClip nextClip();
  /// Behind the clips, likewise.
  ParsedKeyframe nextKeyframe();

  /// There was text in what has been read that made no row.
  [[nodiscard]] bool droppedText() const { return reader_.droppedText(); }

 private:
  void otherSections(ParsedClip& parsed);
  bool section(ParsedClip& parsed, std::string_view part);

  SectionReader reader_;
  const ProgramFolder& folder_;
  TextFacts facts_;
  std::vector<SectionRow> rows_;
  int clip_ = 0;
  int keyframe_ = 0;
  int audioFailures_ = 0;
};

/// What a text is by its [KVO].
struct TextKind {
  bool hasHead = false;
  bool isCollection = false;  ///< "DefaultStartupVid" is the key of row 5
};
TextKind kindOfText(std::string bytes);

/// The line of the log that says that no further clip or keyframe can be read.
std::string lineOfEnd();

/// What a row that names a folder means.
std::string folderOf(std::string_view text, const ProgramFolder& folder);

/// Text of one step of a save.
struct PrintedBlock {
  std::string_view step;             ///< what reports of a failure call it
  int clip = 0;                      ///< the clip of this number, 0 for none
  std::string text;                  ///< whole lines, without the one that each print ends with
  std::vector<std::string> changed;  ///< "Notes of clip 3": what the format cannot carry as it is
};

/// A file's name as a collection carries it at worst: without line ends, brackets and quotes of its own. What
/// is the same here may be one name.
std::string carriedName(std::string_view name);

/// Gives the fields that are unset the texts that a reader expects, and the head its counts. Clips tell
/// `listener` from here on.
void fillUnset(KVO2& settings, Collection& collection, RecordListener* listener);

/// Hands the text of a collection over, block by block; ends with the first failure of `take`. With
/// `portableFolder`, the folder of the file with a separator at its end, what lies in it or below is named
/// from there on: its path begins with "./".
Outcome print(const KVO2& settings, const Collection& collection,
              const std::function<Outcome(const PrintedBlock&)>& take, std::string_view portableFolder = {});

}  // namespace kvo
