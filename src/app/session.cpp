#include "app/session.h"

#include "base/guarded.h"
#include "editor/tabs/effects_file.h"
#include "editor/tabs/preview_params.h"
#include "editor/tabs/still_options.h"

#include <array>
#include <filesystem>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 5> kShippedFiles = {"silence.wav", "KVO5.INI", "ParamCols.dat",
                                                           "Fourcc.dat", "wmsysprx.prx"};
constexpr std::uint64_t kMaxShipped = 64ULL << 20U;

}  // namespace

Outcome prepareProgramFolder(Files& files, const ProgramFolder& folder, const std::string& shippedFolder) {
  if (auto done = files.makeFolder(folder.path()); !done) return done;
  for (const auto name : kShippedFiles) {
    const auto target = folder.beside(name);
    if (files.exists(target)) continue;
    const auto bytes = files.read(withSeparator(shippedFolder).append(name), kMaxShipped);
    if (!bytes) return bytes.error();
    if (auto done = writeDurably(files, target, *bytes); !done) return done;
  }
  return {};
}

Outcome copyShippedPictures(Files& files, const ProgramFolder& folder, const std::string& shippedFolder) {
  namespace fs = std::filesystem;
  return guarded([&]() -> Outcome {
    for (const auto& entry : fs::recursive_directory_iterator(shippedFolder)) {
      const fs::path named = folder.path() / entry.path().lexically_relative(shippedFolder);
      const fs::path target = nameInAnyCase(nameInAnyCase(named.parent_path()) / named.filename());
      if (fs::exists(target)) continue;
      if (entry.is_directory()) {
        if (auto done = files.copyFolder(entry.path(), target); !done) return done;
        continue;  // it finds all of them there
      }
      // A copy that was cut short must not be taken for the picture.
      const auto bytes = files.read(entry.path(), kMaxShipped);
      if (!bytes) return bytes.error();
      if (auto done = writeDurably(files, target, *bytes); !done) return done;
    }
    return {};
  });
}

Result<ReadReport> Session::open(const std::string& name) {
  const auto collectionPath = absoluteName(name, std::filesystem::current_path().string());
  if (!files.exists(collectionPath)) return Error{"there is no collection " + collectionPath};
  auto report =
      file.ReadINI(collectionPath, {.mayRewrite = false, .keepMissingClips = true, .isNeeded = false});
  if (report.end != ReadEnd::Done) return Error{report.why};
  LoadEffects(editing);
  GetStillOpts(editing);
  return report;
}

Compiled Session::compile(std::optional<int> previewPower, std::optional<PictureSides> size) {
  auto options = renderOptions(settings, folder.beside("\\silence.wav"));
  if (size) {
    options.output.width = size->width;
    options.output.height = size->height;
  }
  if (previewPower)
    options = previewOptions(std::move(options), GetPreviewParams(editing, *previewPower), *previewPower);
  return kvo::compile(collection, options, {streams, editor.effects});
}

}  // namespace kvo
