// A collection with its file.
#pragma once

#include "program/collection_store.h"
#include "support/fakes.h"

namespace kvo::test {

struct StoreBench : Bench {
  CollectionStore file{files, clock, boxes, log, folder, settings, collection};
};

}  // namespace kvo::test
