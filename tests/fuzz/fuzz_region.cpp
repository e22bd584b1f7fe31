// Any bytes as a region file. What is let through has to come back the same.
#include "ui/region.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto region = kvo::regionOfData({reinterpret_cast<const char*>(data), size});
  if (region && kvo::regionOfData(kvo::regionData(*region)) != region) std::abort();
  return 0;
}
