#include "program/file_names.h"

#include "base/text.h"

#include <algorithm>
#include <vector>

namespace kvo {
namespace {

constexpr std::string_view kPortable = "./";
constexpr std::string_view kInstead = " ()'";  // what stands in a file for what it cannot carry
constexpr int kMostLookedThrough = 10000;      // files of a folder and those below it

// What a row may mean where it names a file, the likeliest first: its bytes as they stand, to the end of the
// line, ahead of what the platform's reading makes of them.
std::vector<std::string> meaningsOf(const SectionRow& row) {
  const auto line = trimmed(row.bytes);
  std::vector<std::string> meanings{std::string(row.bytes)};
  for (auto text : {std::string(line), lineFromBytes(line), std::string(row.value)}) {
    if (std::find(meanings.begin(), meanings.end(), text) == meanings.end())
      meanings.push_back(std::move(text));
  }
  return meanings;
}

}  // namespace

std::string_view FileNames::headText(const SettingRow& row, const SectionRow& read) const {
  const auto bytes = trimmed(read.bytes);
  if (!row.namesFile() || bytes == read.value || bytes.empty()) return read.value;
  const std::string name(bytes);
  return files_.exists(name) || files_.exists(folder_.beside("\\" + name)) ? bytes : read.value;
}

std::string FileNames::placeOf(std::string_view folder) const {
  return folder.starts_with(kPortable) ? collectionFolder_ + std::string(folder.substr(kPortable.size()))
                                       : std::string(folder);
}

bool FileNames::find(std::string& folder, std::string& name, const SectionRow& folderRow,
                     const SectionRow& nameRow) {
  std::vector<std::string> folders;
  for (const auto& meaning : meaningsOf(folderRow)) folders.push_back(placeOf(folderOf(meaning, folder_)));
  for (const auto& text : {std::string(folderRow.value), folder})
    if (auto place = placeOf(text); place != folders.back()) folders.push_back(std::move(place));
  for (const auto& f : folders) {
    for (const auto& meaning : meaningsOf(nameRow)) {
      const auto n = fileNamePart(meaning);
      if (n.empty() || !files_.exists(std::string(f).append(n))) continue;
      name = n;
      folder = f;
      return true;
    }
  }
  for (const auto& f : folders) {
    auto alike = nameAlike(f, fileNamePart(nameRow.value));
    if (alike.empty()) continue;
    name = std::move(alike);
    folder = f;
    return true;
  }
  for (const auto& f : folders) {
    const auto alike = pathAlike(std::string(f).append(fileNamePart(nameRow.value)));
    if (alike.empty()) continue;
    name = fileNamePart(alike);
    folder = folderPart(alike);
    return true;
  }
  return false;
}

// The file in folders whose names a collection can only carry so; empty where there is none. It is looked for
// below the deepest folder that is there.
std::string FileNames::pathAlike(const std::string& path) {
  auto above = std::string(folderPart(path));
  if (above.ends_with(kSeparator)) above.pop_back();
  std::string_view missing;
  while (!above.empty() && !files_.isFolder(above)) {
    const auto at = above.rfind('/');
    if (at == std::string::npos) return {};
    missing = std::string_view(path).substr(at + 1, above.size() - at - 1);
    above.resize(at);
  }
  if (above.empty() || missing.find_first_of(kInstead) == std::string_view::npos) return {};
  const auto [at, isNew] = pathsBelow_.try_emplace(above);
  auto& known = at->second;
  if (isNew) {
    int looked = 0;
    files_.eachBelow(above, [&](const std::string& there) {
      if (carriedName(there) != there) known.emplace(carriedName(there), there);
      return ++looked < kMostLookedThrough;
    });
  }
  const auto alike = known.find(carriedName(path));
  return alike == known.end() ? std::string() : alike->second;
}

// The file of a folder whose name a collection can only carry so; empty where there is none.
std::string FileNames::nameAlike(const std::string& folder, std::string_view name) {
  if (name.find_first_of(kInstead) == std::string_view::npos) return {};
  const auto [at, isNew] = filesOf_.try_emplace(folder);
  auto& known = at->second;
  if (isNew) {
    int looked = 0;
    files_.eachBelow(folder, [&](const std::string& path) {
      if (const auto file = fileNamePart(path); folderPart(path) == folder && carriedName(file) != file)
        known.emplace(carriedName(file), file);
      return ++looked < kMostLookedThrough;
    });
  }
  const auto alike = known.find(carriedName(name));
  return alike == known.end() ? std::string() : alike->second;
}

bool FileNames::findClip(ParsedClip& parsed) {
  auto& clip = parsed.clip;
  if (isAddress(clip.MovieName()) || clip.IsExtendedCD()) return true;
  auto folder = clip.Path();
  auto name = clip.MovieName();
  if (!find(folder, name, parsed.folder, parsed.name)) return false;
  clip.Path(std::move(folder));
  clip.MovieName(std::move(name));
  return true;
}

void FileNames::findOthers(ParsedClip& parsed) {
  auto& clip = parsed.clip;
  auto folder = clip.SrcPath();
  auto name = clip.SrcName();
  if (!name.empty() && find(folder, name, parsed.overlayFolder, parsed.overlayName)) {
    clip.SrcPath(std::move(folder));
    clip.SrcName(std::move(name));
  }
  clip.MaskName(whole(parsed.mask));
}

std::string FileNames::whole(const SectionRow& row) const {
  for (auto& meaning : meaningsOf(row)) {
    if (!meaning.empty() && files_.exists(meaning)) return meaning;
  }
  return std::string(row.value);
}

}  // namespace kvo
