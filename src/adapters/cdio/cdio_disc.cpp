#include "adapters/cdio/cdio_disc.h"

#include <algorithm>
#include <cdio/cdio.h>
#include <cdio/logging.h>
#include <fstream>
#include <memory>
#include <sstream>
#include <string_view>

namespace kvo {
namespace {

constexpr int kMostDiscTracks = 99;

// Blanks, tabs, line ends and backslashes stand in the list as three octal digits behind a backslash.
std::string unescapedPlace(std::string_view place) {
  const auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
  std::string text;
  for (std::size_t i = 0; i < place.size(); ++i) {
    const auto digits = place.substr(std::min(i + 1, place.size()), 3);
    if (place[i] == '\\' && digits.size() == 3 && std::ranges::all_of(digits, isOctal)) {
      text += static_cast<char>((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0'));
      i += 3;
    } else {
      text += place[i];
    }
  }
  return text;
}

std::string withoutSeparator(std::string folder) {
  while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
  return folder;
}

// What is mounted at a folder; of several the last, which lies on top. Empty where nothing is.
std::string deviceAt(const std::string& folder, const std::string& mounts) {
  const auto wanted = withoutSeparator(folder);
  std::ifstream list(mounts);
  std::string line, device;
  while (std::getline(list, line)) {
    std::istringstream words(line);
    std::string source, place;
    if (words >> source >> place && unescapedPlace(place) == wanted) device = unescapedPlace(source);
  }
  return device.starts_with('/') ? device : std::string();
}

void keepSilent(cdio_log_level_t /*level*/, const char* /*message*/) {}

struct CloseDisc {
  void operator()(CdIo_t* disc) const { cdio_destroy(disc); }
};

}  // namespace

Result<DiscTable> CdioDisc::read(const std::string& folder) {
  const Error none{"there is no audio CD at " + folder};
  const auto device = deviceAt(folder, mounts_);
  if (device.empty()) return none;
  cdio_log_set_handler(keepSilent);
  const std::unique_ptr<CdIo_t, CloseDisc> disc(cdio_open(device.c_str(), DRIVER_UNKNOWN));
  if (!disc) return none;
  const int first = cdio_get_first_track_num(disc.get());
  const int count = cdio_get_num_tracks(disc.get());
  if (first < 1 || count < 1 || first + count - 1 > kMostDiscTracks) return none;
  DiscTable table;
  for (int track = first; track < first + count; ++track) {
    const auto number = static_cast<track_t>(track);
    table.tracks.push_back({cdio_get_track_lba(disc.get(), number),
                            cdio_get_track_format(disc.get(), number) == TRACK_FORMAT_AUDIO});
  }
  table.end = cdio_get_track_lba(disc.get(), CDIO_CDROM_LEADOUT_TRACK);
  if (std::ranges::none_of(table.tracks, &DiscTrack::isSound)) return none;
  return table;
}

}  // namespace kvo
