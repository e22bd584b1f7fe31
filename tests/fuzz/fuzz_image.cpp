// Any bytes as a picture file: what its head tells is the same however much more is read, and only a picture
// of sane sides is taken.
#include "core/records/movie.h"
#include "intake/image_info.h"
#include "support/memory_files.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  kvo::CImageInfo whole;
  if (!whole.readBytes(file, size)) std::abort();
  if (whole.Orientation() < 1 || whole.Orientation() > 8) std::abort();
  kvo::CImageInfo part;
  constexpr std::size_t kLongestSignature = 4;
  const auto half = file.substr(0, size / 2);
  if (half.size() >= kLongestSignature && part.readBytes(half, size) &&
      (part.ImageType() != whole.ImageType() || part.Width() != whole.Width() ||
       part.Height() != whole.Height()))
    std::abort();

  kvo::test::MemoryFiles files;
  files.all["/v/a"] = file;
  part.ReadImageInfo(files, "/v/a");
  kvo::Movie clip;
  if (kvo::AnalyseImage(clip, part) != (clip.StillW() > 0 && clip.StillH() > 0)) std::abort();
  return 0;
}
