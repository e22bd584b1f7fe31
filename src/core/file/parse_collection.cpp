#include "base/text.h"
#include "core/file/clip_rows.h"
#include "core/file/collection_text.h"
#include "core/telling/messages.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kMaxAnimations = 100;
constexpr int kMaxCorruptAudio = 4;

using Rows = std::vector<SectionRow>;

bool isCollectionHead(const Rows& rows) { return rows.size() >= 5 && rows[4].key == "DefaultStartupVid"; }

template <class Record>
void takeRows(Record& record, std::span<const FieldRow<Record>> rows, const std::vector<SectionRow>& values,
              std::size_t from = 0) {
  for (std::size_t i = from; i < std::min(rows.size(), values.size()); ++i) {
    if (rows[i].take != nullptr) rows[i].take(record, values[i].value);
  }
}

std::string numbered(std::string_view name, int number, std::string_view part = {}) {
  return std::string(name).append(std::to_string(number)).append(part);
}

SectionRow rowOr(const Rows& rows, std::size_t at) { return at < rows.size() ? rows[at] : SectionRow{}; }

// The value that a count of the head reads as.
int countIn(const std::vector<HeadText>& head, std::string_view name, const ProgramFolder& folder,
            const Preferences& before) {
  KVO2 settings;
  settings.change().MoviesInGroup = before.MoviesInGroup;
  settings.adjust().KeyframeCount = before.KeyframeCount;
  SettingRead read{settings, folder};
  for (std::size_t s = 0; s < head.size(); ++s) {
    const auto& section = headSections()[s];
    for (std::size_t i = 0; i < section.rows.size(); ++i) {
      if (section.rows[i].name != name) continue;
      if (i < head[s].size()) readSetting(section.rows[i], read, head[s][i].value);
      if (head[s].empty()) readWithoutSection(section, read);
      return static_cast<int>(ToNumber(section.rows[i].text(settings)));
    }
  }
  return 0;
}

}  // namespace

CollectionReader::CollectionReader(std::string bytes, const ProgramFolder& folder, const Preferences& before)
    : reader_(std::move(bytes)), folder_(folder) {
  if (!reader_.GetSection("KVO", rows_, 0)) {
    facts_.end = ReadEnd::NotReadable;
    return;
  }
  if (!isCollectionHead(rows_)) {
    facts_.end = ReadEnd::NotValid;
    return;
  }
  facts_.clipSections = reader_.countSections("Movie", "Main");
  if (facts_.clipSections > kMaxClips) {
    facts_.end = ReadEnd::TooManyClips;
    return;
  }
  facts_.animationSections = reader_.countSections("AudMovie");
  facts_.keyframeSections = reader_.countSections("KeyFrame");
  for (const auto& section : headSections()) {
    reader_.GetSection(section.name, rows_, 0);
    facts_.head.push_back(rows_);
  }
  facts_.clips = countIn(facts_.head, "MoviesInGroup", folder, before);
  facts_.keyframes = countIn(facts_.head, "KeyframeCount", folder, before);
}

std::vector<ParsedAnimation> CollectionReader::animations() {
  std::vector<ParsedAnimation> all;
  for (int i = 1; i <= kMaxAnimations && reader_.GetSection(numbered("AudMovie", i), rows_, 0); ++i) {
    auto& parsed = all.emplace_back();
    parsed.name = rows_[0];
    parsed.folder = rowOr(rows_, 1);
    auto& animation = parsed.animation;
    takeRows(animation, audMovieRows(), rows_);
    if (characterCount(animation.MovieName) == kUnusedLength) animation.MovieName.clear();
    animation.Path = withSeparator(folderOf(parsed.folder.value, folder_));
  }
  return all;
}

ParsedClip CollectionReader::nextClip() {
  ParsedClip parsed;
  parsed.number = ++clip_;
  if (!reader_.GetSection(numbered("Movie", clip_, "Main"), rows_, clip_)) {
    parsed.told.push_back(lineOfEnd());
    parsed.damaged = parsed.ends = true;
    return parsed;
  }
  parsed.name = rows_[0];
  parsed.folder = rowOr(rows_, 1);
  parsed.overlayFolder = rowOr(rows_, kSrcPathRow);
  parsed.overlayName = rowOr(rows_, kSrcNameRow);
  parsed.mask = rowOr(rows_, kMaskNameRow);
  auto& clip = parsed.clip;
  clip.MovieName(std::string(fileNamePart(parsed.name.value)));
  clip.Path(folderOf(parsed.folder.value, folder_));
  takeRows(clip, movieMainRows(), rows_, 2);
  if (clip.Playspeed() == 999) clip.IsExtendedCD(true);
  parsed.usable =
      !clip.MovieName().empty() && (!clip.Path().empty() || clip.MovieName().find("//") != std::string::npos);
  if (parsed.usable) otherSections(parsed);
  return parsed;
}

void CollectionReader::otherSections(ParsedClip& parsed) {
  auto& clip = parsed.clip;
  if (section(parsed, "Audio")) {
    takeRows(clip, movieAudioRows(), rows_);
  } else {
    if (++audioFailures_ > kMaxCorruptAudio) {
      parsed.ends = true;
      return;
    }
    parsed.told.emplace_back("<<ERR034>> - Corrupt Audio Descriptions. ");
  }
  if (rows_.size() < 2) clip.AudioOutputLevel(1.0F);

  if (section(parsed, "Looping")) {
    takeRows(clip, movieLoopingRows(), rows_);
    // Once more, now that the durations are known, so that the frame fields can be derived.
    clip.LoopEnd(Value(rows_[0].value));
  } else {
    parsed.told.push_back(
        std::string("<<ERR035>> - Corrupt Looping Descriptions. ").append(LoadResString(174)));
  }

  if (section(parsed, "Display")) {
    takeRows(clip, movieDisplayRows(), rows_);
  } else {
    parsed.told.push_back(std::string(LoadResString(175)).append("<<ERR036>> - Corrupt Display Failure "));
  }
}

bool CollectionReader::section(ParsedClip& parsed, std::string_view part) {
  const bool found = reader_.GetSection(numbered("Movie", parsed.number, part), rows_, parsed.number);
  parsed.damaged |= !found;
  return found;
}

ParsedKeyframe CollectionReader::nextKeyframe() {
  ParsedKeyframe parsed;
  ++keyframe_;
  parsed.ends = !reader_.GetSection(numbered("KeyFrame", keyframe_), rows_, keyframe_);
  if (parsed.ends) return parsed;
  takeRows(parsed.keyframe, keyframeRows(), rows_);
  parsed.texture = rowOr(rows_, kTextureFileRow);
  return parsed;
}

TextKind kindOfText(std::string bytes) {
  SectionReader reader(std::move(bytes));
  Rows rows;
  if (!reader.GetSection("KVO", rows, 0)) return {};
  return {true, isCollectionHead(rows)};
}

std::string lineOfEnd() {
  return std::string("<<ERR033>> - ").append(LoadResString(172)).append(LoadResString(173));
}

std::string folderOf(std::string_view text, const ProgramFolder& folder) {
  if (sameText(text, "CURRDIR")) return withSeparator(folder.path());
  if (characterCount(text) == kUnusedLength) return {};
  return std::string(folderFromFile(text));
}

}  // namespace kvo
