// KVO2: every preference and the run-time state that rooms share, as named fields in three structs. The
// preferences travel with the collection file; opening another collection replaces those that it has. The
// per-user values stay with the user. The run-time state is never kept. A fresh object holds the values that
// apply when a file has no section for them.
#pragma once

#include "core/records/field_types.h"
#include "ports/user_store.h"

#include <string>
#include <string_view>
#include <utility>

namespace kvo {

/// The preferences of which each change is a change of the collection: they are reached by KVO2::change().
struct MarkingPreferences {
  std::string DefaultStartupVid;
  Integer MoviesInGroup = 0;
  Boolean MuteAtStart = false;
  Integer DelayTimer = 0;
  std::string DisplayColor = "&H00FF0000&";
  std::string JoinSaveAs;
  std::string LoadFrom;
  Integer OutputResolution = 8;
  Single OutPutFrameRate = 25;    ///< frames a second
  Integer OutputColorDepth = 24;  ///< bits: 16, 24 or 32
  Integer PreviewType = 0;
  std::string ExternalOverlayTrackName;  ///< the one that the file does not hold
  Boolean DubInPlaylistAudioTrks = false;
  Boolean ExternalAudioStack = true;
  Single FadInVal = 0.5F;   ///< seconds
  Single FadOutVal = 0.5F;  ///< seconds
  Integer PreviewCPU = 5;   ///< power value 1 to 10
  Single TrackFadeInOut = 4;
  Single VideoTrackFadeAmt = 10;  ///< tenths of a second
};

/// The others: who changes one says whether the collection is to be offered for saving.
struct QuietPreferences {
  // Program and user
  std::string ProgramVersion;
  Boolean ShowAnimtext = false;
  Boolean AnimMovRand = true;
  std::string RunMode = "CREATOR";
  std::string ErrorLog;
  Value SoundCard;
  std::string Support;
  std::string UserName = "Unknown";
  std::string Organisation = "Unknown";
  std::string ReplyTo;
  std::string Email = "Unknown";
  Boolean ShowSplash = false;
  Boolean CDAutoAnim = true;
  Boolean AnimFS = false;
  Long ShowVids = 0;  ///< flag
  std::string DefZoom = "100";
  std::string SkinPath;
  Long AcceptedAgreement = kFlagOn;  ///< flag
  Long NoofUses = 0;
  Value TextFont{"Ariel"};
  Value TextStyle{"Regular"};
  std::string TextColor = "&H00FF0000&";
  Value TextSize{10};
  Boolean ShowPlayList = true;
  Boolean UseWMPfirst = false;
  std::string TitleDispClr = "65280";
  Integer CDDBMode = 1;
  Long ModemType = 350;
  Integer MouseWheelControl = 2;
  double ScrollDelay = 0.2;  ///< seconds

  // Stills and output
  Boolean StillsIndividual = false;
  Integer RenderHeight = 320;
  Integer RenderWidth = 240;
  std::string ColLoadFrom;
  Boolean RenderVideoAudio = true;
  Boolean AutoTrimAudio = true;
  Boolean ApplyOverlayFadeInOut = false;
  Boolean GlobalTransitions = true;
  Integer WheelTripPlay = 7;
  Integer EncodeProfiletoUse = 1;
  Integer RenderEstimateSecs = 5;
  Boolean OutputWarningsOn = true;
  Long KeyframeCount = 0;
  std::string DirectXPrebuffer = "30";
  Boolean OutputGRF = false;

  // Particles
  Integer MaxParticles = 64;
  Integer ParticleMotionSpeed = 35;
  Integer ParticleSpinSpeed = 10;
  std::string GrfFileName;
  Boolean UseParticleDefaults = true;
  Single PartExponentialProgressDuration = 0.9F;
  Single PartExponentialProgressScale = 0.25F;

  // Renders and the editor
  Boolean RenderDiskWarning = true;
  Boolean RenderTimeWarning = true;
  Boolean RenderAutoView = false;
  Boolean KVOFastEdit = false;
  Boolean AutoStartKeyFramePreviews = false;
  std::string StillSavePath;
};

/// What the head of a collection file holds.
struct Preferences : MarkingPreferences, QuietPreferences {};

/// A per-user value: with a store attached each read sees what any copy of the program wrote last, and one
/// that is missing is written with its default.
template <class Type>
class UserValue {
 public:
  UserValue(UserStore* const& store, std::string_view name, Type otherwise)
      : store_(store), name_(name), otherwise_(otherwise), inMemory_(otherwise) {}
  UserValue(const UserValue&) = delete;
  UserValue& operator=(const UserValue&) = delete;

  operator Type() const {
    if (store_ == nullptr) return inMemory_;
    const auto text = store_->read(name_);
    if (text.empty()) store_->write(name_, fieldText(otherwise_));
    auto value = otherwise_;
    takeField(value, text);
    return value;
  }
  UserValue& operator=(Type value) {
    inMemory_ = value;
    if (store_ != nullptr) store_->write(name_, fieldText(value));
    return *this;
  }

 private:
  UserStore* const& store_;
  std::string_view name_;  // in the store
  Type otherwise_;
  Type inMemory_;
};

/// What is the user's and no collection's; the collection file only mirrors it.
class UserValues {
  UserStore* store_ = nullptr;

 public:
  UserValue<Boolean> ShowWavWithVideo{store_, "ShowWavWithVideo", false};
  UserValue<Integer> SliderSpeed{store_, "SliderSpeed", 450};  ///< milliseconds
  UserValue<Boolean> DefaultZoom100{store_, "DefaultZoom100", false};
  UserValue<Boolean> MPEGRoutingVMR{store_, "MPEGRoutingVMR", false};
  UserValue<Boolean> SliderPauseOnRepo{store_, "SliderPauseOnRepo", false};
  UserValue<Boolean> RewAtEnd{store_, "RewAtEnd", false};
  UserValue<Boolean> LoopPreviews{store_, "LoopPreviews", false};
  UserValue<Boolean> LoopCol{store_, "LoopCol", false};
  UserValue<Integer> StillDelayTimer{store_, "Stilldelay", 7};           ///< seconds
  UserValue<Boolean> PlayWithoutGaps{store_, "PlayWithoutGaps", false};  ///< the waits between clips are off
  UserValue<double> InterfaceSize{store_, "InterfaceSize", 0};  ///< 1, 1.25, 1.5 or 2; 0 goes by the screen
  UserValue<Boolean> OfferResume{store_, "OfferResume", true};  ///< to go on where a long clip was left

  /// Where the values are kept, not owned; null keeps them in memory.
  void attach(UserStore* store) { store_ = store; }
};

/// What is never kept.
struct RunState {
  Boolean IsDirty = false;      ///< the preferences or the list differ from the file
  Boolean ListIsDirty = false;  ///< the list does by what can be undone
  Integer ObjectChange = 0;     ///< change code

  /// The change code becomes `code` if it is below `below` now.
  void postChange(Integer code, Integer below) {
    if (ObjectChange < below) ObjectChange = code;
  }

  Long ScrMarq = 0;  ///< flag
  std::string CDROMDrive;
  Long ToolTipsOn = 0;  ///< flag
  std::string SkinLoadfrom;
  Boolean HideKVOOnWebshow = false;
  Single DefaultStillFrameRate = 0;
  Single DefaultStillDuration = 7;  ///< seconds
  Boolean ShowFrameOrTime = false;
  Boolean ShuttleProInstalled = false;
  Boolean AllDetOff = false;
  Boolean ShowFillist = false;
  Boolean ShowCaps = false;
  Integer InterClipDelay = 0;  ///< seconds
  Integer FileToEncodeLength = 0;
  Boolean RenderEffects = true;
  Boolean RenderTransitions = true;
  Integer KeyframeMode = 0;
  Integer KeyframeEffectNo = 0;
  Boolean KeyframePreview = false;
  Single PreviewFrameRate = 0;
  double TimeLineVideoTotTime = 0;  ///< seconds
  Boolean IsPreviewRunning = false;
  Boolean WavSpikesOn = false;
  std::string CurrentWaveForm;
  Integer WavPollFreq = 0;
  Integer WavSampleFreq = 0;
  Long WavPicWidth = 0;
  Boolean KVOIsInEditMode = false;
  std::string Instructs;
  Integer CurrTVChannel = 0;
  Boolean EditorFramesizeWarn = false;
  Boolean EditorMorphMode = false;
};

class KVO2 {
 public:
  [[nodiscard]] const Preferences& preferences() const { return preferences_; }

  /// To write those of which a change is a change of the collection: asking for them marks it as changed.
  MarkingPreferences& change() {
    state.IsDirty = true;
    return preferences_;
  }

  /// To write the others.
  QuietPreferences& adjust() { return preferences_; }

  UserValues user;
  RunState state;

 private:
  Preferences preferences_;
};

}  // namespace kvo
