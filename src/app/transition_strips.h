// The tiles of transitions: small moving samples of each, made from the clip in hand and the one before it,
// one at a time on a thread of its own, as they are asked for.
#pragma once

#include "app/session.h"
#include "editor/tabs/transition_samples.h"
#include "ports/event_loop.h"
#include "ports/last_wish.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

class TransitionStrips : public TransitionSamples {
 public:
  /// `came` hears when pictures have come. All of it outlives the object.
  TransitionStrips(Session& session, EventLoop& loop, std::function<void()> came);

  Picture picture(std::string_view name, int step) override;
  [[nodiscard]] int revision() const override { return revision_; }

 private:
  using Strip = std::vector<Picture>;
  struct Wish {
    std::string clips;  // that it is made of
    std::string name;
    std::string document;
  };

  [[nodiscard]] std::string clipsInHand() const;
  [[nodiscard]] std::string document(const std::string& name) const;
  void makeNext();
  void arrived(const Wish& wish, const Result<std::vector<FramePicture>>& frames);

  Session& session_;
  std::function<void()> came_;
  std::string clips_;
  std::map<std::string, Strip, std::less<>> strips_;
  std::vector<std::string> wanted_;  // the newest is made next
  std::string atWork_;
  int revision_ = 0;
  LastWish<Wish, Result<std::vector<FramePicture>>> maker_;
};

}  // namespace kvo
