#include "render/queue/queue_store.h"

namespace kvo {
namespace {

constexpr const char* kQueueFile = "/Queue.txt";
constexpr std::uint64_t kMaxQueue = 16U << 20U;        // bytes
constexpr std::uint64_t kMaxQueuedText = 256U << 20U;  // of a document

}  // namespace

std::string QueueStore::beside(int number, const char* ending) const {
  return folder_ + "/" + std::to_string(number) + ending;
}

Result<RenderQueue> QueueStore::read() const {
  const auto path = folder_ + kQueueFile;
  if (!files_.exists(path)) return RenderQueue();
  const auto text = files_.read(path, kMaxQueue);
  if (!text) return text.error();
  return readQueue(*text);
}

Outcome QueueStore::change(const std::function<Outcome(RenderQueue&)>& change) {
  if (auto made = files_.makeFolder(folder_); !made) return made;
  const auto held = files_.lock(folder_ + "/Queue.lock");
  if (!held) return held.error();
  auto queue = read();
  if (!queue) return queue.error();
  if (auto done = change(*queue); !done) return done;
  return writeDurably(files_, folder_ + kQueueFile, queueText(*queue));
}

Result<int> QueueStore::add(const std::string& title, const RenderOrder& order, const std::string& profile) {
  int number = 0;
  const auto added = change([&](RenderQueue& queue) -> Outcome {
    auto& job = addJob(queue, title, order);
    number = job.number;
    if (auto done = writeDurably(files_, beside(number, ".xtl"), order.document); !done) return done;
    if (profile.empty()) return {};
    job.order.profileFile = beside(number, ".prx");
    return writeDurably(files_, job.order.profileFile, profile);
  });
  if (added) return number;
  if (number > 0) forget(number);
  return added.error();
}

Result<RenderOrder> QueueStore::orderOf(const QueueJob& job) const {
  auto document = files_.read(beside(job.number, ".xtl"), kMaxQueuedText);
  if (!document) return document.error();
  auto order = job.order;
  order.document = std::move(*document);
  return order;
}

void QueueStore::forget(int number) {
  files_.remove(beside(number, ".xtl"));
  files_.remove(beside(number, ".prx"));
}

}  // namespace kvo
