#include "editor/desk/clip_files.h"

#include <chrono>
#include <utility>

namespace kvo {
namespace {

constexpr std::chrono::milliseconds kNewsEvery{50};

}  // namespace

ClipFiles::ClipFiles(EventLoop& loop, PresumedFiles& files, std::function<void(const LookedSoFar&)> told)
    : loop_(loop), files_(files), told_(std::move(told)) {}

bool ClipFiles::known(const Collection& collection) {
  std::deque<Wish> wishes;
  for (int i = 1; i <= collection.MovieList.count(); ++i) {
    auto path = clipFile(collection.MovieList[i]);
    if (known_.insert(path).second) wishes.push_back({.path = std::move(path)});
  }
  looking_ |= !wishes.empty();
  look(std::move(wishes));
  return !looking_;
}

void ClipFiles::look(std::deque<Wish> wishes) {
  if (wishes.empty()) return;
  bool mustStart = false;
  {
    const std::lock_guard lock(mutex_);
    for (auto& wish : wishes) {
      soFar_.total += wish.isTakenUp ? 0 : 1;
      waiting_.push_back(std::move(wish));
    }
    mustStart = !std::exchange(working_, true);
  }
  if (mustStart) thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
}

std::vector<std::string> ClipFiles::giveUp() {
  std::vector<std::string> left;
  {
    const std::lock_guard lock(mutex_);
    if (!now_.empty()) left.push_back(now_);
    for (auto& wish : waiting_) left.push_back(std::move(wish.path));
    waiting_.clear();
    soFar_ = {};
    ++looks_;
    for (const auto& path : left) files_.passOver(path);
  }
  passedOver_.insert(left.begin(), left.end());
  looking_ = false;
  return left;
}

void ClipFiles::takeUp(const std::string& path) {
  if (passedOver_.erase(path) != 0) look({{.path = path, .isTakenUp = true}});
}

void ClipFiles::forgetPassedOver() {
  for (const auto& path : passedOver_) known_.erase(path);
  passedOver_.clear();
}

void ClipFiles::work(const std::stop_token& stop) {
  auto told = std::chrono::steady_clock::now();
  for (;;) {
    int look = 0;
    bool isTakenUp = false;
    {
      const std::lock_guard lock(mutex_);
      if (waiting_.empty() || stop.stop_requested()) {
        working_ = false;
        return;
      }
      now_ = std::move(waiting_.front().path);
      isTakenUp = waiting_.front().isTakenUp;
      waiting_.pop_front();
      look = looks_;
    }
    files_.look(now_);
    const auto news = looked(look, isTakenUp);
    if (!news) continue;
    const auto now = std::chrono::steady_clock::now();
    if (!news->next.empty() && now - told < kNewsEvery) continue;
    told = now;
    tell(*news, look);
  }
}

// One file more is known; nothing to tell where the look has been given up meanwhile.
std::optional<LookedSoFar> ClipFiles::looked(int look, bool isTakenUp) {
  const std::lock_guard lock(mutex_);
  now_.clear();
  if (look != looks_) return std::nullopt;
  if (isTakenUp) return LookedSoFar{};
  auto news = soFar_;
  ++news.done;
  if (news.done < news.total) {
    soFar_.done = news.done;
    news.next = waiting_.empty() ? std::string() : waiting_.front().path;
  } else {
    soFar_ = {};
  }
  return news;
}

void ClipFiles::tell(LookedSoFar news, int look) {
  loop_.post([this, lives = lives_, news = std::move(news), look] {
    if (!*lives) return;
    {
      const std::lock_guard lock(mutex_);
      if (look != looks_) return;
      looking_ = soFar_.done < soFar_.total;
    }
    told_(news);
  });
}

}  // namespace kvo
