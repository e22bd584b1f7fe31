// Any bytes as a picture file: what its head tells is the same however much more is read, and only a picture
// of sane sides is taken.
#include "core/records/movie.h"
#include "fuzz/fuzz.h"
#include "intake/image_info.h"
#include "support/memory_files.h"

void kvo::fuzz(std::string_view file) {
  CImageInfo whole;
  require(whole.readBytes(file, file.size()));
  require(whole.Orientation() >= 1 && whole.Orientation() <= 8);
  CImageInfo part;
  constexpr std::size_t kLongestSignature = 4;
  const auto half = file.substr(0, file.size() / 2);
  if (half.size() >= kLongestSignature && part.readBytes(half, file.size()))
    require(part.ImageType() == whole.ImageType() && part.Width() == whole.Width() &&
            part.Height() == whole.Height());

  test::MemoryFiles files;
  files.all["/v/a"] = file;
  part.ReadImageInfo(files, "/v/a");
  Movie clip;
  require(AnalyseImage(clip, part) == (clip.StillW() > 0 && clip.StillH() > 0));
}
