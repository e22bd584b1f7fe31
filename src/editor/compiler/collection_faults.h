// What stands in the way of a good movie of a collection: one list for every room that makes or checks one.
#pragma once

#include "core/file/read_report.h"
#include "editor/compiler/compile.h"
#include "ports/files.h"

#include <string>
#include <vector>

namespace kvo {

struct CollectionFault {
  int clip = 0;      ///< clip number; 0 for the collection as a whole
  std::string text;  ///< for a person: "the file is missing"
  /// No movie can be made. Otherwise one can, and it will not be all that the collection says.
  bool stopsRender = false;
};

/// All faults of a compiled collection, in the order of its clips, those of the whole ahead of them. `report`
/// tells of its reading.
std::vector<CollectionFault> collectionFaults(const Compiled& compiled, MediaContents& streams,
                                              const Files& files, const ReadReport& report = {});

}  // namespace kvo
