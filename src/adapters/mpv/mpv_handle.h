// A player core of libmpv in RAII, and its options, properties and commands with types. For this room only.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <utility>

struct mpv_handle;
struct mpv_event;

namespace kvo {

class MpvHandle {
 public:
  using Option = std::pair<const char*, std::string>;

  /// A core with these options, which reads no configuration and loads no scripts. Throws std::runtime_error
  /// when there is none to be had. LC_NUMERIC is "C", see MpvStage: the core reads numbers with a point on
  /// threads of its own.
  explicit MpvHandle(std::initializer_list<Option> options);

  [[nodiscard]] mpv_handle* get() const { return handle_.get(); }

  // What follows does not wait for the core, which carries it out in this order.
  void set(const char* property, const std::string& value) const;
  void set(const char* property, double value) const;
  void set(const char* property, bool value) const;
  /// `reply`, unless 0, comes with the event that tells how it went.
  void command(std::initializer_list<std::string> words, std::uint64_t reply = 0) const;
  /// Tells of this property whenever it changes, by an event with `reply`.
  void observe(const char* property, int format, std::uint64_t reply) const;

  // These wait until the core has time to answer: a few milliseconds at most while it decodes.
  [[nodiscard]] std::optional<double> number(const std::string& property) const;
  [[nodiscard]] std::optional<std::string> text(const std::string& property) const;
  [[nodiscard]] bool isSet(const char* property) const;

  /// The next event; its id is 0 when none has come within `seconds`. It stands until the next call.
  [[nodiscard]] const mpv_event& nextEvent(double seconds) const;

 private:
  struct End {
    void operator()(mpv_handle* handle) const;
  };
  std::unique_ptr<mpv_handle, End> handle_;
};

}  // namespace kvo
