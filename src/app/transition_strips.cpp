#include "app/transition_strips.h"

#include "editor/compiler/sample_documents.h"
#include "engine/run/strip.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace kvo {
namespace {

constexpr double kSeconds = 1;  // that a transition of a tile lasts
constexpr Single kSampleRate = 10;
constexpr int kSampleDepth = 24;

}  // namespace

TransitionStrips::TransitionStrips(Session& session, EventLoop& loop, std::function<void()> came)
    : session_(session),
      came_(std::move(came)),
      maker_(
          loop, [](const Wish& wish) { return engine::drawStrip(wish.document, kTransitionSampleSteps); },
          [this](const Wish& wish, const Result<std::vector<FramePicture>>& frames) {
            arrived(wish, frames);
          }) {}

// Two clips by their files and sections; another section is another sample.
std::string TransitionStrips::clipsInHand() const {
  const auto& clips = session_.collection.MovieList;
  const int number = session_.collection.icurMov;
  std::string key;
  for (int i = std::max(1, number - 1); i >= 1 && i <= std::min(number, clips.count()); ++i)
    key += clipFile(clips[i]) + "|" + clips[i].LoopStart().text() + "|" + clips[i].LoopEnd().text() + "|";
  return key;
}

TransitionSamples::Picture TransitionStrips::picture(std::string_view name, int step) {
  if (auto clips = clipsInHand(); clips != clips_) {
    clips_ = std::move(clips);
    strips_.clear();
    wanted_.clear();
    atWork_.clear();
    ++revision_;
  }
  if (clips_.empty()) return nullptr;
  if (const auto found = strips_.find(name); found != strips_.end()) {
    const auto& strip = found->second;
    const auto index = static_cast<std::size_t>(std::clamp(step, 0, kTransitionSampleSteps - 1));
    return index < strip.size() ? strip[index] : nullptr;
  }
  if (name != atWork_ && std::ranges::find(wanted_, name) == wanted_.end()) wanted_.emplace_back(name);
  if (atWork_.empty()) makeNext();
  return nullptr;
}

void TransitionStrips::makeNext() {
  atWork_.clear();
  if (wanted_.empty()) return;
  atWork_ = std::move(wanted_.back());
  wanted_.pop_back();
  maker_.want(Wish{clips_, atWork_, document(atWork_)});
}

std::string TransitionStrips::document(const std::string& name) const {
  const auto& from = session_.collection;
  Collection two;
  for (int i = std::max(1, from.icurMov - 1); i <= from.icurMov; ++i) {
    auto& clip = two.MovieList.add(from.MovieList[i]);
    clip.listener(nullptr);
    clip.EffectWord("");
  }
  auto& clip = two.MovieList[two.MovieList.count()];
  clip.TransType(name);
  clip.TransIn(static_cast<Single>(kSeconds * 10));
  auto options = renderOptions(session_.settings, session_.folder.beside("\\silence.wav"));
  options.output.depth = kSampleDepth;
  options.output.rate = kSampleRate;
  return transitionSample(two, two.MovieList.count(), options, {session_.streams, session_.editor.effects},
                          kSeconds)
      .text;
}

void TransitionStrips::arrived(const Wish& wish, const Result<std::vector<FramePicture>>& frames) {
  if (wish.clips != clips_) {
    if (wish.name == atWork_) makeNext();
    return;
  }
  auto& strip = strips_[wish.name];  // stays empty where nothing can be drawn
  if (frames) {
    for (const auto& frame : *frames) strip.push_back(std::make_shared<const FramePicture>(frame));
  }
  ++revision_;
  makeNext();
  came_();
}

}  // namespace kvo
