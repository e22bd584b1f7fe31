// The clips of a collection as a compile sees them: what their records say and their files hold, and what the
// compile makes of it. The records themselves are only read.
#pragma once

#include "core/records/collection.h"
#include "ports/media_contents.h"

#include <optional>
#include <string>
#include <vector>

namespace kvo {

/// Where a clip lies in the movie, in seconds, as a document gives them.
struct TimelinePlace {
  double start = 0;
  double stop = 0;
};

/// The fields with a record's names begin as the record has them, and hold what the compile corrected them
/// to.
struct TimelineClip {
  const Movie* record = nullptr;  ///< not owned
  int number = 0;                 ///< in the collection, from 1
  bool isSound = false;           ///< sound alone, which has no place in the video group
  bool isMusic = false;           ///< the same, of a kind that can be laid under a movie
  bool hasPicture = false;        ///< a stream of the file
  bool hasSound = false;
  bool isRead = false;  ///< its file has been: what it has is no presumption, and the file is there

  Value LoopStart;
  Value LoopEnd;
  Value DurationTime;
  Single TransIn = 0;  ///< tenths of a second
  std::string TransType;
  std::optional<Boolean> HasAudio;  ///< where the compile looked
  Boolean RenderAudio = false;
  Boolean HasAudioFade = false;
  Boolean HasKeyFrames = false;
  bool dropsFirstOption = false;  ///< ExtraParamName1 and ExtraParamValue1 are emptied

  TimelinePlace place;  ///< of this compile, else of the one before it
  bool placed = false;  ///< by this compile
};

/// The clips of a collection, numbered from 1. It has to outlive them, unchanged.
class TimelineClips {
 public:
  TimelineClips() = default;
  /// As the records have them; kinds and streams are not known.
  explicit TimelineClips(const Collection& collection);
  /// With what the files hold, each looked into once.
  TimelineClips(const Collection& collection, MediaContents& streams);

  [[nodiscard]] int count() const { return static_cast<int>(clips_.size()); }
  TimelineClip& operator[](int number) { return clips_[static_cast<std::size_t>(number - 1)]; }
  const TimelineClip& operator[](int number) const { return clips_[static_cast<std::size_t>(number - 1)]; }
  auto begin() { return clips_.begin(); }
  auto end() { return clips_.end(); }
  [[nodiscard]] auto begin() const { return clips_.begin(); }
  [[nodiscard]] auto end() const { return clips_.end(); }

 private:
  std::vector<TimelineClip> clips_;
};

/// "CUT" in any case, or empty: no transition leads into the clip.
bool isCut(std::string_view transType);

/// True if any clip has a picture that can be shown: a stream of its file, or a still, or by its name MPEG.
bool hasPicture(const TimelineClips& clips);

/// The number of the first clip of sound that stands ahead of one with a picture, 0 when there is none.
int misplacedSound(const TimelineClips& clips);

enum class Corrections {
  All,
  OfTransitions,   ///< what writing a transition corrects: all that a preview of one may touch
  ButTransitions,  ///< all else, where none is written
};

/// Writes what a compile corrected, and where it placed the clips, into the records. It is no change of the
/// user's: dirty flags stay, and so does the change code.
void applyCorrections(const TimelineClips& clips, Collection& collection, KVO2& settings,
                      Corrections which = Corrections::All);

}  // namespace kvo
