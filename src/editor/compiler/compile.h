// The compiler: a collection becomes a timeline document. Collection and options are only read; what a
// compile would have otherwise in the records is part of what it gives back.
#pragma once

#include "editor/compiler/clip_line.h"
#include "editor/compiler/compile_options.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/effect_elements.h"
#include "editor/compiler/timeline_clips.h"

#include <optional>
#include <string>

namespace kvo {

/// What a compile asks of the world; all of it outlives the compile.
struct CompileFacts {
  MediaContents& streams;
  const EffectsTable& effects;
};

/// The four texts that a document is put together from.
struct WorkingTexts {
  std::string VideoGroupText;
  std::string VideoTrackText;
  std::string AudioGroupText;
  std::string AudioTrackText;
};

struct Compiled {
  std::string text;         ///< the document
  WorkingTexts parts;       ///< what it is made of
  TimelineClips clips;      ///< each clip's place, and what its record is to be corrected to
  bool hasPicture = false;  ///< any clip has one; without, the boxes for clip sound and trimming go off
  bool hasMusic = false;    ///< the music of the collection takes part
  OutputForm output;        ///< as asked for
  std::optional<double> videoStop;  ///< seconds: VideoTotalTime; none without a clip with a picture
  std::optional<double> audioStop;  ///< seconds: AudioTotalTime; none where no music takes part
  bool audioStopsWithVideo = false;
  double largestStop = 0;  ///< seconds: LastClipStop
};

/// Compiles the collection, which outlives what comes back: places every clip, shortens transitions that are
/// too long, gives stills their length, and writes the document. A second compile of records that were
/// corrected may differ from the first: a clip without sound that was to be heard is silent once, and then
/// has no sound track. A still has none at all.
Compiled compile(const Collection& collection, const CompileOptions& options, const CompileFacts& facts);

/// The places alone, without a text: what compile() would leave of `clips`, all of a collection's with what
/// their files hold, and where movie and music stop. hasMusic is false: an edit makes no preference of the
/// music.
Compiled compileTimes(TimelineClips clips, const KeyframeIndex& keyframes, const CompileOptions& options);

// The passes of a compile, in their order, for an operation that makes one part of a document. Each goes on
// with what those ahead of it left in `made`, or with the places that a compile before has left in the
// records.

/// Ahead of all passes: clips, hasPicture, hasMusic, output.
Compiled beginCompile(TimelineClips clips, const CompileOptions& options);
/// The video tracks; places their clips, and leaves videoStop and largestStop.
void addVideo(Compiled& made, const EffectSources& sources, const ClipLineOptions& line);
/// Starts the audio tracks with the sound of the clips that have a picture.
void addClipAudio(Compiled& made, const CompileOptions& options);
/// Adds the music; places its clips, within the video's stops where it is trimmed, and leaves audioStop.
void addMusic(Compiled& made, const CompileOptions& options);

/// The opening tag of the video group, with its line end.
std::string videoGroupTag(const OutputForm& output);

/// The document that the four texts make: with the tag that opens the video group, with the one that closes
/// it, and with audio tracks, where that is wanted. Without tracks it has an audio group all the same.
std::string documentText(const WorkingTexts& texts, bool hasGroup, bool hasVideoTime, bool hasAudioTracks);

/// Writes what a compile corrected into records and settings. It is no change of the user's: dirty flags and
/// the change code stay.
void applyCorrections(const Compiled& compiled, Collection& collection, KVO2& settings,
                      Corrections which = Corrections::All);

/// Sets HasKeyFrames of the clips that own keyframes and removes keyframes whose clip is gone.
void ValidateKeyFrames(Collection& collection);

}  // namespace kvo
