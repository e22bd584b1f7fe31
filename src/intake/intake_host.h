// What adding asks of those who show and play the collection.
#pragma once

#include <string>

namespace kvo {

class IntakeHost {
 public:
  IntakeHost() = default;
  IntakeHost(const IntakeHost&) = delete;
  IntakeHost& operator=(const IntakeHost&) = delete;
  virtual ~IntakeHost() = default;

  /// Clip `number` of `total` that are to be added, by its path or address, is looked into.
  virtual void analysing(int number, int total, const std::string& name) = 0;
  /// The user wants no more of them.
  virtual bool stopped() = 0;
  /// Adding has ended.
  virtual void analysed() = 0;

  /// The clip of this number, the last, has joined.
  virtual void added(int number) = 0;

  /// Shows a file in a viewer of its own; false when there is none.
  virtual bool showInViewer(const std::string& file) = 0;
};

}  // namespace kvo
