#include "adapters/posix/process_mail.h"

#include <iterator>

namespace kvo {
namespace {

constexpr std::size_t kMaxWaiting = 4096;  // words

}  // namespace

void ProcessMail::post(std::vector<ProcessWord> words) {
  if (words.empty()) return;
  std::unique_lock lock(mutex_);
  room_.wait(lock, [this] { return closed_ || waiting_.size() < kMaxWaiting; });
  if (closed_) return;
  const auto count = words.size();
  std::move(words.begin(), words.end(), std::back_inserter(waiting_));
  // A piece of posted work delivers as many as came with it, so that one who prints without end does not keep
  // the loop from other work.
  loop_.post([mail = shared_from_this(), count] { mail->deliver(count); });
}

void ProcessMail::close() {
  {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    waiting_.clear();
  }
  room_.notify_all();
}

void ProcessMail::deliver(std::size_t count) {
  for (; count > 0; --count) {
    const auto word = next();
    if (!word) return;
    hear(*word);
  }
}

// From the front, one at a time: who hears it may yield, which delivers the next ones, or close.
std::optional<ProcessWord> ProcessMail::next() {
  std::optional<ProcessWord> word;
  {
    const std::lock_guard lock(mutex_);
    if (waiting_.empty()) return word;
    word = std::move(waiting_.front());
    waiting_.pop_front();
  }
  room_.notify_all();
  return word;
}

void ProcessMail::hear(const ProcessWord& word) const {
  if (const auto* end = std::get_if<ProcessEnd>(&word)) return hearing_.ended(*end);
  const auto& line = std::get<OutputLine>(word);
  (line.isError ? hearing_.errorLine : hearing_.line)(line.text);
}

}  // namespace kvo
