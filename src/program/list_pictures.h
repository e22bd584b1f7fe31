// The small pictures in the rows of the list. Only rows that are drawn ask for one.
#pragma once

#include "core/records/collection.h"
#include "program/main_window_state.h"
#include "sketches/sketches.h"

namespace kvo {

class ListPictures {
 public:
  struct Parts {
    Sketches& sketches;
    const Collection& collection;
    ClipListState& list;
  };
  explicit ListPictures(const Parts& parts) : parts_(parts) {}

  /// Of the clip in a row, from 0: soon behind its Mark-In. Null where there is none, or none yet.
  [[nodiscard]] Sketches::Picture of(int row) const;

  /// A clip has joined: its sketches are made in the background.
  void joined(int number) const;

  /// A sketch has come.
  void came() { ++parts_.list.pictures; }

 private:
  Parts parts_;
};

}  // namespace kvo
