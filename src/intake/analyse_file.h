// What the file system tells of a clip's file, as its record keeps it.
#pragma once

#include "core/records/movie.h"
#include "core/telling/error_log.h"
#include "ports/clock.h"
#include "ports/files.h"

namespace kvo {

/// Fills `Size` and, unless `sizeOnly`, kind, attributes and dates. Of a clip that has no file nothing is
/// filled; a file that is not there is logged.
void AnalyseFile(Movie& clip, const Files& files, const Clock& clock, ErrorLog& log, bool sizeOnly = false);

}  // namespace kvo
