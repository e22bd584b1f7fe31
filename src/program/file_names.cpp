#include "program/file_names.h"

#include "base/text.h"

#include <algorithm>
#include <vector>

namespace kvo {
namespace {

constexpr std::string_view kPortable = "./";

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
                     const SectionRow& nameRow) const {
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
  return false;
}

bool FileNames::findClip(ParsedClip& parsed) const {
  auto& clip = parsed.clip;
  if (isAddress(clip.MovieName()) || clip.IsExtendedCD()) return true;
  auto folder = clip.Path();
  auto name = clip.MovieName();
  if (!find(folder, name, parsed.folder, parsed.name)) return false;
  clip.Path(std::move(folder));
  clip.MovieName(std::move(name));
  return true;
}

void FileNames::findOthers(ParsedClip& parsed) const {
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
