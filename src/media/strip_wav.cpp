#include "media/strip_wav.h"

#include "base/guarded.h"
#include "media/audio_reader.h"
#include "media/media_facts.h"
#include "media/movie_writer.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kvo::media {
namespace {

Outcome copySound(AudioReader& reader, MovieWriter& writer, std::int64_t samples, const std::string& wav,
                  const std::function<bool()>& goOn) {
  std::vector<float> second;
  for (std::int64_t at = 0; at < samples; at += kSampleRate) {
    if (!goOn()) return Error{"cannot write " + wav + ": it was stopped"};
    const auto count = std::min<std::int64_t>(kSampleRate, samples - at);
    second.resize(static_cast<std::size_t>(count) * kChannels);
    if (auto done = reader.read(second); !done) return done;
    if (auto done = writer.writeAudio(second); !done) return done;
  }
  return writer.finish();
}

}  // namespace

Outcome stripWav(Files& files, const std::string& source, const std::string& wav,
                 const std::function<bool()>& goOn) {
  return guarded([&]() -> Outcome {
    const auto facts = readFacts(source);
    if (!facts) return facts.error();
    auto reader = AudioReader::open(source);
    if (!reader) return reader.error();
    auto target = files.replace(wav);
    if (!target) return target.error();
    auto writer = MovieWriter::open(**target, {Container::Wav, std::nullopt, true}, wav);
    if (!writer) return writer.error();
    const auto samples = std::llround(facts->wholeDuration * kSampleRate);
    if (auto done = copySound(*reader, *writer, samples, wav, goOn); !done) return done;
    return (*target)->commit();
  });
}

}  // namespace kvo::media
