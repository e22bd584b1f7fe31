#include "playback/stream_info.h"

#include "base/numbers.h"
#include "core/telling/translated.h"

#include <string_view>

namespace kvo {
namespace {

constexpr int kFollow = 1000;  // milliseconds
constexpr std::string_view kUntold = "-";

StreamFactLine line(std::string_view caption, std::string_view value) {
  return {std::string(caption), std::string(value.empty() ? kUntold : value)};
}

const char* stateText(EngineOpening opening) {
  switch (opening) {
    case EngineOpening::Connecting:
      return "Connecting";
    case EngineOpening::Buffering:
      return "Buffering";
    case EngineOpening::Open:
      return "Open";
    case EngineOpening::Failed:
      return "Failed";
    case EngineOpening::Closed:
      break;
  }
  return "Closed";
}

std::string bits(double perSecond) {
  return perSecond > 0 ? translated("%1 bps", {FormatMask(perSecond, "0")}) : std::string();
}

std::vector<StreamFactLine> propertyLines(const StreamDetails& details, bool more) {
  std::vector<StreamFactLine> lines = {
      line("Description", details.description),
      line("Author", details.author),
      line("Rights", details.rights),
      line("Channel Name", details.channelName),
      line("Channel Description", details.channelDescription),
      line("Channel URL", details.channelUrl),
      line("Contact Address", details.contactAddress),
      line("Contact e-mail", details.contactEmail),
      line("Creation Date", details.created),
  };
  if (more) {
    for (const auto& [name, value] : details.others) lines.push_back(line(name, value));
  }
  return lines;
}

std::vector<StreamFactLine> connectionLines(const StreamReport& report, const StreamDetails& details) {
  return {
      line("Connection", translated(stateText(report.opening))),
      line("Bandwidth", bits(report.bandwidth)),
      line("Received", bits(details.receivedRate)),
      line("Buffered", std::to_string(report.buffered) + "%"),
      line("Read ahead", translated("%1 s", {FormatMask(details.ahead, "0.0")})),
      line("Lost pictures", std::to_string(details.lostPictures)),
  };
}

std::string choiceText(const MediaTrack& track) {
  auto text = translated(track.kind == MediaTrack::Kind::Sound ? "Sound %1" : "Subtitles %1",
                         {std::to_string(track.id)});
  if (!track.title.empty()) text += " - " + track.title;
  if (!track.language.empty()) text += " (" + track.language + ")";
  return text;
}

}  // namespace

StreamInfo::StreamInfo(StreamInfoState& state, Player& player, EventLoop& loop)
    : state_(state), player_(player), follow_(loop.timer([this] { tell(); })) {}

void StreamInfo::Lbl_StreamInfo_Click() {
  if (player_.PlayerIsEmpty()) return;
  state_.visible = true;
  follow_->start(kFollow);
  tell();
}

void StreamInfo::more() {
  state_.more = !state_.more;
  tell();
}

void StreamInfo::choose(std::size_t choice) {
  const auto tracks = player_.PlayerGetTracks();
  if (choice >= tracks.size()) return;
  const auto& track = tracks[choice];
  const bool takesBack = track.chosen && track.kind == MediaTrack::Kind::Subtitles;
  player_.PlayerChooseTrack(track.kind, takesBack ? 0 : track.id);
  tell();
}

void StreamInfo::done() {
  follow_->stop();
  state_ = {};
}

void StreamInfo::tell() {
  if (player_.PlayerIsEmpty()) return done();
  const auto details = player_.streamDetails();
  state_.properties = propertyLines(details, state_.more);
  state_.codecs.clear();
  for (const auto& [kind, codec] : details.codecs) state_.codecs.push_back(line(kind, codec));
  if (state_.codecs.empty()) state_.codecs.push_back(line("Codec", {}));
  state_.connection = connectionLines(player_.streamReport(), details);
  state_.choices.clear();
  for (const auto& track : player_.PlayerGetTracks())
    state_.choices.push_back({choiceText(track), track.chosen});
}

}  // namespace kvo
