#include "render/output_profiles.h"

#include "base/numbers.h"
#include "base/text.h"
#include "core/telling/translated.h"
#include "render/wm8_profile.h"
#include "vocabulary/encode_profiles.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::size_t kGap = 100;         // between the text of a row and its number
constexpr std::size_t kNumberDigits = 4;  // at the end of a row

struct ProfileRow {
  int number;
  const char* text;
  int description;  // number of its text; 0 for none
};

// clang-format off
constexpr std::array<ProfileRow, 8> kSoundRows = {{
    {16, "Audio for low bit rate voice-oriented content (6.5 Kbps)", 0},
    {17, "Audio for FM radio quality for dial-up modems (28.8 Kbps mono)", 0},
    {18, "Audio for FM radio quality for dial-up modems (28.8 Kbps stereo)", 0},
    {19, "Audio for dial-up modems (56 Kbps stereo)", 0},
    {20, "Audio for single-channel ISDN (64 Kbps stereo", 0},
    {21, "Audio for near-CD quality (64 Kbps stereo)", 0},
    {22, "Audio for CD-quality (96 Kbps stereo)", 0},
    {23, "Audio for CD-quality transparency (128 Kbps stereo)", 0},
}};

// In the order of the list.
constexpr std::array<ProfileRow, 34> kPictureRows = {{
    {0, "WM7 Video for dial-up modems or single channel ISDN (28.8 to 56 Kbps)", 505},
    {1, "WM7 Video for LAN, cable modem, or xDSL (100 to 768 Kbps)", 506},
    {2, "WM7 Video for dial-up modems or LAN (28.8 to 100 Kbps)", 507},
    {3, "WM7 Video with voice emphasis for dial-up modems (28.8 Kbps)", 508},
    {4, "WM7 Video with audio emphasis for dial-up modems (28.8 Kbps)", 509},
    {5, "WM7 Video for Web servers (28.8 Kbps)", 510},
    {6, "WM7 Video for Web servers (56 Kbps)", 511},
    {7, "WM7 Video for single-channel ISDN (64 Kbps)", 512},
    {8, "WM7 Video for e-mail and dual-channel ISDN (128 Kbps)", 513},
    {9, "WM7 Video for broadband NTSC (256 Kbps)", 514},
    {10, "WM7 Video for broadband NTSC (384 Kbps)", 514},
    {11, "WM7 Video for broadband NTSC (768 Kbps)", 514},
    {12, "WM7 Video for broadband NTSC (1500 Kbps total)", 514},
    {13, "WM7 Video for broadband NTSC (2 Mbps total)", 514},
    {14, "WM7 Video for broadband film content (768 Kbps)", 515},
    {15, "WM7 Video for broadband film content (1500 Kbps total)", 515},
    {24, "WM7 Video for color PDA devices (225 Kbps)", 516},
    {25, "WM7 Video for color PDA devices (150 Kbps)", 517},
    {26, "WMV8 for Dial-up Modems (28.8 Kbps)", 518},
    {27, "WMV8 for Dial-up Modems (56 Kbps)", 519},
    {28, "WMV8 for Local Area Network (100 Kbps)", 520},
    {29, "WMV8 for Local Area Network (256 Kbps)", 521},
    {30, "WMV8 for Local Area Network (384 Kbps)", 521},
    {31, "WMV8 for Local Area Network (768 Kbps)", 521},
    {32, "WMV8 for Broadband (NTSC, 700 Kbps)", 521},
    {33, "WMV8 for Broadband (NTSC, 1400 Kbps)", 521},
    {34, "WMV8 for Broadband (PAL, 384 Kbps)", 521},
    {35, "WMV8 for Broadband (PAL, 700 Kbps)", 521},
    {36, "WMV8 Fair Quality based VBR for Broadband", 522},
    {37, "WMV8 High Quality based VBR for Broadband.", 523},
    {38, "WMV8 Best Quality based VBR for Broadband.", 524},
    {39, "WM8 Best Quality VBR 1280x544", 0},
    {40, "WM8 Best Quality VBR 720p 1280x720", 0},
    {41, "WM8 Best Quality VBR 1080p 1280x1080", 0},
}};

constexpr int kFirstDescription = 505;
constexpr std::array<const char*, 20> kDescriptions = {
    "Use this multiple bit rate profile for target audiences with a dial-up modem or single channel ISDN connection (bandwidth is between 28.8 Kbps and 56 Kbps).",  // 505
    "Use this multiple bit rate profile for target audiences with a dual channel ISDN, LAN, cable modem, or xDSL connection (bandwidth is between 100 Kbps and 500 Kbps).",  // 506
    "Use this multiple bit rate profile for target audiences with a dial-up modem, LAN, or dual-channel ISDN connection (bandwidths between 28.8 to 100 Kbps).",  // 507
    "Use for content that emphasizes voice, such as presentations and news. Target audience has a dial-up modem connection (28.8 Kbps).",  // 508
    "Use for content that emphasizes audio, such as music videos. Target audience has a dial-up modem connection (28.8 Kbps).",  // 509
    "Use when streaming from a Web server using HTTP protocol. Encodes a single video bit rate.",  // 510
    "Use when streaming from a Web server using HTTP protocol. Encodes a single video bit rate.",  // 511
    "Use for target audience with a dial-up single-channel ISDN connection (64 Kbps).",  // 512
    "Use when streaming general purpose content and distributing through a server, e-mail, or download.",  // 513
    "Use for high-quality video and audio content, or with content intended for local playback or download and play. Target audience has a LAN,  cable modem, or xDSL connection.",  // 514
    "Use for content intended for local playback or download and play. Encodes broadband video (640x480x24 fps) and near-CD quality audio from film-based content. Inverse telecine filter must be enabled.",  // 515
    "Use this profile when creating video files for playback on faster color Pocket PC ",  // 516
    "Use this profile when creating video files for playback on most PocketPC.",  // 517
    "Use this profile for low bit rate audio/video delivery over 28.8 Kbps dial-up connections.",  // 518
    "Use this profile for low bit rate audio/video delivery over 56 Kbps dial-up connections.",  // 519
    "Use this profile for medium bit rate delivery over dual-channel ISDN, LAN, or cable modem connections.",  // 520
    "Use this profile for high quality audio/video content intended for local playback or for download and playback.",  // 521
    "Fair to high quality based profile for VBR content that is quality constrained.",  // 522
    "High to best quality based profile for VBR content that is quality constrained.",  // 523
    "Best quality based profile for VBR content that is quality constrained.",  // 524
};
// clang-format on

std::string rowText(const ProfileRow& row) {
  return translated(row.text) + blanks(kGap) + std::to_string(row.number);
}

const ProfileRow* rowOf(int number) {
  const auto is = [&](const ProfileRow& row) { return row.number == number; };
  const auto* sound = std::find_if(kSoundRows.begin(), kSoundRows.end(), is);
  if (sound != kSoundRows.end()) return sound;
  const auto* picture = std::find_if(kPictureRows.begin(), kPictureRows.end(), is);
  return picture != kPictureRows.end() ? picture : nullptr;
}

std::string sizeText(int first, int second) { return std::to_string(first) + "x" + std::to_string(second); }

// Which of the movie's sides is meant, and the words that go with it.
Box oddSideWarning(std::string_view side, std::string_view caption) {
  return {std::string(caption),
          "The output " + std::string(side) + " dimension you have specified is not an even number.\r\n" +
              "This may cause the render to fail. For optimal encoding results, both the\r\n" +
              "height and width dimensions should be equally divisible by 4.",
          BoxButtons::Ok, BoxIcon::Warning};
}

std::string descriptionText(int number, OutputSize output, bool usesCodecSize) {
  constexpr std::array<const char*, 3> kHighDefinition = {
      "Use this profile for High Definition Unconstrained output ONLY",
      "Use this profile for High Definition 720p output ONLY",
      "Use this profile for High Definition 1080p output ONLY"};
  constexpr int kFirstHighDefinition = 39;
  const auto dimensions = GetProfileXYDimensions(number);
  if (!dimensions) {
    const auto high = static_cast<std::size_t>(number - kFirstHighDefinition);
    return number >= kFirstHighDefinition && high < kHighDefinition.size()
               ? translated(kHighDefinition.at(high))
               : std::string();
  }
  auto text = dimensions->description + std::string(kCrLf);
  if (number >= kSystemProfiles && !usesCodecSize)
    return text + translated("HxW maintained (%1)", {sizeText(output.height, output.width)});
  return text + translated(dimensions->size == output ? "HxW IS maintained (%1)" : "HxW NOT maintained (%1)",
                           {sizeText(dimensions->size.width, dimensions->size.height)});
}

}  // namespace

std::vector<std::string> PopulateWMVProfileOpts(bool audioOnly) {
  std::vector<std::string> rows;
  const auto take = [&](const auto& table) {
    std::transform(table.begin(), table.end(), std::back_inserter(rows), rowText);
  };
  if (audioOnly) {
    take(kSoundRows);
  } else {
    take(kPictureRows);
  }
  return rows;
}

int GetWMVRenderProfileInt(std::string_view row) {
  const auto digits = row.substr(row.size() - std::min(row.size(), kNumberDigits));
  const int number = toLongClamped(ToNumber(digits));
  return number == 0 ? 1 : number;
}

std::string profileText(int number) {
  const auto* row = rowOf(number);
  return row != nullptr ? translated(row->text) : std::string();
}

std::optional<ProfileDimensions> GetProfileXYDimensions(int number) {
  const auto* row = rowOf(number);
  if (row == nullptr || row->description == 0) return std::nullopt;
  const auto text =
      translated(kDescriptions.at(static_cast<std::size_t>(row->description - kFirstDescription)));
  if (const auto own = systemProfile(number)) return ProfileDimensions{{own->width, own->height}, text};
  return ProfileDimensions{*wm8ProfileSize(number), text};
}

ProfileDescription ShowProfileDescription(int number, OutputSize output, bool usesCodecSize) {
  ProfileDescription told{descriptionText(number, output, usesCodecSize), {}};
  if (output.height % 2 != 0) told.warnings.push_back(oddSideWarning("height", "KVO5 - Encoding warning"));
  if (output.width % 2 != 0) told.warnings.push_back(oddSideWarning("width", "KVO - Encoding warning"));
  return told;
}

}  // namespace kvo
