#include "intake/intake_class.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/records/media_kinds.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

namespace kvo {
namespace {

constexpr std::string_view kImages[] = {"JPG", "PEG", "JPEG", "BMP", "WMF", "JPE"};
constexpr std::string_view kPictures[] = {"FLI", "FLC", "GIF", "TIF", "TIFF", "ICO", "PCX", "TGA", "PIC"};
constexpr std::string_view kRealFamily[] = {"RM", "RMX", "ROB", "RMM", "RMJ", "RT", "RP", "SDP"};
constexpr std::string_view kPages[] = {"HTML", "SHTML", "HTM", "URL", "TML"};
constexpr std::string_view kFlash[] = {"SWF", "XML"};
constexpr std::string_view kArchives[] = {"ZIP", "RAR"};
constexpr std::string_view kNonMedia[] = {
    "EXE", "INI", "DBX", "NWS", "PIF", "COM", "REG", "RTF", "TXT", "DOC", "ENC", "PDF", "DLL",
    "VBX", "OCX", "JS",  "CSS",  // up to here also of an address
    "SCR", "BAT", "EML", "JBF", "GID", "CNT", "PAL", "LOG", "DIZ", "TDB", "HLP", "VDF", "DB"};
constexpr std::size_t kRefusedAsAddress = 17;

constexpr std::string_view kStreams[] = {"ASF", "ASX", "WMA", "WMV", "WAX", "WVX"};
constexpr std::string_view kScores[] = {"MID", "IDI", "RMI"};

bool isOneOf(std::string_view extension, std::span<const std::string_view> table) {
  return std::find(table.begin(), table.end(), extension) != table.end();
}

// The path of an address, without its host; empty for a host alone.
std::string_view pathOfAddress(std::string_view address) {
  address.remove_prefix(address.find("://") + 3);
  const auto slash = address.find('/');
  return slash == std::string_view::npos ? std::string_view() : address.substr(slash + 1);
}

IntakeClass classOf(std::string_view extension) {
  constexpr struct {
    std::span<const std::string_view> extensions;
    IntakeClass intakeClass;
  } kTables[] = {{kImages, IntakeClass::Image},
                 {kPictures, IntakeClass::Picture},
                 {kRealFamily, IntakeClass::RealFamily},
                 {kNonMedia, IntakeClass::NonMedia},
                 {kArchives, IntakeClass::Archive},
                 {kPages, IntakeClass::Page},
                 {kFlash, IntakeClass::Flash}};
  if (extension == "MOV") return IntakeClass::QuickTime;
  if (extension == "CDA") return IntakeClass::CdTrack;
  for (const auto& [extensions, intakeClass] : kTables) {
    if (isOneOf(extension, extensions)) return intakeClass;
  }
  return IntakeClass::Media;
}

}  // namespace

IntakeClass intakeClass(std::string_view name) {
  if (sameText(name, "AUTORUN.INF")) return IntakeClass::ExtendedCd;
  if (holdsText(name, ".MPEG")) return IntakeClass::Media;  // its end is that of "JPEG"
  const auto byEnd = classOf(extensionOf(name));
  const auto* kind = byEnd == IntakeClass::Media ? mediaKind(name) : nullptr;
  return kind != nullptr && kind->mediaClass == MediaClass::Still ? IntakeClass::Image : byEnd;
}

IntakeClass intakeClassOfAddress(std::string_view address) {
  const auto path = pathOfAddress(address);
  return path.empty() ? IntakeClass::Media : classOf(extensionOf(path));
}

bool isRefusedAddress(std::string_view address) {
  return isOneOf(extensionOf(pathOfAddress(address)), std::span(kNonMedia).first(kRefusedAsAddress));
}

bool namesStream(std::string_view address) { return isOneOf(extensionOf(pathOfAddress(address)), kStreams); }

bool isSoundType(std::string_view name) { return isSoundByName(name) && !reportsNoLength(name); }

bool reportsNoLength(std::string_view name) {
  const auto* kind = mediaKind(name);
  return isOneOf(extensionOf(name), kScores) || intakeClass(name) != IntakeClass::Media ||
         (kind != nullptr && kind->mediaClass == MediaClass::Still);
}

}  // namespace kvo
