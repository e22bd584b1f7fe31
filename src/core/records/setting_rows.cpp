#include "core/records/setting_rows.h"

#include "base/text.h"
#include "core/telling/deployment.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

bool isUnused(std::string_view text) { return text.empty() || characterCount(text) == kUnusedLength; }

template <class Type>
const Type& held(const KVO2& s, Type MarkingPreferences::*field) {
  return s.preferences().*field;
}
template <class Type>
const Type& held(const KVO2& s, Type QuietPreferences::*field) {
  return s.preferences().*field;
}
template <class Type>
const Type& held(const KVO2& s, Type RunState::*field) {
  return s.state.*field;
}
template <class Type>
Type held(const KVO2& s, UserValue<Type> UserValues::*field) {
  return s.user.*field;
}

template <class Type>
void put(KVO2& s, Type MarkingPreferences::*field, Type value) {
  s.change().*field = std::move(value);
}
template <class Type>
void put(KVO2& s, Type QuietPreferences::*field, Type value) {
  s.adjust().*field = std::move(value);
}
template <class Type>
void put(KVO2& s, Type RunState::*field, Type value) {
  s.state.*field = std::move(value);
}
template <class Type>
void put(KVO2& s, UserValue<Type> UserValues::*field, Type value) {
  s.user.*field = value;
}

template <class Type>
constexpr Kept keptAs(Type RunState::* /*field*/) {
  return Kept::Nowhere;
}
template <class Type>
constexpr Kept keptAs(Type UserValues::* /*field*/) {
  return Kept::User;
}
template <class Type, class Struct>
constexpr Kept keptAs(Type Struct::* /*field*/) {
  return Kept::Collection;
}

template <class Type>
constexpr bool isMarking(Type MarkingPreferences::* /*field*/) {
  return true;
}
template <class Type, class Struct>
constexpr bool isMarking(Type Struct::* /*field*/) {
  return false;
}

template <class Type>
constexpr SettingKind kindOf() {
  if constexpr (std::is_same_v<Type, Boolean>) return SettingKind::Boolean;
  if constexpr (std::is_same_v<Type, Integer>) return SettingKind::Integer;
  if constexpr (std::is_same_v<Type, Long>) return SettingKind::Long;
  if constexpr (std::is_same_v<Type, Single>) return SettingKind::Single;
  if constexpr (std::is_same_v<Type, double>) return SettingKind::Double;
  if constexpr (std::is_same_v<Type, Value>) return SettingKind::Value;
  return SettingKind::Text;
}

template <auto Field>
using TypeOf = std::decay_t<decltype(held(std::declval<const KVO2&>(), Field))>;

template <auto Field>
constexpr SettingRow field(std::string_view name, std::string_view key, const RowRead& read) {
  return {.name = name,
          .kind = kindOf<TypeOf<Field>>(),
          .kept = keptAs(Field) == Kept::Collection && key.empty() ? Kept::Nowhere : keptAs(Field),
          .marks = isMarking(Field),
          .text = [](const KVO2& s) { return fieldText(held(s, Field)); },
          .take =
              [](KVO2& s, std::string_view text) {
                TypeOf<Field> value{};
                const bool taken = takeField(value, text);
                if (taken) put(s, Field, std::move(value));
                return taken;
              },
          .key = key,
          .read = read};
}

template <auto Field>
constexpr SettingRow flag(std::string_view name, std::string_view key, const RowRead& read) {
  auto row = field<Field>(name, key, read);
  row.kind = SettingKind::Flag;
  row.text = [](const KVO2& s) { return fieldText(held(s, Field) != 0); };
  row.take = [](KVO2& s, std::string_view text) {
    Boolean on = false;
    const bool taken = takeField(on, text);
    if (taken) put(s, Field, Long{on ? kFlagOn : Integer{0}});
    return taken;
  };
  return row;
}

constexpr SettingRow as(SettingKind kind, SettingRow row) {
  row.kind = kind;
  return row;
}

// A user's value that the start reads.
constexpr SettingRow first(std::string_view atStart, SettingRow row) {
  row.atStart = atStart;
  return row;
}

constexpr RowRead textOr(std::string_view otherwise) {
  return {.rule = ReadRule::Text, .otherwise = otherwise};
}
constexpr RowRead strictOr(std::string_view otherwise) {
  return {.rule = ReadRule::Strict, .otherwise = otherwise};
}
constexpr RowRead always(std::string_view text) { return {.rule = ReadRule::Fixed, .otherwise = text}; }
constexpr RowRead numberOr(std::string_view otherwise, const Range& range = {}, std::string_view below = {}) {
  return {.rule = ReadRule::Number, .otherwise = otherwise, .range = range, .below = below};
}
constexpr RowRead own(void (*rule)(SettingRead&, std::string_view)) {
  return {.rule = ReadRule::Own, .own = rule};
}
constexpr RowRead mirror(std::string_view withoutSection) {
  return {.rule = ReadRule::None, .withoutSection = withoutSection};
}
constexpr RowRead without(std::string_view otherwise, RowRead read) {
  read.withoutSection = otherwise;
  return read;
}
constexpr RowRead staying(RowRead read) {
  read.staysWithoutSection = true;
  return read;
}
constexpr RowRead kPlain{};
constexpr RowRead kNotRead{.rule = ReadRule::None};

void readRunMode(SettingRead& r, std::string_view text) {
  if (text == "NOT RUN") r.rewrite = true;
  r.settings.adjust().RunMode = "CREATOR";
}

void readIntro(SettingRead& r, std::string_view text) {
  r.settings.change().DefaultStartupVid = isUnused(text) || text == "NO DEFAULT" ? "" : std::string(text);
}

void readClipCount(SettingRead& r, std::string_view text) {
  Integer count = -1;
  if (!takeField(count, text) && !numberIn(text)) r.rewrite = true;
  r.settings.change().MoviesInGroup = count;
}

// Counts this use.
void readUses(SettingRead& r, std::string_view text) {
  const auto used = numberIn(text);
  auto& uses = r.settings.adjust().NoofUses;
  if (used || uses < 2) r.rewrite = true;
  uses = used ? toLongClamped(*used + 1) : 0;
  if (uses >= 1) return;
  uses = 1;
  r.rewrite = true;
}

void readGraphName(SettingRead& r, std::string_view text) {
  const auto name = text.empty() ? r.folder.beside("\\KVORender.grf") : std::string(text);
  r.settings.adjust().GrfFileName = replaced(replaced(name, "\\\\", "\\"), "//", "/");
}

constexpr std::array<int, 3> kColorDepths = {16, 24, 32};
constexpr Range kAboveZero{.from = 0, .open = true};
constexpr Range kNotZero{.refused = 0};

#define ROW(Struct, Name, Key, Read) field<&Struct::Name>(#Name, Key, Read)
#define PREF(Name, Key, Read) ROW(Preferences, Name, Key, Read)
#define USER(Name, Key, Read) ROW(UserValues, Name, Key, Read)
#define STATE(Name) ROW(RunState, Name, {}, kNotRead)

constexpr std::array kKvoRows = {
    PREF(ProgramVersion, "ProgramVersion       = ", kNotRead),  // the reader's own
    PREF(RunMode, "RunAs                = ", own(readRunMode)),
    as(SettingKind::File, PREF(ErrorLog, "ErrorLog             = ", textOr("\\KVOError.Log"))),
    PREF(SoundCard, "SoundCard            = ", kPlain),
    as(SettingKind::File, PREF(DefaultStartupVid, "DefaultStartupVid    = ", own(readIntro))),
    PREF(MoviesInGroup, "MoviesInGroup        = ", own(readClipCount)),
    PREF(Support, "Support              = ", always(kSupportLine)),
    PREF(DelayTimer, "DelayTimer           = ", numberOr("0")),
    first("7", USER(StillDelayTimer, "StillDelayTimer      = ", numberOr("0"))),
};

constexpr std::array kUserRows = {
    PREF(UserName, "UserName             = ", kNotRead),
    PREF(Organisation, "Organisation         = ", kNotRead),
    PREF(ReplyTo, "ReplyTo              = ", always(kContactAddress)),
    PREF(Email, "EMail                = ", textOr("Unknown")),
    PREF(ShowSplash, "ShowSplash           = ", kNotRead),
    PREF(MuteAtStart, "MuteAtStart          = ", strictOr("False")),
    PREF(DisplayColor, "DisplayColor         = ", textOr("&H00FF0000&")),
    flag<&Preferences::AcceptedAgreement>("AcceptedAgreement", "AcceptedAgreement    = ", always("True")),
    PREF(NoofUses, "TimesUsed            = ", own(readUses)),
};

constexpr std::array kFontRows = {
    PREF(TextFont, "Font                 = ", textOr("Ariel")),
    PREF(TextSize, "Size                 = ", textOr("10")),
    PREF(TextColor, "Color                = ", textOr("&H00FF0000&")),
    PREF(TextStyle, "Style                = ", textOr("Regular")),
};

constexpr std::array kDirectoryRows = {
    as(SettingKind::Folder, PREF(JoinSaveAs, "JoinSaveAs            = ", textOr("\\"))),
    as(SettingKind::Folder, PREF(LoadFrom, "LoadFrom             = ", textOr("C:\\"))),
    as(SettingKind::Folder, PREF(ColLoadFrom, "ColLoadFrom          = ", textOr("\\"))),
};

constexpr std::array kAudioAnimationRows = {
    PREF(CDAutoAnim, "AutoAnimation        = ", strictOr("True")),
    PREF(AnimFS, "AnimFullSC           = ", kNotRead),
    PREF(ShowAnimtext, "ShowText             = ", kNotRead),
    PREF(AnimMovRand, "Random               = ", strictOr("True")),
    flag<&Preferences::ShowVids>("ShowVids", "ShowVids             = ", kNotRead),  // read from [Prefs]
};

constexpr std::array kPrefsRows = {
    PREF(SkinPath, "Skin                 = ", kPlain),
    PREF(DefZoom, "DefZoom              = ", kPlain),
    first("False", USER(LoopCol, "LoopCol              = ", staying(kNotRead))),
    PREF(ShowPlayList, "ShowPlayList         = ", kPlain),
    PREF(UseWMPfirst, "UseWMPfirst          = ", kPlain),
    PREF(TitleDispClr, "TitleDispClr         = ", kPlain),
    first("False", USER(LoopPreviews, "LoopPreviews         = ", mirror("True"))),
    PREF(CDDBMode, "CDDBMode             = ", numberOr("1")),
    flag<&Preferences::ShowVids>("ShowVids", "VidVis               = ", staying(kPlain)),
    PREF(ModemType, "ModemSpeed           = ", numberOr("350", kNotZero)),
    PREF(MouseWheelControl, "MouseWheelControl    = ", numberOr("2", {.refused = 1})),
    first("False", USER(RewAtEnd, "RewAtEnd             = ", mirror("False"))),
    PREF(ScrollDelay, "MouseWheelBufferTime = ", numberOr("0.2", kAboveZero)),
    PREF(StillsIndividual, "StillsIndividually   = ", staying(kPlain)),
    PREF(WheelTripPlay, "WheelTripPlay        = ", numberOr("7")),
    PREF(EncodeProfiletoUse, "EncodeProfiletoUse   = ", numberOr("1")),
    first("False", USER(SliderPauseOnRepo, "SliderPauseOnRepo    = ", mirror("True"))),
    USER(MPEGRoutingVMR, "MPEGRoutingVMR       = ", mirror("False")),
};

constexpr std::array kEditRows = {
    PREF(OutputResolution, "OutputResolution     = ", numberOr("8", {.to = 1000})),
    PREF(OutPutFrameRate, "OutputFrameRate      = ", numberOr("25", {.from = 2}, "24")),
    PREF(OutputColorDepth, "OutputColorDepth     = ", numberOr("24", {.choices = kColorDepths})),
    PREF(PreviewType, "PreviewType          = ", numberOr("10", {.from = 1, .to = 10}, "5")),
    PREF(FadInVal, "FadeInDuration       = ", numberOr("3", kAboveZero, "0.2")),
    PREF(FadOutVal, "FadeOutDuration      = ", numberOr("5", kAboveZero, "0.2")),
    PREF(PreviewCPU, "PreviewCPU           = ", numberOr("5", {.from = 1, .to = 10})),
    PREF(DubInPlaylistAudioTrks, "DubInAudioTrks       = ", kPlain),
    PREF(ExternalAudioStack, "ExternalAudioStack   = ", kPlain),
    PREF(RenderVideoAudio, "RenderVideoAudio     = ", kPlain),
    PREF(RenderHeight, "RenderHeight         = ", kPlain),
    PREF(RenderWidth, "RenderWidth          = ", kPlain),
    PREF(AutoTrimAudio, "AutoTrimAudio        = ", kPlain),
    PREF(ApplyOverlayFadeInOut, "ApplyOverlayFadeInOut = ", kPlain),
    PREF(TrackFadeInOut, "TrackFadeInOut       = ", numberOr("4")),
    PREF(GlobalTransitions, "GlobalTransitions    = ", kPlain),
    PREF(VideoTrackFadeAmt, "VideoTrackFadeAmt    = ", numberOr("10")),
    PREF(RenderEstimateSecs, "EncodePrediction     = ", numberOr("5")),
    PREF(OutputWarningsOn, "RenderWarnings       = ", kPlain),
    PREF(KeyframeCount, "Keyframes            = ", numberOr("0", {.from = 0, .to = 10000})),
    PREF(DirectXPrebuffer, "DirectXPrebuffer     = ", numberOr("30", {.from = 0, .to = 1024, .open = true})),
    PREF(MaxParticles, "MaxParticles         = ", numberOr("64", {.from = 2, .to = 31000})),
    PREF(ParticleMotionSpeed, "ParticleMotionSpeed  = ", numberOr("35", kNotZero)),
    PREF(ParticleSpinSpeed, "ParticleSpinSpeed    = ", numberOr("35", kNotZero)),
    PREF(UseParticleDefaults, "UseParticleDefaults  = ", kPlain),
    PREF(GrfFileName, "GrfFileName          = ", without("\\KVORender.grf", own(readGraphName))),
    PREF(OutputGRF, "OutputGrf            = ", kPlain),
    PREF(PartExponentialProgressDuration, "PartExponProgDur     = ", kPlain),
    PREF(PartExponentialProgressScale, "PartExponProgScale   = ", kPlain),
    PREF(RenderDiskWarning, "RenderDiskWarning_OFF = ", kPlain),
    PREF(RenderTimeWarning, "RenderTimeWarning_OFF = ", kPlain),
    PREF(RenderAutoView, "RenderAutoView_OFF    = ", kPlain),
    PREF(AutoStartKeyFramePreviews, "AutoStartKeyFramePreviews = ", kPlain),
    PREF(KVOFastEdit, "KVOFastEdit           = ", kPlain),
    as(SettingKind::Folder,
       PREF(StillSavePath, "StillSavePath         = ", without("\\ExtractedFrames", kPlain))),
};
static_assert(kEditRows.size() == 35 && kPrefsRows.size() == 18);

constexpr std::array kUserOnlyRows = {
    first("False", USER(ShowWavWithVideo, {}, kNotRead)),
    first("500", USER(SliderSpeed, {}, numberOr("450", {.from = 50}))),
    first("False", USER(DefaultZoom100, {}, kNotRead)),
    first("False", USER(PlayWithoutGaps, {}, kNotRead)),
    USER(InterfaceSize, {}, kNotRead),
    USER(OfferResume, {}, kNotRead),
};

constexpr std::array kStateRows = {
    PREF(ExternalOverlayTrackName, {}, kNotRead),
    STATE(IsDirty),
    STATE(ListIsDirty),
    STATE(ObjectChange),
    flag<&RunState::ScrMarq>("ScrMarq", {}, kNotRead),
    STATE(CDROMDrive),
    flag<&RunState::ToolTipsOn>("ToolTipsOn", {}, kNotRead),
    STATE(SkinLoadfrom),
    STATE(HideKVOOnWebshow),
    STATE(DefaultStillFrameRate),
    STATE(DefaultStillDuration),
    STATE(ShowFrameOrTime),
    STATE(ShuttleProInstalled),
    STATE(AllDetOff),
    STATE(ShowFillist),
    STATE(ShowCaps),
    STATE(InterClipDelay),
    STATE(FileToEncodeLength),
    STATE(RenderEffects),
    STATE(RenderTransitions),
    STATE(KeyframeMode),
    STATE(KeyframeEffectNo),
    STATE(KeyframePreview),
    STATE(PreviewFrameRate),
    STATE(TimeLineVideoTotTime),
    STATE(IsPreviewRunning),
    STATE(WavSpikesOn),
    STATE(CurrentWaveForm),
    STATE(WavPollFreq),
    STATE(WavSampleFreq),
    STATE(WavPicWidth),
    STATE(KVOIsInEditMode),
    STATE(Instructs),
    STATE(CurrTVChannel),
    STATE(EditorFramesizeWarn),
    STATE(EditorMorphMode),
};

#undef ROW
#undef PREF
#undef USER
#undef STATE

constexpr std::array kSections = {
    SettingSection{"KVO", kKvoRows},
    SettingSection{"User", kUserRows},
    SettingSection{"Fonts", kFontRows},
    SettingSection{"Directories", kDirectoryRows},
    SettingSection{"AudioAnimation", kAudioAnimationRows},
    SettingSection{"Prefs", kPrefsRows, false},
    SettingSection{"EditDecisionListPrefs", kEditRows, false},
    SettingSection{"", kUserOnlyRows},
    SettingSection{"", kStateRows},
};
constexpr std::size_t kHeadSections = 7;

// The number held to the limits of the field's type, so that the limits of the row can be asked.
template <class Type>
double heldToType(double number) {
  using Limits = std::numeric_limits<Type>;
  number = std::clamp(number, static_cast<double>(Limits::lowest()), static_cast<double>(Limits::max()));
  return static_cast<Type>(Limits::is_integer ? RoundToWhole(number) : number);
}

double heldTo(SettingKind kind, double number) {
  switch (kind) {
    case SettingKind::Integer:
      return heldToType<Integer>(number);
    case SettingKind::Long:
      return heldToType<Long>(number);
    case SettingKind::Single:
      return heldToType<Single>(number);
    default:
      return number;
  }
}

std::string placed(std::string_view text, const ProgramFolder& folder) {
  if (text == "\\") return folder.path();
  return text.starts_with('\\') ? folder.beside(text) : std::string(text);
}

void replaceBy(const SettingRow& row, SettingRead& read, std::string_view text) {
  read.rewrite = true;
  row.take(read.settings, placed(text, read.folder));
}

void readText(const SettingRow& row, SettingRead& read, std::string_view text) {
  if (isUnused(text)) return replaceBy(row, read, row.read.otherwise);
  // The writer may have put "/." ahead of a folder that would be misread.
  if (row.kind == SettingKind::Folder && text.starts_with("/./")) text.remove_prefix(2);
  row.take(read.settings, text);
}

void readNumber(const SettingRow& row, SettingRead& read, std::string_view text) {
  const auto number = row.kind == SettingKind::Text ? std::optional(ToNumber(text)) : numberIn(text);
  if (!number) return replaceBy(row, read, row.read.otherwise);
  const auto value = heldTo(row.kind, *number);
  const auto& range = row.read.range;
  if (range.holds(value)) {
    row.take(read.settings, text);
  } else {
    replaceBy(row, read,
              range.isBelow(value) && !row.read.below.empty() ? row.read.below : row.read.otherwise);
  }
}

}  // namespace

bool Range::holds(double value) const {
  if (!choices.empty()) return std::find(choices.begin(), choices.end(), value) != choices.end();
  return !isBelow(value) && (open ? value < to : value <= to) && value != refused;
}

std::span<const SettingSection> settingSections() { return kSections; }

std::span<const SettingSection> headSections() { return settingSections().first(kHeadSections); }

void readSetting(const SettingRow& row, SettingRead& read, std::string_view text) {
  switch (row.read.rule) {
    case ReadRule::Plain:
      row.take(read.settings, text);
      break;
    case ReadRule::Text:
      readText(row, read, text);
      break;
    case ReadRule::Strict:
      if (sameText(text, "TRUE") || sameText(text, "FALSE")) {
        row.take(read.settings, text);
      } else {
        replaceBy(row, read, row.read.otherwise);
      }
      break;
    case ReadRule::Number:
      readNumber(row, read, text);
      break;
    case ReadRule::Fixed:
      row.take(read.settings, row.read.otherwise);
      break;
    case ReadRule::Own:
      row.read.own(read, text);
      break;
    case ReadRule::None:
      break;
  }
}

void holdToRange(const SettingRow& row, KVO2& settings) {
  const auto number = numberIn(row.text(settings));
  if (number && !row.read.range.holds(*number)) row.take(settings, row.read.otherwise);
}

void readWithoutSection(const SettingSection& section, SettingRead& read) {
  const KVO2 fresh;
  for (const auto& row : section.rows) {
    if (section.emptyWithout) {
      readSetting(row, read, {});
    } else if (!row.read.staysWithoutSection) {
      const auto& given = row.read.withoutSection;
      replaceBy(row, read, given ? *given : std::string_view(row.text(fresh)));
    }
  }
}

}  // namespace kvo
