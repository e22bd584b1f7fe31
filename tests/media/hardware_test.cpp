// Encoders of devices: what they are told, and what a trial tells of one.
#include "media/hardware.h"

#include "media/hardware_setup.h"
#include "media/media_facts.h"
#include "support/fake_hardware.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace kvo::media {
namespace {

// The value that an encoder has taken for an option of its own.
std::string optionOf(const CodecHandle& encoder, const char* name) {
  std::uint8_t* text = nullptr;
  if (av_opt_get(encoder->priv_data, name, 0, &text) < 0) return "none";
  std::string value(reinterpret_cast<const char*>(text));
  av_free(text);
  return value;
}

// As FFmpeg has the number of a word of an option.
std::int64_t numberOf(const CodecHandle& encoder, const char* name) {
  std::int64_t number = -1;
  av_opt_get_int(encoder->priv_data, name, 0, &number);
  return number;
}

TEST(Hardware, IsToldWhatTheSoftwareWouldBe) {
  VideoFormat format{VideoCodec::H264, 640, 360, FrameRate(30000, 1001)};
  format.quality = 23;
  for (const auto name : hardwareNames()) {
    SCOPED_TRACE(name);
    auto encoder = setUpHardware(name, format, true);
    ASSERT_TRUE(encoder) << encoder.error().text;
    const auto& c = **encoder;
    EXPECT_EQ(std::pair(c.width, c.height), std::pair(640, 360));
    EXPECT_EQ(std::pair(c.time_base.num, c.time_base.den), std::pair(1001, 30000));
    EXPECT_EQ(std::pair(c.framerate.num, c.framerate.den), std::pair(30000, 1001));
    EXPECT_EQ(std::tuple(c.color_primaries, c.color_trc, c.colorspace, c.color_range),
              std::tuple(AVCOL_PRI_BT709, AVCOL_TRC_BT709, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG));
    EXPECT_EQ(std::tuple(c.gop_size, c.max_b_frames, c.bit_rate), std::tuple(250, 0, 0));
    EXPECT_NE(c.flags & AV_CODEC_FLAG_GLOBAL_HEADER, 0);
    EXPECT_EQ(c.global_quality, 23 * FF_QP2LAMBDA);
    EXPECT_EQ(c.pix_fmt, name == "h264_vaapi" ? AV_PIX_FMT_VAAPI : AV_PIX_FMT_NV12);
    EXPECT_TRUE(name == "h264_qsv" || optionOf(*encoder, "qp") == "23");
    int high = -1;
    const auto* profile = av_opt_find(c.priv_data, "profile", nullptr, 0, 0);
    ASSERT_GE(av_opt_eval_int(c.priv_data, profile, "high", &high), 0);
    EXPECT_EQ(numberOf(*encoder, "profile"), high);
    std::string presets;
    for (const int effort : {0, 2, 5, 8}) {
      format.effort = effort;
      presets += optionOf(*setUpHardware(name, format, true), "preset") + " ";
    }
    if (name != "h264_vaapi") {
      EXPECT_NE(presets.find(' '), presets.size() - 1);
    }
  }
  format.quality = 63;
  EXPECT_EQ((*setUpHardware("h264_vaapi", format, true))->global_quality, 51 * FF_QP2LAMBDA);
  EXPECT_EQ(setUpHardware("h264_none", format, true).error().text, "FFmpeg has no encoder h264_none here");
  EXPECT_EQ(hardwareNamed("libx264"), nullptr);
}

TEST(Hardware, WorksWhereATrialGivesAFrame) {
  silenceRemarks();
  test::FakeHardware device;
  EXPECT_TRUE(tryHardware(device));
  EXPECT_EQ(device.pictures, 1);
  EXPECT_EQ(std::pair(device.asked.at(0).width, device.asked.at(0).height), std::pair(256, 256));
  device.givesFrames = false;
  EXPECT_EQ(tryHardware(device).error().text, "h264_fake gives no frame");
  device.failsBehind = 2;
  EXPECT_EQ(tryHardware(device).error().text, "the device is gone");
  device.refusal = "no device";
  EXPECT_EQ(tryHardware(device).error().text, "no device");
}

// FFmpeg's own, on whatever machine this is: a line at least where there is none.
TEST(Hardware, TellsWhyThereIsNone) {
  silenceRemarks();
  for (const auto name : hardwareNames()) {
    const auto tried = tryHardware(*hardwareNamed(name));
    EXPECT_TRUE(!tried || name != "h264_vaapi" || std::filesystem::exists("/dev/dri"));
    EXPECT_TRUE(tried || tried.error().text.starts_with("cannot encode by " + std::string(name) + ": "));
  }
}

}  // namespace
}  // namespace kvo::media
