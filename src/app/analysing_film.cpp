#include "app/analysing_film.h"

#include "editor/tabs/operations.h"

#include <utility>

namespace kvo {
namespace {

constexpr SampleForm kFilmForm{320, 180, false};

// The whole of a file as a document.
std::string documentOf(const Editing& e, const std::string& file) {
  Collection one;
  auto& clip = one.MovieList.add({});
  clip.MovieName(std::string(fileNamePart(file)));
  clip.Path(std::string(folderPart(file)));
  const auto facts = e.streams.facts(file);
  if (facts) clip.LoopEnd(Value(facts->duration));
  return clipSample(one, 1, optionsOf(e), e.editor.effects, kFilmForm).text;
}

}  // namespace

AnalysingFilm::AnalysingFilm(const Editing& editing, AnalysingState& state, EventLoop& loop,
                             std::function<void()> come)
    : editing_(editing), state_(state), pictures_(loop) {
  pictures_.whenArrived([this, come = std::move(come)](std::int64_t /*frame*/, auto picture) {
    if (player_ == nullptr) return;
    state_.picture = std::move(picture);
    come();
  });
}

void AnalysingFilm::settle() {
  if (!state_.visible || state_.film.empty()) return player_.reset();
  if (player_ == nullptr) begin();
  if (std::exchange(plays_, state_.plays) != state_.plays) player_->play();
}

void AnalysingFilm::begin() {
  player_ = std::make_unique<engine::EnginePlayer>(
      nullptr, [this](auto frame, auto picture) { pictures_.put(frame, std::move(picture)); });
  plays_ = 0;
  if (const auto loaded = player_->load(documentOf(editing_, state_.film)); !loaded)
    editing_.log.LogError(loaded.error().text);
}

}  // namespace kvo
