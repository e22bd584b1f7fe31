// The port between copies of the program that one user runs on one program folder: the first keeps a mailbox,
// a later one leaves its command line there and ends.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvo {

/// Bytes: a longer text is not handed over.
inline constexpr std::size_t kMaxHandover = 256U << 10U;

class Handover {
 public:
  Handover() = default;
  Handover(const Handover&) = delete;
  Handover& operator=(const Handover&) = delete;
  virtual ~Handover() = default;

  /// Opens the mailbox. False when a living copy of this user has one already.
  virtual bool becomeFirst() = 0;

  /// Leaves `text` for the first copy. False when there is none, or when it does not take it.
  [[nodiscard]] virtual bool send(std::string_view text) = 0;

  /// The text that was left last, if any; the mailbox is empty then.
  virtual std::optional<std::string> take() = 0;
};

}  // namespace kvo
