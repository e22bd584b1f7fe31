#include "platform/posix/temporary_folder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace kvo {

Result<TemporaryFolder> TemporaryFolder::make() {
  std::error_code failed;
  const auto base = std::filesystem::temp_directory_path(failed);
  auto path = (failed ? std::filesystem::path("/tmp") : base) / "kvo5-XXXXXX";
  auto text = path.string();
  if (::mkdtemp(text.data()) == nullptr) {
    return Error{"cannot make a folder in " + base.string() + ": " + std::strerror(errno)};
  }
  return TemporaryFolder(text);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
}

}  // namespace kvo
