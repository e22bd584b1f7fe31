#include "base/document_names.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace kvo {
namespace {

constexpr std::size_t kLongestName = 4096;  // bytes
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kNumber = "0123456789.+-eE ";

struct Attribute {
  std::string_view name;
  std::string_view valueOf;  // the characters that its value is made of
};

// What can stand behind the name in a clip's tag.
constexpr std::array<Attribute, 5> kOfClip = {{{"mstart", kNumber},
                                               {"mstop", kNumber},
                                               {"start", kNumber},
                                               {"stop", kNumber},
                                               {"stretchmode", kLetters}}};

std::string_view behindBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text;
}

// Takes `name="` off the front of `text`.
std::string_view takeOpening(std::string_view& text) {
  const auto length = std::min(text.find_first_not_of(kLetters), text.size());
  const auto name = text.substr(0, length);
  if (name.empty() || !text.substr(length).starts_with("=\"")) return {};
  text.remove_prefix(length + 2);
  return name;
}

// True when `rest`, which follows a quote, goes on as a clip's tag does behind its name: its times and mode,
// each once, then its end.
bool goesOnAsClip(std::string_view rest) {
  std::array<bool, kOfClip.size()> met{};
  while (!rest.empty() && kBlanks.find(rest.front()) != std::string_view::npos) {
    rest = behindBlanks(rest);
    if (rest.starts_with('>') || rest.starts_with("/>")) break;
    const auto name = takeOpening(rest);
    const auto known =
        std::find_if(kOfClip.begin(), kOfClip.end(), [&](const auto& a) { return a.name == name; });
    if (known == kOfClip.end() ||
        std::exchange(met.at(static_cast<std::size_t>(known - kOfClip.begin())), true))
      return false;
    rest.remove_prefix(std::min(rest.find_first_not_of(known->valueOf), rest.size()));
    if (!rest.starts_with('"')) return false;
    rest.remove_prefix(1);
  }
  return met[0] && (rest.starts_with('>') || rest.starts_with("/>"));
}

// The same of a parameter's tag, whose value is the last thing in it.
bool goesOnAsParameter(std::string_view rest) {
  rest = behindBlanks(rest);
  if (rest.starts_with("/>")) return true;
  if (!rest.starts_with('>')) return false;
  rest.remove_prefix(1);
  return rest.empty() || rest.front() == '\r' || rest.front() == '\n' || rest.front() == '<';
}

// Hides the quotes of the name at `at`.
template <class GoesOn>
void hideInName(std::string& text, std::size_t at, GoesOn goesOn) {
  const std::string_view all(text);
  const auto limit = std::min(at + kLongestName, all.size());
  auto end = all.find('"', at);
  while (end < limit && !goesOn(all.substr(end + 1))) end = all.find('"', end + 1);
  if (end >= limit) return;
  std::replace(text.begin() + static_cast<std::ptrdiff_t>(at),
               text.begin() + static_cast<std::ptrdiff_t>(end), '"', kHiddenQuote);
}

// Where the name of the clip's tag at `at` begins: it is the first attribute, or follows its place on the
// timeline.
std::size_t nameOfClip(std::string_view text, std::size_t at) {
  auto rest = text.substr(at);
  for (;;) {
    rest = behindBlanks(rest);
    const auto name = takeOpening(rest);
    if (name.empty()) return std::string_view::npos;
    if (name == "src") return text.size() - rest.size();
    rest.remove_prefix(std::min(rest.find('"'), rest.size()));
    if (rest.empty()) return std::string_view::npos;
    rest.remove_prefix(1);
  }
}

}  // namespace

void hideQuotesInNames(std::string& text) {
  constexpr std::string_view kClip = "<clip ";
  constexpr std::string_view kMask = "<param name=\"MaskName\" value=\"";
  for (auto at = text.find(kClip); at != std::string::npos; at = text.find(kClip, at)) {
    at += kClip.size();
    const auto name = nameOfClip(text, at);
    if (name != std::string_view::npos) hideInName(text, name, goesOnAsClip);
  }
  for (auto at = text.find(kMask); at != std::string::npos; at = text.find(kMask, at)) {
    at += kMask.size();
    hideInName(text, at, goesOnAsParameter);
  }
}

}  // namespace kvo
