#include "adapters/curl/curl_http.h"

#include "adapters/posix/poll_loop.h"
#include "support/loopback_server.h"

#include <optional>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Server;
using Manner = Server::Manner;

TEST(CurlHttp, GivesTheFirstBytesOrSaysWhyThereAreNone) {
  const struct {
    Manner manner;
    std::size_t most;
    std::string text;  // none: it fails
  } rows[] = {{Manner::Whole, 100, "<asx>"},
              {Manner::Whole, 3, "<as"},
              {Manner::RedirectsForEver, 100, ""},
              {Manner::HangsUpInTheMiddle, 100, ""}};
  for (const auto& row : rows) {
    const Server server(row.manner, "<asx>");
    PollLoop loop;
    CurlHttp http(loop);
    std::optional<Result<std::string>> heard;
    http.get(server.address() + "?forgotten", 100,
             [](const auto&) { ADD_FAILURE() << "asked for no longer"; });
    http.get(server.address(), row.most, [&](Result<std::string> text) { heard = std::move(text); });
    for (int i = 0; i < 600 && !heard; ++i) loop.wait(20);
    ASSERT_TRUE(heard);
    EXPECT_EQ(*heard ? **heard : std::string(), row.text);
    EXPECT_TRUE(*heard || heard->error().text.find(server.address()) != std::string::npos);
  }
  const Server silent(Manner::Silent, "");
  PollLoop loop;
  CurlHttp http(loop);
  http.get(silent.address(), 100, [](const auto&) { ADD_FAILURE() << "its end does not wait"; });
  loop.wait(100);
}

}  // namespace
}  // namespace kvo
