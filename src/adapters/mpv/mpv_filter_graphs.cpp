#include "adapters/mpv/mpv_filter_graphs.h"

#include "adapters/mpv/mpv_engine.h"
#include "base/guarded.h"

#include <functional>
#include <utility>

namespace kvo {
namespace {

class MpvFilterGraph : public MpvEngine<FilterGraph> {
 public:
  MpvFilterGraph(MpvStage& stage, std::unique_ptr<MpvFile> opened) : MpvEngine(stage) {
    hold(std::move(opened));
    file()->hear(
        [this] {
          if (atStopTime_) atStopTime_();
        },
        {});
  }

  [[nodiscard]] double stopTime() const override { return stopTime_ < 0 ? duration() : stopTime_; }
  void setStopTime(double seconds) override {
    stopTime_ = seconds;
    file()->setEnd(seconds);
  }

  void whenAtStopTime(std::function<void()> heard) override { atStopTime_ = std::move(heard); }

 private:
  std::function<void()> atStopTime_;
  double stopTime_ = -1;  // below 0 until it is told
};

}  // namespace

Result<std::unique_ptr<FilterGraph>> MpvFilterGraphs::RenderFile(const std::string& file) {
  std::unique_ptr<MpvFile> opened;
  const auto taken = guarded([&]() -> Outcome {
    opened = stage_.take(file);
    return {};
  });
  if (!taken) return taken.error();
  opened->waitUntilOpen();
  if (opened->opening() != EngineOpening::Open) {
    auto fault = Error{opened->fault()};
    stage_.giveBack(std::move(opened));
    return fault;
  }
  return std::unique_ptr<FilterGraph>(std::make_unique<MpvFilterGraph>(stage_, std::move(opened)));
}

}  // namespace kvo
