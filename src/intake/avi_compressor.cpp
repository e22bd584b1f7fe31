#include "intake/avi_compressor.h"

#include "base/text.h"
#include "intake/codec_words.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kvo {
namespace {

constexpr std::uint64_t kMostOfTable = 4U << 20U;
constexpr std::string_view kNoNotes = "N/A";
constexpr std::string_view kNoAddress = "None known";  // as the table has it

using namespace std::string_view_literals;

// In this order: a code may stand in the head by chance, and the first that does decides.
constexpr std::array kSoughtCodes = {
    "3IV1"sv, "ATIV"sv, "3IV2"sv,   "AASC"sv,    "AEMI"sv,     "AFLI"sv, "AFLC"sv, "AMPG"sv, "ANIM"sv,
    "AP41"sv, "ASV1"sv, "ASV2"sv,   "ASVX"sv,    "AUR2"sv,     "AURA"sv, "BINK"sv, "BT20"sv, "BTCV"sv,
    "BW10"sv, "CC12"sv, "CDVC"sv,   "CFCC"sv,    "CGDI"sv,     "CHAM"sv, "CJPG"sv, "CPLA"sv, "CRAM"sv,
    "CVID"sv, "CWLT"sv, "CYUV"sv,   "CYUY"sv,    "DIV3"sv,     "DIV4"sv, "DIV5"sv, "DX50"sv, "DIVX"sv,
    "DMB1"sv, "DMB2"sv, "DUCK"sv,   "DVSD"sv,    "DVE2"sv,     "DVX1"sv, "DVX2"sv, "DVX3"sv, "ELK0"sv,
    "EKQ0"sv, "ESCP"sv, "ETV1"sv,   "ETV2"sv,    "ETVC"sv,     "FLJP"sv, "FRWA"sv, "FRWD"sv, "GWLT"sv,
    "H260"sv, "H261"sv, "H262"sv,   "H263"sv,    "H264"sv,     "H265"sv, "H266"sv, "H267"sv, "H268"sv,
    "H269"sv, "HFYU"sv, "HMCR"sv,   "HMRR"sv,    "I263"sv,     "IAN"sv,  "ICLB"sv, "IGOR"sv, "IJPG"sv,
    "ILVC"sv, "ILVR"sv, "IPDV"sv,   "IR21"sv,    "IV30"sv,     "IV31"sv, "IV32"sv, "IV33"sv, "IV34"sv,
    "IV35"sv, "IV36"sv, "IV37"sv,   "IV38"sv,    "IV39"sv,     "IV40"sv, "IV41"sv, "IV42"sv, "IV43"sv,
    "IV44"sv, "IV45"sv, "IV46"sv,   "IV47"sv,    "IV48"sv,     "IV49"sv, "IV50"sv, "JPGL"sv, "LEAD"sv,
    "LJPG"sv, "M263"sv, "M261"sv,   "MC12"sv,    "MCAM"sv,     "MJPG"sv, "MP42"sv, "MP43"sv, "MP4S"sv,
    "MPEG"sv, "MPG4"sv, "MPGI"sv,   "MRCA"sv,    "MRLE"sv,     "MSVC"sv, "PDVC"sv, "PGVV"sv, "PIM2"sv,
    "PVMM"sv, "QPEG"sv, "RGBT"sv,   "RLE"sv,     "RT21"sv,     "S422"sv, "SDCC"sv, "SFMC"sv, "SMSC"sv,
    "SMSD"sv, "SMSV"sv, "SPIG"sv,   "SQZ2"sv,    "SV10"sv,     "STVA"sv, "STVB"sv, "STVC"sv, "STVX"sv,
    "STVY"sv, "SVQ1"sv, "TLMS"sv,   "TLST"sv,    "TM20"sv,     "TM2X"sv, "TMIC"sv, "TMOT"sv, "TR20"sv,
    "TSCC"sv, "TV10"sv, "TY2C"sv,   "TY2N"sv,    "TY0N"sv,     "UCOD"sv, "ULTI"sv, "V261"sv, "VCR1"sv,
    "VCR2"sv, "VDOM"sv, "VDOW"sv,   "VIDSDIB"sv, "VIDSVIDS"sv, "VIVO"sv, "VIXL"sv, "VLV1"sv, "VP30"sv,
    "VP31"sv, "VX1K"sv, "VX2K"sv,   "VXSP"sv,    "WBVC"sv,     "WHAM"sv, "WINX"sv, "WJPG"sv, "WNV1"sv,
    "X263"sv, "XLV0"sv, "XMPG"sv,   "Y41P"sv,    "Y8  "sv,     "YC12"sv, "YUV8"sv, "YUY2"sv, "YUYV"sv,
    "ZPEG"sv, "AVIH"sv, "VIDS\0"sv, "XVID\0"sv};

// What some of them stand for: the kind of a stream, and what its head has behind it.
struct StoodFor {
  std::string_view sought;
  std::string_view codec;
};
constexpr StoodFor kStoodFor[] = {
    {"VIDSDIB", "Uncompressed"}, {"VIDSVIDS", "VIDS"}, {"VIDS\0"sv, "Uncompressed"}, {"XVID\0"sv, "XVID"}};

std::string_view codecOf(std::string_view sought) {
  const auto row = std::ranges::find(kStoodFor, sought, &StoodFor::sought);
  return row == std::end(kStoodFor) ? sought : row->codec;
}

}  // namespace

std::optional<CodecDescription> GetCodecDesc(const Files& files, const ProgramFolder& folder,
                                             std::string_view code) {
  auto bytes = files.read(folder.beside("\\Fourcc.dat"), kMostOfTable);
  if (!bytes) return std::nullopt;
  const auto text = textFromBytes(std::move(*bytes));
  std::string_view rest = text;
  while (!rest.empty()) {
    auto fields = commaFields(nextLine(rest));
    if (fields.empty() || !sameText(fields[0], trimmed(code))) continue;
    fields.resize(4);
    return CodecDescription{std::move(fields[1]), std::move(fields[2]), std::move(fields[3])};
  }
  return std::nullopt;
}

CodecDescription describedCodec(const Files& files, const ProgramFolder& folder, std::string_view code) {
  const std::string unknown(kUnknownCodec);
  return GetCodecDesc(files, folder, code)
      .value_or(CodecDescription{unknown, unknown, std::string(kNoNotes)});
}

bool isAviKind(const Movie& clip) {
  const auto kind = extensionOf(clip.MovieName());
  return (kind == "AVI" || kind == "VCR") && !isAddress(clip.MovieName());
}

std::string codecInHead(std::string_view head) {
  const auto looked = upper(head.substr(0, kAviHead));
  for (const auto sought : kSoughtCodes) {
    if (looked.find(sought) != std::string::npos) return std::string(codecOf(sought));
  }
  return std::string(kUnknownCodec);
}

bool namesCodec(std::string_view codec) { return codec != kUnknownCodec && codec != "AVIH"; }

AviCompressor GetAVICompressor(const AviLookPorts& ports, const std::string& path) {
  const auto head = ports.files.readHead(path, kAviHead);
  AviCompressor found;
  if (head) found.codec = codecInHead(*head);
  found.isKnown = found.codec != kUnknownCodec;
  found.description = describedCodec(ports.files, ports.folder, found.codec);
  if (!found.isKnown && head) found.isWindowsMedia = IsWMV(path, ports.probe);
  return found;
}

}  // namespace kvo
