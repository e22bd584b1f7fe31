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
  // "made" and its notes, or why it was not. The device counts from 0.
  std::string made(const RenderJob& job, const std::string& name = "m.mp4") {
    device_.pictures = 0;
    const auto report = make(timeline_, name, job);
    if (!report) return report.error().text;
    std::string text = "made";
    for (const auto& note : report->notes) text += "; " + note;
    return text;
  }
  RenderJob inDevice(bool needed = false) {
    RenderJob job;
    job.hardware = &device_;
    job.needsHardware = needed;
    return job;
  }
  std::vector<test::DecodedPicture> inSoftware() {
    EXPECT_EQ(made({}, "s.mp4"), "made");
    return shown("s.mp4");
  }

  Result<Timeline> timeline_ = inThree(test::makeCountingVideo(media_, "count.mkv", "25", 150));
  test::FakeHardware device_;
};

TEST_F(HardwareRender, AsksTheDeviceForTheMovieThatTheSoftwareWouldMake) {
  auto job = inDevice();
  job.quality = 24;
  job.effort = "slow";
  EXPECT_EQ(made(job), "made");
  EXPECT_EQ(device_.pictures, 450);
  EXPECT_EQ(device_.asked.size(), 3U) << "an encoder for each segment";
  for (const auto& format : device_.asked) {
    EXPECT_EQ(std::tuple(format.codec, format.width, format.height, format.frameRate, format.quality),
              std::tuple(VideoCodec::H264, 64, 48, FrameRate(25), 24));
    EXPECT_EQ(effortWords()[static_cast<std::size_t>(format.effort)], "slow");
  }
  job.hardware = nullptr;
  EXPECT_EQ(made(job, "s.mp4"), "made");
  EXPECT_TRUE(shown("m.mp4") == shown("s.mp4")) << "the same pictures in the same order";
}

TEST_F(HardwareRender, IsLeftOutWhereItWouldNotDo) {
  auto sized = inDevice();
  sized.megabytes = 1;
  sized.scratch = out_.path();
  EXPECT_EQ(made(sized), "made");
  auto share = inDevice();
  share.work = Work{out_ / "work", "id", SegmentShare{0, 2}};
  EXPECT_EQ(made(share), "made");
  EXPECT_EQ(made(inDevice(), "m.avi"), "made");
  EXPECT_TRUE(device_.asked.empty());
}

// The movie is the one that the software makes from start to end, and says why.
TEST_F(HardwareRender, BeginsAnewInSoftwareWhereTheDeviceFails) {
  const auto whole = inSoftware();
  for (const bool kept : {false, true}) {
    for (const std::int64_t behind : {0, 1, 200, 449}) {
      device_.failsBehind = behind;
      auto job = inDevice();
      if (kept) job.work = Work{out_ / "work", "id"};
      EXPECT_EQ(made(job), "made; the picture is encoded in software: the device is gone");
      EXPECT_TRUE(shown("m.mp4") == whole) << behind;
      EXPECT_TRUE(std::ranges::is_sorted(steps_, {}, &RenderStep::done)) << "it does not go back";
      EXPECT_EQ(steps_.back().done, 18);
    }
  }
  device_.refusal = "it takes no such pictures";
  EXPECT_TRUE(made(inDevice()).ends_with(": it takes no such pictures"));
  EXPECT_TRUE(shown("m.mp4") == whole);
}

TEST_F(HardwareRender, FailsWithTheDeviceWhereItIsNeeded) {
  device_.failsBehind = 200;
  EXPECT_EQ(made(inDevice(true)), "the device is gone");
  EXPECT_TRUE(bytes("m.mp4").empty());
  // What fails beside the device is no reason to try again.
  device_.failsBehind = -1;
  std::filesystem::create_directory(out_ / "m.mp4");
  EXPECT_NE(made(inDevice()), "made");
  EXPECT_EQ(device_.pictures, 0);
}

TEST_F(HardwareRender, GoesOnWithTheEncoderThatItWasBegunWith) {
  const auto whole = inSoftware();
  auto job = inDevice(true);
  job.work = Work{out_ / "work", "id"};
  device_.failsBehind = 400;
  EXPECT_EQ(made(job), "the device is gone");
  device_.failsBehind = -1;
  EXPECT_EQ(made(job), "made");
  EXPECT_TRUE(device_.pictures > 0 && device_.pictures < 450) << "a segment stood already";
  EXPECT_TRUE(shown("m.mp4") == whole);

  job.work->share = SegmentShare{1, 2};  // is made in software
  EXPECT_EQ(made(job), "made");
  job.work->share.reset();
  job.needsHardware = false;
  EXPECT_EQ(made(job), "made; the picture is encoded in software: as it was begun");
  EXPECT_EQ(device_.pictures, 0);
  EXPECT_FALSE(std::filesystem::exists(out_ / "work"));
}

}  // namespace
}  // namespace kvo::engine
