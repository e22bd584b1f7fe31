#include "intake/metafile.h"

#include "base/text.h"
#include "intake/addresses.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 3> kOnlyTell = {"ASX", "WAX", "WVX"};

std::string resolved(std::string_view text) {
  constexpr std::array<std::pair<std::string_view, char>, 5> kEntities{
      {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};
  std::string plain;
  while (!text.empty()) {
    const auto found =
        std::ranges::find_if(kEntities, [&](const auto& one) { return text.starts_with(one.first); });
    const bool isOne = found != kEntities.end();
    plain += isOne ? found->second : text.front();
    text.remove_prefix(isOne ? found->first.size() : 1);
  }
  return plain;
}

// The value of `href` among the attributes of an element; empty without one.
std::string hrefOf(std::string_view attributes) {
  for (;;) {
    attributes.remove_prefix(std::min(attributes.find_first_not_of(kBlanks), attributes.size()));
    const auto equals = attributes.find('=');
    if (equals == std::string_view::npos) return {};
    const auto name = trimmed(attributes.substr(0, equals));
    attributes.remove_prefix(equals + 1);
    attributes.remove_prefix(std::min(attributes.find_first_not_of(kBlanks), attributes.size()));
    if (attributes.empty()) return {};
    const bool quoted = attributes.front() == '"' || attributes.front() == '\'';
    const auto end = quoted ? attributes.find(attributes.front(), 1) : attributes.find_first_of(kBlanks);
    const auto value =
        attributes.substr(quoted ? 1 : 0, end == std::string_view::npos ? end : end - (quoted ? 1 : 0));
    if (sameText(name, "href")) return resolved(trimmed(value));
    if (end == std::string_view::npos) return {};
    attributes.remove_prefix(end + 1);
  }
}

void takeReference(std::vector<std::string>& all, std::string address) {
  if (!isPlayableAddress(address) || sameText(std::string_view(address).substr(0, 5), "file:")) return;
  all.push_back(std::move(address));
}

std::vector<std::string> hrefsOf(std::string_view text) {
  std::vector<std::string> all;
  for (auto at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
    if (text.substr(at).starts_with("<!--")) {
      at = text.find("-->", at);
      if (at == std::string_view::npos) break;
      continue;
    }
    const auto element = text.substr(at + 1, text.find('>', at) - at - 1);
    const auto name = element.substr(0, element.find_first_of(" \t\r\n/"));
    if (!sameText(name, "ref") && !sameText(name, "entryref")) continue;
    takeReference(all, hrefOf(element.substr(name.size())));
  }
  return all;
}

std::vector<std::string> referencesOf(std::string_view text) {
  std::vector<std::string> all;
  while (!text.empty()) {
    const auto line = nextLine(text);
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || !sameText(line.substr(0, 3), "ref")) continue;
    takeReference(all, std::string(trimmed(line.substr(equals + 1))));
  }
  return all;
}

}  // namespace

bool isMetafile(std::string_view name) {
  return std::ranges::find(kOnlyTell, extensionOf(name.substr(0, name.find_first_of("?#")))) !=
         kOnlyTell.end();
}

std::vector<std::string> metafileAddresses(std::string_view text) {
  return holdsText(text.substr(0, 1024), "<ASX") ? hrefsOf(text) : referencesOf(text);
}

}  // namespace kvo
