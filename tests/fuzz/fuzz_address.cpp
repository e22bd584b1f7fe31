// Any bytes as an address, as a text that names files, and as the file of a CD track.
#include "core/records/movie.h"
#include "fuzz/fuzz.h"
#include "intake/addresses.h"
#include "intake/clip_names.h"
#include "intake/extended_cd.h"
#include "support/memory_files.h"

void kvo::fuzz(std::string_view text) {
  const std::string bytes(text);
  require(!isPlayableAddress(bytes) || bytes.find("://") != std::string::npos);
  for (const auto& name : namesIn(bytes, test::MemoryFiles())) require(!name.empty());
  Movie track;
  takeCdFile(track, bytes);
  require(track.DurationTime().number() >= 0);
}
