#include "ports/files.h"

namespace kvo {

Outcome writeDurably(Files& files, const std::string& path, std::string_view bytes) {
  auto replacement = files.replace(path);
  if (!replacement) return replacement.error();
  if (auto written = (*replacement)->write(0, bytes); !written) return written;
  return (*replacement)->commit();
}

}  // namespace kvo
