#include "sketches/sketch_folder.h"

#include "base/paths.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <tuple>
#include <utility>
#include <vector>

namespace kvo {
namespace {

constexpr std::uint64_t kLargestSketch = 64ULL << 20U;  // bytes; a day of peaks takes 9 MB
constexpr std::string_view kSketchEnding = ".sketch";

struct KeptSketch {
  std::int64_t changed = 0;
  std::uint64_t size = 0;
  std::string path;
  bool operator<(const KeptSketch& other) const {
    return std::tie(changed, path) < std::tie(other.changed, other.path);
  }
};

}  // namespace

std::string SketchFolder::fileOf(const std::string& media) const {
  std::array<char, 17> name{};
  std::snprintf(name.data(), name.size(), "%016llx", static_cast<unsigned long long>(sketchSum(media)));
  return withSeparator(path_).append(name.data()).append(kSketchEnding);
}

std::optional<SketchFile> SketchFolder::kept(const SketchFile::Key& key) const {
  if (path_.empty()) return std::nullopt;
  const auto bytes = files_.read(fileOf(key.path), kLargestSketch);
  auto sketch = bytes ? readSketch(*bytes) : std::nullopt;
  if (sketch && sketch->key != key) sketch.reset();
  return sketch;
}

std::optional<SketchFile> SketchFolder::find(const std::string& media) const {
  const auto facts = files_.facts(media);
  if (!facts) return std::nullopt;
  const SketchFile::Key key{media, facts->size, facts->changed};
  auto sketch = kept(key);
  return sketch ? std::move(sketch) : SketchFile{key, {}, {}};
}

Outcome SketchFolder::keep(const SketchFile& more) {
  if (path_.empty()) return {};
  if (auto done = files_.makeFolder(path_); !done) return done;
  // A process that draws and one that listens are often at the same file.
  const auto alone = files_.lock(withSeparator(path_) + "lock");
  if (!alone) return alone.error();
  auto sketch = kept(more.key).value_or(SketchFile{more.key, {}, {}});
  const auto before = sketch;
  for (const auto& picture : more.pictures) sketch.add(picture);
  if (more.peaks) sketch.peaks = more.peaks;
  if (sketch == before) return {};
  if (auto done = writeDurably(files_, fileOf(more.key.path), sketchBytes(sketch)); !done) return done;
  if (writes_++ % kSweepEvery == 0) sweep();
  return {};
}

void SketchFolder::sweep() {
  std::vector<KeptSketch> all;
  std::uint64_t total = 0;
  files_.eachBelow(path_, [&](const std::string& file) {
    const auto facts = file.ends_with(kSketchEnding) ? files_.facts(file) : std::nullopt;
    if (facts) {
      total += facts->size;
      all.push_back({facts->changed, facts->size, file});
    }
    return true;
  });
  std::sort(all.begin(), all.end());
  for (const auto& oldest : all) {
    if (total <= mostBytes_) return;
    if (files_.remove(oldest.path)) total -= oldest.size;
  }
}

std::string sketchesFolder(const std::function<std::string(const char*)>& environment) {
  auto folder = environment("XDG_CACHE_HOME");
  if (!folder.starts_with(kSeparator)) {  // the rule for these variables: one that is not absolute is none
    const auto home = environment("HOME");
    if (home.empty()) return {};
    folder = withSeparator(home) + ".cache";
  }
  return withSeparator(folder) + "kvo5/sketches";
}

}  // namespace kvo
