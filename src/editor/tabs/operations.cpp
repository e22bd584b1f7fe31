#include "editor/tabs/operations.h"

#include "base/text.h"
#include "core/telling/translated.h"
#include "editor/compiler/audio_tracks.h"
#include "editor/compiler/document_check.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"
#include "editor/tabs/preview_params.h"

#include <algorithm>
#include <set>

namespace kvo {
namespace {

constexpr std::uint64_t kMaxDocument = 256ULL << 20U;
constexpr int kShownWidth = 480;  // pixels: about what the preview has room for, and soon made
constexpr int kShownHeight = 360;

CompileFacts factsOf(const Editing& e) { return {e.streams, e.editor.effects}; }

// A setting that a compile writes is no change of the user's.
template <class Write>
void writeQuietly(KVO2& settings, Write write) {
  const bool wasDirty = settings.state.IsDirty;
  write(settings.change());
  settings.state.IsDirty = wasDirty;
}

int previewPower(KVO2& settings) {
  if (settings.preferences().PreviewCPU == 0) {
    writeQuietly(settings, [](auto& s) { s.PreviewCPU = kRenderMode; });
  }
  return settings.preferences().PreviewCPU;
}

void takeVideoTotal(EditorState& editor, const Compiled& made) {
  editor.VideoTotalTime = made.videoStop ? fixedText(*made.videoStop) : "0";
  editor.LastClipStop = fixedText(made.largestStop);
  editor.controls.Fra_Preview = translated("0 to %1 (s)", {FormatMask(made.largestStop, "0.00")});
}

// The video's own text where the music stops with it: the two are compared as texts.
void takeAudioTotal(EditorState& editor, const Compiled& made) {
  editor.AudioTotalTime.clear();
  if (made.audioStop)
    editor.AudioTotalTime =
        made.audioStopsWithVideo ? fixedText(*made.audioStop) : shortNumber(*made.audioStop);
}

// What a compile of the whole collection leaves, but for its text.
void take(const Editing& e, Compiled& made, Corrections which) {
  applyCorrections(made, e.collection, e.settings, which);
  auto& editor = e.editor;
  editor.hasNoVideo = !made.hasPicture;
  takeVideoTotal(editor, made);
  takeAudioTotal(editor, made);
  editor.texts = std::move(made.parts);
}

// The distinct stops of the pictures, in their order.
std::vector<float> clipStops(const TimelineClips& clips) {
  std::vector<float> stops;
  std::set<float> known;
  for (const auto& clip : clips) {
    const auto stop = static_cast<float>(clip.place.stop);
    if (!clip.isSound && known.insert(stop).second) stops.push_back(stop);
  }
  return stops;
}

std::string compiled(const Editing& e, const CompileOptions& options) {
  e.settings.state.ObjectChange = 0;
  auto made = compile(e.collection, options, factsOf(e));
  take(e, made, options.transitions ? Corrections::All : Corrections::ButTransitions);
  ValidateKeyFrames(e.collection);
  e.settings.state.RenderEffects = options.effects;
  e.settings.state.RenderTransitions = options.transitions;
  e.editor.ClipStopList = clipStops(made.clips);
  if (made.hasPicture) {
    e.editor.OutputWidth = made.output.width;
    e.editor.OutputHeight = made.output.height;
  }
  return std::move(made.text);
}

// Ahead of a pass of its own.
Compiled begun(const Editing& e, const CompileOptions& options) {
  return beginCompile(TimelineClips(e.collection, e.streams), options);
}

// The pass of the music, behind the video's.
Compiled withMusic(const Editing& e) {
  const auto options = optionsOf(e);
  auto made = begun(e, options);
  made.videoStop = ToNumber(e.editor.VideoTotalTime);
  made.largestStop = ToNumber(e.editor.LastClipStop);
  addMusic(made, options);
  return made;
}

// What a sample is made with: the preview's depth and rate, and every effect.
CompileOptions sampleOptions(const Editing& e) {
  const auto params = GetPreviewParams(e, previewPower(e.settings));
  auto options = optionsOf(e);
  options.output.depth = params.Depth;
  options.output.rate = params.Rate;
  options.effects = params.Effects;
  return options;
}

std::string shown(const Editing& e, const SampleDocument& sample, Corrections which = Corrections::All) {
  applyCorrections(sample.clips, e.collection, e.settings, which);
  return sample.text;
}

SampleForm formOf(const CompileOptions& options, SampleSize size, const SampleForm& kept) {
  return size == SampleSize::Kept ? kept : shapedLike(options.output, kShownWidth, kShownHeight);
}

std::string clipSample(const Editing& e, int clipNo, SampleSize size, const SampleForm& kept) {
  const auto options = sampleOptions(e);
  const auto form = formOf(options, size, kept);
  e.settings.state.PreviewFrameRate = options.output.rate;
  e.settings.state.RenderEffects = true;
  return shown(e, clipSample(e.collection, clipNo, options, e.editor.effects, form));
}

}  // namespace

CompileOptions optionsOf(const Editing& e) {
  auto options = renderOptions(e.settings, e.folder.beside("\\silence.wav"));
  GetHeightWidth(e.editor.controls, options.output.height, options.output.width);
  return options;
}

void GetHeightWidth(EditorControls& controls, int& height, int& width) {
  if (controls.Opt_Preset) {
    if (controls.Cmb_Res.empty()) return;
    width = GetWidthFromString(controls.Cmb_Res);
    height = GetHeightFromString(controls.Cmb_Res);
    return;
  }
  height = controls.txtHeight = heldHeight(controls.txtHeight);
  width = controls.txtWidth = heldWidth(controls.txtWidth);
}

int GetWidthFromString(std::string_view text) { return toLongClamped(ToNumber(text)); }

int GetHeightFromString(std::string_view text) {
  const auto at = text.find_first_of("xX");
  return at == std::string_view::npos ? 0 : toLongClamped(ToNumber(text.substr(at + 1)));
}

void CreateVideoGroup(const Editing& e, int& depth, int& width, int& height, Single& frameRate, int mode) {
  previewPower(e.settings);
  const auto& preferences = e.settings.preferences();
  OutputForm output{depth, width, height, preferences.OutPutFrameRate, preferences.DirectXPrebuffer};
  if (mode < kRenderMode) output = reducedOutput(std::move(output), GetPreviewParams(e, mode));
  depth = output.depth;
  width = e.editor.OutputWidth = output.width;
  height = e.editor.OutputHeight = output.height;
  frameRate = output.rate;
  e.editor.texts.VideoGroupText = videoGroupTag(output);
}

bool HaveAtleastOneVidTrack(const Editing& e) {
  const bool has = hasPicture(TimelineClips(e.collection, e.streams));
  e.editor.hasNoVideo = !has;
  return has;
}

void SetAutoTrim(const Editing& e, bool Chk_AutoTrim) {
  if (!e.editor.hasNoVideo) e.settings.adjust().AutoTrimAudio = Chk_AutoTrim;
}

bool trimsMusic(const Editing& e) { return e.settings.preferences().AutoTrimAudio && !e.editor.hasNoVideo; }

void CreateClipLine(const Editing& e, bool analysing, ClipLineOptions o) {
  auto& state = e.settings.state;
  auto options = optionsOf(e);
  if (analysing) {
    const auto params = GetPreviewParams(e, previewPower(e.settings));
    options.effects = params.Effects;
    options.transitions = params.Transitions || o.TransitionPreview;
  }
  state.RenderEffects = options.effects;
  state.RenderTransitions = options.transitions;
  options.output.width = e.editor.OutputWidth;
  options.output.height = e.editor.OutputHeight;
  if (state.ObjectChange != 0) o.Text = LineText::Clips;
  o.TransitionSeconds = e.editor.controls.Sld_In.Value / 10;

  const KeyframeIndex keyframes(e.collection);
  auto made = begun(e, options);
  addVideo(made, {e.editor.effects, keyframes, options}, o);
  const bool hasTransitions = options.transitions && o.Text == LineText::Whole;
  applyCorrections(made, e.collection, e.settings,
                   o.TransitionPreview ? Corrections::OfTransitions
                   : hasTransitions    ? Corrections::All
                                       : Corrections::ButTransitions);
  e.editor.texts.VideoTrackText += made.parts.VideoTrackText;
  if (!o.TransitionPreview) e.editor.AudioTotalTime.clear();
  takeVideoTotal(e.editor, made);
}

void CreateAudioGroup(EditorState& editor, std::string_view rate) {
  editor.texts.AudioGroupText = audioGroupTag(rate);
}

void CreateAudioClipLine(const Editing& e) {
  const auto options = optionsOf(e);
  auto made = begun(e, options);
  addClipAudio(made, options);
  applyCorrections(made.clips, e.collection, e.settings);
  e.editor.texts.AudioTrackText = std::move(made.parts.AudioTrackText);
}

void AddOverlayAudioTracks(const Editing& e) {
  const auto made = withMusic(e);
  applyCorrections(made.clips, e.collection, e.settings);
  e.editor.texts.AudioTrackText += made.parts.AudioTrackText;
  takeAudioTotal(e.editor, made);
}

Outcome WriteRenderFile(const Editing& e, bool hasAudioTracks, const std::string& fileName) {
  if (!hasAudioTracks) CreateAudioGroup(e.editor, kAudioRate);
  const bool hasPicture = HaveAtleastOneVidTrack(e);
  const bool hasVideoTime = ToNumber(e.editor.VideoTotalTime) > 0;
  return writeDocument(
      e.files, fileName,
      documentText(e.editor.texts, hasPicture || hasVideoTime, hasVideoTime, hasAudioTracks));
}

void AnalyseRenderFile(const Editing& e, const std::string& fileName) {
  auto& stops = e.editor.ClipStopList;
  stops.clear();
  const auto bytes = e.files.read(fileName, kMaxDocument);
  auto document = bytes ? std::string_view(*bytes) : std::string_view();
  while (!document.empty()) {
    const auto line = nextLine(document);
    if (line.find("SamplingRate=") != std::string_view::npos) return;
    const auto at = line.find(" stop=");
    if (line.find("<clip src=") == std::string_view::npos || at == std::string_view::npos) continue;
    const auto text = replaced(replaced(line.substr(at, 20), "/>", ""), "stop=", "");
    const auto stop = static_cast<float>(ToNumber(replaced(text, "\"", "")));
    if (std::find(stops.begin(), stops.end(), stop) == stops.end()) stops.push_back(stop);
  }
}

void timeMovie(const Editing& e) {
  auto made = compileTimes(TimelineClips(e.collection, e.streams), KeyframeIndex(e.collection), optionsOf(e));
  take(e, made, Corrections::ButTransitions);
}

double musicTotal(const Editing& e) {
  const auto& known = e.editor.AudioTotalTime;
  return known.empty() ? withMusic(e).audioStop.value_or(0) : ToNumber(known);
}

std::string compileText(const Editing& e) {
  previewPower(e.settings);
  return compiled(e, optionsOf(e));
}

std::string compilePreviewText(const Editing& e, int power) {
  writeQuietly(e.settings, [&](auto& s) { s.PreviewCPU = static_cast<Integer>(power); });
  return compiled(e, previewOptions(optionsOf(e), GetPreviewParams(e, power), power));
}

std::string CalcMaxTransitionDuration(const Editing& e, int clipNo) {
  const double seconds =
      longestTransition(TimelineClips(e.collection), clipNo, e.settings.state.DefaultStillDuration);
  return stampText({seconds, Digits::One});
}

void SortTransitionTimes(const Editing& e, int clipNo) {
  TimelineClips clips(e.collection);
  e.editor.controls.Sld_In.Max = holdTransition(clips, clipNo, e.settings.state.DefaultStillDuration);
  applyCorrections(clips, e.collection, e.settings);
}

void UpdateTrackFade(const Editing& e, bool audioPass) {
  TimelineClips clips(e.collection, e.streams);
  if (audioPass) {
    setAudioFades(clips);
    applyCorrections(clips, e.collection, e.settings);
    return;
  }
  const auto most = static_cast<Single>(FindShortestCut(clips, false)) / 2 * 100 - 0.5F;
  if (e.settings.preferences().VideoTrackFadeAmt > most) e.settings.change().VideoTrackFadeAmt = most;
}

std::string Previewtransition(const Editing& e, int clipNo, SampleSize size) {
  const auto options = sampleOptions(e);
  e.settings.state.RenderTransitions = true;
  return shown(
      e,
      transitionSample(e.collection, clipNo, options, factsOf(e), e.editor.controls.Sld_In.Value / 10,
                       formOf(options, size, kTransitionSample)),
      Corrections::OfTransitions);
}

std::string PreviewEffect(const Editing& e, int clipNo, SampleSize size) {
  return clipSample(e, clipNo, size, kEffectSample);
}

std::string PreviewColourAdjust(const Editing& e, int clipNo, SampleSize size) {
  return clipSample(e, clipNo, size, kColourSample);
}

std::string CreatePinPPreview(const Editing& e, int backdropNo, const PicInPicOptions& wanted) {
  auto options = sampleOptions(e);
  e.settings.state.PreviewFrameRate = options.output.rate;
  e.settings.state.RenderEffects = true;
  if (!wanted.preview) options.output.rate = e.settings.preferences().OutPutFrameRate;
  if (wanted.inShape) {
    const auto form = formOf(options, SampleSize::Shown, {});
    options.output.width = form.width;
    options.output.height = form.height;
  }
  return shown(e, picInPicSample(e.collection, backdropNo, options, e.editor.effects, wanted));
}

}  // namespace kvo
