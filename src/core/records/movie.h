// One clip of a collection: everything that is known of it and set for it. Times are seconds held as text or
// number, Playspeed is in tenths of normal speed, TransIn and TransOut in tenths of a second.
#pragma once

#include "core/records/field_types.h"

#include <string>
#include <utility>

namespace kvo {

class Movie;

/// Hears of a change in a record that reaches beyond the record itself.
class RecordListener {
 public:
  RecordListener() = default;
  RecordListener(const RecordListener&) = delete;
  RecordListener& operator=(const RecordListener&) = delete;
  virtual ~RecordListener() = default;

  /// The change code becomes `code` if it is below `below` now.
  virtual void postChange(Integer code, Integer below) = 0;

  /// A new end of the section to play: a running player resets its stop point.
  virtual void endOfPlayMoved(const Movie& clip) = 0;
};

#include "core/records/record_fields.h"

class Movie {
  // Play
  KVO_DIRTY(Integer, LoopOnce);  // flag
  KVO_FIELD(std::string, MovieName);
  KVO_FIELD(std::string, Path);
  KVO_DIRTY(Long, Playsize);
  KVO_DIRTY(Integer, Volume);  // attenuation, 0 is loudest
  KVO_FIELD(Value, Resolution);
  KVO_DIRTY(Boolean, PlayFullscreen);
  KVO_FIELD(Integer, Orderinplaylist);
  KVO_DIRTY(Value, TexttoDisplay);
  KVO_DIRTY(Value, Notes);
  KVO_DIRTY(Boolean, LoopForever);
  KVO_FIELD(Value, DurationFrames);
  KVO_FIELD(Value, DurationTime);
  KVO_DIRTY(Value, TextFont);
  KVO_DIRTY(Value, TextColor);
  KVO_DIRTY(Value, TextFontsize);

  // File facts
  KVO_FIELD(std::string, Created);
  KVO_FIELD(std::string, Accessed);
  KVO_FIELD(std::string, Modified);
  KVO_FIELD(Boolean, AttribRO);
  KVO_FIELD(Boolean, AttribH);
  KVO_FIELD(Boolean, AttribS);
  KVO_FIELD(Boolean, AttribA);
  KVO_FIELD(Boolean, AttribC);
  KVO_FIELD(std::string, FType);
  KVO_FIELD(Boolean, IsDirty);
  KVO_FIELD(Boolean, RemoteRepeat);

  // Kind and placing
  KVO_FIELD(Boolean, IsTrueQT4);
  KVO_FIELD(Boolean, IsHTML);
  KVO_FIELD(Boolean, IsTrueRM);
  KVO_FIELD(std::string, AltName);
  KVO_FIELD(Long, XPos);
  KVO_FIELD(Long, Ypos);
  KVO_FIELD(Long, Dsize);
  KVO_FIELD(Long, Vsize);
  KVO_FIELD(Long, PanLeft);
  KVO_FIELD(Long, PanUp);
  KVO_FIELD(Long, MedLeft);
  KVO_FIELD(Long, MedUp);
  KVO_FIELD(Boolean, IsExtendedCD);
  KVO_FIELD(Boolean, IsStream);
  KVO_FIELD(Boolean, IsStill);
  KVO_FIELD(Integer, StillW);
  KVO_FIELD(Integer, StillH);
  KVO_FIELD(Integer, DispChange);  // flag
  KVO_FIELD(Integer, MovieHeight);
  KVO_FIELD(Integer, MovieWidth);
  KVO_FIELD(std::string, Album);
  KVO_FIELD(std::string, Artist);
  KVO_FIELD(std::string, Genre);
  KVO_DIRTY(Integer, stretchmode);
  KVO_FIELD(Single, FrameRate);
  KVO_FIELD(Boolean, IsDShow);
  KVO_FIELD(Boolean, IsVFWCompat);

  // Transition
  KVO_DIRTY(Single, TransIn);
  KVO_DIRTY(Single, TransOut);
  KVO_DIRTY(std::string, ExtraParamName1);
  KVO_DIRTY(std::string, ExtraParamValue1);
  KVO_DIRTY(std::string, ExtraParamName2);
  KVO_DIRTY(std::string, ExtraParamValue2);

  // Effects
  KVO_DIRTY(std::string, EffectWord);
  KVO_DIRTY(Integer, BlurInt);
  KVO_DIRTY(Integer, MBlurStrength);
  KVO_DIRTY(Integer, MBlurDirection);
  KVO_DIRTY(Integer, AgeIntensity);
  KVO_FIELD(Value, TimeLineStart);
  KVO_FIELD(Value, TimeLineStop);
  KVO_FIELD(std::string, HasPicInPic);
  KVO_FIELD(std::string, SrcPath);
  KVO_DIRTY(std::string, SrcName);
  KVO_DIRTY(Single, Brightness);
  KVO_DIRTY(Single, Contrast);
  KVO_DIRTY(Single, Gamma);
  KVO_DIRTY(Single, Red);
  KVO_DIRTY(Single, Green);
  KVO_DIRTY(Single, Blue);
  KVO_DIRTY(Single, Threshold);
  KVO_FIELD(Integer, CutIndex);
  KVO_FIELD(Boolean, IsCorona);
  KVO_DIRTY(Boolean, Sepia);
  KVO_FIELD(std::string, VideoCodec);
  KVO_FIELD(std::string, AudioCodec);
  KVO_FIELD(std::string, VideoBitRate);
  KVO_FIELD(std::string, AudioBitRate);
  KVO_DIRTY(Boolean, EaseIN);
  KVO_DIRTY(Single, EaseDuration);
  KVO_DIRTY(std::string, MoveADirection);
  KVO_DIRTY(std::string, MoveARotationDirection);
  KVO_DIRTY(Boolean, RevolveCamera);
  KVO_DIRTY(Single, MoveSpeedA);
  KVO_DIRTY(Single, ScaleA);
  KVO_DIRTY(Single, InitialScaleA);
  KVO_FIELD(Boolean, HasKeyFrames);
  KVO_FIELD(Long, KeyID);

  // Border and mask
  KVO_DIRTY(Integer, BorderWidth);
  KVO_DIRTY(Value, BorderColor);
  KVO_DIRTY(Single, BorderSoftness);
  KVO_DIRTY(Integer, ReplicateX);
  KVO_DIRTY(Integer, ReplicateY);
  KVO_DIRTY(std::string, MaskName);
  KVO_FIELD(Boolean, IsTV);

  // Sound
  KVO_FIELD(Boolean, HasAudioFade);
  KVO_DIRTY(Single, AudioFadeInTime);
  KVO_DIRTY(Single, AudioFadeOutTime);

 public:
  // The fields with a rule of their own.

  /// The file's size in bytes as text; every "-" is taken out on setting.
  [[nodiscard]] const std::string& Size() const { return size_; }
  void Size(std::string_view text);

  /// Tenths of normal speed. Reading the field while it holds 0 stores and gives 10.
  [[nodiscard]] Single Playspeed() const;
  void Playspeed(Single tenths);

  /// Stereo balance; one that was never set becomes the number 1000.
  [[nodiscard]] const Value& Balance() const;
  void Balance(Value balance);

  /// The section to play, in seconds. Setting one derives its frame from DurationFrames / DurationTime where
  /// these are numbers, and posts change code 1.
  [[nodiscard]] const Value& LoopStart() const { return loopStart_; }
  void LoopStart(Value seconds);
  [[nodiscard]] const Value& LoopEnd() const { return loopEnd_; }
  void LoopEnd(Value seconds);

  /// The section in frames; a stored 0 reads as derived from the seconds. Setting posts change code 96.
  [[nodiscard]] Long LoopStartFrames() const;
  void LoopStartFrames(Long frames);
  [[nodiscard]] Long LoopEndFrames() const;
  void LoopEndFrames(Long frames);

  /// Percentage text; empty reads as "100%".
  [[nodiscard]] Value ZoomLevel() const;
  void ZoomLevel(Value zoom);

  /// The clip's sound goes into the movie.
  [[nodiscard]] Boolean RenderAudio() const { return renderAudio_; }
  void RenderAudio(Boolean render);

  /// Reading it while it is false clears RenderAudio.
  [[nodiscard]] Boolean HasAudio() const;
  void HasAudio(Boolean has) { hasAudio_ = has; }

  /// Level of the clip's sound in the movie, 1 is full. Setting it posts change code 1.
  [[nodiscard]] Single AudioOutputLevel() const { return audioOutputLevel_; }
  void AudioOutputLevel(Single level);

  /// Friendly name of the transition into the clip. "CUT" in any case, and an empty or blank name, clear the
  /// four extra parameter fields.
  [[nodiscard]] const std::string& TransType() const { return transType_; }
  void TransType(std::string name);

  /// Field by field, flags and the listener too.
  bool operator==(const Movie&) const = default;

  /// Whom the record tells of changes; null for nobody. Not owned.
  void listener(RecordListener* listener) { listener_ = listener; }

 private:
  void post(Integer code, Integer below) const;
  [[nodiscard]] std::optional<Long> framesAt(const Value& seconds) const;

  std::string size_;
  mutable Single playspeed_ = 0;
  mutable Value balance_;
  Value loopStart_;
  Value loopEnd_;
  Long loopStartFrames_ = 0;
  Long loopEndFrames_ = 0;
  Value zoomLevel_;
  Boolean hasAudio_ = false;
  mutable Boolean renderAudio_ = false;
  Single audioOutputLevel_ = 0;
  std::string transType_;
  RecordListener* listener_ = nullptr;
};

#undef KVO_FIELD
#undef KVO_DIRTY

/// The name under which a clip is listed: its display name where it has one, else its file's.
std::string listedName(const Movie& clip);

/// The whole name of its file.
inline std::string clipFile(const Movie& clip) { return clip.Path() + clip.MovieName(); }

}  // namespace kvo
