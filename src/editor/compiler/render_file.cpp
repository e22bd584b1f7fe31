#include "editor/compiler/render_file.h"

#include "base/file_print.h"
#include "editor/compiler/audio_tracks.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/clip_line.h"
#include "editor/compiler/document_check.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/keep_records.h"
#include "editor/compiler/keyframes.h"
#include "editor/compiler/video_group.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::uint64_t kMaxDocument = 256ULL << 20U;

void shortenTransitions(const Compilation& c) {
  for (int i = 1; i <= c.clips().count(); ++i) {
    const auto& clip = c.clips()[i];
    if (!isSound(c, clip) && !isCut(clip.TransType())) SortTransitionTimes(c, i);
  }
}

}  // namespace

Outcome writeDocument(Files& files, const std::string& fileName, const std::string& text) {
  if (auto sound = checkDocument(text); !sound)
    return Error{"cannot write " + fileName + ": " + sound.error().text};
  return writeDurably(files, fileName, text);
}

std::string renderFileText(const Compilation& c, bool hasAudioTracks) {
  auto& editor = c.editor;
  const auto& texts = editor.texts;
  FilePrint file;
  file.print("<timeline>\r\n");
  if (HaveAtleastOneVidTrack(c)) file.print(blanks(5) + texts.VideoGroupText + "\r\n\r\n");
  file.print(texts.VideoTrackText + "\r\n\r\n");
  if (ToNumber(editor.VideoTotalTime) > 0) file.print(blanks(5) + "</group>\r\n\r\n");
  if (!hasAudioTracks) CreateAudioGroup(editor, kAudioRate);
  file.print(blanks(5) + texts.AudioGroupText + "\r\n\r\n");
  if (hasAudioTracks) file.print(blanks(10) + texts.AudioTrackText + "\r\n\r\n");
  file.print(blanks(5) + "</group>\r\n\r\n");
  file.print("</timeline>\r\n");
  return file.bytes();
}

Outcome WriteRenderFile(const Compilation& c, bool hasAudioTracks, const std::string& fileName) {
  return writeDocument(c.files, fileName, renderFileText(c, hasAudioTracks));
}

void AnalyseRenderFile(const Compilation& c, const std::string& fileName) {
  auto& stops = c.editor.ClipStopList;
  stops.clear();
  const auto bytes = c.files.read(fileName, kMaxDocument);
  if (!bytes) return;
  std::string_view rest(*bytes);
  while (!rest.empty()) {
    const auto line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    if (line.find("SamplingRate=") != std::string_view::npos) return;
    const auto at = line.find(" stop=");
    if (line.find("<clip src=") == std::string_view::npos || at == std::string_view::npos) continue;
    auto text = replaced(replaced(line.substr(at, 20), "/>", ""), "stop=", "");
    const auto stop = static_cast<float>(ToNumber(replaced(text, "\"", "")));
    if (std::find(stops.begin(), stops.end(), stop) == stops.end()) stops.push_back(stop);
  }
}

namespace {

void createGroup(const Compilation& c, int power) {
  if (!HaveAtleastOneVidTrack(c)) return;
  int width = c.settings.preferences().RenderWidth;
  int height = c.settings.preferences().RenderHeight;
  GetHeightWidth(c.editor.controls, height, width);
  int depth = c.settings.preferences().OutputColorDepth;
  Single rate = 0;
  CreateVideoGroup(c, depth, width, height, rate, power);
}

// A full compile: all that it reads is in order first, so that no step sees a clip in two states.
void begin(const Compilation& c) {
  ClearGlobals(c.editor);
  c.settings.state.ObjectChange = 0;
  const KeepRecords keep(c);
  giveStillsLength(c);
  shortenTransitions(c);
  ValidateKeyFrames(c);
}

// The sound of the collection. False when the document gets none.
bool createSound(const Compilation& c, bool clipAudio) {
  auto& editor = c.editor;
  editor.texts.AudioTrackText.clear();
  if (clipAudio) {
    CreateAudioGroup(editor, kAudioRate);
    CreateAudioClipLine(c);
  }
  const bool overlays = c.settings.preferences().DubInPlaylistAudioTrks;
  if (overlays) {
    CreateAudioGroup(editor, kAudioRate);
    AddOverlayAudioTracks(c, true);
  }
  return clipAudio || overlays;
}

}  // namespace

std::string compileText(const Compilation& c) {
  begin(c);
  const KeepRecords keep(c);
  createGroup(c, kRenderMode);
  CreateClipLine(c, {.UseSourceFile = true});
  return renderFileText(c, createSound(c, c.editor.controls.Chk_RenderClipAudio));
}

std::string compilePreviewText(const Compilation& c, int power) {
  begin(c);
  const KeepRecords keep(c);
  c.settings.change().PreviewCPU = static_cast<Integer>(power);
  createGroup(c, power);
  CreateClipLine(c, {.Analysing = true});
  createSound(c, true);
  return renderFileText(c, true);
}

Outcome CompileForRender(const Compilation& c, const std::string& fileName) {
  return writeDocument(c.files, fileName, compileText(c));
}

}  // namespace kvo
