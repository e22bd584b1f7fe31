#include "fuzz/fuzz.h"

#include <cstdint>
#include <cstdlib>

void kvo::require(bool holds) {
  if (!holds) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvo::fuzz({reinterpret_cast<const char*>(data), size});
  return 0;
}
