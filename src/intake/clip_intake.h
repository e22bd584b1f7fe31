// How clips come into the collection, for those who only have their names.
#pragma once

#include <string>
#include <vector>

namespace kvo {

/// In what manner clips are added.
struct AddManner {
  bool IsWebPageAdd = false;  ///< an address that is no known stream is a page
  bool quiet = false;         ///< a movie that a viewer of its own shows is taken without asking
};

class ClipIntake {
 public:
  ClipIntake() = default;
  ClipIntake(const ClipIntake&) = delete;
  ClipIntake& operator=(const ClipIntake&) = delete;
  virtual ~ClipIntake() = default;

  /// Adds files by their full paths, and addresses, in their order, at the end of the collection; tracks of a
  /// CD come first. What cannot be played is told of in a box and left out. True when any has joined.
  virtual bool add(std::vector<std::string> names, const AddManner& manner) = 0;

  /// The same of what a text names: see namesIn().
  virtual bool AddMoviesm(const std::string& text, const AddManner& manner) = 0;

  /// The user wanted no more while clips were added last.
  [[nodiscard]] virtual bool wasStopped() const = 0;
};

}  // namespace kvo
