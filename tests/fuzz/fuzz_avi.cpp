// Any bytes as an AVI file, and as the table of codecs.
#include "intake/avi_compressor.h"
#include "support/memory_files.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const kvo::ProgramFolder folder("/prog");
  kvo::test::MemoryFiles files;
  kvo::NoStreamProbe probe;
  files.all["/v/a.avi"] = bytes;
  files.all[folder.beside("\\Fourcc.dat")] = bytes;
  const auto found = kvo::GetAVICompressor({files, folder, probe}, "/v/a.avi");
  if (found.isKnown == (found.codec == kvo::kUnknownCodec) || found.isWindowsMedia) std::abort();
  if (found.codec != kvo::codecInHead(bytes + "DIVX") && size >= 300) std::abort();
  static_cast<void>(kvo::GetCodecDesc(files, folder, bytes.substr(0, 8)));
  return 0;
}
