// Tables of contents of audio CDs through libcdio.
#pragma once

#include "ports/disc_contents.h"

#include <string>
#include <utility>

namespace kvo {

class CdioDisc : public DiscContents {
 public:
  /// `mounts` is the file in which the system tells what is mounted where.
  explicit CdioDisc(std::string mounts = "/proc/self/mounts") : mounts_(std::move(mounts)) {}

  /// A drive that is slow to answer is waited for. What lies beside the drives, as an image of a disc, does
  /// as well.
  Result<DiscTable> read(const std::string& folder) override;

 private:
  std::string mounts_;
};

}  // namespace kvo
