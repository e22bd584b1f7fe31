// What the names of transitions stand for.
#pragma once

#include "vocabulary/transitions.h"

#include <optional>
#include <span>
#include <string_view>

namespace kvo {

/// The class identifier behind a friendly name, in its own case; empty for a name that the table does not
/// hold.
std::string_view TransitionFriendlyNameToCLSID(std::string_view name);

/// Whether a clip may have a transition of this name: one on offer, or one that only the table holds.
bool isTransition(std::string_view name);

/// The SMPTE wipe code of a name of the mask table.
std::optional<int> maskNumber(std::string_view name);

/// The free options that a transition offers.
struct TransitionOptionSet {
  std::string_view firstCaption;   ///< a number is asked for; empty for none
  std::string_view secondCaption;  ///< one of `secondValues`; empty for none
  std::span<const std::string_view> secondValues;
  bool bordersAndMask = false;  ///< border boxes, replication and a mask picture
  bool particles = false;       ///< the particle options window
};

TransitionOptionSet ShowTransOptions(std::string_view name);

}  // namespace kvo
