// Movies whose pictures a device encodes, for as long as it does.
#include "adapters/posix/posix_files.h"
#include "engine/document/document_reader.h"
#include "engine/run/renderer.h"
#include "support/documents.h"
#include "support/fake_hardware.h"
#include "support/real_world.h"

#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

class HardwareRender : public testing::Test {
 protected:
  HardwareRender()
      : video_(test::makeCountingVideo(media_, "count.mkv", "25", 150)),
        timeline_(*readDocument(
            test::documentOf({{video_, 0, 6, 0, 6}, {video_, 0, 6, 6, 12}, {video_, 0, 6, 12, 18}}))) {}

  Result<RenderReport> make(RenderJob job, const std::string& name = "m.mp4") {
    job.output = out_ / name;
    done_.clear();
    return render(timeline_, job, files_, [this](const RenderStep& step) { done_.push_back(step.done); });
  }
  RenderJob inDevice(bool needed = false) {
    RenderJob job;
    job.hardware = &device_;
    job.needsHardware = needed;
    return job;
  }
  std::string bytes(const std::string& name = "m.mp4") {
    const auto read = files_.read(out_ / name, 1U << 28U);
    return read ? *read : std::string();
  }
  std::string inSoftware() {
    EXPECT_TRUE(make({}, "s.mp4"));
    return bytes("s.mp4");
  }

  test::ScratchFolder media_;
  test::ScratchFolder out_;
  PosixFiles files_;
  std::string video_;
  Timeline timeline_;
  test::FakeHardware device_;
  std::vector<double> done_;  // seconds that have been told
};

TEST_F(HardwareRender, AsksTheDeviceForTheMovieThatTheSoftwareWouldMake) {
  auto job = inDevice();
  job.quality = 24;
  job.effort = "slow";
  const auto report = make(job);
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
  ASSERT_TRUE(make(job, "s.mp4"));
  EXPECT_TRUE(bytes() == bytes("s.mp4")) << "the same pictures in the same order";
}

TEST_F(HardwareRender, IsLeftOutWhereItWouldNotDo) {
  auto sized = inDevice();
  sized.megabytes = 1;
  sized.scratch = out_.path();
  EXPECT_TRUE(make(sized));
  auto share = inDevice();
  share.work = Work{out_ / "work", "id", Share{0, 2}};
  EXPECT_TRUE(make(share));
  EXPECT_TRUE(make(inDevice(), "m.avi"));
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
      const auto report = make(job);
      ASSERT_TRUE(report) << report.error().text;
      EXPECT_EQ(report->notes,
                std::vector<std::string>{"the picture is encoded in software: the device is gone"});
      EXPECT_TRUE(bytes() == whole) << behind;
      EXPECT_TRUE(std::ranges::is_sorted(done_)) << "it does not go back";
      EXPECT_EQ(done_.back(), 18);
    }
  }
  device_.refusal = "it takes no such pictures";
  const auto refused = make(inDevice());
  EXPECT_TRUE(refused && refused->notes.at(0).ends_with(": it takes no such pictures"));
  EXPECT_TRUE(bytes() == whole);
}

TEST_F(HardwareRender, FailsWithTheDeviceWhereItIsNeeded) {
  device_.failsBehind = 200;
  const auto report = make(inDevice(true));
  ASSERT_FALSE(report);
  EXPECT_EQ(report.error().text, "the device is gone");
  EXPECT_TRUE(bytes().empty());
  // What fails beside the device is no reason to try again.
  device_.failsBehind = -1;
  device_.pictures = 0;
  std::filesystem::create_directory(out_ / "m.mp4");
  EXPECT_FALSE(make(inDevice()));
  EXPECT_EQ(device_.pictures, 0);
}

TEST_F(HardwareRender, GoesOnWithTheEncoderThatItWasBegunWith) {
  const auto whole = inSoftware();
  auto job = inDevice(true);
  job.work = Work{out_ / "work", "id"};
  device_.failsBehind = 400;
  ASSERT_FALSE(make(job));
  device_.failsBehind = -1;
  device_.pictures = 0;
  auto report = make(job);
  ASSERT_TRUE(report) << report.error().text;
  EXPECT_TRUE(device_.pictures > 0 && device_.pictures < 450) << "a segment stood already";
  EXPECT_TRUE(report->notes.empty());
  EXPECT_TRUE(bytes() == whole);

  job.work->share = Share{1, 2};  // is made in software
  ASSERT_TRUE(make(job));
  job.work->share.reset();
  job.needsHardware = false;
  device_.pictures = 0;
  report = make(job);
  ASSERT_TRUE(report) << report.error().text;
  EXPECT_EQ(device_.pictures, 0);
  EXPECT_EQ(report->notes, std::vector<std::string>{"the picture is encoded in software: as it was begun"});
  EXPECT_FALSE(std::filesystem::exists(out_ / "work"));
}

}  // namespace
}  // namespace kvo::engine
