#include "program/missing_files.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/telling/translated.h"
#include "program/search_progress.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace kvo {
namespace {

constexpr double kSameLength = 0.1;  // seconds between two lengths of one file
constexpr std::string_view kTitle = "KVO5 - Find missing files";

bool hasFile(const Movie& clip) {
  return !clip.MovieName().empty() && !isAddress(clipFile(clip)) && !clip.IsExtendedCD();
}

// How many of the last folders of two paths are the same.
int likeness(std::string_view a, std::string_view b) {
  int same = 0;
  for (;; ++same) {
    a = folderPart(a);
    b = folderPart(b);
    if (a.empty() || b.empty()) return same;
    a.remove_suffix(1);
    b.remove_suffix(1);
    if (fileNamePart(a) != fileNamePart(b)) return same;
  }
}

bool isOfNameAndSize(const FoundFile& file, const MissingFile& missing) {
  return sameText(fileNamePart(file.path), fileNamePart(missing.path)) &&
         (missing.size == 0 || file.size == missing.size);
}

// Leaves those for which `holds`, unless none would be left.
template <typename Rule>
void keepWhere(std::vector<std::string>& paths, const Rule& holds) {
  const auto others = std::stable_partition(paths.begin(), paths.end(), holds);
  if (others != paths.begin()) paths.erase(others, paths.end());
}

std::string foundText(int mended, std::size_t missing) {
  const auto all = std::to_string(missing);
  if (mended == 0)
    return translated(
        missing == 1 ? "The missing file is not in this folder." : "%1 missing files are not in this folder.",
        {all});
  if (static_cast<std::size_t>(mended) == missing)
    return translated(
        missing == 1 ? "The missing file has been found." : "All %1 missing files have been found.", {all});
  return translated(
      mended == 1 ? "%1 of %2 missing files has been found." : "%1 of %2 missing files have been found.",
      {std::to_string(mended), all});
}

}  // namespace

std::vector<MissingFile> missingFiles(const Collection& collection, const Files& files) {
  std::vector<MissingFile> missing;
  for (int i = 1; i <= collection.MovieList.count(); ++i) {
    const auto& clip = collection.MovieList[i];
    if (!hasFile(clip) || files.exists(clipFile(clip))) continue;
    missing.push_back({i, clipFile(clip), static_cast<std::uint64_t>(std::max(0.0, ToNumber(clip.Size()))),
                       clip.DurationTime().number()});
  }
  return missing;
}

std::optional<std::string> fileThatFits(const MissingFile& missing, const std::vector<FoundFile>& found,
                                        const FitRules& rules) {
  std::vector<std::string> fits;
  for (const auto& file : found) {
    if (isOfNameAndSize(file, missing)) fits.push_back(file.path);
  }
  if (fits.empty()) return std::nullopt;
  const auto isAsLong = [&](const std::string& path) {
    return std::abs(rules.lengthOf(path) - missing.length) <= kSameLength;
  };
  if (fits.size() > 1 && missing.length > 0) keepWhere(fits, isAsLong);
  keepWhere(fits, [&](const auto& path) { return !rules.taken.contains(path); });
  std::sort(fits.begin(), fits.end());
  const auto worth = [&](const std::string& path) {
    const auto folder = rules.foundInFolder.find(std::string(folderPart(path)));
    return std::tuple(likeness(path, missing.path), folder == rules.foundInFolder.end() ? 0 : folder->second);
  };
  return *std::ranges::max_element(fits, {}, worth);
}

void MissingFiles::look() {
  std::set<std::string> paths;
  for (auto& file : missingFiles(parts_.collection, parts_.files)) paths.insert(std::move(file.path));
  parts_.list.missing(std::move(paths));
}

void MissingFiles::FindMissingFiles() {
  const CommandPass pass(parts_.window);
  if (!pass) return;
  look();
  const auto missing = missingFiles(parts_.collection, parts_.files);
  const auto tell = [&](std::string text, BoxIcon icon) {
    parts_.boxes.show({std::string(kTitle), std::move(text), BoxButtons::Ok, icon});
  };
  if (missing.empty()) return tell("No file of this collection is missing.", BoxIcon::Information);
  const auto folder = parts_.dialogs.openFolder(
      {std::string(kTitle), {}, std::string(folderPart(parts_.collection.IniFullPath)), {}});
  if (!folder) return;
  const auto mended = searchAndMend(pass, missing, *folder);
  if (!mended) return;
  look();
  tell(foundText(*mended, missing.size()), *mended > 0 ? BoxIcon::Done : BoxIcon::Information);
}

std::optional<int> MissingFiles::searchAndMend(const CommandPass& pass,
                                               const std::vector<MissingFile>& missing,
                                               const std::string& folder) {
  SearchProgress progress(parts_.window, parts_.loop, "Searching - Please Wait..",
                          "Click to stop the search");
  const auto found = search(folder, missing, progress);
  return progress.stopped() ? std::nullopt : mend(pass, missing, found, progress);
}

// For each missing file those of its name.
std::vector<std::vector<FoundFile>> MissingFiles::search(const std::string& folder,
                                                         const std::vector<MissingFile>& missing,
                                                         SearchProgress& progress) {
  std::vector<std::vector<FoundFile>> found(missing.size());
  std::multimap<std::string, std::size_t> places;
  for (std::size_t i = 0; i < missing.size(); ++i) places.emplace(lower(fileNamePart(missing[i].path)), i);
  parts_.files.eachBelow(folder, [&](const std::string& path) {
    const auto [first, last] = places.equal_range(lower(fileNamePart(path)));
    const auto facts = first == last ? std::nullopt : parts_.files.facts(path);
    for (auto place = first; facts && place != last; ++place)
      found[place->second].push_back({path, facts->size});
    return progress.goesOn();
  });
  return found;
}

// All in one step, or nothing where it is stopped.
std::optional<int> MissingFiles::mend(const CommandPass& pass, const std::vector<MissingFile>& missing,
                                      const std::vector<std::vector<FoundFile>>& found,
                                      const SearchProgress& progress) {
  FitRules rules;
  rules.lengthOf = [&](const std::string& path) {
    return parts_.looker.look(path, [&] { return progress.stopped(); }).look.facts.duration;
  };
  for (int i = 1; i <= parts_.collection.MovieList.count(); ++i)
    rules.taken.insert(clipFile(parts_.collection.MovieList[i]));
  for (std::size_t i = 0; i < missing.size(); ++i) {
    for (const auto& file : found[i]) {
      if (isOfNameAndSize(file, missing[i])) ++rules.foundInFolder[std::string(folderPart(file.path))];
    }
  }
  std::vector<std::pair<int, Movie>> changed;
  for (std::size_t i = 0; i < missing.size(); ++i) {
    const auto file = fileThatFits(missing[i], found[i], rules);
    if (progress.stopped()) return std::nullopt;
    if (!file) continue;
    auto clip = parts_.collection.MovieList[missing[i].number];
    clip.MovieName(std::string(fileNamePart(*file)));
    clip.Path(std::string(folderPart(*file)));
    changed.emplace_back(missing[i].number, std::move(clip));
  }
  const auto mended = static_cast<int>(changed.size());
  if (mended == 0) return 0;
  parts_.history.replace(pass, translated("find missing files"), std::move(changed));
  return mended;
}

}  // namespace kvo
