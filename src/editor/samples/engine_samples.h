// Moving samples painted by the engine on a thread of its own: what is asked for last comes first. They show
// clips of the collection, and plain colours until these are there.
#pragma once

#include "editor/samples/sample_art.h"
#include "editor/tabs/moving_samples.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace kvo {

class EngineSamples final : public MovingSamples {
 public:
  /// `come` is called on the samples' own thread behind each picture. What the art asks and `streams` outlive
  /// the object; the collection is read while a picture is asked for.
  EngineSamples(SampleArt art, MediaContents& streams, std::function<void()> come,
                std::function<bool()> areCalm = {});
  ~EngineSamples() override;

  Picture picture(std::string_view name, int step) override;
  [[nodiscard]] int revision() const override { return revision_; }
  [[nodiscard]] bool areCalm() const override { return areCalm_ && areCalm_(); }

 private:
  using Wanted = std::pair<std::string, int>;  // name and step
  struct Prepared {
    std::string name;
    PaintStep paint;
  };

  void follow();
  void work(const std::stop_token& stopped);
  void make(const Wanted& wanted, SamplePlaces places);
  const FramePicture& ground(std::size_t index);

  SampleArt art_;
  MediaContents& streams_;
  std::function<void()> come_;
  std::function<bool()> areCalm_;
  std::atomic<int> revision_ = 0;

  std::mutex mutex_;  // guards what follows
  std::condition_variable_any asked_;
  SamplePlaces places_;
  std::map<Wanted, Picture> done_;  // null where it failed, or is being made
  std::vector<Wanted> waiting_;     // the next is the last

  // The thread's own: the pictures of the places, and what is painted with them.
  SamplePlaces drawn_;
  std::map<std::size_t, FramePicture> ground_;
  Prepared prepared_;

  std::jthread thread_;  // ends ahead of all that it uses
};

}  // namespace kvo
