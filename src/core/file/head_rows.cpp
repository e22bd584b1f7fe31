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

// How a field of each struct is written.
template <class Type>
void put(KVO2& s, Type MarkingPreferences::*field, Type value) {
  s.change().*field = std::move(value);
}
template <class Type>
void put(KVO2& s, Type QuietPreferences::*field, Type value) {
  s.adjust().*field = std::move(value);
}

#define KVO_TEXT(Name) [](const KVO2& s) { return fieldText(s.preferences().Name); }
#define KVO_TAKE(Body) [](HeadRead& r, std::string_view t) { Body }
// A row whose read rule is plain conversion: what does not convert leaves the field as it was.
#define KVO_PLAIN(Key, Name)                                                              \
  HeadRow {                                                                               \
    Key, KVO_TEXT(Name),                                                                  \
        KVO_TAKE(auto v = r.settings.preferences().Name;                                  \
                 if (takeField(v, t)) put(r.settings, &Preferences::Name, std::move(v));) \
  }
#define KVO_NUMBER(Key, Name, ...)                                     \
  HeadRow {                                                            \
    Key, KVO_TEXT(Name),                                               \
        KVO_TAKE(using Type = decltype(Preferences::Name);             \
                 if (const auto v = numberOr<Type>(r, t, __VA_ARGS__)) \
                     put(r.settings, &Preferences::Name, *v);)         \
  }
#define KVO_WRITTEN_ONLY(Key, Name) \
  HeadRow { Key, KVO_TEXT(Name), nullptr }
#define KVO_MIRROR(Key, Name)                                          \
  HeadRow {                                                            \
    Key, [](const KVO2& s) { return fieldText(s.user.Name); }, nullptr \
  }

constexpr std::array kKvoRows = {
    HeadRow{"ProgramVersion       = ", KVO_TEXT(ProgramVersion),
            [](HeadRead& r, std::string_view) { r.settings.adjust().ProgramVersion = programVersionText(); }},
    HeadRow{"RunAs                = ", KVO_TEXT(RunMode),
            KVO_TAKE(if (t == "NOT RUN") r.rewrite = true; r.settings.adjust().RunMode = "CREATOR";)},
    HeadRow{"ErrorLog             = ", KVO_TEXT(ErrorLog),
            KVO_TAKE(r.settings.adjust().ErrorLog = textOr(r, t, r.folder.beside("\\KVOError.Log"));), true},
    KVO_PLAIN("SoundCard            = ", SoundCard),
    HeadRow{"DefaultStartupVid    = ", KVO_TEXT(DefaultStartupVid),
            KVO_TAKE(r.settings.change().DefaultStartupVid =
                         characterCount(t) == kUnusedLength || t == "NO DEFAULT" ? "" : std::string(t);),
            true},
    HeadRow{"MoviesInGroup        = ", KVO_TEXT(MoviesInGroup),
            KVO_TAKE(const auto v = numberOr<Integer>(r, t, -1);
                     r.settings.change().MoviesInGroup = v.value_or(-1);)},
    HeadRow{"Support              = ", KVO_TEXT(Support),
            [](HeadRead& r, std::string_view) { r.settings.adjust().Support = std::string(kSupportLine); }},
    KVO_NUMBER("DelayTimer           = ", DelayTimer, 0),
    HeadRow{"StillDelayTimer      = ", [](const KVO2& s) { return fieldText(s.user.StillDelayTimer); },
            KVO_TAKE(if (const auto v = numberOr<Integer>(r, t, 0)) r.settings.user.StillDelayTimer = *v;)},
};

constexpr std::array kUserRows = {
    KVO_WRITTEN_ONLY("UserName             = ", UserName),
    KVO_WRITTEN_ONLY("Organisation         = ", Organisation),
    HeadRow{
        "ReplyTo              = ", KVO_TEXT(ReplyTo),
        [](HeadRead& r, std::string_view) { r.settings.adjust().ReplyTo = std::string(kContactAddress); }},
    HeadRow{"EMail                = ", KVO_TEXT(Email),
            KVO_TAKE(r.settings.adjust().Email = textOr(r, t, "Unknown");)},
    KVO_WRITTEN_ONLY("ShowSplash           = ", ShowSplash),
    HeadRow{"MuteAtStart          = ", KVO_TEXT(MuteAtStart),
            KVO_TAKE(r.settings.change().MuteAtStart = strictBoolean(r, t, false);)},
    HeadRow{"DisplayColor         = ", KVO_TEXT(DisplayColor),
            KVO_TAKE(r.settings.change().DisplayColor = textOr(r, t, "&H00FF0000&");)},
    HeadRow{
        "AcceptedAgreement    = ", [](const KVO2& s) { return flagText(s.preferences().AcceptedAgreement); },
        [](HeadRead& r, std::string_view) { r.settings.adjust().AcceptedAgreement = kFlagOn; }},
    HeadRow{"TimesUsed            = ", KVO_TEXT(NoofUses),
            KVO_TAKE(if (r.settings.preferences().NoofUses < 2) r.rewrite = true;
                     const auto used = numberIn(t); if (used) r.rewrite = true;
                     r.settings.adjust().NoofUses = used ? toLongClamped(*used + 1) : 0;
                     if (r.settings.preferences().NoofUses < 1) {
                       r.settings.adjust().NoofUses = 1;
                       r.rewrite = true;
                     })},
};

constexpr std::array kFontRows = {
    HeadRow{"Font                 = ", KVO_TEXT(TextFont),
            KVO_TAKE(r.settings.adjust().TextFont = Value(textOr(r, t, "Ariel"));)},
    HeadRow{"Size                 = ", KVO_TEXT(TextSize),
            KVO_TAKE(r.settings.adjust().TextSize = Value(textOr(r, t, "10"));)},
    HeadRow{"Color                = ", KVO_TEXT(TextColor),
            KVO_TAKE(r.settings.adjust().TextColor = textOr(r, t, "&H00FF0000&");)},
    HeadRow{"Style                = ", KVO_TEXT(TextStyle),
            KVO_TAKE(r.settings.adjust().TextStyle = Value(textOr(r, t, "Regular"));)},
};

constexpr std::array kDirectoryRows = {
    HeadRow{"JoinSaveAs            = ", KVO_TEXT(JoinSaveAs),
            KVO_TAKE(r.settings.change().JoinSaveAs = folderOr(r, t, r.folder.path());), true},
    HeadRow{"LoadFrom             = ", KVO_TEXT(LoadFrom),
            KVO_TAKE(r.settings.change().LoadFrom = folderOr(r, t, "C:\\");), true},
    HeadRow{"ColLoadFrom          = ", KVO_TEXT(ColLoadFrom),
            KVO_TAKE(r.settings.adjust().ColLoadFrom = folderOr(r, t, r.folder.path());), true},
};

constexpr std::array kAudioAnimationRows = {
    HeadRow{"AutoAnimation        = ", KVO_TEXT(CDAutoAnim),
            KVO_TAKE(r.settings.adjust().CDAutoAnim = strictBoolean(r, t, true);)},
    KVO_WRITTEN_ONLY("AnimFullSC           = ", AnimFS),
    KVO_WRITTEN_ONLY("ShowText             = ", ShowAnimtext),
    HeadRow{"Random               = ", KVO_TEXT(AnimMovRand),
            KVO_TAKE(r.settings.adjust().AnimMovRand = strictBoolean(r, t, true);)},
    HeadRow{"ShowVids             = ", [](const KVO2& s) { return flagText(s.preferences().ShowVids); },
            nullptr},
};

constexpr std::array kPrefsRows = {
    KVO_PLAIN("Skin                 = ", SkinPath),
    KVO_PLAIN("DefZoom              = ", DefZoom),
    KVO_MIRROR("LoopCol              = ", LoopCol),
    KVO_PLAIN("ShowPlayList         = ", ShowPlayList),
    KVO_PLAIN("UseWMPfirst          = ", UseWMPfirst),
    KVO_PLAIN("TitleDispClr         = ", TitleDispClr),
    KVO_MIRROR("LoopPreviews         = ", LoopPreviews),
    KVO_NUMBER("CDDBMode             = ", CDDBMode, 1),
    HeadRow{
        "VidVis               = ", [](const KVO2& s) { return flagText(s.preferences().ShowVids); },
        KVO_TAKE(Boolean on = false; if (takeField(on, t)) r.settings.adjust().ShowVids = on ? kFlagOn : 0;)},
    KVO_NUMBER("ModemSpeed           = ", ModemType, 350, [](Long v) { return v != 0; }),
    KVO_NUMBER("MouseWheelControl    = ", MouseWheelControl, 2, [](Integer v) { return v != 1; }),
    KVO_MIRROR("RewAtEnd             = ", RewAtEnd),
    KVO_NUMBER("MouseWheelBufferTime = ", ScrollDelay, 0.2, [](double v) { return v > 0; }),
    KVO_PLAIN("StillsIndividually   = ", StillsIndividual),
    KVO_NUMBER("WheelTripPlay        = ", WheelTripPlay, 7),
    KVO_NUMBER("EncodeProfiletoUse   = ", EncodeProfiletoUse, 1),
    KVO_MIRROR("SliderPauseOnRepo    = ", SliderPauseOnRepo),
    KVO_MIRROR("MPEGRoutingVMR       = ", MPEGRoutingVMR),
};

void fade(HeadRead& r, std::string_view text, Single otherwise, Single MarkingPreferences::*field) {
  const auto v = numberOr<Single>(
      r, text, otherwise, [](Single n) { return n <= 0; }, 0.2F);
  if (v) r.settings.change().*field = *v;
}

constexpr std::array kEditRows = {
    KVO_NUMBER("OutputResolution     = ", OutputResolution, 8, [](Integer v) { return v <= 1000; }),
    HeadRow{"OutputFrameRate      = ", KVO_TEXT(OutPutFrameRate),
            KVO_TAKE(const auto v = numberOr<Single>(
                         r, t, 25.0F, [](Single n) { return n < 2.0F; }, 24.0F);
                     if (v) r.settings.change().OutPutFrameRate = *v;)},
    KVO_NUMBER("OutputColorDepth     = ", OutputColorDepth, 24,
               [](Integer v) { return v == 16 || v == 24 || v == 32; }),
    HeadRow{"PreviewType          = ", KVO_TEXT(PreviewType),
            KVO_TAKE(const auto v = numberOr<Integer>(r, t, 10, [](Integer n) { return n <= 10; });
                     const bool low = v.value_or(0) <= 0; if (low) r.rewrite = true;
                     r.settings.change().PreviewType = low ? Integer{5} : *v;)},
    HeadRow{"FadeInDuration       = ", KVO_TEXT(FadInVal),
            KVO_TAKE(fade(r, t, 3.0F, &Preferences::FadInVal);)},
    HeadRow{"FadeOutDuration      = ", KVO_TEXT(FadOutVal),
            KVO_TAKE(fade(r, t, 5.0F, &Preferences::FadOutVal);)},
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
                     r.settings.adjust().KeyframeCount = v.value_or(0);)},
    HeadRow{"DirectXPrebuffer     = ", KVO_TEXT(DirectXPrebuffer),
            KVO_TAKE(const bool good = ToNumber(t) > 0 && ToNumber(t) < 1024; if (!good) r.rewrite = true;
                     r.settings.adjust().DirectXPrebuffer = good ? std::string(t) : "30";)},
    KVO_NUMBER("MaxParticles         = ", MaxParticles, 64, [](Integer v) { return v >= 2 && v <= 31000; }),
    KVO_NUMBER("ParticleMotionSpeed  = ", ParticleMotionSpeed, 35, [](Integer v) { return v != 0; }),
    KVO_NUMBER("ParticleSpinSpeed    = ", ParticleSpinSpeed, 35, [](Integer v) { return v != 0; }),
    KVO_PLAIN("UseParticleDefaults  = ", UseParticleDefaults),
    HeadRow{"GrfFileName          = ", KVO_TEXT(GrfFileName),
            KVO_TAKE(const auto name = t.empty() ? r.folder.beside("\\KVORender.grf") : std::string(t);
                     r.settings.adjust().GrfFileName = replaced(replaced(name, "\\\\", "\\"), "//", "/");)},
    KVO_PLAIN("OutputGrf            = ", OutputGRF),
    KVO_PLAIN("PartExponProgDur     = ", PartExponentialProgressDuration),
    KVO_PLAIN("PartExponProgScale   = ", PartExponentialProgressScale),
    KVO_PLAIN("RenderDiskWarning_OFF = ", RenderDiskWarning),
    KVO_PLAIN("RenderTimeWarning_OFF = ", RenderTimeWarning),
    KVO_PLAIN("RenderAutoView_OFF    = ", RenderAutoView),
    KVO_PLAIN("AutoStartKeyFramePreviews = ", AutoStartKeyFramePreviews),
    KVO_PLAIN("KVOFastEdit           = ", KVOFastEdit),
    HeadRow{"StillSavePath         = ", KVO_TEXT(StillSavePath),
            KVO_TAKE(r.settings.adjust().StillSavePath = std::string(t);), true},
};
static_assert(kEditRows.size() == 35 && kPrefsRows.size() == 18);

#undef KVO_TEXT
#undef KVO_TAKE
#undef KVO_PLAIN
#undef KVO_NUMBER
#undef KVO_WRITTEN_ONLY
#undef KVO_MIRROR

void withoutPrefs(HeadRead& r) {
  const Preferences fresh;
  auto& s = r.settings;
  s.adjust().SkinPath = "";
  s.adjust().DefZoom = fresh.DefZoom;
  s.adjust().ShowPlayList = fresh.ShowPlayList;
  s.adjust().UseWMPfirst = fresh.UseWMPfirst;
  s.adjust().TitleDispClr = fresh.TitleDispClr;
  s.user.LoopPreviews = true;
  s.adjust().CDDBMode = fresh.CDDBMode;
  s.adjust().ModemType = fresh.ModemType;
  s.adjust().MouseWheelControl = fresh.MouseWheelControl;
  s.user.RewAtEnd = false;
  s.adjust().ScrollDelay = fresh.ScrollDelay;
  s.adjust().WheelTripPlay = fresh.WheelTripPlay;
  s.adjust().EncodeProfiletoUse = fresh.EncodeProfiletoUse;
  s.user.SliderPauseOnRepo = true;
  s.user.MPEGRoutingVMR = false;
  r.rewrite = true;
}

void withoutEditPrefs(HeadRead& r) {
  const Preferences fresh;
  auto& s = r.settings;
  s.change().OutputResolution = fresh.OutputResolution;
  s.change().OutPutFrameRate = fresh.OutPutFrameRate;
  s.change().OutputColorDepth = fresh.OutputColorDepth;
  s.change().PreviewType = fresh.PreviewType;
  s.change().FadInVal = fresh.FadInVal;
  s.change().FadOutVal = fresh.FadOutVal;
  s.change().PreviewCPU = fresh.PreviewCPU;
  s.change().DubInPlaylistAudioTrks = fresh.DubInPlaylistAudioTrks;
  s.change().ExternalAudioStack = fresh.ExternalAudioStack;
  s.adjust().RenderVideoAudio = fresh.RenderVideoAudio;
  s.adjust().RenderHeight = fresh.RenderHeight;
  s.adjust().RenderWidth = fresh.RenderWidth;
  s.adjust().AutoTrimAudio = fresh.AutoTrimAudio;
  s.adjust().ApplyOverlayFadeInOut = fresh.ApplyOverlayFadeInOut;
  s.change().TrackFadeInOut = fresh.TrackFadeInOut;
  s.adjust().GlobalTransitions = fresh.GlobalTransitions;
  s.change().VideoTrackFadeAmt = fresh.VideoTrackFadeAmt;
  s.adjust().RenderEstimateSecs = fresh.RenderEstimateSecs;
  s.adjust().OutputWarningsOn = fresh.OutputWarningsOn;
  s.adjust().KeyframeCount = 0;
  s.adjust().DirectXPrebuffer = fresh.DirectXPrebuffer;
  s.adjust().MaxParticles = fresh.MaxParticles;
  s.adjust().ParticleMotionSpeed = fresh.ParticleMotionSpeed;
  s.adjust().ParticleSpinSpeed = fresh.ParticleSpinSpeed;
  s.adjust().UseParticleDefaults = fresh.UseParticleDefaults;
  s.adjust().GrfFileName = r.folder.beside("\\KVORender.grf");
  s.adjust().OutputGRF = fresh.OutputGRF;
  s.adjust().PartExponentialProgressDuration = fresh.PartExponentialProgressDuration;
  s.adjust().PartExponentialProgressScale = fresh.PartExponentialProgressScale;
  s.adjust().RenderDiskWarning = fresh.RenderDiskWarning;
  s.adjust().RenderTimeWarning = fresh.RenderTimeWarning;
  s.adjust().RenderAutoView = fresh.RenderAutoView;
  s.adjust().AutoStartKeyFramePreviews = fresh.AutoStartKeyFramePreviews;
  s.adjust().KVOFastEdit = fresh.KVOFastEdit;
  s.adjust().StillSavePath = r.folder.beside("\\ExtractedFrames");
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
