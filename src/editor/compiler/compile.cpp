#include "editor/compiler/compile.h"

#include "editor/compiler/audio_tracks.h"
#include "editor/compiler/document_text.h"

#include <set>

namespace kvo {

Compiled beginCompile(TimelineClips clips, const CompileOptions& options) {
  Compiled made;
  made.clips = std::move(clips);
  made.output = options.output;
  made.hasPicture = hasPicture(made.clips);
  made.hasMusic = options.overlays || GetNumAudioTracks(made.clips) >= 1;
  return made;
}

void addVideo(Compiled& made, const EffectSources& sources, const ClipLineOptions& line) {
  auto video = videoLine(sources, made.clips, line);
  made.parts.VideoTrackText = std::move(video.tracks);
  made.videoStop = video.stop;
  made.largestStop = video.largestStop;
}

void addClipAudio(Compiled& made, const CompileOptions& options) {
  made.parts.AudioTrackText = clipAudioTracks(options, made.clips);
}

void addMusic(Compiled& made, const CompileOptions& options) {
  std::optional<VideoEnd> video;
  if (options.trimOverlays && made.hasPicture) video = {made.videoStop.value_or(0), made.largestStop};
  const auto music = overlayTracks(options, made.clips, video);
  made.parts.AudioTrackText += music.tracks;
  made.audioStop = music.stop;
  made.audioStopsWithVideo = music.stopsWithVideo;
}

Compiled compileTimes(TimelineClips clips, const KeyframeIndex& keyframes, const CompileOptions& options) {
  const EffectsTable noEffects;
  auto made = beginCompile(std::move(clips), options);
  addVideo(made, {noEffects, keyframes, options}, {.Text = LineText::None});
  // What is there now: only a compile remembers that there was music once.
  made.hasMusic = false;
  if (GetNumAudioTracks(made.clips) >= 1) addMusic(made, options);
  made.parts = {};
  return made;
}

Compiled compile(const Collection& collection, const CompileOptions& options, const CompileFacts& facts) {
  const KeyframeIndex keyframes(collection);
  auto made = beginCompile(TimelineClips(collection, facts.streams), options);
  addVideo(made, {facts.effects, keyframes, options}, {.UseSourceFile = options.sourceFiles});
  // A clip whose file is missing has its track all the same, and tracks stand in a group.
  const bool hasVideoTime = made.videoStop.value_or(0) > 0;
  const bool hasGroup = made.hasPicture || hasVideoTime;
  if (hasGroup) made.parts.VideoGroupText = videoGroupTag(options.output);
  made.parts.AudioGroupText = audioGroupTag(kAudioRate);
  const bool hasClipAudio = options.alwaysHasAudio || (options.clipAudio && made.hasPicture);
  if (hasClipAudio) addClipAudio(made, options);
  if (made.hasMusic) addMusic(made, options);
  made.text = documentText(made.parts, hasGroup, hasVideoTime, hasClipAudio || made.hasMusic);
  return made;
}

std::string videoGroupTag(const OutputForm& o) {
  return tag::group({{"type", "video"},
                     {"bitdepth", std::to_string(o.depth)},
                     {"width", std::to_string(o.width)},
                     {"height", std::to_string(o.height)},
                     {"framerate", shortNumber(o.rate)},
                     {"name", "VIDEO"},
                     {"buffering", o.buffering}},
                    o.previewMode ? " PreviewMode=\"True\"  >\r\n" : "  >\r\n");
}

std::string documentText(const WorkingTexts& texts, bool hasGroup, bool hasVideoTime, bool hasAudioTracks) {
  constexpr std::string_view kApart = "\r\n\r\n";
  tag::GroupText video{.tracks = texts.VideoTrackText, .behind = kApart, .isClosed = hasVideoTime};
  if (hasGroup) video.open = texts.VideoGroupText;
  tag::GroupText audio{.open = texts.AudioGroupText, .blanksAhead = 10, .behind = kApart};
  if (hasAudioTracks) audio.tracks = texts.AudioTrackText;
  return tag::document({video, audio}, tag::Spacing::Wide);
}

void applyCorrections(const Compiled& compiled, Collection& collection, KVO2& settings, Corrections which) {
  applyCorrections(compiled.clips, collection, settings, which);
  const bool wasDirty = settings.state.IsDirty;
  if (compiled.hasMusic) settings.change().DubInPlaylistAudioTrks = true;
  settings.state.IsDirty = wasDirty;
}

void ValidateKeyFrames(Collection& collection) {
  auto& clips = collection.MovieList;
  std::set<Long> keys;
  std::set<Long> owners;
  for (int i = 1; i <= clips.count(); ++i) keys.insert(clips[i].KeyID());
  collection.KeyframeList.removeIf([&](const Keyframe& k) {
    if (keys.contains(k.ClipName)) owners.insert(k.ClipName);
    return !keys.contains(k.ClipName);
  });
  for (int i = 1; i <= clips.count(); ++i) {
    if (owners.contains(clips[i].KeyID())) clips[i].HasKeyFrames(true);
  }
}

}  // namespace kvo
