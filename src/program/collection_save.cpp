#include "base/text.h"
#include "core/telling/messages.h"
#include "core/telling/translated.h"
#include "program/collection_store.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kShowSaveEvery = 10;

// Collects prints and hands them to the file in large pieces.
class PrintTo {
 public:
  explicit PrintTo(Replacement& out) : out_(out) {}

  Outcome print(std::string_view text) {
    pending_.append(text).append(kCrLf);
    return pending_.size() < kPiece ? Outcome() : flush();
  }

  Outcome flush() {
    auto written = out_.write(out_.size(), pending_);
    pending_.clear();
    return written;
  }

 private:
  static constexpr std::size_t kPiece = 1U << 18U;
  Replacement& out_;
  std::string pending_;
};

// Whether two files differ by nothing, or by the count of uses alone, which every load raises.
bool isSameCollection(std::string_view a, std::string_view b) {
  const auto withoutUses = [](std::string_view text) {
    const auto at = std::min(text.find("TimesUsed"), text.size());
    const auto end = std::min(text.find('\n', at), text.size());
    return std::pair(text.substr(0, at), text.substr(end));
  };
  return withoutUses(a) == withoutUses(b);
}

}  // namespace

bool CollectionStore::failWrite(std::string_view step, std::string_view why, std::string_view told) {
  if (told.empty()) told = LoadResString(188);
  boxes_.show({"KVO V5 - Error", std::string(told), BoxButtons::Ok, BoxIcon::Critical});
  log_.LogError(
      std::string("<<ERR040>> - General WriteINI Failure - Sect=").append(step).append("  -  ").append(why));
  return false;
}

// A save that changes texts keeps what stands under the name. What is to be said of it once it is done; empty
// when no text changes.
Result<std::string> CollectionStore::keepAhead(const std::string& path,
                                               const std::vector<std::string>& changedTexts) {
  if (changedTexts.empty()) return std::string();
  auto told = changedTexts.front();
  if (const auto more = changedTexts.size() - 1; more > 0)
    told = translated("%1 and %2 more", {told, std::to_string(more)});
  told = translated(
      "%1: a collection cannot keep every line end, bracket and quote. They were changed in the file.",
      {told});
  if (files_.exists(path)) {
    const auto copy = keepCopy(path);
    if (!copy) return copy.error();
    told.append(kCrLf).append(translated("What was saved before is kept as %1", {*copy}));
  }
  return told;
}

bool CollectionStore::WriteINI(std::string folder, const std::string& file, bool quiet, LoadWatch* watch) {
  std::string_view step = "Sec 0";
  const auto inBrackets = [&] { return "<" + folder + "> & <" + file + ">"; };
  if (folder.size() < 3) {
    log_.LogError("<<Warning001>> WriteINI - Bad input parameter of " + inBrackets() + " passed to Iniwrite");
    return false;
  }
  if (file.empty()) {
    log_.LogError("<<Warning002>> WriteINI - Bad input parameter of " + inBrackets() + " passed to Iniwrite");
    return false;
  }
  folder = withSeparator(folder);
  if (folder.ends_with("//")) folder.pop_back();
  const auto path = folder + file;

  if (collection_.MovieList.count() > kMaxClips || collection_.KeyframeList.count() > kMaxKeyframes) {
    const auto why = translated(
        "A collection holds at most %1 clips and %2 keyframes. This one has %3 and %4 and was not written.",
        {std::to_string(kMaxClips), std::to_string(kMaxKeyframes),
         std::to_string(collection_.MovieList.count()), std::to_string(collection_.KeyframeList.count())});
    return failWrite(step, why, why);
  }
  step = "Sec 1";
  auto out = files_.replace(path);
  if (!out) return failWrite("Sec 2", out.error().text);
  std::vector<std::string> changedTexts;
  if (auto written = writeBlocks(**out, folder, quiet ? nullptr : watch, step, changedTexts); !written)
    return failWrite(step, written.error().text);
  const auto changes = keepAhead(path, changedTexts);
  if (!changes) return failWrite(step, changes.error().text);
  if (auto committed = (*out)->commit(); !committed) return failWrite(step, committed.error().text);

  if (!isWritten(path, inBrackets())) return false;
  settings_.state.IsDirty = false;
  if (!changes->empty()) {
    log_.LogError(*changes);
    if (!quiet) boxes_.show({std::string(kProductName), *changes, BoxButtons::Ok, BoxIcon::Warning});
  }
  return true;
}

// What was written, as the disk gives it back.
bool CollectionStore::isWritten(const std::string& path, const std::string& given) {
  if (!files_.exists(path)) {
    log_.LogError(
        "<<Warning003>> >> - WriteINI - Failed to write - Probable cause is Access Permissions or Sharing "
        "Violation if "
        "the INI is being edited. Passed in values were " +
        given + " ");
    return false;
  }
  const auto failCheck = [&](std::string_view warning) {
    log_.LogError(std::string(warning) + path);
    boxes_.show({"KVO V5 - Error",
                 "Failed to read Written initialisation data - \r\nClose any other programs you may have "
                 "open and try "
                 "again.",
                 BoxButtons::Ok, BoxIcon::Critical});
    return false;
  };
  auto bytes = files_.read(path, kMaxCollectionBytes);
  const auto kind = kindOfText(bytes ? std::move(*bytes) : std::string());
  if (!kind.hasHead)
    return failCheck("<<Warning004>> - WriteINI - Failed to retrieve written section value ");
  return kind.isCollection ||
         failCheck("<<Warning006>> - WriteINI - Failed to retrieve written Integrity value ");
}

Outcome CollectionStore::writeBlocks(Replacement& out, const std::string& folder, LoadWatch* watch,
                                     std::string_view& step, std::vector<std::string>& changedTexts) {
  PrintTo file(out);
  step = "Sec 3";
  fillUnset(settings_, collection_, &poster_);
  const int clips = collection_.MovieList.count();
  const auto take = [&](const PrintedBlock& block) {
    if (watch != nullptr && block.clip > 0 && block.clip % kShowSaveEvery == 0)
      watch->status(translated("Saving Clip %1 of %2", {std::to_string(block.clip), std::to_string(clips)}),
                    block.clip, clips);
    step = block.step;
    changedTexts.insert(changedTexts.end(), block.changed.begin(), block.changed.end());
    return file.print(block.text);
  };
  auto done = print(settings_, collection_, take, collection_.isPortable ? folder : std::string());
  return done ? file.flush() : done;
}

// A file that the disk does not give back gets a fresh one in its place, so that the program can go on; the
// old one is kept beside it.
void CollectionStore::replaceUnreadable(const std::string& fileName, const Error& why) {
  log_.LogError(std::string(LoadResString(177)).append(why.text));
  log_.LogError("<<Corrupt INI - Re-Write initiated>> on - " + fileName);
  settings_.adjust().AnimMovRand = false;
  settings_.adjust().CDDBMode = 1;
  settings_.adjust().TitleDispClr = "8421504";
  settings_.adjust().NoofUses = 40;
  settings_.change().DisplayColor = "9079296";
  const auto kept = freeCopyName(fileName, {});
  if (auto done = files_.rename(fileName, kept); !done) return log_.LogError(done.error().text);
  if (WriteINI(std::string(folderPart(fileName)), std::string(fileNamePart(fileName)), true)) return;
  // Without a fresh one the old one is back under its name, unless something stands there after all.
  if (files_.exists(fileName)) return;
  if (auto back = files_.rename(kept, fileName); !back) log_.LogError(back.error().text);
}

void CollectionStore::rewrite(const std::string& fileName, const CollectionReader& reader,
                              const ReadReport& report, const ReadOptions& options) {
  const auto& text = reader.facts();
  if (options.watch != nullptr) options.watch->status("Please Wait \r\nAnalysing Collection", 0, 0);
  const bool loses = report.damaged || !report.skippedClips.empty() || reader.droppedText() ||
                     text.clipSections > collection_.MovieList.count() ||
                     text.animationSections > collection_.AudMovieList.count() ||
                     text.keyframeSections > collection_.KeyframeList.count();
  if (loses && !keepCopy(fileName)) {
    log_.LogError("Cannot keep a copy of the old collection, so it is left as it stands - " + fileName);
    return;
  }
  WriteINI(std::string(folderPart(fileName)), std::string(fileNamePart(fileName)), true);
}

// The first name of "x.INI.old", "x.INI.old2" and so on that is free, or holds the same collection already.
std::string CollectionStore::freeCopyName(const std::string& fileName, const std::string& bytes) const {
  auto name = fileName + ".old";
  for (int n = 2; files_.exists(name); ++n) {
    const auto there = files_.read(name, kMaxCollectionBytes);
    if (!bytes.empty() && there && isSameCollection(*there, bytes)) break;
    name = fileName + ".old" + std::to_string(n);
  }
  return name;
}

// The name of the copy.
Result<std::string> CollectionStore::keepCopy(const std::string& fileName) {
  const auto bytes = files_.read(fileName, kMaxCollectionBytes);
  if (!bytes) return bytes.error();
  auto name = freeCopyName(fileName, *bytes);
  if (auto done = writeDurably(files_, name, *bytes); !done) return done.error();
  return name;
}

}  // namespace kvo
