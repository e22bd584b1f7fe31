// The making of a movie, held from before its first file to its end: of two renders of one output the second
// one is refused, whoever asks for it and in whatever way.
#pragma once

#include "ports/name_locks.h"

#include <memory>
#include <string>

namespace kvo {

/// `workFolder` is where the segments are kept, and is made where it is missing; empty for a render that
/// keeps none, which all the same is no company for one that does. Renders of this machine are seen in any
/// case, those of others by the work folder. At its end it takes along a work folder without anything in it.
/// Fails with a line, and with nothing touched, while another makes that output, and where the output's
/// folder is missing.
Result<std::unique_ptr<FileLock>> holdOutput(Files& files, NameLocks& locks, const std::string& output,
                                             const std::string& workFolder);

/// Removes the work folder of an output with what is in it. Fails, with all of it left, while somebody makes
/// that output.
Outcome dropWork(Files& files, NameLocks& locks, const std::string& output);

/// Whether a render of this machine makes it now.
bool isBeingMade(NameLocks& locks, const std::string& output);

/// What is said where it may not be made twice.
Error beingMade(const std::string& output);

}  // namespace kvo
