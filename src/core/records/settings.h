// KVO2: every preference and the run-time state that rooms share, as named fields. The preferences travel
// with the collection file; opening another collection replaces them. A fresh object holds the values that
// apply when a file has no section for them.
#pragma once

#include "core/records/field_types.h"
#include "ports/user_store.h"

#include <string>
#include <utility>

namespace kvo {

#define KVO_SETTING(Type, Name, Default)                         \
 public:                                                         \
  [[nodiscard]] const Type& Name() const { return field##Name; } \
  void Name(Type value) { field##Name = std::move(value); }      \
                                                                 \
 private:                                                        \
  Type field##Name { Default }

// As KVO_SETTING, and the setter marks the collection as changed.
#define KVO_SAVED_SETTING(Type, Name, Default)                   \
 public:                                                         \
  [[nodiscard]] const Type& Name() const { return field##Name; } \
  void Name(Type value) {                                        \
    field##Name = std::move(value);                              \
    fieldIsDirty = true;                                         \
  }                                                              \
                                                                 \
 private:                                                        \
  Type field##Name { Default }

#define KVO_USER_SETTING(Type, Name, InStore, Default)                                       \
 public:                                                                                     \
  [[nodiscard]] Type Name() const { return fromStore<Type>(InStore, field##Name, Default); } \
  void Name(Type value) {                                                                    \
    field##Name = value;                                                                     \
    if (store_ != nullptr) store_->write(InStore, fieldText(value));                         \
  }                                                                                          \
                                                                                             \
 private:                                                                                    \
  Type field##Name { Default }

class KVO2 {
  // Program and user
  KVO_SETTING(std::string, ProgramVersion, );
  KVO_SETTING(Boolean, ShowAnimtext, false);
  KVO_SETTING(Boolean, AnimMovRand, true);
  KVO_SETTING(std::string, RunMode, "CREATOR");
  KVO_SETTING(std::string, ErrorLog, );
  KVO_SETTING(Value, SoundCard, );
  KVO_SAVED_SETTING(std::string, DefaultStartupVid, );
  KVO_SAVED_SETTING(Integer, MoviesInGroup, 0);
  KVO_SETTING(std::string, Support, );
  KVO_SETTING(std::string, UserName, "Unknown");
  KVO_SETTING(std::string, Organisation, "Unknown");
  KVO_SETTING(std::string, ReplyTo, );
  KVO_SETTING(std::string, Email, "Unknown");
  KVO_SETTING(Boolean, ShowSplash, false);
  KVO_SAVED_SETTING(Boolean, MuteAtStart, false);
  KVO_SETTING(Boolean, CDAutoAnim, true);
  KVO_SETTING(Boolean, AnimFS, false);
  KVO_SAVED_SETTING(Integer, DelayTimer, 0);
  KVO_SETTING(Long, ShowVids, 0);  // flag
  KVO_SETTING(Long, ScrMarq, 0);   // flag
  KVO_SETTING(std::string, DefZoom, "100");
  KVO_SETTING(std::string, SkinPath, );
  KVO_SETTING(std::string, CDROMDrive, );
  KVO_SETTING(Long, ToolTipsOn, 0);  // flag
  KVO_SAVED_SETTING(std::string, DisplayColor, "&H00FF0000&");
  KVO_SETTING(Long, AcceptedAgreement, -1);  // flag
  KVO_SAVED_SETTING(std::string, JoinSaveAs, );
  KVO_SAVED_SETTING(std::string, LoadFrom, );
  KVO_SETTING(Long, NoofUses, 0);
  KVO_SETTING(Boolean, IsDirty, false);
  KVO_SETTING(Value, TextFont, "Ariel");
  KVO_SETTING(Value, TextStyle, "Regular");
  KVO_SETTING(std::string, TextColor, "&H00FF0000&");
  KVO_SETTING(Value, TextSize, 10);
  KVO_SETTING(Boolean, ShowPlayList, true);
  KVO_SETTING(Boolean, UseWMPfirst, false);
  KVO_SETTING(std::string, TitleDispClr, "65280");
  KVO_SETTING(std::string, SkinLoadfrom, );
  KVO_SETTING(Boolean, HideKVOOnWebshow, false);
  KVO_SETTING(Integer, CDDBMode, 1);
  KVO_SETTING(Long, ModemType, 350);
  KVO_SETTING(Integer, MouseWheelControl, 2);
  KVO_SETTING(double, ScrollDelay, 0.2);  // seconds

  // Stills and output
  KVO_SETTING(Single, DefaultStillFrameRate, 0);
  KVO_SETTING(Single, DefaultStillDuration, 7);  // seconds
  KVO_SETTING(Boolean, StillsIndividual, false);
  KVO_SAVED_SETTING(Integer, OutputResolution, 8);
  KVO_SAVED_SETTING(Single, OutPutFrameRate, 25);    // frames a second
  KVO_SAVED_SETTING(Integer, OutputColorDepth, 24);  // bits: 16, 24 or 32
  KVO_SAVED_SETTING(Integer, PreviewType, 0);
  KVO_SETTING(Boolean, ShowFrameOrTime, false);
  KVO_SAVED_SETTING(std::string, ExternalOverlayTrackName, );
  KVO_SAVED_SETTING(Boolean, DubInPlaylistAudioTrks, false);
  KVO_SAVED_SETTING(Boolean, ExternalAudioStack, true);
  KVO_SETTING(Integer, RenderHeight, 320);
  KVO_SETTING(Integer, RenderWidth, 240);
  KVO_SETTING(std::string, ColLoadFrom, );
  KVO_SAVED_SETTING(Single, FadInVal, 0.5F);   // seconds
  KVO_SAVED_SETTING(Single, FadOutVal, 0.5F);  // seconds
  KVO_SAVED_SETTING(Integer, PreviewCPU, 5);   // power value 1 to 10
  KVO_SETTING(Boolean, ShuttleProInstalled, false);
  KVO_SETTING(Boolean, RenderVideoAudio, true);
  KVO_SETTING(Boolean, AutoTrimAudio, true);
  KVO_SAVED_SETTING(Single, TrackFadeInOut, 4);
  KVO_SETTING(Boolean, ApplyOverlayFadeInOut, false);
  KVO_SETTING(Boolean, GlobalTransitions, true);
  KVO_SAVED_SETTING(Single, VideoTrackFadeAmt, 10);  // tenths of a second
  KVO_SETTING(Integer, ObjectChange, 0);             // change code
  KVO_SETTING(Boolean, AllDetOff, false);
  KVO_SETTING(Boolean, ShowFillist, false);
  KVO_SETTING(Boolean, ShowCaps, false);
  KVO_SETTING(Integer, InterClipDelay, 0);
  KVO_SETTING(Integer, WheelTripPlay, 7);
  KVO_SETTING(Integer, EncodeProfiletoUse, 1);
  KVO_SETTING(Integer, FileToEncodeLength, 0);
  KVO_SETTING(Boolean, RenderEffects, true);
  KVO_SETTING(Boolean, RenderTransitions, true);
  KVO_SETTING(Integer, RenderEstimateSecs, 5);
  KVO_SETTING(Boolean, OutputWarningsOn, true);
  KVO_SETTING(Integer, KeyframeMode, 0);
  KVO_SETTING(Integer, KeyframeEffectNo, 0);
  KVO_SETTING(Long, KeyframeCount, 0);
  KVO_SETTING(Boolean, KeyframePreview, false);
  KVO_SETTING(Single, PreviewFrameRate, 0);
  KVO_SETTING(std::string, DirectXPrebuffer, "30");
  KVO_SETTING(double, TimeLineVideoTotTime, 0);  // seconds
  KVO_SETTING(Boolean, OutputGRF, false);

  // Particles
  KVO_SETTING(Integer, MaxParticles, 64);
  KVO_SETTING(Integer, ParticleMotionSpeed, 35);
  KVO_SETTING(Integer, ParticleSpinSpeed, 10);
  KVO_SETTING(std::string, GrfFileName, );
  KVO_SETTING(Boolean, UseParticleDefaults, true);
  KVO_SETTING(Single, PartExponentialProgressDuration, 0.9F);
  KVO_SETTING(Single, PartExponentialProgressScale, 0.25F);

  // Preview, waveform, editor
  KVO_SETTING(Boolean, IsPreviewRunning, false);
  KVO_SETTING(Boolean, WavSpikesOn, false);
  KVO_SETTING(std::string, CurrentWaveForm, );
  KVO_SETTING(Integer, WavPollFreq, 0);
  KVO_SETTING(Integer, WavSampleFreq, 0);
  KVO_SETTING(Boolean, RenderDiskWarning, true);
  KVO_SETTING(Boolean, RenderTimeWarning, true);
  KVO_SETTING(Boolean, RenderAutoView, false);
  KVO_SETTING(Long, WavPicWidth, 0);
  KVO_SETTING(Boolean, KVOIsInEditMode, false);
  KVO_SETTING(Boolean, KVOFastEdit, false);
  KVO_SETTING(Boolean, AutoStartKeyFramePreviews, false);
  KVO_SETTING(std::string, StillSavePath, );
  KVO_SETTING(std::string, Instructs, );
  KVO_SETTING(Integer, CurrTVChannel, 0);
  KVO_SETTING(Boolean, EditorFramesizeWarn, false);
  KVO_SETTING(Boolean, EditorMorphMode, false);

  // Per user: with a store attached each read sees what any copy of the program wrote last. The collection
  // file only mirrors these.
  KVO_USER_SETTING(Boolean, ShowWavWithVideo, "ShowWavWithVideo", false);
  KVO_USER_SETTING(Integer, SliderSpeed, "SliderSpeed", 450);  // milliseconds
  KVO_USER_SETTING(Boolean, DefaultZoom100, "DefaultZoom100", false);
  KVO_USER_SETTING(Boolean, MPEGRoutingVMR, "MPEGRoutingVMR", false);
  KVO_USER_SETTING(Boolean, SliderPauseOnRepo, "SliderPauseOnRepo", false);
  KVO_USER_SETTING(Boolean, RewAtEnd, "RewAtEnd", false);
  KVO_USER_SETTING(Boolean, LoopPreviews, "LoopPreviews", false);
  KVO_USER_SETTING(Boolean, LoopCol, "LoopCol", false);
  KVO_USER_SETTING(Integer, StillDelayTimer, "Stilldelay", 7);  // seconds

 public:
  /// Where the per-user values are kept, not owned; null keeps them in memory.
  void attach(UserStore* store) { store_ = store; }

 public:
  /// The change code becomes `code` if it is below `below` now.
  void postChange(Integer code, Integer below) {
    if (fieldObjectChange < below) fieldObjectChange = code;
  }

 private:
  // The value in the store; one that is missing is written with its default.
  template <class Type>
  [[nodiscard]] Type fromStore(std::string_view name, Type inMemory, Type otherwise) const {
    if (store_ == nullptr) return inMemory;
    const auto text = store_->read(name);
    if (text.empty()) store_->write(name, fieldText(otherwise));
    takeField(otherwise, text);
    return otherwise;
  }

  UserStore* store_ = nullptr;
};

#undef KVO_SETTING
#undef KVO_SAVED_SETTING
#undef KVO_USER_SETTING

}  // namespace kvo
