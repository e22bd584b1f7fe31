// The TimelinePlayer that this program has: the engine in process, on a thread of its own.
#pragma once

#include "ports/sound_output.h"
#include "ports/timeline_player.h"

#include <memory>

namespace kvo::engine {

class EnginePlayer : public TimelinePlayer {
 public:
  /// `sound` may be null; it is used by the player's thread alone.
  EnginePlayer(std::unique_ptr<SoundOutput> sound, ShowFrame show);
  ~EnginePlayer() override;

  Outcome load(std::string document) override;
  void clear() override;
  void play() override;
  void pause() override;
  void stop() override;
  void seek(std::int64_t frame) override;
  [[nodiscard]] PlayState state() const override;
  [[nodiscard]] std::string failure() const override;
  [[nodiscard]] std::int64_t position() const override;
  [[nodiscard]] std::int64_t frames() const override;
  [[nodiscard]] double frameRate() const override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace kvo::engine
