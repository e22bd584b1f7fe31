#include "editor/tabs/name_choice.h"

#include "base/text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kvo {
namespace {

constexpr char kBetweenNames = ';';

std::vector<std::string> namesIn(std::string_view text) {
  std::vector<std::string> names;
  while (!text.empty()) {
    const auto end = std::min(text.find(kBetweenNames), text.size());
    if (end > 0) names.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return names;
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const auto& name : names) text += (text.empty() ? "" : std::string(1, kBetweenNames)) + name;
  return text;
}

bool contains(const std::vector<std::string>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

void NameChooser::offer(std::vector<std::string> names) {
  if (names == names_) return;
  names_ = std::move(names);
  choice_.favourites.assign(kept(favouritesValue()));
  choice_.lastUsed = kept(lastUsedValue());
  show();
}

std::vector<std::string> NameChooser::kept(const std::string& value) const {
  auto names = namesIn(store_.read(value));
  std::erase_if(names, [this](const auto& name) { return !contains(names_, name); });
  return names;
}

void NameChooser::find(std::string text) {
  choice_.find = std::move(text);
  show();
}

void NameChooser::showFavouritesAlone(bool alone) {
  choice_.onlyFavourites = alone;
  show();
}

bool NameChoice::isFavourite(std::string_view name) const { return contains(favourites.rows(), name); }

void NameChooser::toggleFavourite(std::string_view name) {
  auto wanted = choice_.favourites.rows();
  if (std::erase(wanted, name) == 0) wanted.emplace_back(name);
  std::vector<std::string> favourites;
  std::ranges::copy_if(names_, std::back_inserter(favourites),
                       [&](const auto& known) { return contains(wanted, known); });
  store_.write(favouritesValue(), joined(favourites));
  choice_.favourites.assign(std::move(favourites));
  show();
}

void NameChooser::noteUse(const std::string& name) {
  auto& used = choice_.lastUsed;
  std::erase(used, name);
  used.insert(used.begin(), name);
  if (used.size() > kMostLastUsed) used.resize(kMostLastUsed);
  store_.write(lastUsedValue(), joined(used));
}

void NameChooser::show() {
  const auto wanted = lower(trimmed(choice_.find));
  std::vector<std::string> names;
  for (const auto& name : names_) {
    const bool isNear = !choice_.onlyFavourites || isFavourite(name) || contains(choice_.lastUsed, name);
    if (isNear && lower(name).find(wanted) != std::string::npos) names.push_back(name);
  }
  choice_.shown.assign(std::move(names));
}

}  // namespace kvo
