#include "editor/desk/file_watch.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kvo {
namespace {

constexpr int kLookInterval = 1500;  // milliseconds; and one more for each file, so that many cost no more

FileWatch::Paths missingOf(const Files& files, const FileWatch::Paths& wanted) {
  FileWatch::Paths missing;
  std::ranges::copy_if(wanted, std::inserter(missing, missing.end()),
                       [&](const auto& path) { return !files.exists(path); });
  return missing;
}

}  // namespace

FileWatch::FileWatch(EventLoop& loop, const Files& files, std::function<Paths()> wanted,
                     std::function<void(const Paths&)> told)
    : wanted_(std::move(wanted)),
      told_(std::move(told)),
      timer_(loop.timer([this] { look(); })),
      looks_(
          loop, [&files](const Paths& paths) { return missingOf(files, paths); },
          [this](const Paths& /*wanted*/, Paths missing) {
            if (!timer_->running() || missing == missing_) return;
            missing_ = std::move(missing);
            told_(missing_);
          }) {}

void FileWatch::look() {
  auto wanted = wanted_();
  timer_->start(kLookInterval + static_cast<int>(wanted.size()));
  looks_.want(std::move(wanted));
}

void FileWatch::watch(bool on) {
  if (on == timer_->running()) return;
  if (on) return look();
  timer_->stop();
  if (!std::exchange(missing_, {}).empty()) told_(missing_);
}

}  // namespace kvo
