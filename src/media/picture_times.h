// When each picture of a file begins.
#pragma once

#include "base/result.h"

#include <functional>
#include <string>
#include <vector>

namespace kvo::media {

/// Seconds from the first picture at which each one begins, in the order of showing: the times that
/// VideoReader goes by, and picture n is the n-th of them from 0. Empty where the pictures come at
/// `steadyRate`, as far as the first few hundred tell; 0 is none. Else it reads the whole file, decodes
/// nothing, and ends where `goesOn` says no. Fails with a line that names the file then, and where packets do
/// not tell it: no picture, bare streams, AVI, recordings that begin anywhere.
Result<std::vector<double>> readUnevenTimes(const std::string& path, double steadyRate,
                                            const std::function<bool()>& goesOn);

}  // namespace kvo::media
