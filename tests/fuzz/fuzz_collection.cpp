// Any bytes as a collection file: read, saved, read again. What was saved has to read back without loss.
#include "support/store_bench.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvo::test::StoreBench first;
  first.files.all["/col/a.INI"] = std::string(reinterpret_cast<const char*>(data), size);
  const kvo::ReadOptions look{.mayRewrite = false, .keepMissingClips = true};
  if (first.file.ReadINI("/col/a.INI", look).end != kvo::ReadEnd::Done) return 0;
  if (!first.file.WriteINI("/col", "b.INI", true)) std::abort();

  kvo::test::StoreBench again;
  again.files.all["/col/b.INI"] = first.files.all["/col/b.INI"];
  const auto report = again.file.ReadINI("/col/b.INI", look);
  const auto left = again.collection.MovieList.count() + static_cast<int>(report.skippedClips.size());
  if (report.end != kvo::ReadEnd::Done || left != first.collection.MovieList.count()) std::abort();
  return 0;
}
