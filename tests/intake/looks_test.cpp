// What the first bytes of a file tell: codecs of AVI files, and the heads of pictures.
#include "base/text.h"
#include "core/records/movie.h"
#include "intake/avi_compressor.h"
#include "intake/image_info.h"
#include "intake/metafile.h"
#include "support/memory_files.h"
#include "support/real_world.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(AviCompressor, TheFirstOfItsCodesDecides) {
  const std::string far(299, '.');
  // clang-format off
  const std::pair<std::string, const char*> rows[] = {
      {"strh....XVID and DIVX", "DIVX"}, {"XVID", "Unknown"}, {"XVID\0"s, "XVID"},
      {"strhvidsxvid\0"s, "XVID"}, {"vids\0"s, "Uncompressed"}, {"vidsDIB ", "Uncompressed"},
      {"VIDSVIDS", "VIDS"}, {"RIFF....AVI LIST....hdrlavih....vids\0xvid\0"s, "AVIH"},
      {"a \xE9gorIV44", "IV44"}, {"h270", "Unknown"}, {"h269", "H269"}, {"Y8 ", "Unknown"},
      {"Y8  ", "Y8  "}, {far + "MJPG", "Unknown"}, {far.substr(4) + "MJPG", "MJPG"},
      {far.substr(2) + "MJPG", "Unknown"}, {"", "Unknown"}};
  // clang-format on
  for (const auto& [head, codec] : rows) EXPECT_EQ(codecInHead(head), codec) << head;
}

TEST(AviCompressor, EachCodeHasARecordThatSaysSomething) {
  test::MemoryFiles files;
  const ProgramFolder folder("/prog");
  const auto table = test::bytesOf(KVO_SHIPPED "/Fourcc.dat");
  files.all[folder.beside("\\Fourcc.dat")] = table;
  std::set<std::string> codes;
  std::string_view rest = table;
  while (!rest.empty()) {
    const auto fields = commaFields(nextLine(rest));
    ASSERT_EQ(fields.size(), 4U) << fields[0];
    for (const auto& field : fields) EXPECT_FALSE(field.empty()) << fields[0];
    EXPECT_TRUE(codes.insert(fields[0]).second) << fields[0];
    const bool isKind = fields[0] == "VIDS" || fields[0] == "Uncompressed";
    const auto shown = fields[0] == "Y8" ? "Y8  " : fields[0] == "XVID" ? "XVID\0"s : fields[0];
    EXPECT_EQ(isKind ? fields[0] : trimmed(codecInHead(shown)), fields[0]);
    EXPECT_EQ(GetCodecDesc(files, folder, " " + lower(fields[0]) + " "),
              (CodecDescription{fields[1], fields[2], fields[3]}));
  }
  for (const auto* named : {"VIDSVIDS", "VIDSDIB"}) EXPECT_TRUE(codes.contains(codecInHead(named))) << named;
  EXPECT_EQ(codes.size(), 183U);  // two texts that are sought stand for one code
}

// A TIFF of some entries, each of 12 bytes, Intel order.
std::string tiff(std::string_view entries) {
  return "II*\0\x08\0\0\0"s + static_cast<char>(entries.size() / 12) + "\0"s + std::string(entries);
}

std::string jpegSegment(char marker, const std::string& content) {
  const auto length = content.size() + 2;
  return "\xFF"s + marker + static_cast<char>(length >> 8U) + static_cast<char>(length & 255U) + content;
}

TEST(Metafile, TellsItsPlayableAddressesInTheirOrder) {
  using Addresses = std::vector<std::string>;
  const std::pair<const char*, Addresses> rows[] = {
      {"<asx version = \"3.0\"><Entry><REF HREF = \"http://h/a?x=1&amp;y\" /><ref "
       "href='mms://h/b'/></Entry>\n"
       "<!-- <ref href=\"http://h/no\"> --><moreinfo href=\"http://h/page\"/><entryref href=http://h/c.asx "
       "></asx>",
       {"http://h/a?x=1&y", "mms://h/b", "http://h/c.asx"}},
      {"<ASX><ref title=\"a = b\" href=\"http://h/a\"/><ref href=\"file:///etc/a\"/><ref "
       "href=\"C:\\a.wmv\"/>",
       {"http://h/a"}},
      {"[Reference]\r\nRef1=http://h/a\r\nREF2 = http://h/b\r\nTitle=http://h/no\r\n",
       {"http://h/a", "http://h/b"}},
      {"<asx><ref", {}},
      {"<asx><ref href", {}},
      {"<asx><ref href=\"http://h/a", {"http://h/a"}},
      {"", {}},
  };
  for (const auto& [text, addresses] : rows) EXPECT_EQ(metafileAddresses(text), addresses) << text;
  EXPECT_TRUE(isMetafile("http://h/live.ASX?id=3") && isMetafile("a.wvx") && isMetafile("a.wax"));
  EXPECT_FALSE(isMetafile("http://h/a.wmv?x=.asx") || isMetafile("a.asf"));
}

TEST(ImageInfo, HeadsTellKindSizeAndDepth) {
  using enum ImageKind;
  const auto png = [](char depth, char type) {
    return "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x02\x80\0\0\x01\xE0"s + depth + type;
  };
  const auto pcx = [](std::string_view window) {
    return "\x0A\x05\x01\x08"s + std::string(window) + std::string(53, '\0') + "\x03";
  };
  const std::string frame = jpegSegment('\xC0', "\x08\0\x20\x01\x40\x03"s);
  const auto bmp = [](std::string_view sides) {
    return "BM"s + std::string(12, '\0') + "\x28\0\0\0"s + std::string(sides) + "\x01\0\x18\0"s;
  };
  const std::string shortWidth = "\0\x01\x03\0\x01\0\0\0\x40\x01\0\0"s;  // 256, 16 bits, 320
  const std::string longHeight = "\x01\x01\x04\0\x01\0\0\0\x20\0\0\0"s;
  const std::string depth = "\x02\x01\x03\0\x01\0\0\0\x08\0\0\0"s;
  const std::string turned = "\x12\x01\x03\0\x01\0\0\0\x06\0\0\0"s;
  const std::string motorola =
      "MM\0*\0\0\0\x08\0\x02\x01\0\0\x03\0\0\0\x01\x01\x40\0\0\x01\x01\0\x01\0\0\0\x01\x20\0\0\0"s;
  const std::tuple<const char*, std::string, ImageKind, const char*> rows[] = {
      {"png grey", png(1, 0), Png, "640 x 480 x 1"},
      {"png colour", png(8, 2), Png, "640 x 480 x 24"},
      {"png palette", png(4, 3), Png, "640 x 480 x 8"},
      {"png grey alpha", png(8, 4), Png, "640 x 480 x 16"},
      {"png alpha", png(16, 6), Png, "640 x 480 x 64"},
      {"png of no such type", png(8, 5), Unknown, "0 x 0 x 0, unusable"},
      {"png, cut off", png(8, 2).substr(0, 22), Png, "0 x 0 x 0, unusable"},
      {"gif", "GIF89a\x40\x01\xC8\0\xF3"s, Gif, "320 x 200 x 4"},
      {"gif of no width", "GIF87a\0\0\xC8\0\xF3"s, Gif, "0 x 200 x 4, unusable"},
      {"bmp", bmp("\x40\x01\0\0\xF0\0\0\0"sv), Bmp, "320 x 240 x 24"},
      {"bmp from the top", bmp("\x40\x01\0\0\x10\xFF\xFF\xFF"sv), Bmp, "320 x 240 x 24"},
      {"bmp too wide", bmp("\x30\x75\0\0\xF0\0\0\0"sv), Bmp, "30000 x 240 x 24, unusable"},
      {"bmp of no end", bmp("\xFF\xFF\xFF\xFF\0\0\0\x80"sv), Bmp, "2147483647 x 2147483647 x 24, unusable"},
      {"pcx", pcx("\0\0\0\0\x3F\x01\xC7\0"sv), Pcx, "320 x 200 x 24"},
      {"pcx the wrong way round", pcx("\x10\0\0\0\x05\0\xC7\0"sv), Pcx, "-10 x 200 x 24, unusable"},
      {"tiff", tiff(shortWidth + longHeight + depth), Tiff, "320 x 32 x 8"},
      {"tiff on its side", tiff(shortWidth + longHeight + turned), Tiff, "320 x 32 x 0, turned 6"},
      {"tiff, motorola", motorola, Tiff, "320 x 32 x 0"},
      {"tiff that leads nowhere", "II*\0\xF0\xFF\xFF\xFF"s, Tiff, "0 x 0 x 0, unusable"},
      {"tiff of more entries than it has", "II*\0\x08\0\0\0\xFF\xFF"s + shortWidth, Tiff,
       "0 x 0 x 0, unusable"},
      {"jpeg", "\xFF\xD8"s + jpegSegment('\xE0', "JFIF") + "\xFF" + frame, Jpeg, "320 x 32 x 24"},
      {"jpeg on its side", "\xFF\xD8"s + jpegSegment('\xE1', "Exif\0\0"s + tiff(turned)) + frame, Jpeg,
       "320 x 32 x 24, turned 6"},
      {"jpeg whose exif leads nowhere",
       "\xFF\xD8"s + jpegSegment('\xE1', "Exif\0\0II*\0\xFF\xFF\xFF\xFF"s) + frame, Jpeg, "320 x 32 x 24"},
      {"jpeg whose segment has no length", "\xFF\xD8\xFF\xE0\0\0"s + frame, Jpeg, "0 x 0 x 0, unusable"},
      {"jpeg without a frame", "\xFF\xD8"s + jpegSegment('\xDA', "x") + frame, Jpeg, "0 x 0 x 0, unusable"},
      {"nothing", "", Unknown, "0 x 0 x 0, unusable"},
      {"a text", "GI", Unknown, "0 x 0 x 0, unusable"},
  };
  for (const auto& [name, bytes, kind, told] : rows) {
    CImageInfo image;
    image.readBytes(bytes, bytes.size());
    EXPECT_EQ(image.ImageType(), kind) << name;
    auto head = std::to_string(image.Width()) + " x " + std::to_string(image.Height()) + " x " +
                std::to_string(image.Depth());
    if (image.Orientation() != 1) head += ", turned " + std::to_string(image.Orientation());
    EXPECT_EQ(head + (image.isUsable() ? "" : ", unusable"), told) << name;
  }
}

TEST(ImageInfo, ALongHeadIsReadToItsEndAndTheRecordStandsUpright) {
  test::MemoryFiles files;
  const auto exif = "Exif\0\0"s + tiff("\x12\x01\x03\0\x01\0\0\0\x06\0\0\0"sv);
  files.all["/v/a.jpg"] =
      "\xFF\xD8"s + jpegSegment('\xE1', exif) + jpegSegment('\xE2', std::string(60000, 'x')) +
      jpegSegment('\xE2', std::string(60000, 'x')) + jpegSegment('\xC2', "\x08\0\x20\x01\x40\x03"s);
  files.all["/v/b.jpg"] = "\xFF\xD8";
  Movie clip;
  CImageInfo image;
  for (const std::string name : {"/v/a.jpg", "/v/b.jpg", "/v/missing.jpg"}) {
    image.ReadImageInfo(files, name);
    EXPECT_EQ(AnalyseImage(clip, image), name == "/v/a.jpg") << name;
    EXPECT_EQ(std::tuple(clip.StillW(), clip.StillH()), std::tuple(32, 320)) << name;
  }
}

}  // namespace
}  // namespace kvo
