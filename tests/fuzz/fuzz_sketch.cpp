// Any bytes as a sketch, under their right sum: what is taken is written as it was read. And as words between
// the processes.
#include "sketches/sketch_file.h"
#include "sketches/sketch_words.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::string file(text);
  const auto sum = kvo::sketchSum(file);
  for (unsigned i = 0; i < 8; ++i) file += static_cast<char>(sum >> (8 * i));
  const auto sketch = kvo::readSketch(file);
  if (sketch && kvo::sketchBytes(*sketch) != file) std::abort();
  static_cast<void>(kvo::readSketch(text));

  if (const auto order = kvo::readOrder(text); order && kvo::readOrder(kvo::orderText(*order)) != order)
    std::abort();
  std::string read;
  kvo::readSketchLine(text, read);
  return 0;
}
