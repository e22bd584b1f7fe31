// Any bytes as a region file. What is let through has to come back the same.
#include "fuzz/fuzz.h"
#include "ui/region.h"

void kvo::fuzz(std::string_view bytes) {
  const auto region = regionOfData(bytes);
  require(!region || regionOfData(regionData(*region)) == region);
}
