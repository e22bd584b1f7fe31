// The parameters of effects, transitions and envelopes: texts, and numbers that may change over time.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kvo::engine {

/// A number that changes over time. Times count from the start of what it belongs to.
struct Keyed {
  struct Key {
    double time = 0;
    double value = 0;
    bool linear = true;  ///< runs to its value from the key before; else jumps there
  };
  double value = 0;  ///< at time 0
  std::vector<Key> keys{};

  /// The value at `time` seconds; the last key's value holds on.
  [[nodiscard]] double at(double time) const;
};

struct Param {
  std::string text{};  ///< as the document gives it
  Keyed number{};      ///< the same as a number
};

/// The number of a value's text: 1 for "true" in any case, 0 for other texts that are none.
double valueOf(std::string_view text);

/// By name, in small letters.
class Params {
 public:
  /// The first of a name stands.
  void add(std::string_view name, Param param);

  [[nodiscard]] const Param* find(std::string_view name) const;
  /// At `time` seconds; `otherwise` where it is not given.
  [[nodiscard]] double number(std::string_view name, double time, double otherwise) const;
  /// As number, held within `least` and `most`.
  [[nodiscard]] double number(std::string_view name, double time, double otherwise, double least,
                              double most) const;
  /// A whole number of parts (bands, spokes), at most 255; `otherwise` where it is not given or below 1.
  [[nodiscard]] double count(std::string_view name, double otherwise) const;
  /// The text in small letters, empty where it is not given.
  [[nodiscard]] std::string word(std::string_view name) const;
  /// Whether it is given, and other than 0 at the start.
  [[nodiscard]] bool flag(std::string_view name) const;
  /// Whether a parameter changes over time.
  [[nodiscard]] bool moves() const;

  [[nodiscard]] auto begin() const { return all_.begin(); }
  [[nodiscard]] auto end() const { return all_.end(); }

 private:
  std::map<std::string, Param, std::less<>> all_;
};

}  // namespace kvo::engine
