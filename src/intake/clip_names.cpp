#include "intake/clip_names.h"

#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr int kMostTracks = 40;
constexpr std::array<std::string_view, 6> kNetworks = {"\\\\",   "smb://",  "cifs://",
                                                       "nfs://", "sftp://", "dav://"};

// The number of a CD track by its name, 0 for none.
int trackOf(std::string_view path) {
  const auto name = fileNamePart(path);
  for (int track = 1; track <= kMostTracks; ++track) {
    const auto digits = std::to_string(track);
    if (sameText(name, "Track" + std::string(digits.size() < 2 ? "0" : "") + digits + ".cda")) return track;
  }
  return 0;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char small = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
  return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

// An ASCII character written as in an address, at the front of `text`; "%2" and "%zz" are none.
bool isEncoded(std::string_view text) {
  return text.size() >= 3 && text[0] == '%' && text[1] < '8' && hexDigit(text[1]) >= 0 &&
         hexDigit(text[2]) >= 0;
}

}  // namespace

std::vector<std::string> namesIn(const std::string& text, const Files& files) {
  if (files.exists(text)) return {text};
  auto list = text;
  if (list.find("  ") != std::string::npos) {
    if (const auto quote = list.find('"'); quote != std::string::npos) {
      list[quote] = '\0';
      list = std::string(trimmed(list));
    }
  }
  if (list.find('\0') == std::string::npos) {
    const auto plain = replaced(list, "\"", "");
    const auto name = std::string(trimmed(plain));
    return name.empty() ? std::vector<std::string>() : std::vector{name};
  }
  std::replace(list.begin(), list.end(), '"', '\0');
  list += '\0';
  std::vector<std::string> names;
  std::string folder;
  for (std::size_t from = 0, end = 0; (end = list.find('\0', from)) != std::string::npos; from = end + 1) {
    const auto part = std::string(trimmed(std::string_view(list).substr(from, end - from)));
    if (from == 0) {
      folder = withSeparator(part);
    } else if (!part.empty()) {
      names.push_back(folder + part);
    }
  }
  return names;
}

void OrderCDATrackList(std::vector<std::string>& names) {
  std::stable_sort(names.begin(), names.end(), [](const auto& a, const auto& b) {
    const auto place = [](int track) { return track == 0 ? kMostTracks + 1 : track; };
    return place(trackOf(a)) < place(trackOf(b));
  });
}

std::string SmartName(std::string_view fileName) {
  auto name = fileName.substr(0, std::min(fileName.rfind('.'), fileName.size()));
  std::string words;
  while (!name.empty()) {
    char c = name.front();
    const std::size_t taken = isEncoded(name) ? 3 : 1;
    if (taken == 3) c = static_cast<char>(hexDigit(name[1]) * 16 + hexDigit(name[2]));
    if (c == '+' || c == '_' || (c >= '\0' && c < ' ')) c = ' ';
    if (c != ' ' || (!words.empty() && words.back() != ' ')) words += c;
    name.remove_prefix(taken);
  }
  return std::string(trimmed(words));
}

bool isUnmapped(std::string_view name) {
  return std::any_of(kNetworks.begin(), kNetworks.end(),
                     [&](auto network) { return sameText(name.substr(0, network.size()), network); });
}

}  // namespace kvo
