#include "adapters/curl/curl_http.h"

#include <curl/curl.h>
#include <memory>

namespace kvo {
namespace {

constexpr long kConnectSeconds = 5;
constexpr long kWholeSeconds = 10;
constexpr long kMostRedirects = 5;

struct Taken {
  std::string text;
  std::size_t most = 0;
  [[nodiscard]] bool full() const { return text.size() >= most; }
};

std::size_t takeBytes(const char* bytes, std::size_t one, std::size_t count, void* into) {
  auto& taken = *static_cast<Taken*>(into);
  taken.text.append(bytes, std::min(one * count, taken.most - taken.text.size()));
  return taken.full() ? 0 : one * count;  // anything but the count ends it
}

int givesUp(void* leaves, curl_off_t /*all*/, curl_off_t /*got*/, curl_off_t /*toSend*/,
            curl_off_t /*sent*/) {
  return *static_cast<const std::atomic<bool>*>(leaves) ? 1 : 0;
}

}  // namespace

CurlHttp::CurlHttp(EventLoop& loop)
    : wishes_(
          loop, [this](const Wish& wish) { return find(wish); },
          [this](const Wish& wish, Result<std::string> text) {
            if (wish == asked_ && heard_) std::exchange(heard_, nullptr)(std::move(text));
          }) {}

void CurlHttp::get(const std::string& address, std::size_t most, Heard heard) {
  asked_ = {address, most};
  heard_ = std::move(heard);
  wishes_.want(asked_);
}

Result<std::string> CurlHttp::find(const Wish& wish) const {
  static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(ready ? curl_easy_init() : nullptr,
                                                                 &curl_easy_cleanup);
  if (!curl) return Error{"cannot reach " + wish.first};
  Taken taken{{}, wish.second};
  auto* leaves = const_cast<std::atomic<bool>*>(&leaves_);
  curl_easy_setopt(curl.get(), CURLOPT_URL, wish.first.c_str());
  curl_easy_setopt(curl.get(), CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl.get(), CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl.get(), CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(curl.get(), CURLOPT_MAXREDIRS, kMostRedirects);
  curl_easy_setopt(curl.get(), CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
  curl_easy_setopt(curl.get(), CURLOPT_TIMEOUT, kWholeSeconds);
  curl_easy_setopt(curl.get(), CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(curl.get(), CURLOPT_FAILONERROR, 1L);
  curl_easy_setopt(curl.get(), CURLOPT_USERAGENT, "KVO5");
  curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, &takeBytes);
  curl_easy_setopt(curl.get(), CURLOPT_WRITEDATA, &taken);
  curl_easy_setopt(curl.get(), CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(curl.get(), CURLOPT_XFERINFOFUNCTION, &givesUp);
  curl_easy_setopt(curl.get(), CURLOPT_XFERINFODATA, leaves);
  const auto end = curl_easy_perform(curl.get());
  if (end == CURLE_OK || taken.full()) return std::move(taken.text);
  return Error{"cannot read " + wish.first + ": " + curl_easy_strerror(end)};
}

}  // namespace kvo
