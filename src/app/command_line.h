// The command line of the program where it works without a screen.
#pragma once

#include "base/result.h"
#include "engine/run/renderer.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

enum class Task {
  Help,
  Version,
  Gallery,
  Render,
  Check,
  Document,
  Queue,
  Presets,
  Add,
  Look,    ///< the program's own: it looks into files for another copy
  Sketch,  ///< likewise: it makes small pictures of them
};

/// What is asked of the queue of renders.
enum class QueueAct { Add, List, Pause, Resume, Remove, Clear, Move, Run };

struct CommandLine {
  Task task = Task::Help;
  std::string collection;
  std::string output;
  std::vector<std::string> names;  ///< that are to be added
  std::optional<engine::Slice> range;
  std::optional<PictureSides> size;
  std::optional<double> rate;       ///< frames a second
  std::optional<int> previewPower;  ///< of --document, 1 to 10
  std::string codec;                ///< a word of codecWord; empty for the kind's own
  std::optional<int> profile;       ///< of a WMV or WMA, 0 to 41
  const MoviePreset* preset = nullptr;
  int quality = 0;       ///< on the codec's own scale; 0 for the usual
  std::string effort;    ///< one of effortWords(); empty for the usual
  double megabytes = 0;  ///< that an MP4 is not to exceed; 0 for no limit
  EncoderWish encoder = EncoderWish::Software;
  int slurmJobs = 0;  ///< that a cluster makes the segments by; 0 for this machine alone
  QueueAct queueAct = QueueAct::List;
  int queueNumber = 0;  ///< of the job that is meant
  int queuePlace = 0;   ///< that it is moved to, from 1
  bool resume = false;  ///< finished segments are kept, and those that are there are taken
};

/// True when the arguments ask for something else than the main window: a long option comes first.
bool isConsoleCommand(const std::vector<std::string>& arguments);

/// Fails with a line on what is wrong with the arguments (without the program's name).
Result<CommandLine> readCommandLine(const std::vector<std::string>& arguments);

std::string_view helpText();

}  // namespace kvo
