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
  for (const auto& [manner, most, expected] :  // none: it fails
       {std::tuple{Manner::Whole, 100U, "<asx>"},
        {Manner::Whole, 3U, "<as"},
        {Manner::RedirectsForEver, 100U, ""},
        {Manner::HangsUpInTheMiddle, 100U, ""}}) {
    const Server server(manner, "<asx>");
    PollLoop loop;
    CurlHttp http(loop);
    std::optional<Result<std::string>> heard;
    http.get(server.address() + "?forgotten", 100,
             [](const auto&) { ADD_FAILURE() << "asked for no longer"; });
    http.get(server.address(), most, [&](Result<std::string> text) { heard = std::move(text); });
    for (int i = 0; i < 600 && !heard; ++i) loop.wait(20);
    ASSERT_TRUE(heard);
    EXPECT_EQ(*heard ? **heard : "", expected);
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
