#include "media/media_facts.h"

#include "media/ffmpeg.h"

#include <string_view>

namespace kvo::media {

Result<StreamFacts> readFacts(const std::string& path) {
  auto format = openInput(path);
  if (!format) return format.error();
  StreamFacts facts;
  const int video = av_find_best_stream(format->get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  const int audio = av_find_best_stream(format->get(), AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
  facts.hasAudio = audio >= 0;
  if (audio >= 0) facts.sampleRate = (*format)->streams[audio]->codecpar->sample_rate;
  // A file that is sound by its name alone holds none that could be found.
  if (video < 0 && audio >= 0 && facts.sampleRate == 0)
    return Error{"cannot open " + path + ": it is no media file, or damaged"};
  if (video >= 0) {
    const auto* stream = (*format)->streams[video];
    // The cover picture of a music file is no video.
    facts.hasVideo = (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) == 0;
    facts.width = stream->codecpar->width;
    facts.height = stream->codecpar->height;
    facts.frameRate = stream->avg_frame_rate.den > 0 ? av_q2d(stream->avg_frame_rate) : 0;
    const std::string_view name((*format)->iformat->name);
    facts.isStill = name.ends_with("_pipe") || name == "image2";
  }
  if ((*format)->duration > 0 && !facts.isStill) {
    facts.duration = static_cast<double>((*format)->duration) / AV_TIME_BASE;
  }
  return facts;
}

Outcome checkInput(const std::string& path) {
  const auto opened = openHead(path);
  return opened ? Outcome() : Outcome(opened.error());
}

void silenceRemarks() { av_log_set_level(AV_LOG_QUIET); }

}  // namespace kvo::media
