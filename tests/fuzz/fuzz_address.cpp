// Any bytes as an address, as a text that names files, and as the file of a CD track.
#include "core/records/movie.h"
#include "intake/addresses.h"
#include "intake/clip_names.h"
#include "intake/extended_cd.h"
#include "support/memory_files.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  if (kvo::isPlayableAddress(bytes) && bytes.find("://") == std::string::npos) std::abort();
  const kvo::test::MemoryFiles files;
  for (const auto& name : kvo::namesIn(bytes, files))
    if (name.empty()) std::abort();
  kvo::Movie track;
  kvo::takeCdFile(track, bytes);
  if (track.DurationTime().number() < 0) std::abort();
  return 0;
}
