// Where clips go when they are moved or sorted: the number that each place's clip has before. Numbers count
// from 1; those that are chosen are ascending.
#pragma once

#include "core/records/collection.h"
#include "ports/files.h"

#include <functional>
#include <vector>

namespace kvo {

/// What a list can be sorted by.
enum class SortKey { Alpha, FileDate, FileType, FileSize, ClipDur, Resolution, Shuff };

/// The chosen ones one place up (`by` -1) or down (1). What stands at the end stays there, and so do those
/// that stand behind it.
std::vector<int> orderMoved(int count, const std::vector<int>& chosen, int by);

/// The chosen ones together, ahead of the clip `before`; count + 1 is the end.
std::vector<int> orderGathered(int count, const std::vector<int>& chosen, int before);

/// Sorted, letters of either case the same; clips with equal keys keep their order. The disk is asked for
/// the dates, and for sizes that a record does not hold. `random` gives a number from 0 to below 1.
std::vector<int> orderSorted(const RecordList<Movie>& clips, SortKey key, const Files& files,
                             const std::function<double()>& random);

/// Where clips of these numbers are in an order.
std::vector<int> placesIn(const std::vector<int>& order, const std::vector<int>& numbers);

}  // namespace kvo
