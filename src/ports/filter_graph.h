// The port to the engine that is made for one clip: a graph of its own, which runs to its stop time and is
// thrown away.
#pragma once

#include "base/result.h"
#include "ports/media_engine.h"

#include <functional>
#include <memory>

namespace kvo {

class FilterGraph : public MediaEngine {
 public:
  /// The graph stops here by itself, and position() is then exactly this; at first the duration.
  [[nodiscard]] virtual double stopTime() const = 0;
  virtual void setStopTime(double seconds) = 0;
  /// Heard on the program's thread: it runs no longer, as it has come to its stop time.
  virtual void whenAtStopTime(std::function<void()> heard) = 0;
};

class FilterGraphs {
 public:
  FilterGraphs() = default;
  FilterGraphs(const FilterGraphs&) = delete;
  FilterGraphs& operator=(const FilterGraphs&) = delete;
  virtual ~FilterGraphs() = default;

  /// A graph that stands at the first picture of the file. Fails with a line that names the file. For a file
  /// that takes long, the program's loop runs meanwhile.
  virtual Result<std::unique_ptr<FilterGraph>> RenderFile(const std::string& file) = 0;
  /// Gets a file ready in the background that is likely to be the next, standing at `seconds`, in place of
  /// the one before; empty lets go of that.
  virtual void openAhead(const std::string& file, double seconds) = 0;
};

}  // namespace kvo
