// The queue of renders as windows show it, as plain data.
#pragma once

#include "core/telling/work_glance.h"

#include <string>
#include <vector>

namespace kvo {

/// A render of the queue.
struct QueuedRow {
  int number = 0;  ///< of the job
  std::string name;
  std::string state;    ///< a word, or how far it is
  std::string failure;  ///< a line; empty for none
  bool canPause = false;
  bool canGoOn = false;
  bool hasFailed = false;     ///< so that going on is another try
  bool isInOnePiece = false;  ///< so that a pause keeps nothing of it
  bool canView = false;       ///< its movie is made
  bool operator==(const QueuedRow&) const = default;
};

struct QueueState {
  std::vector<QueuedRow> Lst_Queue;  ///< in the order in which they are made
  int row = -1;                      ///< in that list; -1 for none
  bool canClear = false;             ///< there are some that are done
  std::string trouble;               ///< why it can be read or written no more, a line; empty else
  WorkGlance glance;
  bool isOpen = false;  ///< its window
  int raises = 0;       ///< how often that was asked for
  bool operator==(const QueueState&) const = default;
};

}  // namespace kvo
