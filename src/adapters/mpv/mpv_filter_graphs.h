// The engine that is made for one clip, on libmpv.
#pragma once

#include "adapters/mpv/mpv_stage.h"
#include "ports/filter_graph.h"

#include <memory>
#include <string>

namespace kvo {

class MpvFilterGraphs : public FilterGraphs {
 public:
  /// `stage` outlives the graphs.
  explicit MpvFilterGraphs(MpvStage& stage) : stage_(stage) {}

  Result<std::unique_ptr<FilterGraph>> RenderFile(const std::string& file) override;
  void openAhead(const std::string& file, double seconds) override { stage_.openAhead(file, seconds); }

 private:
  MpvStage& stage_;
};

}  // namespace kvo
