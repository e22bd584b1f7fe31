#include "render/queue/queue_store.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr const char* kQueueFile = "/Queue.txt";
constexpr const char* kShareFile = "/Share.txt";
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
  auto queue = readQueue(*text);
  if (!queue) return Error{path + " is not a queue of this program"};
  const auto running = std::ranges::find(queue->jobs, JobState::Running, &QueueJob::state);
  if (running != queue->jobs.end()) running->share = shareOf(*running);
  return std::move(*queue);
}

double QueueStore::shareOf(const QueueJob& job) const {
  const auto path = folder_ + kShareFile;
  if (!files_.exists(path)) return job.share;
  const auto text = files_.read(path, kMaxQueue);
  std::string_view rest = text ? *text : std::string_view();
  double share = job.share;
  while (!rest.empty()) {
    const auto line = nextLine(rest);
    const auto blank = std::min(line.find(' '), line.size());
    if (line.substr(0, blank) == std::to_string(job.number))
      share = std::clamp(numberIn(line.substr(blank)).value_or(0), 0.0, 1.0);
  }
  return share;
}

void QueueStore::tellShare(int number, double share) {
  const auto path = folder_ + kShareFile;
  if (share <= 0) files_.remove(path);
  // Who only looks is told nothing then.
  (void)files_.append(path, std::to_string(number) + " " + FormatMask(share, "0.0000") + "\n").ok();
}

// Behind the documents that stand there, which may belong to the queue that is not understood.
int QueueStore::lastNumber() const {
  int last = 0;
  files_.eachBelow(folder_, [&](const std::string& path) {
    const auto number = numberIn(fileNamePart(path.substr(0, path.rfind('.'))));
    last = std::max(last, number ? toLong(*number).value_or(0) : 0);
    return true;
  });
  return last;
}

// Nothing that is none of a queue is lost: it may be of a later version.
Outcome QueueStore::keepForeign() {
  const auto path = folder_ + kQueueFile;
  const auto text = files_.exists(path) ? files_.read(path, kMaxQueue) : Result<std::string>("");
  if (!text || readQueue(*text)) return {};
  std::string aside;
  for (int i = 1; aside.empty() || files_.exists(aside); ++i)
    aside = folder_ + "/Queue not understood " + std::to_string(i) + ".txt";
  if (auto done = files_.rename(path, aside); !done) return done;
  // With this the new name is on the disk as well.
  RenderQueue empty;
  empty.lastNumber = lastNumber();
  if (auto done = writeDurably(files_, path, queueText(empty)); !done) return done;
  tell_(path + " is not a queue of this program; it is kept as " + aside);
  return {};
}

Outcome QueueStore::change(const std::function<Outcome(RenderQueue&)>& change) {
  if (auto made = files_.makeFolder(folder_); !made) return made;
  const auto held = files_.lock(folder_ + "/Queue.lock");
  if (!held) return held.error();
  if (auto done = keepForeign(); !done) return done;
  auto queue = read();
  if (!queue) return queue.error();
  if (auto done = change(*queue); !done) return done;
  return writeDurably(files_, folder_ + kQueueFile, queueText(*queue));
}

Result<int> QueueStore::add(const std::string& title, const RenderOrder& order, const std::string& profile,
                            bool isInOnePiece) {
  const std::string folder(folderPart(order.output));
  if (!files_.mayWriteInto(folder)) {
    return Error{"cannot write " + order.output +
                 (files_.isFolder(folder) ? ": Permission denied" : ": No such file or directory")};
  }
  int number = 0;
  const auto added = change([&](RenderQueue& queue) -> Outcome {
    const auto put = addJob(queue, title, order);
    if (!put) return put.error();
    auto& job = **put;
    number = job.number;
    job.isInOnePiece = isInOnePiece;
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
