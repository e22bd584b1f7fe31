// Any bytes as a sketch, under their right sum: what is taken is written as it was read. And as words between
// the processes.
#include "fuzz/fuzz.h"
#include "sketches/sketch_file.h"
#include "sketches/sketch_words.h"

void kvo::fuzz(std::string_view text) {
  std::string file(text);
  const auto sum = sketchSum(file);
  for (unsigned i = 0; i < 8; ++i) file += static_cast<char>(sum >> (8 * i));
  const auto sketch = readSketch(file);
  require(!sketch || sketchBytes(*sketch) == file);
  static_cast<void>(readSketch(text));

  const auto order = readOrder(text);
  require(!order || readOrder(orderText(*order)) == order);
  std::string read;
  readSketchLine(text, read);
}
