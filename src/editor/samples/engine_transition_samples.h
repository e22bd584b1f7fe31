// Samples of transitions, painted by the engine on a thread of its own: what is asked for last comes first.
// They show the first two clips of the collection that have a picture, and plain colours until these are
// there.
#pragma once

#include "core/records/collection.h"
#include "editor/tabs/transition_samples.h"

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

/// A place in a file; an empty path is a plain colour.
struct SamplePlace {
  std::string path;
  double seconds = 0;
  bool operator==(const SamplePlace&) const = default;
};

class EngineTransitionSamples final : public TransitionSamples {
 public:
  /// `come` is called on the samples' own thread behind each picture. Both others outlive the object; the
  /// collection is read while a picture is asked for.
  EngineTransitionSamples(const Collection& collection, FrameSource& streams, std::function<void()> come);
  ~EngineTransitionSamples() override;

  Picture picture(std::string_view name, int step) override;
  [[nodiscard]] int revision() const override { return revision_; }

 private:
  using Wanted = std::pair<std::string, int>;  // name and step
  using Places = std::pair<SamplePlace, SamplePlace>;

  [[nodiscard]] Places placesNow() const;
  void follow();
  void work(const std::stop_token& stopped);
  void make(const Wanted& wanted, const Places& places);
  [[nodiscard]] FramePicture pictureAt(const SamplePlace& place, bool isFirst) const;

  const Collection& collection_;
  FrameSource& streams_;
  std::function<void()> come_;
  std::atomic<int> revision_ = 0;

  std::mutex mutex_;  // guards what follows
  std::condition_variable_any asked_;
  Places places_;
  std::map<Wanted, Picture> done_;  // null where it failed, or is being made
  std::vector<Wanted> waiting_;     // the next is the last

  // The thread's own: the two pictures, and of which places they are.
  Places drawn_;
  std::pair<FramePicture, FramePicture> ground_;

  std::jthread thread_;  // ends ahead of all that it uses
};

}  // namespace kvo
