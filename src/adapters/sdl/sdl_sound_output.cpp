#include "adapters/sdl/sdl_sound_output.h"

#include <SDL2/SDL.h>
#include <algorithm>

namespace kvo {
namespace {

constexpr int kSampleRate = 44100;
constexpr int kChannels = 2;
constexpr double kBytesPerSecond = 1.0 * kSampleRate * kChannels * sizeof(float);
constexpr int kBlock = 1024;  // samples that the device takes at a time: 23 ms
constexpr double kBlockSeconds = 1.0 * kBlock / kSampleRate;

Error noSound() { return {std::string("there is no sound: ") + SDL_GetError()}; }

}  // namespace

SdlSoundOutput::~SdlSoundOutput() {
  if (device_ == 0) return;
  SDL_CloseAudioDevice(device_);
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

Outcome SdlSoundOutput::open() {
  if (device_ != 0) return {};
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return noSound();
  SDL_AudioSpec wanted{};
  wanted.freq = kSampleRate;
  wanted.format = AUDIO_F32SYS;
  wanted.channels = kChannels;
  wanted.samples = kBlock;
  device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
  if (device_ != 0) return {};
  auto failed = noSound();
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
  return failed;
}

void SdlSoundOutput::queue(std::span<const float> samples) {
  if (SDL_QueueAudio(device_, samples.data(), static_cast<std::uint32_t>(samples.size_bytes())) == 0)
    queued_ += static_cast<double>(samples.size_bytes()) / kBytesPerSecond;
}

// The device takes a block at a time, which is then heard little by little.
double SdlSoundOutput::waiting() const {
  const double taken = queued_ - SDL_GetQueuedAudioSize(device_) / kBytesPerSecond;
  const auto now = Clock::now();
  if (runs_) heard_ += std::chrono::duration<double>(now - asked_).count();
  asked_ = now;
  heard_ = std::clamp(heard_, std::max(0.0, taken - kBlockSeconds), std::max(0.0, taken));
  return queued_ - heard_;
}

void SdlSoundOutput::clear() {
  SDL_ClearQueuedAudio(device_);
  queued_ = heard_ = 0;
}

void SdlSoundOutput::run() {
  SDL_PauseAudioDevice(device_, 0);
  runs_ = true;
  asked_ = Clock::now();
}

void SdlSoundOutput::hold() {
  SDL_PauseAudioDevice(device_, 1);
  runs_ = false;
}

}  // namespace kvo
