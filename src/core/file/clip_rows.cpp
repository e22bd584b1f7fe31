#include "core/file/clip_rows.h"

#include "base/text.h"

#include <array>
#include <type_traits>

namespace kvo {
namespace {

// A field behind a getter and a setter of one name.
#define KVO_ROW(Key, Name)                                                                         \
  FieldRow<Movie> {                                                                                \
    Key, [](const Movie& m) { return fieldText(m.Name()); }, [](Movie& m, std::string_view text) { \
      std::decay_t<decltype(m.Name())> value = m.Name();                                           \
      if (takeField(value, text)) m.Name(std::move(value));                                        \
    }                                                                                              \
  }

// A plain member.
#define KVO_MEMBER_ROW(Record, Key, Member)                                 \
  FieldRow<Record> {                                                        \
    Key, [](const Record& r) { return fieldText(r.Member); },               \
        [](Record& r, std::string_view text) { takeField(r.Member, text); } \
  }

// The reader takes a "[" without a full stop in its line for a heading.
bool likeHeading(const std::string& text) {
  return text.find('[') != std::string::npos && text.find('.') == std::string::npos;
}

// A folder as the file can carry it: the reader takes 128 characters for an unused field too, so such a
// folder is written with "./" behind it, which names the same folder.
std::string storedFolder(const std::string& folder) {
  const bool misread = characterCount(folder) == 128 || likeHeading(folder);
  return misread && folder.ends_with('/') ? folder + "./" : folder;
}

std::string storedName(const std::string& name) { return likeHeading(name) ? "./" + name : name; }

#define KVO_NAME_ROW(Key, Name, Stored, Taken)                                          \
  FieldRow<Movie> {                                                                     \
    Key, [](const Movie& m) { return Stored(m.Name()); },                               \
        [](Movie& m, std::string_view text) { m.Name(std::string(Taken(text))); }, true \
  }

constexpr std::array kMainRows = {
    KVO_NAME_ROW("MovieName       = ", MovieName, storedName, nameFromFile),
    KVO_NAME_ROW("Path            = ", Path, storedFolder, folderFromFile),
    KVO_ROW("Orderinplaylist = ", Orderinplaylist),
    KVO_ROW("Notes           = ", Notes),
    KVO_ROW("IsQT4           = ", IsTrueQT4),
    KVO_ROW("PlaySpeed       = ", Playspeed),
    FieldRow<Movie>{"AltName         = ", [](const Movie& m) { return m.AltName(); },
                    [](Movie& m, std::string_view text) {
                      const bool none =
                          text == "False" || text.starts_with('\0') || characterCount(text) == 128;
                      m.AltName(none ? " " : std::string(text));
                    }},
    KVO_ROW("DispChange      = ", DispChange),
    KVO_ROW("DSize           = ", Dsize),
    KVO_ROW("XPos            = ", XPos),
    KVO_ROW("YPos            = ", Ypos),
    KVO_ROW("IsTrueRM        = ", IsTrueRM),
    KVO_ROW("VSize           = ", Vsize),
    KVO_ROW("IsHTML          = ", IsHTML),
    KVO_ROW("PanUp           = ", PanUp),
    KVO_ROW("PanLeft         = ", PanLeft),
    KVO_ROW("stretchmode     = ", stretchmode),
    KVO_ROW("FrameRate       = ", FrameRate),
    KVO_ROW("DirectShow      = ", IsDShow),
    KVO_ROW("IsVFWCompat     = ", IsVFWCompat),
    KVO_ROW("TransitionName  = ", TransType),
    KVO_ROW("TransitionIN    = ", TransIn),
    KVO_ROW("TransitionOut   = ", TransOut),
    KVO_ROW("ExtraParamName1 = ", ExtraParamName1),
    KVO_ROW("ExtraParamVal1  = ", ExtraParamValue1),
    KVO_ROW("ExtraParamName2 = ", ExtraParamName2),
    KVO_ROW("ExtraParamVal2  = ", ExtraParamValue2),
    KVO_ROW("EffectWord      = ", EffectWord),
    KVO_ROW("BlurInt         = ", BlurInt),
    KVO_ROW("MBlurStrength   = ", MBlurStrength),
    KVO_ROW("MBlurDirection  = ", MBlurDirection),
    KVO_ROW("AgeIntensity    = ", AgeIntensity),
    KVO_ROW("HasPicInPic    = ", HasPicInPic),
    KVO_NAME_ROW("SrcPath        = ", SrcPath, storedFolder, folderFromFile),
    KVO_NAME_ROW("SrcName        = ", SrcName, storedName, nameFromFile),
    KVO_ROW("Brightness     = ", Brightness),
    KVO_ROW("Contrast       = ", Contrast),
    KVO_ROW("Gamma          = ", Gamma),
    KVO_ROW("Red            = ", Red),
    KVO_ROW("Green          = ", Green),
    KVO_ROW("Blue           = ", Blue),
    KVO_ROW("Threshold      = ", Threshold),
    KVO_ROW("CutIndex       = ", CutIndex),
    KVO_ROW("Corona         = ", IsCorona),
    KVO_ROW("Sepia          = ", Sepia),
    KVO_ROW("EaseIN         = ", EaseIN),
    KVO_ROW("EaseDuration   = ", EaseDuration),
    KVO_ROW("MoveADirection = ", MoveADirection),
    KVO_ROW("MoveARotationDirection = ", MoveARotationDirection),
    KVO_ROW("RevolveCamera  = ", RevolveCamera),
    KVO_ROW("MoveSpeedA     = ", MoveSpeedA),
    KVO_ROW("ScaleA         = ", ScaleA),
    KVO_ROW("InitialScaleA  = ", InitialScaleA),
    KVO_ROW("KeyID          = ", KeyID),
    KVO_ROW("BorderWidth     = ", BorderWidth),
    KVO_ROW("BorderColor     = ", BorderColor),
    KVO_ROW("BorderSoftness  = ", BorderSoftness),
    KVO_ROW("ReplicateX      = ", ReplicateX),
    KVO_ROW("ReplicateY      = ", ReplicateY),
    KVO_NAME_ROW("MaskName        = ", MaskName, std::string, std::string),
    KVO_ROW("IsTV            = ", IsTV),
    KVO_ROW("HasAudioFade    = ", HasAudioFade),
    KVO_ROW("AudioFadeInTime = ", AudioFadeInTime),
    KVO_ROW("AudioFadeOutTime = ", AudioFadeOutTime),
    KVO_ROW("RenderAudio     = ", RenderAudio),
};
static_assert(kMainRows.size() == 65);

constexpr std::array kAudioRows = {
    KVO_ROW("Volume      = ", Volume),
    FieldRow<Movie>{"OutputLevel = ", [](const Movie& m) { return fieldText(m.AudioOutputLevel()); },
                    [](Movie& m, std::string_view text) {
                      const auto level = numberIn(text);
                      m.AudioOutputLevel(level && *level <= 5.0 ? static_cast<Single>(*level) : 1.0F);
                    }},
    KVO_ROW("Balance     = ", Balance),
    FieldRow<Movie>{"HasAudioFade= ", [](const Movie& m) { return fieldText(m.HasAudioFade()); }, nullptr},
};

constexpr std::array kLoopingRows = {
    KVO_ROW("LoopEnd        = ", LoopEnd),        KVO_ROW("LoopForever    = ", LoopForever),
    KVO_ROW("LoopOnce       = ", LoopOnce),       KVO_ROW("LoopStart      = ", LoopStart),
    KVO_ROW("DurationFrames = ", DurationFrames), KVO_ROW("DurationTime   = ", DurationTime),
    KVO_ROW("StillH         = ", StillH),         KVO_ROW("StillW         = ", StillW),
    KVO_ROW("IsStill        = ", IsStill),
};

constexpr std::array kDisplayRows = {
    KVO_ROW("ZoomLevel      = ", ZoomLevel),      KVO_ROW("Resolution     = ", Resolution),
    KVO_ROW("PlayFullScreen = ", PlayFullscreen), KVO_ROW("Playsize       = ", Playsize),
    KVO_ROW("Size           = ", Size),
};

constexpr std::array kAudMovieRows = {
    FieldRow<AudMovies>{"MovieName       = ", [](const AudMovies& a) { return storedName(a.MovieName); },
                        [](AudMovies& a, std::string_view text) { a.MovieName = nameFromFile(text); }, true},
    FieldRow<AudMovies>{"MoviePath       = ", [](const AudMovies& a) { return storedFolder(a.Path); },
                        [](AudMovies& a, std::string_view text) { a.Path = folderFromFile(text); }, true},
    KVO_MEMBER_ROW(AudMovies, "MoviePlayTime   = ", MoviePlayTime),
    KVO_MEMBER_ROW(AudMovies, "MovieSpeed      = ", Playspeed),
    KVO_MEMBER_ROW(AudMovies, "PlayCount       = ", PlayCount),
    KVO_MEMBER_ROW(AudMovies, "MovieZoom       = ", ZoomLevel),
    KVO_MEMBER_ROW(AudMovies, "LoopEnd         = ", LoopEnd),
    KVO_MEMBER_ROW(AudMovies, "LoopStart       = ", LoopStart),
    KVO_MEMBER_ROW(AudMovies, "Size            = ", Size),
    KVO_MEMBER_ROW(AudMovies, "XPos            = ", XPos),
    KVO_MEMBER_ROW(AudMovies, "YPos            = ", Ypos),
};

constexpr std::array kKeyframeRows = {
    KVO_MEMBER_ROW(Keyframe, "Time            = ", Time),
    KVO_MEMBER_ROW(Keyframe, "FrameNo         = ", FrameNo),
    KVO_MEMBER_ROW(Keyframe, "EffectNo        = ", EffectNo),
    KVO_MEMBER_ROW(Keyframe, "Param1          = ", Param[0]),
    KVO_MEMBER_ROW(Keyframe, "Param2          = ", Param[1]),
    KVO_MEMBER_ROW(Keyframe, "Param3          = ", Param[2]),
    KVO_MEMBER_ROW(Keyframe, "Param4          = ", Param[3]),
    KVO_MEMBER_ROW(Keyframe, "Param5          = ", Param[4]),
    KVO_MEMBER_ROW(Keyframe, "Param6          = ", Param[5]),
    KVO_MEMBER_ROW(Keyframe, "Param7          = ", Param[6]),
    KVO_MEMBER_ROW(Keyframe, "Param8          = ", Param[7]),
    KVO_MEMBER_ROW(Keyframe, "Transparency    = ", Transparency),
    KVO_MEMBER_ROW(Keyframe, "FC              = ", FC),
    KVO_MEMBER_ROW(Keyframe, "EC              = ", EC),
    KVO_MEMBER_ROW(Keyframe, "BC              = ", BC),
    FieldRow<Keyframe>{"TextureFile     = ", [](const Keyframe& k) { return k.TextureFile; },
                       [](Keyframe& k, std::string_view text) { k.TextureFile = text; }, true},
    KVO_MEMBER_ROW(Keyframe, "ClipName        = ", ClipName),
};

#undef KVO_ROW
#undef KVO_NAME_ROW
#undef KVO_MEMBER_ROW

}  // namespace

std::string_view folderFromFile(std::string_view stored) {
  if (stored.ends_with("/./")) stored.remove_suffix(2);
  return stored;
}

std::string_view nameFromFile(std::string_view stored) {
  if (stored.starts_with("./")) stored.remove_prefix(2);
  return stored;
}

std::span<const FieldRow<Movie>> movieMainRows() { return kMainRows; }
std::span<const FieldRow<Movie>> movieAudioRows() { return kAudioRows; }
std::span<const FieldRow<Movie>> movieLoopingRows() { return kLoopingRows; }
std::span<const FieldRow<Movie>> movieDisplayRows() { return kDisplayRows; }
std::span<const FieldRow<AudMovies>> audMovieRows() { return kAudMovieRows; }
std::span<const FieldRow<Keyframe>> keyframeRows() { return kKeyframeRows; }

}  // namespace kvo
