// A movie made from the window: the options, a short render that time and size are reckoned from, warnings,
// the render with its countdown, and the report.
#pragma once

#include "editor/compiler/picture_in_picture.h"
#include "editor/tabs/create_tab.h"
#include "editor/tabs/editing.h"
#include "ports/file_dialogs.h"
#include "ports/long_work.h"
#include "ports/user_store.h"
#include "render/estimate.h"
#include "render/render_driver.h"
#include "render/render_host.h"
#include "render/render_state.h"
#include "render/slumber.h"
#include "render/system_profile.h"
#include "vocabulary/encode_profiles.h"
#include "vocabulary/movie_presets.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kvo {

class MovieRender {
 public:
  struct Ports {
    const Editing& editing;
    const CreateTab& create;  ///< the range
    FileDialogs& dialogs;
    NameLocks& locks;
    RenderDriver::Ports engine;
    /// Room on the disk that a file is on, in megabytes of 1024 * 1024 bytes.
    std::function<double(const std::string& file)> freeMegabytes;
    RenderHost& host;
    UserStore& store;  ///< keeps what was used last
    LongWork& work;
    std::function<std::string()> moviesFolder;  ///< where the first movie is proposed
    /// Puts a render into the queue, with the bytes of a profile file of its own if it has one.
    std::function<Result<int>(const std::string& title, const RenderOrder& order, const std::string& profile)>
        enqueue{};
    /// Finds out, by and by, whether an encoder of a device works, and tells hearHardware().
    std::function<void()> findHardware{};
  };

  /// All of it outlives the object, which writes `state` and calls the host behind each change of it.
  MovieRender(const Ports& ports, RenderState& state);

  /// Cmd_RendertoFile: shows the options. Without a clip a box says that there is nothing to create.
  void Rendertofile();

  /// Opt_CompressorType: the list of profiles goes with it.
  void chooseKind(OutputKind kind);
  /// A row of Lst_WMVFormats. A side of the output that is odd is told.
  void chooseProfile(int row);
  void tickCodecDimensions(bool on);
  /// A row of Lst_MadeFor.
  void chooseMadeFor(int row);
  /// What a movie that keeps within a size may have, in megabytes; brought to what is in range.
  void wishMegabytes(int megabytes);
  void tickHardware(bool on);
  /// Whether an encoder of a device works here.
  void hearHardware(bool works);
  /// Back to the tab: KVOBut1_CancelRenderPicInPic as well.
  void leave();

  /// KVOBut_RenderPinP: shows what the clip of a backdrop and its overlay is going to be. A backdrop without
  /// one has none. `wanted` tells which sound goes into it.
  void RenderPinP(int backdropNo, const PicInPicOptions& wanted);
  /// KVOBut_RenderNewPicInPic: writes the document of the two and makes the clip.
  void RenderNewPicInPic();

  /// The movie of the report joins the collection and is shown.
  void view();

  /// KVOBut_WriteMovie: asks for a name and makes the movie; comes back when all is over. With
  /// `PicInPicDocumentReady` the document is the one that stands beside the program. Nothing happens while
  /// one is being made.
  void WriteRenderMovie(bool PicInPicDocumentReady = false);

  /// KVOBut_AddToQueue: asks for a name, and has the queue make the movie as it is now.
  void AddToQueue();

  /// KVOBut_AbortRender: ends what runs; the movie is not made, and what had its name stays.
  void AbortRender();
  /// Whether there is anything left to abort. Behind the engine's end there is a movie whose first part it
  /// has made, and a WAV that is taken from its sound; else not, though the flow comes to hear of that only
  /// when a box above it has been answered.
  [[nodiscard]] bool canAbort() const;

  /// To be called when the program starts: what a killed render has left beside its movie goes.
  void sweep();

 private:
  struct Job {
    bool isPicInPic = false;
    std::string document;
    OutputKind kind = OutputKind::Wmv;  ///< that the user gets
    int profile = kNoProfile;
    const MoviePreset* preset = nullptr;  ///< null for none
    double megabytes = 0;                 ///< of 1,000,000 bytes, not to be exceeded; 0 for no limit
    bool inHardware = false;              ///< where that works
    std::string file;                     ///< that the user has named
    std::string working;                  ///< beside it
    std::optional<std::pair<double, double>> range{};
    double length = 0;  ///< seconds of the movie that are rendered
    EstimateQuery query;
    [[nodiscard]] bool audioOnly() const { return kind == OutputKind::Wav; }
  };
  struct Pair {
    int backdropNo = 0;
    PicInPicOptions wanted;
  };
  struct Part {
    std::string OutFile;
    double RangeStart = 0;
    double RangeStop = 0;
    int MaxSeconds = 0;
  };
  enum class Estimate { Failed, DiskShort, GoOn };

  // The flow, in its order.
  bool readJob(bool ready, Job& job);
  bool readDocument(bool ready, Job& job);
  void readLengths(Job& job) const;
  [[nodiscard]] double pairLength() const;
  bool askForName(Job& job);
  [[nodiscard]] bool isFree(const std::string& file) const;
  [[nodiscard]] bool mayBe(const std::string& file) const;
  [[nodiscard]] bool isThere(std::string_view folder) const;
  [[nodiscard]] bool isOneOfTheClips(const std::string& file) const;
  bool makeMovie(Job& job);
  Estimate CalcEstimateTimeTotRender(const Job& job);
  [[nodiscard]] int estimateLimit() const;
  bool warn(double megabytes);
  bool renderAll(const Job& job);
  bool offerView(const Job& job);
  void report(const Job& job, double seconds);
  void restore(const Job& job);
  void tellEnd(const std::string& text, double took);

  // False, with a box, when the engine could not be started; without one when the user has given up.
  bool DoRender(const Job& job, const Part& part);
  bool takeProfile(const Job& job, RenderOrder& order);
  [[nodiscard]] std::optional<RenderOrder> orderOf(
      const Job& job, const std::string& output, const std::optional<std::pair<double, double>>& range) const;
  [[nodiscard]] std::optional<OutputSize> profileSize() const;
  static void takePreset(const Job& job, RenderOrder& order);
  bool Shell32Bit(const RenderOrder& order, int MaxSeconds);
  void endEngine();
  void mobjSlumber_Slumber(int MaxSeconds);
  void hearEngine();
  void askAboutSilence();
  bool tellFailure();
  void keepFolder();
  void changed();

  // What is remembered.
  void recall();
  void remember(const Job& job);
  void rememberPair(const std::string& file);
  [[nodiscard]] bool isRendered(const Movie& backdrop) const;
  [[nodiscard]] std::string pairMark(const Movie& backdrop) const;
  [[nodiscard]] int overlayCount() const;
  void note(const std::string& working);
  void forget(const std::string& working);

  // The lines that the frames tell.
  void tellOptions();
  void tellPair();
  void findCaution();
  void tellWork();
  void takeFilm(const Job& job);
  [[nodiscard]] std::string formOf(const Job& job) const;
  [[nodiscard]] std::string clipAt(double seconds) const;

  bool confirmed(const StyledBox& box, bool& neverAgain);
  void show(RenderFrame frame);
  void showOptions(bool ofPicInPic) { show(ofPicInPic ? RenderFrame::PicInPic : RenderFrame::Options); }
  void describe();
  void describeMadeFor();
  void listMadeFor();
  [[nodiscard]] std::string largerClips() const;
  [[nodiscard]] const MoviePreset* chosenPreset() const;
  [[nodiscard]] std::optional<EncodeProfile> chosenProfile() const;
  [[nodiscard]] OutputSize outputSize() const;
  [[nodiscard]] PictureSides pictureSides() const;
  [[nodiscard]] std::string collectionName() const;

  Ports ports_;
  RenderState& state_;
  SystemProfile profile_;
  clsSlumber mobjSlumber_;
  SteadyTimeLeft timeLeft_;
  Pair pair_;
  const Job* job_ = nullptr;  // that is being made
  bool wavIsToCome_ = false;  // of the sound that the engine makes
  bool hasRecalled_ = false;
  struct Choice {
    OutputKind kind = OutputKind::Mp4;
    int profileRow = -1;
    int madeForRow = -1;
  };
  /// What stands chosen for collections with a picture while one without has a WAV.
  std::optional<Choice> setAside_;
  std::string folder_;                 // of the movie that was made last
  std::string madeFile_;               // of the report
  double partStart_ = 0;               // seconds of the movie: where the engine began
  std::chrono::milliseconds begun_{};  // the engine's start
  std::chrono::milliseconds heard_{};  // its last sign of life
  std::chrono::milliseconds patience_{};
  RenderDriver driver_;
};

}  // namespace kvo
