#include "engine/run/profile_file.h"

#include "engine/document/document_reader.h"

#include <cmath>
#include <string_view>

#include <pugixml.hpp>

namespace kvo::engine {
namespace {

constexpr double kTicks = 1e7;  // of avgtimeperframe, in a second
// "</PRX>" in UTF-16: what stands behind it need not be any.
constexpr std::string_view kEnd("<\0/\0P\0R\0X\0>\0", 12);

bool readSound(const pugi::xml_node& stream, EncodeProfile& profile) {
  const auto wave = stream.child("wmmediatype").child("waveformatex");
  profile.audioBits = stream.attribute("bitrate").as_int();
  profile.channels = wave.attribute("nChannels").as_int();
  profile.sampleRate = wave.attribute("nSamplesPerSec").as_int();
  return profile.audioBits > 0 && profile.channels >= 1 && profile.channels <= 2 &&
         profile.sampleRate >= 8000 && profile.sampleRate <= 48000;
}

bool readPicture(const pugi::xml_node& stream, EncodeProfile& profile) {
  const auto media = stream.child("wmmediatype");
  const auto info = media.child("videoinfoheader");
  const auto bitmap = info.child("bitmapinfoheader");
  const double ticks = info.attribute("avgtimeperframe").as_double();
  const auto rate =
      ticks > 0 ? FrameRate::fromDecimal(std::round(kTicks / ticks * 1000) / 1000) : std::nullopt;
  profile.width = bitmap.attribute("biwidth").as_int();
  profile.height = bitmap.attribute("biheight").as_int();
  profile.videoBits = stream.attribute("bitRate").as_int();
  profile.quality = stream.attribute("vbrquality").as_int();
  const auto isSide = [](int side) { return side >= 1 && side <= kMaxSide; };
  if (!rate || !isSide(profile.width) || !isSide(profile.height)) return false;
  profile.frameRate = *rate;
  return profile.videoBits > 0 || (profile.quality >= 1 && profile.quality <= 100);
}

}  // namespace

Result<std::optional<EncodeProfile>> readProfileFile(std::string bytes) {
  if (const auto end = bytes.find(kEnd); end != std::string::npos) bytes.resize(end + kEnd.size());
  pugi::xml_document document;
  const auto read =
      document.load_buffer(bytes.data(), bytes.size(), pugi::parse_default, pugi::encoding_utf16_le);
  const auto root = document.child("PRX");
  if (!read || !root) return Error{"it is no profile file"};
  const auto profileNode = root.child("profile");
  if (!profileNode) return std::optional<EncodeProfile>();
  EncodeProfile profile;
  for (const auto stream : profileNode.children("streamconfig")) {
    const std::string_view kind = stream.attribute("majortype").value();
    if (kind == kSoundStream && !readSound(stream, profile))
      return Error{"its sound is of a kind that cannot be made"};
    if (kind == kPictureStream && !readPicture(stream, profile))
      return Error{"its picture is of a kind that cannot be made"};
  }
  return std::optional(profile);
}

}  // namespace kvo::engine
