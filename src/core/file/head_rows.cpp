#include "core/file/head_rows.h"

#include "base/text.h"
#include "core/telling/deployment.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace kvo {
namespace {

constexpr std::size_t kUnusedLength = 128;  // a text of just this length marks a field that was never filled

// The text, or the default with the rewrite flag where the text is empty or unused.
std::string textOr(HeadRead& read, std::string_view text, std::string_view otherwise) {
  if (!text.empty() && characterCount(text) != kUnusedLength) return std::string(text);
  read.rewrite = true;
  return std::string(otherwise);
}

// A folder; the writer may have put "/." ahead of one that would be misread.
std::string folderOr(HeadRead& read, std::string_view text, std::string_view otherwise) {
  auto folder = textOr(read, text, otherwise);
  return folder.starts_with("/./") ? folder.substr(2) : folder;
}

// "TRUE" or "FALSE" in any case, or the default with the rewrite flag.
bool strictBoolean(HeadRead& read, std::string_view text, bool otherwise) {
  if (sameText(text, "TRUE")) return true;
  if (sameText(text, "FALSE")) return false;
  read.rewrite = true;
  return otherwise;
}

// The number held to the limits of the field's type, so that the limits of the row can be asked.
template <class Type>
Type heldToType(double number) {
  using Limits = std::numeric_limits<Type>;
  number = std::clamp(number, static_cast<double>(Limits::lowest()), static_cast<double>(Limits::max()));
  return static_cast<Type>(Limits::is_integer ? RoundToWhole(number) : number);
}

// The number as a value of the field's type. Not numeric, or refused by `accept`: the default with the
// rewrite flag. Accepted and out of the type's range: nothing, the field stays as it was.
template <class Type, class Accept>
std::optional<Type> numberOr(HeadRead& read, std::string_view text, Type otherwise, Accept accept) {
  const auto number = numberIn(text);
  if (number && accept(heldToType<Type>(*number))) {
    Type value{};
    return takeField(value, text) ? std::optional(value) : std::nullopt;
  }
  read.rewrite = true;
  return otherwise;
}

template <class Type>
std::optional<Type> numberOr(HeadRead& read, std::string_view text, Type otherwise) {
  return numberOr(read, text, otherwise, [](Type) { return true; });
}

// The same for a row where what is below its least becomes another value than what is no number.
template <class Type, class Low>
std::optional<Type> numberOr(HeadRead& read, std::string_view text, Type otherwise, Low isLow, Type low) {
  const auto number = numberIn(text);
  const bool tooLow = number && isLow(heldToType<Type>(*number));
  if (tooLow) read.rewrite = true;
  return tooLow ? low : numberOr<Type>(read, text, otherwise);
}

std::string flagText(Long flag) { return fieldText(flag != 0); }

#define KVO_TEXT(Name) [](const KVO2& s) { return fieldText(s.Name()); }
#define KVO_TAKE(Body) [](HeadRead& r, std::string_view t) { Body }
// A row whose read rule is plain conversion: what does not convert leaves the field as it was.
#define KVO_PLAIN(Key, Name)                                                      \
  HeadRow {                                                                       \
    Key, KVO_TEXT(Name),                                                          \
        KVO_TAKE(std::decay_t<decltype(r.settings.Name())> v = r.settings.Name(); \
                 if (takeField(v, t)) r.settings.Name(std::move(v));)             \
  }
#define KVO_NUMBER(Key, Name, ...)                                                           \
  HeadRow {                                                                                  \
    Key, KVO_TEXT(Name),                                                                     \
        KVO_TAKE(using Type = std::decay_t<decltype(r.settings.Name())>;                     \
                 if (const auto v = numberOr<Type>(r, t, __VA_ARGS__)) r.settings.Name(*v);) \
  }
#define KVO_WRITTEN_ONLY(Key, Name) \
  HeadRow { Key, KVO_TEXT(Name), nullptr }

constexpr std::array kKvoRows = {
    HeadRow{"ProgramVersion       = ", KVO_TEXT(ProgramVersion),
            [](HeadRead& r, std::string_view) { r.settings.ProgramVersion(programVersionText()); }},
    HeadRow{"RunAs                = ", KVO_TEXT(RunMode),
            KVO_TAKE(if (t == "NOT RUN") r.rewrite = true; r.settings.RunMode("CREATOR");)},
    HeadRow{"ErrorLog             = ", KVO_TEXT(ErrorLog),
            KVO_TAKE(r.settings.ErrorLog(textOr(r, t, r.folder.beside("\\KVOError.Log")));), true},
    KVO_PLAIN("SoundCard            = ", SoundCard),
    HeadRow{"DefaultStartupVid    = ", KVO_TEXT(DefaultStartupVid),
            KVO_TAKE(r.settings.DefaultStartupVid(
                characterCount(t) == kUnusedLength || t == "NO DEFAULT" ? "" : std::string(t));),
            true},
    HeadRow{"MoviesInGroup        = ", KVO_TEXT(MoviesInGroup),
            KVO_TAKE(const auto v = numberOr<Integer>(r, t, -1); r.settings.MoviesInGroup(v.value_or(-1));)},
    HeadRow{"Support              = ", KVO_TEXT(Support),
            [](HeadRead& r, std::string_view) { r.settings.Support(std::string(kSupportLine)); }},
    KVO_NUMBER("DelayTimer           = ", DelayTimer, 0),
    KVO_NUMBER("StillDelayTimer      = ", StillDelayTimer, 0),
};

constexpr std::array kUserRows = {
    KVO_WRITTEN_ONLY("UserName             = ", UserName),
    KVO_WRITTEN_ONLY("Organisation         = ", Organisation),
    HeadRow{"ReplyTo              = ", KVO_TEXT(ReplyTo),
            [](HeadRead& r, std::string_view) { r.settings.ReplyTo(std::string(kContactAddress)); }},
    HeadRow{"EMail                = ", KVO_TEXT(Email), KVO_TAKE(r.settings.Email(textOr(r, t, "Unknown"));)},
    KVO_WRITTEN_ONLY("ShowSplash           = ", ShowSplash),
    HeadRow{"MuteAtStart          = ", KVO_TEXT(MuteAtStart),
            KVO_TAKE(r.settings.MuteAtStart(strictBoolean(r, t, false));)},
    HeadRow{"DisplayColor         = ", KVO_TEXT(DisplayColor),
            KVO_TAKE(r.settings.DisplayColor(textOr(r, t, "&H00FF0000&"));)},
    HeadRow{"AcceptedAgreement    = ", [](const KVO2& s) { return flagText(s.AcceptedAgreement()); },
            [](HeadRead& r, std::string_view) { r.settings.AcceptedAgreement(kFlagOn); }},
    HeadRow{"TimesUsed            = ", KVO_TEXT(NoofUses),
            KVO_TAKE(if (r.settings.NoofUses() < 2) r.rewrite = true; const auto used = numberIn(t);
                     if (used) r.rewrite = true; r.settings.NoofUses(used ? toLongClamped(*used + 1) : 0);
                     if (r.settings.NoofUses() < 1) {
                       r.settings.NoofUses(1);
                       r.rewrite = true;
                     })},
};

constexpr std::array kFontRows = {
    HeadRow{"Font                 = ", KVO_TEXT(TextFont),
            KVO_TAKE(r.settings.TextFont(textOr(r, t, "Ariel"));)},
    HeadRow{"Size                 = ", KVO_TEXT(TextSize),
            KVO_TAKE(r.settings.TextSize(textOr(r, t, "10"));)},
    HeadRow{"Color                = ", KVO_TEXT(TextColor),
            KVO_TAKE(r.settings.TextColor(textOr(r, t, "&H00FF0000&"));)},
    HeadRow{"Style                = ", KVO_TEXT(TextStyle),
            KVO_TAKE(r.settings.TextStyle(textOr(r, t, "Regular"));)},
};

constexpr std::array kDirectoryRows = {
    HeadRow{"JoinSaveAs            = ", KVO_TEXT(JoinSaveAs),
            KVO_TAKE(r.settings.JoinSaveAs(folderOr(r, t, r.folder.path()));), true},
    HeadRow{"LoadFrom             = ", KVO_TEXT(LoadFrom),
            KVO_TAKE(r.settings.LoadFrom(folderOr(r, t, "C:\\"));), true},
    HeadRow{"ColLoadFrom          = ", KVO_TEXT(ColLoadFrom),
            KVO_TAKE(r.settings.ColLoadFrom(folderOr(r, t, r.folder.path()));), true},
};

constexpr std::array kAudioAnimationRows = {
    HeadRow{"AutoAnimation        = ", KVO_TEXT(CDAutoAnim),
            KVO_TAKE(r.settings.CDAutoAnim(strictBoolean(r, t, true));)},
    KVO_WRITTEN_ONLY("AnimFullSC           = ", AnimFS),
    KVO_WRITTEN_ONLY("ShowText             = ", ShowAnimtext),
    HeadRow{"Random               = ", KVO_TEXT(AnimMovRand),
            KVO_TAKE(r.settings.AnimMovRand(strictBoolean(r, t, true));)},
    HeadRow{"ShowVids             = ", [](const KVO2& s) { return flagText(s.ShowVids()); }, nullptr},
};

constexpr std::array kPrefsRows = {
    KVO_PLAIN("Skin                 = ", SkinPath),
    KVO_PLAIN("DefZoom              = ", DefZoom),
    KVO_WRITTEN_ONLY("LoopCol              = ", LoopCol),
    KVO_PLAIN("ShowPlayList         = ", ShowPlayList),
    KVO_PLAIN("UseWMPfirst          = ", UseWMPfirst),
    KVO_PLAIN("TitleDispClr         = ", TitleDispClr),
    KVO_WRITTEN_ONLY("LoopPreviews         = ", LoopPreviews),
    KVO_NUMBER("CDDBMode             = ", CDDBMode, 1),
    HeadRow{"VidVis               = ", [](const KVO2& s) { return flagText(s.ShowVids()); },
            KVO_TAKE(Boolean on = false; if (takeField(on, t)) r.settings.ShowVids(on ? kFlagOn : 0);)},
    KVO_NUMBER("ModemSpeed           = ", ModemType, 350, [](Long v) { return v != 0; }),
    KVO_NUMBER("MouseWheelControl    = ", MouseWheelControl, 2, [](Integer v) { return v != 1; }),
    KVO_WRITTEN_ONLY("RewAtEnd             = ", RewAtEnd),
    KVO_NUMBER("MouseWheelBufferTime = ", ScrollDelay, 0.2, [](double v) { return v > 0; }),
    KVO_PLAIN("StillsIndividually   = ", StillsIndividual),
    KVO_NUMBER("WheelTripPlay        = ", WheelTripPlay, 7),
    KVO_NUMBER("EncodeProfiletoUse   = ", EncodeProfiletoUse, 1),
    KVO_WRITTEN_ONLY("SliderPauseOnRepo    = ", SliderPauseOnRepo),
    KVO_WRITTEN_ONLY("MPEGRoutingVMR       = ", MPEGRoutingVMR),
};

void fade(HeadRead& r, std::string_view text, Single otherwise, void (KVO2::*set)(Single)) {
  const auto v = numberOr<Single>(
      r, text, otherwise, [](Single n) { return n <= 0; }, 0.2F);
  if (v) (r.settings.*set)(*v);
}

constexpr std::array kEditRows = {
    KVO_NUMBER("OutputResolution     = ", OutputResolution, 8, [](Integer v) { return v <= 1000; }),
    HeadRow{"OutputFrameRate      = ", KVO_TEXT(OutPutFrameRate),
            KVO_TAKE(const auto v = numberOr<Single>(
                         r, t, 25.0F, [](Single n) { return n < 2.0F; }, 24.0F);
                     if (v) r.settings.OutPutFrameRate(*v);)},
    KVO_NUMBER("OutputColorDepth     = ", OutputColorDepth, 24,
               [](Integer v) { return v == 16 || v == 24 || v == 32; }),
    HeadRow{"PreviewType          = ", KVO_TEXT(PreviewType),
            KVO_TAKE(const auto v = numberOr<Integer>(r, t, 10, [](Integer n) { return n <= 10; });
                     const bool low = v.value_or(0) <= 0; if (low) r.rewrite = true;
                     r.settings.PreviewType(low ? Integer{5} : *v);)},
    HeadRow{"FadeInDuration       = ", KVO_TEXT(FadInVal), KVO_TAKE(fade(r, t, 3.0F, &KVO2::FadInVal);)},
    HeadRow{"FadeOutDuration      = ", KVO_TEXT(FadOutVal), KVO_TAKE(fade(r, t, 5.0F, &KVO2::FadOutVal);)},
    KVO_NUMBER("PreviewCPU           = ", PreviewCPU, 5, [](Integer v) { return v >= 1 && v <= 10; }),
    KVO_PLAIN("DubInAudioTrks       = ", DubInPlaylistAudioTrks),
    KVO_PLAIN("ExternalAudioStack   = ", ExternalAudioStack),
    KVO_PLAIN("RenderVideoAudio     = ", RenderVideoAudio),
    KVO_PLAIN("RenderHeight         = ", RenderHeight),
    KVO_PLAIN("RenderWidth          = ", RenderWidth),
    KVO_PLAIN("AutoTrimAudio        = ", AutoTrimAudio),
    KVO_PLAIN("ApplyOverlayFadeInOut = ", ApplyOverlayFadeInOut),
    KVO_NUMBER("TrackFadeInOut       = ", TrackFadeInOut, 4.0F),
    KVO_PLAIN("GlobalTransitions    = ", GlobalTransitions),
    KVO_NUMBER("VideoTrackFadeAmt    = ", VideoTrackFadeAmt, 10.0F),
    KVO_NUMBER("EncodePrediction     = ", RenderEstimateSecs, 5),
    KVO_PLAIN("RenderWarnings       = ", OutputWarningsOn),
    HeadRow{"Keyframes            = ", KVO_TEXT(KeyframeCount),
            KVO_TAKE(const auto v = numberOr<Long>(r, t, 0, [](Long n) { return n >= 0 && n <= 10000; });
                     r.settings.KeyframeCount(v.value_or(0));)},
    HeadRow{"DirectXPrebuffer     = ", KVO_TEXT(DirectXPrebuffer),
            KVO_TAKE(const bool good = ToNumber(t) > 0 && ToNumber(t) < 1024; if (!good) r.rewrite = true;
                     r.settings.DirectXPrebuffer(good ? std::string(t) : "30");)},
    KVO_NUMBER("MaxParticles         = ", MaxParticles, 64, [](Integer v) { return v >= 2 && v <= 31000; }),
    KVO_NUMBER("ParticleMotionSpeed  = ", ParticleMotionSpeed, 35, [](Integer v) { return v != 0; }),
    KVO_NUMBER("ParticleSpinSpeed    = ", ParticleSpinSpeed, 35, [](Integer v) { return v != 0; }),
    KVO_PLAIN("UseParticleDefaults  = ", UseParticleDefaults),
    HeadRow{"GrfFileName          = ", KVO_TEXT(GrfFileName),
            KVO_TAKE(const auto name = t.empty() ? r.folder.beside("\\KVORender.grf") : std::string(t);
                     r.settings.GrfFileName(replaced(replaced(name, "\\\\", "\\"), "//", "/"));)},
    KVO_PLAIN("OutputGrf            = ", OutputGRF),
    KVO_PLAIN("PartExponProgDur     = ", PartExponentialProgressDuration),
    KVO_PLAIN("PartExponProgScale   = ", PartExponentialProgressScale),
    KVO_PLAIN("RenderDiskWarning_OFF = ", RenderDiskWarning),
    KVO_PLAIN("RenderTimeWarning_OFF = ", RenderTimeWarning),
    KVO_PLAIN("RenderAutoView_OFF    = ", RenderAutoView),
    KVO_PLAIN("AutoStartKeyFramePreviews = ", AutoStartKeyFramePreviews),
    KVO_PLAIN("KVOFastEdit           = ", KVOFastEdit),
    HeadRow{"StillSavePath         = ", KVO_TEXT(StillSavePath),
            KVO_TAKE(r.settings.StillSavePath(std::string(t));), true},
};
static_assert(kEditRows.size() == 35 && kPrefsRows.size() == 18);

#undef KVO_TEXT
#undef KVO_TAKE
#undef KVO_PLAIN
#undef KVO_NUMBER
#undef KVO_WRITTEN_ONLY

void withoutPrefs(HeadRead& r) {
  const KVO2 fresh;
  auto& s = r.settings;
  s.SkinPath("");
  s.DefZoom(fresh.DefZoom());
  s.ShowPlayList(fresh.ShowPlayList());
  s.UseWMPfirst(fresh.UseWMPfirst());
  s.TitleDispClr(fresh.TitleDispClr());
  s.LoopPreviews(true);
  s.CDDBMode(fresh.CDDBMode());
  s.ModemType(fresh.ModemType());
  s.MouseWheelControl(fresh.MouseWheelControl());
  s.RewAtEnd(false);
  s.ScrollDelay(fresh.ScrollDelay());
  s.WheelTripPlay(fresh.WheelTripPlay());
  s.EncodeProfiletoUse(fresh.EncodeProfiletoUse());
  s.SliderPauseOnRepo(true);
  s.MPEGRoutingVMR(false);
  r.rewrite = true;
}

void withoutEditPrefs(HeadRead& r) {
  const KVO2 fresh;
  auto& s = r.settings;
  s.OutputResolution(fresh.OutputResolution());
  s.OutPutFrameRate(fresh.OutPutFrameRate());
  s.OutputColorDepth(fresh.OutputColorDepth());
  s.PreviewType(fresh.PreviewType());
  s.FadInVal(fresh.FadInVal());
  s.FadOutVal(fresh.FadOutVal());
  s.PreviewCPU(fresh.PreviewCPU());
  s.DubInPlaylistAudioTrks(fresh.DubInPlaylistAudioTrks());
  s.ExternalAudioStack(fresh.ExternalAudioStack());
  s.RenderVideoAudio(fresh.RenderVideoAudio());
  s.RenderHeight(fresh.RenderHeight());
  s.RenderWidth(fresh.RenderWidth());
  s.AutoTrimAudio(fresh.AutoTrimAudio());
  s.ApplyOverlayFadeInOut(fresh.ApplyOverlayFadeInOut());
  s.TrackFadeInOut(fresh.TrackFadeInOut());
  s.GlobalTransitions(fresh.GlobalTransitions());
  s.VideoTrackFadeAmt(fresh.VideoTrackFadeAmt());
  s.RenderEstimateSecs(fresh.RenderEstimateSecs());
  s.OutputWarningsOn(fresh.OutputWarningsOn());
  s.KeyframeCount(0);
  s.DirectXPrebuffer(fresh.DirectXPrebuffer());
  s.MaxParticles(fresh.MaxParticles());
  s.ParticleMotionSpeed(fresh.ParticleMotionSpeed());
  s.ParticleSpinSpeed(fresh.ParticleSpinSpeed());
  s.UseParticleDefaults(fresh.UseParticleDefaults());
  s.GrfFileName(r.folder.beside("\\KVORender.grf"));
  s.OutputGRF(fresh.OutputGRF());
  s.PartExponentialProgressDuration(fresh.PartExponentialProgressDuration());
  s.PartExponentialProgressScale(fresh.PartExponentialProgressScale());
  s.RenderDiskWarning(fresh.RenderDiskWarning());
  s.RenderTimeWarning(fresh.RenderTimeWarning());
  s.RenderAutoView(fresh.RenderAutoView());
  s.AutoStartKeyFramePreviews(fresh.AutoStartKeyFramePreviews());
  s.KVOFastEdit(fresh.KVOFastEdit());
  s.StillSavePath(r.folder.beside("\\ExtractedFrames"));
  r.rewrite = true;
}

constexpr std::array kSections = {
    HeadSection{"KVO", kKvoRows, nullptr},
    HeadSection{"User", kUserRows, nullptr},
    HeadSection{"Fonts", kFontRows, nullptr},
    HeadSection{"Directories", kDirectoryRows, nullptr},
    HeadSection{"AudioAnimation", kAudioAnimationRows, nullptr},
    HeadSection{"Prefs", kPrefsRows, withoutPrefs},
    HeadSection{"EditDecisionListPrefs", kEditRows, withoutEditPrefs},
};

}  // namespace

std::span<const HeadSection> headSections() { return kSections; }

}  // namespace kvo
