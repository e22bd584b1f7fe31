// What an operation gives back when it can fail: its value, or one line that says what went wrong and names
// the thing it was about. Nothing throws across a room's border.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace kvo {

/// One line for a person: what was tried, what went wrong, and with what.
struct Error {
  std::string text;
};

template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value)
      : state_(std::in_place_index<0>, std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Result(Error error)
      : state_(std::in_place_index<1>, std::move(error)) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] bool ok() const { return state_.index() == 0; }
  explicit operator bool() const { return ok(); }

  T& value() { return std::get<0>(state_); }
  const T& value() const { return std::get<0>(state_); }
  T& operator*() { return value(); }
  const T& operator*() const { return value(); }
  T* operator->() { return &value(); }
  const T* operator->() const { return &value(); }

  [[nodiscard]] const Error& error() const { return std::get<1>(state_); }

 private:
  std::variant<T, Error> state_;
};

/// The outcome of an operation that has nothing to give back.
class [[nodiscard]] Outcome {
 public:
  Outcome() = default;
  Outcome(Error error) : error_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] bool ok() const { return !error_; }
  explicit operator bool() const { return ok(); }
  [[nodiscard]] const Error& error() const { return *error_; }

 private:
  std::optional<Error> error_;
};

}  // namespace kvo
