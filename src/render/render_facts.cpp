// What the frames of a render tell of the movie, line by line.
#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/translated.h"
#include "editor/tabs/operations.h"
#include "render/movie_render.h"
#include "render/output_kinds.h"
#include "render/render_texts.h"
#include "render/wm8_profile.h"
#include "vocabulary/encode_profiles.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kMegabytesOfGb = 1024;
constexpr double kBytesOfMb = 1024.0 * 1024;
constexpr int kGifDepth = 8;           // bits of a pixel
constexpr int kUncompressedPixel = 4;  // bytes of a picture-in-picture's

std::string secondsOf(double seconds) { return translated("%1 s", {FormatMask(seconds, "0.000")}); }

constexpr double kMostRoom = 1e15;  // megabytes: beyond it nobody knows, as of a folder that is gone

std::string roomText(double megabytes) {
  if (megabytes > kMostRoom) return translated("not known");
  return megabytes < kMegabytesOfGb ? translated("%1 Mb", {FormatMask(megabytes, "0")})
                                    : translated("%1 Gb", {FormatMask(megabytes / kMegabytesOfGb, "0.0")});
}

std::string nameOf(const Movie& clip) {
  const std::string other(trimmed(clip.AltName()));
  return other.empty() ? std::string(clip.MovieName()) : other;
}

std::string soundText(const MovieFile& file, const std::optional<EncodeProfile>& profile) {
  if (!file.sound) return translated("none");
  const int rate = profile ? profile->sampleRate : file.sampleRate;
  const auto kilohertz = ShortText(rate / 1000.0);
  return profile && profile->channels == 1 ? translated("%1 kHz mono", {kilohertz})
                                           : translated("%1 kHz stereo", {kilohertz});
}

}  // namespace

std::string MovieRender::clipAt(double seconds) const {
  const auto& clips = ports_.editing.clips();
  const FilmCut* seen = nullptr;
  for (const auto& cut : state_.film) {
    if (cut.from <= seconds) seen = &cut;
  }
  if (seen == nullptr || seen->clip > clips.count()) return {};
  return translated("Cut %1   %2", {std::to_string(seen->clip), nameOf(clips[seen->clip])});
}

std::string MovieRender::formOf(const Job& job) const {
  if (job.profile != kNoProfile && !job.audioOnly()) return profileText(job.profile);
  const auto kind = translated(kindRow(job.kind).title);
  return job.preset == nullptr ? kind : kind + ": " + translated(job.preset->title);
}

void MovieRender::takeFilm(const Job& job) {
  const auto& e = ports_.editing;
  state_.film.clear();
  state_.sample.reset();
  state_.picture = nullptr;
  state_.movieSeconds = 0;
  // One of its own: a picture that is still being made of the one before is not shown any more.
  state_.document = std::make_shared<const std::string>(job.document);
  state_.filmLength = std::max(job.query.videoTotal, job.isPicInPic ? 0 : job.query.audioTotal);
  if (job.isPicInPic) {
    state_.film = {{pair_.backdropNo, 0, state_.filmLength}};
    return;
  }
  for (int number = 1; number <= e.clips().count(); ++number) {
    const auto& clip = e.clips()[number];
    const FilmCut cut{number, clip.TimeLineStart().number(), clip.TimeLineStop().number()};
    if (!isSoundByName(clip.MovieName()) && cut.to > cut.from) state_.film.push_back(cut);
  }
}

// Your movie, before it is made.
void MovieRender::tellOptions() {
  const auto& e = ports_.editing;
  const auto& preferences = e.settings.preferences();
  const auto& create = ports_.create;
  const double video = ToNumber(e.editor.VideoTotalTime);
  const double whole = video > 0 ? video : ToNumber(e.editor.AudioTotalTime);
  const double length = create.Opt_RenderRangeWhole ? whole : std::max(create.Txt_Too - create.Txt_From, 0.0);
  auto& facts = state_.facts;
  facts = {{"Clips", std::to_string(e.clips().count())}, {"Length", secondsOf(length)}};
  facts.push_back({"Range", create.Opt_RenderRangeWhole
                                ? translated("Whole movie")
                                : translated("%1 to %2 s", {FormatMask(create.Txt_From, "0.0"),
                                                            FormatMask(create.Txt_Too, "0.0")})});
  const auto& file = movieFileOf(state_.kind);
  const auto profile = chosenProfile();
  if (file.hasPicture) {
    const auto* preset = chosenPreset();
    const auto sides = pictureSides();
    double rate = preferences.OutPutFrameRate;
    if (preset != nullptr) rate = std::min(rate, preset->mostRate);
    if (profile && profile->width > 0) rate = profile->frameRate.perSecond();
    const int depth = file.codec == VideoCodec::Gif ? kGifDepth : preferences.OutputColorDepth;
    facts.push_back({"Picture", sidesText(sides.width, sides.height)});
    facts.push_back({"Frames a second", ShortText(rate)});
    facts.push_back({"Colors", translated("%1 bit", {std::to_string(depth)})});
  }
  facts.push_back({"Sound", soundText(file, profile)});
  const auto folder = folder_.empty() ? ports_.moviesFolder() : folder_;
  facts.push_back({"Free disk", roomText(ports_.freeMegabytes(withSeparator(folder) + "movie"))});
  findCaution();
}

// Of the Windows Media that the options make.
std::optional<EncodeProfile> MovieRender::chosenProfile() const {
  const auto row = static_cast<std::size_t>(state_.profileRow);
  if (row >= state_.Lst_WMVFormats.size()) return std::nullopt;
  const int number = GetWMVRenderProfileInt(state_.Lst_WMVFormats[row]);
  return number < kSystemProfiles ? systemProfile(number) : wm8Profile(number);
}

// Of the movie that the options make.
PictureSides MovieRender::pictureSides() const {
  const auto output = outputSize();
  const PictureSides own{output.width, output.height};
  if (const auto* preset = chosenPreset()) return fittedTo(*preset, own);
  const auto row = static_cast<std::size_t>(state_.profileRow);
  if (row >= state_.Lst_WMVFormats.size()) return own;
  const int number = GetWMVRenderProfileInt(state_.Lst_WMVFormats[row]);
  if (const auto profile = systemProfile(number); profile && profile->width > 0)
    return {profile->width, profile->height};
  const auto written = state_.Chk_UseCodecOutputDimensions ? wm8ProfileSize(number) : std::nullopt;
  return written ? PictureSides{written->width, written->height} : own;
}

// Backdrops of a picture-in-picture that is no clip yet: only as one of its own it becomes a part of a movie.
int MovieRender::overlayCount() const {
  const auto& clips = ports_.editing.clips();
  int count = 0;
  for (int number = 1; number <= clips.count(); ++number) {
    const auto look = readPicInPic(clips[number].HasPicInPic());
    if (look && look->overlayClip > 0 && !isRendered(clips[number])) ++count;
  }
  return count;
}

// What the engine would refuse, or what is made in its place, while another choice can still be made.
void MovieRender::findCaution() {
  state_.caution.clear();
  state_.canMake = true;
  const auto& file = movieFileOf(state_.kind);
  if (!file.hasPicture) return;
  if (ports_.editing.editor.hasNoVideo) {
    state_.canMake = state_.kind != OutputKind::Wmv;
    state_.caution = state_.canMake ? translated("No clip has a picture: a WAV of the sound is made.")
                                    : translated("No clip has a picture. Choose a kind of sound.");
    return;
  }
  const auto even = evenSidesOf(file.codec);
  const auto sides = pictureSides();
  const auto refuse = [&](const char* pattern, int side) {
    state_.canMake = state_.hasWishedSize;  // a picture that is made smaller for it has even sides
    state_.caution = translated(pattern, {std::to_string(side), file.extension});
  };
  if (even.width && sides.width % 2 != 0) {
    refuse("The width of %1 is odd, and %2 takes even ones only. Change it on the Create page.", sides.width);
  } else if (even.height && sides.height % 2 != 0) {
    refuse("The height of %1 is odd, and %2 takes even ones only. Change it on the Create page.",
           sides.height);
  } else if (const int overlays = overlayCount(); overlays > 0) {
    state_.caution = overlays == 1
                         ? translated(
                               "1 clip has an overlay. Render it on the Overlay page: the movie shows "
                               "the clip without.")
                         : translated(
                               "%1 clips have an overlay. Render them on the Overlay page: the movie "
                               "shows the clips without.",
                               {std::to_string(overlays)});
  }
}

void MovieRender::tellPair() {
  const auto& e = ports_.editing;
  const auto& backdrop = e.clips()[pair_.backdropNo];
  const auto look = readPicInPic(backdrop.HasPicInPic());
  const int overlay = look ? look->overlayClip : 0;
  const auto size = outputSize();
  const double rate = e.settings.preferences().OutPutFrameRate;
  const double length = pairLength();
  const double bytes = std::ceil(length * rate) * size.width * size.height * kUncompressedPixel;
  const auto folder = folder_.empty() ? ports_.moviesFolder() : folder_;
  state_.facts = {{"Backdrop", nameOf(backdrop)},
                  {"Overlay", overlay >= 1 && overlay <= e.clips().count() ? nameOf(e.clips()[overlay]) : ""},
                  {"Length", secondsOf(length)},
                  {"Picture", sidesText(size.width, size.height)},
                  {"Frames a second", ShortText(rate)},
                  {"Output file size", translated("about %1", {roomText(bytes / kBytesOfMb)})},
                  {"Free disk", roomText(ports_.freeMegabytes(withSeparator(folder) + "movie"))}};
  state_.film = {{pair_.backdropNo, 0, length}};
  state_.pair.reset();
  if (look) state_.pair = RenderPair{pair_.backdropNo, overlay, look->position, look->maxOpacity};
}

// While it is made, and behind that.
void MovieRender::tellWork() {
  if (job_ == nullptr) return;
  const auto& job = *job_;
  const auto& progress = driver_.state().progress;
  auto& facts = state_.facts;
  const std::string made = "'" + job.file + "'";
  if (state_.frame == RenderFrame::Estimate) {
    facts = {{"Result", state_.sizeLabel.empty() ? translated("not known yet") : state_.sizeLabel},
             {"Free on this disk", roomText(ports_.freeMegabytes(job.file))},
             {"Output", made},
             {"Profile", formOf(job)}};
  } else if (state_.frame == RenderFrame::Rendering) {
    const auto speed = speedOf(progress);
    const double took = std::chrono::duration<double>(ports_.engine.loop.now() - begun_).count();
    facts = {{"Now", clipAt(state_.movieSeconds)},
             {"Elapsed", translated("%1 s", {FormatMask(std::floor(took), "0")})},
             {"Made", state_.progress},
             {"Speed", speed ? translated("%1 x real time", {FormatMask(*speed, "0.00")}) : ""},
             {"Output", made},
             {"Profile", formOf(job)}};
    // What the first part let expect holds until the movie itself tells a size.
    if (!bytesInAll(progress)) facts.insert(facts.end() - 2, {"Result", state_.sizeLabel});
  } else if (state_.frame == RenderFrame::Report) {
    facts = {{"Movie", made}, {"Length", secondsOf(job.length)}, {"Profile", formOf(job)}};
  }
}

}  // namespace kvo
