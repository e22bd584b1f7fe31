// Any bytes as a collection file: read, saved, read again. What was saved has to read back without loss.
#include "fuzz/fuzz.h"
#include "support/store_bench.h"

void kvo::fuzz(std::string_view bytes) {
  test::StoreBench first;
  first.files.all["/col/a.INI"] = bytes;
  const ReadOptions look{.mayRewrite = false, .keepMissingClips = true};
  if (first.file.ReadINI("/col/a.INI", look).end != ReadEnd::Done) return;
  require(first.file.WriteINI("/col", "b.INI", true));

  test::StoreBench again;
  again.files.all["/col/b.INI"] = first.files.all["/col/b.INI"];
  const auto report = again.file.ReadINI("/col/b.INI", look);
  const auto left = again.collection.MovieList.count() + static_cast<int>(report.skippedClips.size());
  require(report.end == ReadEnd::Done && left == first.collection.MovieList.count());
}
