// Any text as a file that tells of streams: one with an address in it is one, whatever stands before; and
// none of the addresses in it is empty or reaches over a line's end.
#include "intake/asx_stream.h"
#include "intake/metafile.h"
#include "support/memory_files.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvo::test::MemoryFiles files;
  auto& text = files.all["/v/a.asx"];
  text.assign(reinterpret_cast<const char*>(data), size);
  kvo::Movie clip;
  clip.Path("/v/");
  clip.MovieName("a.asx");
  const bool before = kvo::IsASXAStream(clip, files);
  if (before && text.find("//") == std::string::npos) std::abort();
  for (const auto& address : kvo::metafileAddresses(text))
    if (address.empty() || address.find_first_of("\r\n") != std::string::npos) std::abort();
  text += "\n//\n";
  if (!kvo::IsASXAStream(clip, files) && text.size() <= 65536 && text.find('\0') == std::string::npos)
    std::abort();
  return 0;
}
