// The options of a render: which kind, which profile.
#include "base/numbers.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/translated.h"
#include "editor/tabs/operations.h"
#include "render/movie_render.h"
#include "render/output_kinds.h"
#include "render/render_texts.h"

#include <algorithm>

namespace kvo {

OutputSize MovieRender::outputSize() const {
  OutputSize size;
  GetHeightWidth(ports_.editing.editor.controls, size.height, size.width);
  return size;
}

void MovieRender::show(RenderFrame frame) {
  state_.frame = frame;
  state_.heading = frame == RenderFrame::Estimate    ? "Pre-Render - Phase 1"
                   : frame == RenderFrame::Rendering ? "Rendering - Phase 2"
                   : frame == RenderFrame::PicInPic  ? "Render New Picture in Picture Clip"
                                                     : "Create Movie";
  if (frame == RenderFrame::Options) tellOptions();
  if (frame == RenderFrame::PicInPic) tellPair();
  if (frame != RenderFrame::None) tellWork();
  changed();
}

void MovieRender::Rendertofile() {
  if (state_.isRunning) return;
  if (ports_.editing.clips().empty()) {
    ports_.editing.boxes.show(nothingToCreateBox());
    return;
  }
  ports_.host.PlayerStop();
  ports_.host.ApplyStillSettings();
  recall();
  if (ports_.findHardware) ports_.findHardware();
  const auto choice = setAside_.value_or(Choice{state_.kind, state_.profileRow, state_.madeForRow});
  const bool fits = HaveAtleastOneVidTrack(ports_.editing) || !movieFileOf(choice.kind).hasPicture;
  const bool comesBack = fits && setAside_.has_value();
  chooseKind(fits ? choice.kind : OutputKind::Wav);
  if (!fits) setAside_ = choice;
  if (comesBack) {
    state_.profileRow = choice.profileRow;
    state_.madeForRow = choice.madeForRow;
    describe();
  }
  show(RenderFrame::Options);
}

void MovieRender::leave() {
  if (!state_.isRunning) show(RenderFrame::None);
}

void MovieRender::RenderPinP(int backdropNo, const PicInPicOptions& wanted) {
  const auto& clips = ports_.editing.clips();
  if (state_.isRunning || backdropNo < 1 || backdropNo > clips.count()) return;
  if (clips[backdropNo].HasPicInPic().empty()) return;
  recall();
  pair_ = {backdropNo, wanted};
  pair_.wanted.preview = false;
  show(RenderFrame::PicInPic);
}

void MovieRender::RenderNewPicInPic() {
  const auto& e = ports_.editing;
  if (state_.isRunning || pair_.backdropNo < 1 || pair_.backdropNo > e.clips().count()) return;
  ports_.host.PlayerStop();
  const auto text = CreatePinPPreview(e, pair_.backdropNo, pair_.wanted);
  if (auto done = writeDurably(e.files, e.folder.beside("\\KVORender.xtl"), text); !done) {
    e.boxes.show(renderFailedBox(done.error().text));
    return;
  }
  WriteRenderMovie(true);
}

void MovieRender::chooseKind(OutputKind kind) {
  if (state_.isRunning) return;
  const bool isSound = kind == OutputKind::Wma;
  const bool isListed = isSound || kind == OutputKind::Wmv;
  const bool keepsRow = kind == state_.kind && !state_.Lst_WMVFormats.empty();
  const bool keepsPurpose = kind == state_.kind && !state_.Lst_MadeFor.empty();
  state_.kind = kind;
  setAside_.reset();
  state_.Lst_WMVFormats = isListed ? PopulateWMVProfileOpts(isSound) : std::vector<std::string>();
  if (!keepsRow) state_.profileRow = isListed ? static_cast<int>(state_.Lst_WMVFormats.size()) - 1 : -1;
  // The last row with a picture is of a size that few movies have.
  if (!keepsRow && kind == OutputKind::Wmv) {
    constexpr int kBestQuality = 38;
    for (std::size_t row = 0; row < state_.Lst_WMVFormats.size(); ++row) {
      if (GetWMVRenderProfileInt(state_.Lst_WMVFormats[row]) == kBestQuality)
        state_.profileRow = static_cast<int>(row);
    }
  }
  listMadeFor();
  if (!keepsPurpose) state_.madeForRow = state_.Lst_MadeFor.empty() ? -1 : 0;
  describe();
}

// One row for each preset of the kind, behind that for none of them.
void MovieRender::listMadeFor() {
  const auto size = outputSize();
  const PictureSides own{size.width, size.height};
  auto& rows = state_.Lst_MadeFor;
  rows.clear();
  for (const auto& preset : moviePresets()) {
    if (preset.kind != state_.kind) continue;
    if (rows.empty()) rows.push_back({"", "As on the Create page", sidesText(own.width, own.height)});
    const auto sides = fittedTo(preset, own);
    rows.push_back({std::string(preset.name), preset.title, sidesText(sides.width, sides.height)});
  }
}

void MovieRender::chooseMadeFor(int row) {
  if (state_.isRunning || row < 0 || row >= static_cast<int>(state_.Lst_MadeFor.size())) return;
  state_.madeForRow = row;
  describe();
}

void MovieRender::wishMegabytes(int megabytes) {
  if (state_.isRunning) return;
  state_.wishedMegabytes = std::clamp(megabytes, kLeastMegabytes, kMostMegabytes);
  describeMadeFor();
  changed();
}

void MovieRender::tickHardware(bool on) {
  if (state_.isRunning) return;
  state_.Chk_Hardware = on;
  changed();
}

void MovieRender::hearHardware(bool works) {
  state_.hasHardware = works;
  describe();
}

const MoviePreset* MovieRender::chosenPreset() const {
  const auto row = static_cast<std::size_t>(state_.madeForRow);
  return row < state_.Lst_MadeFor.size() ? presetNamed(state_.Lst_MadeFor[row].preset) : nullptr;
}

// What is told where clips lose by the size of the movie; empty where none does.
std::string MovieRender::largerClips() const {
  const auto& e = ports_.editing;
  PictureSides most;
  for (int number = 1; number <= e.clips().count(); ++number) {
    const auto& clip = e.clips()[number];
    if (clip.IsStill() || isSoundByName(clip.MovieName())) continue;
    const auto text = clip.Resolution().text();  // "1920 x 1080", known as soon as the clip is
    const auto by = text.find('x');
    if (by == std::string::npos) continue;
    const PictureSides sides{static_cast<int>(ToNumber(text)),
                             static_cast<int>(ToNumber(text.substr(by + 1)))};
    if (sides.width * sides.height > most.width * most.height) most = sides;
  }
  const auto output = outputSize();
  if (most.width <= output.width || most.height <= output.height) return {};
  return translated("Your clips are up to %1: set the size on the Create page.",
                    {sidesText(most.width, most.height)});
}

void MovieRender::describeMadeFor() {
  const auto* preset = chosenPreset();
  state_.madeForText =
      preset != nullptr ? presetText(*preset, state_.wishedMegabytes) : translated(kindRow(state_.kind).hint);
  if (const auto larger = largerClips(); !larger.empty()) state_.madeForText += "\r\n" + larger;
  state_.hasWishedSize = preset != nullptr && preset->megabytes > 0;
  state_.offersHardware =
      state_.hasHardware && !state_.hasWishedSize && movieFileOf(state_.kind).codec == VideoCodec::H264;
}

void MovieRender::chooseProfile(int row) {
  if (state_.isRunning || row < 0 || row >= static_cast<int>(state_.Lst_WMVFormats.size())) return;
  state_.profileRow = row;
  describe();
  const int number = GetWMVRenderProfileInt(state_.Lst_WMVFormats[static_cast<std::size_t>(row)]);
  const auto told = ShowProfileDescription(number, outputSize(), state_.Chk_UseCodecOutputDimensions);
  for (const auto& warning : told.warnings) ports_.editing.boxes.show(warning);
}

void MovieRender::tickCodecDimensions(bool on) {
  if (state_.isRunning) return;
  state_.Chk_UseCodecOutputDimensions = on;
  describe();
}

void MovieRender::describe() {
  state_.profileDescription.clear();
  state_.codecSize.clear();
  if (state_.profileRow >= 0) {
    const int number =
        GetWMVRenderProfileInt(state_.Lst_WMVFormats[static_cast<std::size_t>(state_.profileRow)]);
    state_.profileDescription =
        ShowProfileDescription(number, outputSize(), state_.Chk_UseCodecOutputDimensions).text;
    if (const auto facts = GetProfileXYDimensions(number))
      state_.codecSize = sidesText(facts->size.width, facts->size.height);
  }
  describeMadeFor();
  if (state_.frame == RenderFrame::Options) tellOptions();
  changed();
}

}  // namespace kvo
