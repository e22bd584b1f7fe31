// Any text as a file that tells of streams: one with an address in it is one, whatever stands before; and
// none of the addresses in it is empty or reaches over a line's end.
#include "fuzz/fuzz.h"
#include "intake/asx_stream.h"
#include "intake/metafile.h"
#include "support/memory_files.h"

void kvo::fuzz(std::string_view bytes) {
  test::MemoryFiles files;
  auto& text = files.all["/v/a.asx"];
  text = bytes;
  Movie clip;
  clip.Path("/v/");
  clip.MovieName("a.asx");
  require(!IsASXAStream(clip, files) || text.find("//") != std::string::npos);
  for (const auto& address : metafileAddresses(text))
    require(!address.empty() && address.find_first_of("\r\n") == std::string::npos);
  text += "\n//\n";
  require(IsASXAStream(clip, files) || text.size() > 65536 || text.find('\0') != std::string::npos);
}
