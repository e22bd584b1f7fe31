// The web by libcurl, on a thread of its own.
#pragma once

#include "ports/http.h"
#include "ports/last_wish.h"

#include <atomic>
#include <cstddef>
#include <string>
#include <utility>

namespace kvo {

class CurlHttp : public Http {
 public:
  /// The loop outlives the object.
  explicit CurlHttp(EventLoop& loop);
  /// What is under way is given up.
  ~CurlHttp() override { leaves_ = true; }

  void get(const std::string& address, std::size_t most, Heard heard) override;

 private:
  using Wish = std::pair<std::string, std::size_t>;

  [[nodiscard]] Result<std::string> find(const Wish& wish) const;

  std::atomic<bool> leaves_ = false;
  Wish asked_;
  Heard heard_;
  LastWish<Wish, Result<std::string>> wishes_;
};

}  // namespace kvo
