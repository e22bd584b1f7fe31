// A movie made from the window: the options, a short render that time and size are reckoned from, warnings,
// the render with its countdown, and the report.
#pragma once

#include "editor/tabs/create_tab.h"
#include "editor/tabs/editing.h"
#include "ports/file_dialogs.h"
#include "render/estimate.h"
#include "render/render_driver.h"
#include "render/render_host.h"
#include "render/render_state.h"
#include "render/slumber.h"
#include "render/system_profile.h"

#include <functional>
#include <optional>
#include <string>
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
  /// Back to the tab.
  void leave();

  /// KVOBut_WriteMovie: asks for a name and makes the movie; comes back when all is over. With
  /// `PicInPicDocumentReady` the document is the one that stands beside the program. Nothing happens while
  /// one is being made.
  void WriteRenderMovie(bool PicInPicDocumentReady = false);

  /// KVOBut_AbortRender: ends what runs; the movie is not made, and what had its name stays.
  void AbortRender();

  /// To be called when the program starts: brings back what a killed render has left out of its place.
  void mend() { profile_.mend(); }

 private:
  struct Job {
    std::string document;
    OutputKind kind = OutputKind::Wmv;  ///< that the user gets
    int profile = kNoProfile;
    std::string file;     ///< that the user has named
    std::string working;  ///< beside it
    std::optional<std::pair<double, double>> range;
    double length = 0;  ///< seconds of the movie that are rendered
    EstimateQuery query;
    [[nodiscard]] bool audioOnly() const { return kind == OutputKind::Wav; }
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
  bool askForName(Job& job);
  [[nodiscard]] bool isOneOfTheClips(const std::string& file) const;
  bool makeMovie(Job& job);
  Estimate CalcEstimateTimeTotRender(const Job& job);
  [[nodiscard]] int estimateLimit() const;
  bool warn(double megabytes);
  bool renderAll(const Job& job);
  void report(const Job& job, double seconds);
  void restore(const Job& job);

  // False, with a box, when the engine could not be started; without one when the user has given up.
  bool DoRender(const Job& job, const Part& part);
  bool takeProfile(const Job& job, RenderOrder& order);
  bool Shell32Bit(const RenderOrder& order, int MaxSeconds);
  void endEngine();
  void mobjSlumber_Slumber(int MaxSeconds);
  void hearEngine();
  bool tellFailure();
  void keepFolder();

  bool confirmed(const StyledBox& box, bool& neverAgain);
  void show(RenderFrame frame);
  void describe();
  [[nodiscard]] OutputSize outputSize() const;
  [[nodiscard]] std::string collectionName() const;

  Ports ports_;
  RenderState& state_;
  SystemProfile profile_;
  clsSlumber mobjSlumber_;
  SteadyTimeLeft timeLeft_;
  RenderDriver driver_;
};

}  // namespace kvo
