// Movies whose pictures a device encodes, for as long as it does.
#include "engine/movies.h"
#include "support/fake_hardware.h"

#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

class HardwareRender : public Movies {
 protected:
  Result<RenderReport> made(const RenderJob& job, const std::string& name = "m.mp4") {
    return make(timeline_, name, job);
  }
  RenderJob inDevice(bool needed = false) {
    RenderJob job;
    job.hardware = &device_;
    job.needsHardware = needed;
    return job;
  }
  std::vector<test::DecodedPicture> inSoftware() {
    EXPECT_TRUE(made({}, "s.mp4"));
    return shown("s.mp4");
  }

  Result<Timeline> timeline_ = inThree(test::makeCountingVideo(media_, "count.mkv", "25", 150));
  test::FakeHardware device_;
};

TEST_F(HardwareRender, AsksTheDeviceForTheMovieThatTheSoftwareWouldMake) {
  auto job = inDevice();
  job.quality = 24;
  job.effort = "slow";
  const auto report = made(job);
  ASSERT_TRUE(report) << report.error().text;
  EXPECT_TRUE(report->notes.empty());
  EXPECT_EQ(device_.pictures, 450);
  EXPECT_EQ(device_.asked.size(), 3U) << "an encoder for each segment";
  for (const auto& format : device_.asked) {
    EXPECT_EQ(std::tuple(format.codec, format.width, format.height, format.frameRate, format.quality),
              std::tuple(VideoCodec::H264, 64, 48, FrameRate(25), 24));
    EXPECT_EQ(effortWords()[static_cast<std::size_t>(format.effort)], "slow");
  }
  job.hardware = nullptr;
  ASSERT_TRUE(made(job, "s.mp4"));
  EXPECT_TRUE(shown("m.mp4") == shown("s.mp4")) << "the same pictures in the same order";
}

TEST_F(HardwareRender, IsLeftOutWhereItWouldNotDo) {
  auto sized = inDevice();
  sized.megabytes = 1;
  sized.scratch = out_.path();
  EXPECT_TRUE(made(sized));
  auto share = inDevice();
  share.work = Work{out_ / "work", "id", Share{0, 2}};
  EXPECT_TRUE(made(share));
  EXPECT_TRUE(made(inDevice(), "m.avi"));
  EXPECT_TRUE(device_.asked.empty());
}

// The movie is the one that the software makes from start to end, and says why.
TEST_F(HardwareRender, BeginsAnewInSoftwareWhereTheDeviceFails) {
  const auto whole = inSoftware();
  for (const bool kept : {false, true}) {
    for (const std::int64_t behind : {0, 1, 200, 449}) {
      device_.pictures = 0;
      device_.failsBehind = behind;
      auto job = inDevice();
      if (kept) job.work = Work{out_ / "work", "id"};
      const auto report = made(job);
      ASSERT_TRUE(report) << report.error().text;
      EXPECT_EQ(report->notes,
                std::vector<std::string>{"the picture is encoded in software: the device is gone"});
      EXPECT_TRUE(shown("m.mp4") == whole) << behind;
      EXPECT_TRUE(std::ranges::is_sorted(steps_, {}, &RenderStep::done)) << "it does not go back";
      EXPECT_EQ(steps_.back().done, 18);
    }
  }
  device_.refusal = "it takes no such pictures";
  const auto refused = made(inDevice());
  EXPECT_TRUE(refused && refused->notes.at(0).ends_with(": it takes no such pictures"));
  EXPECT_TRUE(shown("m.mp4") == whole);
}

TEST_F(HardwareRender, FailsWithTheDeviceWhereItIsNeeded) {
  device_.failsBehind = 200;
  const auto report = made(inDevice(true));
  ASSERT_FALSE(report);
  EXPECT_EQ(report.error().text, "the device is gone");
  EXPECT_TRUE(bytes("m.mp4").empty());
  // What fails beside the device is no reason to try again.
  device_.failsBehind = -1;
  device_.pictures = 0;
  std::filesystem::create_directory(out_ / "m.mp4");
  EXPECT_FALSE(made(inDevice()));
  EXPECT_EQ(device_.pictures, 0);
}

TEST_F(HardwareRender, GoesOnWithTheEncoderThatItWasBegunWith) {
  const auto whole = inSoftware();
  auto job = inDevice(true);
  job.work = Work{out_ / "work", "id"};
  device_.failsBehind = 400;
  ASSERT_FALSE(made(job));
  device_.failsBehind = -1;
  device_.pictures = 0;
  auto report = made(job);
  ASSERT_TRUE(report) << report.error().text;
  EXPECT_TRUE(device_.pictures > 0 && device_.pictures < 450) << "a segment stood already";
  EXPECT_TRUE(report->notes.empty());
  EXPECT_TRUE(shown("m.mp4") == whole);

  job.work->share = Share{1, 2};  // is made in software
  ASSERT_TRUE(made(job));
  job.work->share.reset();
  job.needsHardware = false;
  device_.pictures = 0;
  report = made(job);
  ASSERT_TRUE(report) << report.error().text;
  EXPECT_EQ(device_.pictures, 0);
  EXPECT_EQ(report->notes, std::vector<std::string>{"the picture is encoded in software: as it was begun"});
  EXPECT_FALSE(std::filesystem::exists(out_ / "work"));
}

}  // namespace
}  // namespace kvo::engine
