#include "render/output_hold.h"

#include "base/paths.h"
#include "render/render_driver.h"

#include <filesystem>

namespace kvo {
namespace {

constexpr const char* kRenderLock = "/Render.lock";

class HeldFolder : public FileLock {
 public:
  HeldFolder(Files& files, std::string folder, std::unique_ptr<FileLock> making,
             std::unique_ptr<FileLock> inFolder)
      : files_(files),
        folder_(std::move(folder)),
        making_(std::move(making)),
        inFolder_(std::move(inFolder)) {}
  HeldFolder(const HeldFolder&) = delete;
  HeldFolder& operator=(const HeldFolder&) = delete;
  ~HeldFolder() override {
    files_.remove(folder_ + kRenderLock);
    std::error_code isInUse;
    std::filesystem::remove(folder_, isInUse);
  }

 private:
  Files& files_;
  std::string folder_;
  std::unique_ptr<FileLock> making_;
  std::unique_ptr<FileLock> inFolder_;
};

}  // namespace

bool isBeingMade(NameLocks& locks, const std::string& output) {
  const auto making = locks.tryMaking(output);
  return making && *making == nullptr;
}

Error beingMade(const std::string& output) {
  return {"cannot write " + output + ": another render is making it"};
}

// Where a system has no such locks, the render goes on without.
Result<std::unique_ptr<FileLock>> holdOutput(Files& files, NameLocks& locks, const std::string& output,
                                             const std::string& workFolder) {
  const std::string beside(folderPart(output));
  if (!beside.empty() && !files.isFolder(beside))
    return Error{"cannot write " + output + ": No such file or directory"};
  auto making = locks.tryMaking(output);
  if (making && *making == nullptr) return beingMade(output);
  auto lock = making ? std::move(*making) : std::make_unique<FileLock>();
  const auto folder = workFolder.empty() ? workFolderOf(output) : workFolder;
  if (!workFolder.empty()) {
    if (auto made = files.makeFolder(folder); !made) return made.error();
  } else if (!files.isFolder(folder)) {
    return lock;
  }
  auto inFolder = locks.tryLock(folder + kRenderLock);
  if (!inFolder) return lock;
  if (*inFolder == nullptr) return beingMade(output);
  return std::unique_ptr<FileLock>(
      std::make_unique<HeldFolder>(files, folder, std::move(lock), std::move(*inFolder)));
}

Outcome dropWork(Files& files, NameLocks& locks, const std::string& output) {
  const auto folder = workFolderOf(output);
  if (!files.isFolder(folder)) return {};
  const auto held = holdOutput(files, locks, output, {});
  return held ? files.removeFolder(folder) : held.error();
}

}  // namespace kvo
