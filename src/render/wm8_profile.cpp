#include "render/wm8_profile.h"

#include "base/text.h"

#include <array>
#include <cmath>

namespace kvo {
namespace {

struct Wm8Profile {
  int audioBits;
  int blockAlign;
  int channels;
  int sampleRate;
  int bytesPerSecond;
  std::string_view codecData;
  int videoBits;  // 0 at a variable bit rate
  int timePerFrame;
  int width;
  int height;
  int quality;
};

// clang-format off
constexpr std::array<Wm8Profile, kLastProfile - kSystemProfiles + 1> kWm8Profiles = {{
    {5000, 40, 1, 8000, 625, "00220000000000000000", 15000, 666666, 160, 120, 75},  // 26
    {10168, 59, 1, 11025, 1271, "00220000000000000000", 22000, 666666, 176, 144, 75},  // 27
    {16000, 640, 1, 16000, 2000, "002200000E0080070000", 84000, 666666, 320, 240, 75},  // 28
    {40000, 960, 2, 32000, 5000, "00880000170080250000", 185000, 333333, 320, 240, 75},  // 29
    {48000, 1152, 2, 32000, 6000, "008800001700002D0000", 302000, 333333, 320, 240, 75},  // 30
    {64040, 1487, 2, 44100, 8005, "008800000F00792E0000", 386000, 333333, 320, 240, 75},  // 31
    {64040, 1487, 2, 44100, 8005, "008800000F00792E0000", 636000, 333333, 320, 240, 75},  // 32
    {128040, 2973, 2, 44100, 16005, "008800000F00E95C0000", 1272000, 333333, 320, 240, 75},  // 33
    {148000, 1152, 2, 32000, 6000, "008800001700002D0000", 302000, 333333, 352, 288, 75},  // 34
    {64040, 1487, 2, 44100, 8005, "008800000F00792E0000", 636000, 333333, 352, 288, 75},  // 35
    {64040, 1487, 2, 44100, 8005, "008800000F00792E0000", 0, 333333, 320, 240, 85},  // 36
    {64040, 1487, 2, 44100, 8005, "008800000F00792E0000", 0, 333333, 320, 240, 92},  // 37
    {128040, 2973, 2, 44100, 16005, "008800000F00792E0000", 0, 333333, 320, 240, 97},  // 38
    {256040, 2973, 2, 44100, 16005, "008800000F00792E0000", 0, 333333, 1280, 544, 97},  // 39
    {256040, 2973, 2, 44100, 16005, "008800000F00792E0000", 0, 333333, 1280, 720, 97},  // 40
    {256040, 2973, 2, 44100, 16005, "008800000F00792E0000", 0, 333333, 1280, 1080, 97},  // 41
}};
// clang-format on

const Wm8Profile* wm8ProfileOf(int number) {
  if (number < kSystemProfiles || number > kLastProfile) return nullptr;
  return &kWm8Profiles.at(static_cast<std::size_t>(number - kSystemProfiles));
}

// Rows of the file, as they stand in it.
class Rows {
 public:
  // A row of its own.
  void row(std::size_t indent, std::string_view text) {
    text_.append(blanks(indent)).append(text).append(kCrLf);
  }
  // name="value", and what closes the element.
  void value(std::size_t indent, std::string_view name, std::string_view text, std::string_view close = "") {
    row(indent, std::string(name) + "=" + quoted(text) + std::string(close));
  }
  void value(std::size_t indent, std::string_view name, int number, std::string_view close = "") {
    value(indent, name, std::to_string(number), close);
  }
  void lineEnds(int count) {
    for (; count > 0; --count) text_.append(kCrLf);
  }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

void writeSound(Rows& out, const Wm8Profile& p) {
  out.value(3, "<streamconfig majortype", kSoundStream);
  out.value(11, "streamnumber", 1);
  out.value(11, "streamname", "Audio Stream");
  out.value(10, "inputname", "Audio");
  out.value(11, "bitrate", p.audioBits);
  out.value(11, "bufferwindow", -1, ">");
  out.value(5, "<wmmediatype subtype", "{00000161-0000-0010-8000-00AA00389B71}");
  out.value(11, "bfixedsizesamples", 1);
  out.value(11, "btemporalcompression", 0);
  out.value(11, "lsamplesize", p.blockAlign, ">");
  out.value(7, "<waveformatex wFormatTag", 353);
  out.value(13, "nChannels", p.channels);
  out.value(13, "nSamplesPerSec", p.sampleRate);
  out.value(13, "nAvgBytesPerSec", p.bytesPerSecond);
  out.value(13, "nBlockAlign", p.blockAlign);
  out.value(13, "wBitsPerSample", 16);
  out.value(13, "codecdata", p.codecData, "/>");
  out.row(4, "</wmmediatype>");
  out.row(3, "</streamconfig>");
}

void writeRectangle(Rows& out, std::string_view name, OutputSize size) {
  out.value(4, "<" + std::string(name) + " left", 0);
  out.value(10, "top", 0);
  out.value(10, "right", size.width);
  out.value(10, "bottom", size.height, "/>");
}

void writeBitmap(Rows& out, OutputSize size, std::string_view bitCount) {
  out.value(6, "<bitmapinfoheader biwidth", size.width);
  out.value(16, "biheight", size.height);
  out.value(16, "biplanes", 1);
  out.value(16, "bibitcount", bitCount.empty() ? "24" : bitCount);
  out.value(16, "bicompression", "WMV2");
  for (const auto* name : {"bisizeimage", "biXpelspermeter", "biYpelspermeter", "biclrused"})
    out.value(16, name, 0);
  out.value(16, "biclrimportant", 0, "/>");
}

// How steady the stream is: at a constant rate by a buffer, at a variable one by a quality.
void writeRate(Rows& out, const Wm8Profile& p) {
  out.value(11, "bitRate", p.videoBits);
  if (p.videoBits > 0) return out.value(11, "bufferwindow", 5000, ">");
  out.row(11, "bufferwindow=\"-1\"" + blanks(11) + "reliabletransport=\"1\"");
  out.value(12, "vbrenabled", 1);
  out.value(12, "vbrquality", p.quality);
  out.value(12, "bitratemax", 0);
  out.value(12, "bufferwindowmax", 0, ">");
}

void writePicture(Rows& out, const Wm8Profile& p, OutputSize size, std::string_view bitCount) {
  const bool isConstant = p.videoBits > 0;
  out.value(3, "<streamconfig majortype", kPictureStream);
  out.value(11, "streamnumber", 2);
  out.value(11, "streamname", "Video Stream");
  out.value(11, "inputname", "Video");
  writeRate(out, p);
  out.value(5, "<videomediaprops maxkeyframespacing", 100000000);
  out.value(13, "quality", isConstant ? p.quality : 0, "/>");
  out.value(5, "<wmmediatype subtype", "{32564D57-0000-0010-8000-00AA00389B71}");
  out.value(11, "bfixedsizesamples", 0);
  out.value(11, "btemporalcompression", 1);
  out.value(11, "lsamplesize", 0, ">");
  out.value(5, "<videoinfoheader dwbitrate", isConstant ? p.videoBits : 1);
  out.value(12, "dwbiterrorrate", 0);
  out.value(12, "avgtimeperframe", p.timePerFrame, ">");
  writeRectangle(out, "rcsource", size);
  writeRectangle(out, "rctarget", size);
  writeBitmap(out, size, bitCount);
  out.row(5, "</videoinfoheader>");
  out.row(4, "</wmmediatype>");
  out.row(3, "</streamconfig>");
}

std::string asUtf16(const std::string& ascii) {
  std::string bytes;
  bytes.reserve(ascii.size() * 2);
  for (const char c : ascii) bytes.append({c, '\0'});
  return bytes;
}

}  // namespace

std::optional<EncodeProfile> wm8Profile(int number) {
  constexpr double kTicks = 1e7;  // of timePerFrame, in a second
  const auto* p = wm8ProfileOf(number);
  if (p == nullptr) return std::nullopt;
  const auto rate = FrameRate::fromDecimal(std::round(kTicks / p->timePerFrame));
  return EncodeProfile{p->width,      p->height,   rate.value_or(FrameRate()),
                       p->videoBits,  p->quality,  p->channels,
                       p->sampleRate, p->audioBits};
}

std::optional<OutputSize> wm8ProfileSize(int number) {
  const auto* profile = wm8ProfileOf(number);
  if (profile == nullptr) return std::nullopt;
  return OutputSize{profile->width, profile->height};
}

std::string wm8ProfileBytes(int number, std::optional<OutputSize> size, std::string_view bitCount) {
  const auto* profile = wm8ProfileOf(number);
  if (profile == nullptr) return {};
  Rows out;
  out.row(0, "<PRX>");
  out.value(2, "<profile version", 524288);
  out.value(7, "name", "KVO5 WM8 Profile");
  out.value(7, "guid", "{BBC75500-33D2-4466-B86B-122B201CC9AE}");
  out.value(7, "description", "KVO5 WM8 Profile", ">");
  writeSound(out, *profile);
  writePicture(out, *profile, size.value_or(OutputSize{profile->width, profile->height}), bitCount);
  out.row(2, "</profile>");
  out.lineEnds(2);
  out.row(0, "</PRX>");
  out.lineEnds(1);
  return asUtf16(out.text()).append(kCrLf).append(kCrLf);
}

}  // namespace kvo
