// What a render leaves to the next one: the choices that were made, and what goes when it was killed.
#include "base/fnv.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "render/movie_render.h"
#include "render/render_texts.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::string_view kRenderKind = "RenderKind";
constexpr std::string_view kRenderProfile = "RenderProfile";
constexpr std::string_view kRenderOwnSize = "RenderOwnSize";
constexpr std::string_view kRenderPreset = "RenderPreset";
constexpr std::string_view kRenderMegabytes = "RenderMegabytes";
constexpr std::string_view kRenderHardware = "RenderHardware";
constexpr std::string_view kRenderFolder = "RenderFolder";
constexpr std::string_view kRenderWorking = "RenderWorking";  // the files of renders under way, a line each
constexpr std::string_view kRenderPairs = "RenderPairs";      // what was made of two clips, a line each
constexpr std::size_t kMostPairs = 50;
constexpr std::string_view kWorkingMark = ".rendering-";

// The process in whose name a file stands is gone.
bool isLeftOver(const Files& files, std::string_view file) {
  const auto name = fileNamePart(file);
  if (!name.starts_with(kWorkingMark)) return false;
  const auto process = name.substr(kWorkingMark.size(), name.rfind('.') - kWorkingMark.size());
  return !files.exists("/proc/" + std::string(process) + "/stat");
}

template <class Each>
void eachLine(std::string_view text, Each each) {
  while (!text.empty()) {
    if (const auto line = nextLine(text); !line.empty()) each(line);
  }
}

}  // namespace

// Once a run: from then on the options are as they were left.
void MovieRender::recall() {
  if (std::exchange(hasRecalled_, true)) return;
  const auto& store = ports_.store;
  folder_ = store.read(kRenderFolder);
  if (!ports_.editing.files.isFolder(folder_)) folder_.clear();
  state_.Chk_UseCodecOutputDimensions = store.read(kRenderOwnSize) != "1";
  state_.Chk_Hardware = store.read(kRenderHardware) == "1";
  const auto kept = outputKindOf("movie." + store.read(kRenderKind));
  if (const auto wished = numberIn(store.read(kRenderMegabytes)))
    wishMegabytes(static_cast<int>(std::clamp<double>(*wished, kLeastMegabytes, kMostMegabytes)));
  chooseKind(kept.value_or(OutputKind::Mp4));
  const auto preset = std::ranges::find(state_.Lst_MadeFor, store.read(kRenderPreset), &MadeForRow::preset);
  if (preset != state_.Lst_MadeFor.end())
    chooseMadeFor(static_cast<int>(preset - state_.Lst_MadeFor.begin()));
  const auto profile = store.read(kRenderProfile);
  for (std::size_t row = 0; row < state_.Lst_WMVFormats.size(); ++row) {
    if (!profile.empty() && GetWMVRenderProfileInt(state_.Lst_WMVFormats[row]) == ToNumber(profile))
      state_.profileRow = static_cast<int>(row);
  }
}

void MovieRender::remember(const Job& job) {
  auto& store = ports_.store;
  folder_ = std::string(folderPart(job.file));
  if (folder_.size() > 1) folder_.pop_back();  // its separator
  store.write(kRenderFolder, folder_);
  if (job.isPicInPic || setAside_) return;  // no choice of the user's
  store.write(kRenderKind, extensionOf(state_.kind));
  store.write(kRenderOwnSize, state_.Chk_UseCodecOutputDimensions ? "0" : "1");
  if (state_.offersHardware) store.write(kRenderHardware, state_.Chk_Hardware ? "1" : "0");
  if (!state_.Lst_MadeFor.empty()) store.write(kRenderPreset, chosenPreset() ? chosenPreset()->name : "");
  if (state_.hasWishedSize) store.write(kRenderMegabytes, std::to_string(state_.wishedMegabytes));
  if (job.profile != kNoProfile && !job.audioOnly()) store.write(kRenderProfile, std::to_string(job.profile));
}

// The two clips and how the upper one lies, wherever they stand in the list, as the begin of a line.
std::string MovieRender::pairMark(const Movie& backdrop) const {
  const auto& clips = ports_.editing.clips();
  auto look = readPicInPic(backdrop.HasPicInPic());
  if (!look || look->overlayClip < 1 || look->overlayClip > clips.count()) return {};
  const auto overlay = clipFile(clips[look->overlayClip]);
  look->overlayClip = 1;
  auto hash = fnv1a(clipFile(backdrop));
  for (const auto& part : {overlay, picInPicText(*look)}) hash = fnv1a(part, fnv1a("\n", hash));
  return std::to_string(hash) + " ";
}

void MovieRender::rememberPair(const std::string& file) {
  const auto mark = pairMark(ports_.editing.clips()[pair_.backdropNo]);
  if (mark.empty() || file.find('\n') != std::string::npos) return;
  std::vector<std::string> lines;
  eachLine(ports_.store.read(kRenderPairs), [&](std::string_view line) {
    if (!line.ends_with(" " + file)) lines.emplace_back(line);
  });
  lines.push_back(mark + file);
  if (lines.size() > kMostPairs) lines.erase(lines.begin());
  std::string text;
  for (const auto& line : lines) text += line + "\n";
  ports_.store.write(kRenderPairs, text);
}

// What was made of it is a clip of the collection.
bool MovieRender::isRendered(const Movie& backdrop) const {
  const auto mark = pairMark(backdrop);
  bool isThere = false;
  eachLine(ports_.store.read(kRenderPairs), [&](std::string_view line) {
    if (!mark.empty() && line.starts_with(mark))
      isThere = isThere || isOneOfTheClips(std::string(line.substr(mark.size())));
  });
  return isThere;
}

// Until it is made, or swept behind the end of this program.
void MovieRender::note(const std::string& working) {
  ports_.store.write(kRenderWorking, ports_.store.read(kRenderWorking) + working + "\n");
}

void MovieRender::forget(const std::string& working) {
  ports_.editing.files.remove(working);
  std::string others;
  eachLine(ports_.store.read(kRenderWorking), [&](std::string_view line) {
    if (line != working) others.append(line).append("\n");
  });
  ports_.store.write(kRenderWorking, others);
}

void MovieRender::sweep() {
  eachLine(ports_.store.read(kRenderWorking), [&](std::string_view line) {
    if (isLeftOver(ports_.editing.files, line)) forget(std::string(line));
  });
}

}  // namespace kvo
