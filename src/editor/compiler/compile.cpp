#include "editor/compiler/compile.h"

#include "base/file_print.h"
#include "editor/compiler/audio_tracks.h"
#include "editor/compiler/clip_line.h"
#include "editor/compiler/document_text.h"

#include <set>

namespace kvo {

Compiled compile(const Collection& collection, const CompileOptions& options, const CompileFacts& facts) {
  const KeyframeIndex keyframes(collection);
  const EffectSources sources{facts.effects, keyframes, options};
  Compiled out;
  out.clips = TimelineClips(collection, facts.streams);
  out.output = options.output;
  out.hasPicture = hasPicture(out.clips);
  out.hasMusic = options.overlays || GetNumAudioTracks(out.clips) >= 1;

  auto line = videoLine(sources, out.clips, {.UseSourceFile = options.sourceFiles});
  out.videoStop = line.stop;
  out.largestStop = line.largestStop;
  // A clip whose file is missing has its track all the same, and tracks stand in a group.
  const bool hasVideoTime = line.stop.value_or(0) > 0;
  const bool hasGroup = out.hasPicture || hasVideoTime;
  if (hasGroup) out.parts.VideoGroupText = videoGroupTag(options.output);
  out.parts.VideoTrackText = std::move(line.tracks);
  out.parts.AudioGroupText = audioGroupTag(kAudioRate);

  const bool clipAudio = options.alwaysHasAudio || (options.clipAudio && out.hasPicture);
  if (clipAudio) out.parts.AudioTrackText = clipAudioTracks(options, out.clips);
  if (out.hasMusic) {
    const bool trims = options.trimOverlays && out.hasPicture;
    const auto music = overlayTracks(options, out.clips, trims ? out.largestStop : 0);
    out.parts.AudioTrackText += music.tracks;
    const double video = out.videoStop.value_or(0);
    out.audioStop = trims && video >= music.stop ? Stamp{video, Digits::Four} : Stamp{music.stop};
  }
  out.text = documentText(out.parts, hasGroup, hasVideoTime, clipAudio || out.hasMusic);
  return out;
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
  const std::string indent(5, ' ');
  const auto line = [](std::string_view text) { return std::string(text) + "\r\n"; };
  FilePrint file;
  file.print(line(tag::kTimeline));
  if (hasGroup) file.print(indent + texts.VideoGroupText + "\r\n\r\n");
  file.print(texts.VideoTrackText + "\r\n\r\n");
  if (hasVideoTime) file.print(line(tag::kEndGroup) + "\r\n");
  file.print(indent + texts.AudioGroupText + "\r\n\r\n");
  if (hasAudioTracks) file.print(indent + indent + texts.AudioTrackText + "\r\n\r\n");
  file.print(line(tag::kEndGroup) + "\r\n");
  file.print(line(tag::kEndTimeline));
  return file.bytes();
}

void applyCorrections(const Compiled& compiled, Collection& collection, KVO2& settings, Corrections which) {
  applyCorrections(compiled.clips, collection, settings, which);
  ValidateKeyFrames(collection);
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
