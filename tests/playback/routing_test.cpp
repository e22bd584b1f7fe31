#include "playback/routing.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(Routing, NameRecordAndSettingsChooseTheEngine) {
  using enum EngineRoute;
  const char* none = "NOTCORONA";
  const struct {
    const char* system;
    const char* path;
    bool IsCorona, MPEGRoutingVMR;
    const char* probed;  // what the probe would say
    Routing routing;
    int asked;  // times
  } rows[] = {
      {"Linux", "/v/a.mp4", false, true, "WMV9", {NotForced, none, false}, 0},
      {"Linux", "/v/a.avi", false, true, "WMV9", {NotForced, none, false}, 0},
      {"Linux", "/v/a.avi", true, false, "WMV9", {AviByCorona, "WMV9", true}, 1},
      {"Linux", "/v/a.avi", true, false, "", {AviByCorona, "Unknown", true}, 1},
      {"Linux", "/v/a.avi", true, false, "Indeo", {AviByCorona, "Indeo", false}, 1},
      {"Linux", "/v/a.mp4", true, false, "WMV9", {NotForced, none, false}, 0},
      {"Linux", "/v/a.mpg", false, false, "", {NotForced, none, false}, 0},
      {"Linux", "/v/a.mpeg", false, true, "", {MpegOrDvd, "MPEG", true}, 0},
      {"Linux", "/v/a.M2P", false, true, "", {MpegOrDvd, "MPEG", true}, 0},
      {"Linux", "/v/VTS_01_1.VOB", false, false, "", {MpegOrDvd, "DVD", true}, 0},
      {"Linux", "/v/video_ts.ifo", false, false, "", {MpegOrDvd, "DVD", true}, 0},
      {"Linux", "/v/a.wmv", false, false, "", {NotForced, "Unknown", true}, 1},
      {"Linux", "/v/a.wmv", false, false, "WMV7(Buffrd)", {NotForced, "WMV7 - BuffReRoute", true}, 1},
      {"Linux", "/v/a.wmv", false, false, "MPEG-4", {NotForced, "MPEG-4", false}, 1},
      {"Linux", "/v/a.wm", false, false, "WMV8", {NotForced, "WMV8", true}, 1},
      {"Linux", "/v/a.au", false, false, "", {NotForced, "Unknown", true}, 1},
      {"Linux", "/v/a.aiff", false, false, "", {NotForced, none, false}, 0},
      {"Linux", "/v/wmv", false, false, "", {NotForced, "Unknown", true}, 1},
      {"98", "/v/a.wmv", false, false, "WMV9", {NotForced, "", false}, 0},
      {"NT4", "/v/a.vob", false, true, "", {NotForced, "", false}, 0},
      {"Linux", "http://a.b/c.wmv", false, false, "WMV9", {NotForced, "", false}, 0},
  };
  for (const auto& row : rows) {
    int asked = 0;
    const auto routing = routeOf({row.system, row.path, row.IsCorona, row.MPEGRoutingVMR}, [&] {
      ++asked;
      return std::string(row.probed);
    });
    EXPECT_EQ(routing, row.routing) << row.system << " " << row.path << ": " << routing.codecWord;
    EXPECT_EQ(asked, row.asked) << row.path;
  }
}

}  // namespace
}  // namespace kvo
