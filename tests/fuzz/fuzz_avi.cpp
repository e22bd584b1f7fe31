// Any bytes as an AVI file, and as the table of codecs.
#include "fuzz/fuzz.h"
#include "intake/avi_compressor.h"
#include "support/memory_files.h"

void kvo::fuzz(std::string_view text) {
  const std::string bytes(text);
  const ProgramFolder folder("/prog");
  test::MemoryFiles files;
  NoStreamProbe probe;
  files.all["/v/a.avi"] = files.all[folder.beside("\\Fourcc.dat")] = bytes;
  const auto found = GetAVICompressor({files, folder, probe}, "/v/a.avi");
  require(found.isKnown != (found.codec == kUnknownCodec) && !found.isWindowsMedia);
  require(found.codec == codecInHead(bytes + "DIVX") || bytes.size() < 300);
  static_cast<void>(GetCodecDesc(files, folder, bytes.substr(0, 8)));
}
