// What a file holds besides its picture: tracks, texts, chapters, and what it tells of itself.
#include "adapters/mpv/mpv_file.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

const char* propertyOf(MediaTrack::Kind kind) { return kind == MediaTrack::Kind::Sound ? "aid" : "sid"; }

}  // namespace

std::vector<MediaTrack> MpvFile::tracks() const {
  if (!isOpen()) return {};
  if (tracks_) return *tracks_;
  tracks_.emplace();
  const int count = static_cast<int>(core_.number("track-list/count").value_or(0));
  for (int i = 0; i < count; ++i) {
    const auto of = [&](const char* what) { return "track-list/" + std::to_string(i) + "/" + what; };
    const auto type = core_.text(of("type"));
    if (type != "audio" && type != "sub") continue;
    tracks_->push_back({type == "audio" ? MediaTrack::Kind::Sound : MediaTrack::Kind::Subtitles,
                        static_cast<int>(core_.number(of("id")).value_or(0)),
                        core_.text(of("title")).value_or(""), core_.text(of("lang")).value_or(""),
                        core_.isSet(of("selected").c_str())});
  }
  return *tracks_;
}

void MpvFile::choose(MediaTrack::Kind kind, int id) {
  if (!isOpen()) return;
  core_.set(propertyOf(kind), id > 0 ? std::to_string(id) : "no");
  tracks_.reset();
}

// Texts that the file does not show by itself are the first ones that it has.
void MpvFile::showCaptions(bool on) {
  core_.set("sub-visibility", on);
  if (!on || !isOpen()) return;
  const auto all = tracks();
  const auto isText = [](const MediaTrack& track) { return track.kind == MediaTrack::Kind::Subtitles; };
  const auto first = std::find_if(all.begin(), all.end(), isText);
  const bool any = std::any_of(all.begin(), all.end(), [&](const auto& t) { return isText(t) && t.chosen; });
  if (first != all.end() && !any) choose(MediaTrack::Kind::Subtitles, first->id);
}

// By the file that they come from: another text may have been chosen meanwhile.
void MpvFile::removeCaptions() {
  const int count = static_cast<int>(core_.number("track-list/count").value_or(0));
  for (int i = 0; i < count; ++i) {
    const auto of = [&](const char* what) { return "track-list/" + std::to_string(i) + "/" + what; };
    if (core_.text(of("external-filename")) != captionFile_) continue;
    return core_.command({"sub-remove", core_.text(of("id")).value_or("")});
  }
}

void MpvFile::setCaptionFile(const std::string& file) {
  if (!isOpen() || file == captionFile_) return;
  if (!captionFile_.empty()) removeCaptions();
  captionFile_ = file;
  if (!file.empty()) core_.command({"sub-add", file, "select"});
}

std::vector<EngineMarker> MpvFile::markers() const {
  std::vector<EngineMarker> markers;
  if (!isOpen()) return markers;
  const int count = static_cast<int>(core_.number("chapter-list/count").value_or(0));
  for (int i = 0; i < count; ++i) {
    const auto of = [&](const char* what) { return "chapter-list/" + std::to_string(i) + "/" + what; };
    markers.push_back({std::max(core_.number(of("time")).value_or(0) - *origin_, 0.0),
                       core_.text(of("title")).value_or("")});
  }
  return markers;
}

std::string MpvFile::told(std::initializer_list<const char*> words) const {
  for (const auto* word : words) {
    if (!isOpen()) break;
    if (auto text = core_.text(std::string("metadata/by-key/") + word); text && !text->empty())
      return std::move(*text);
  }
  return {};
}

int MpvFile::bandwidth() const {
  if (!isOpen()) return 0;
  return static_cast<int>(core_.number("video-bitrate").value_or(0) +
                          core_.number("audio-bitrate").value_or(0));
}

// What a tag is to a stream's window, by the names that ASF, Shoutcast and others give it.
StreamDetails MpvFile::details() const {
  StreamDetails details;
  if (!isOpen()) return details;
  struct Told {
    std::string StreamDetails::*field;
    std::initializer_list<const char*> names;
  };
  const Told fields[] = {
      {&StreamDetails::description, {"description", "comment", "synopsis", "WM/Description"}},
      {&StreamDetails::author, {"artist", "author", "album_artist", "composer"}},
      {&StreamDetails::rights, {"copyright", "rights", "WM/Copyright"}},
      {&StreamDetails::channelName, {"icy-name", "service_name", "channel", "WM/RadioStationName"}},
      {&StreamDetails::channelDescription, {"icy-description", "icy-genre", "service_provider"}},
      {&StreamDetails::channelUrl, {"icy-url", "WM/AuthorURL", "WM/PromotionURL", "url"}},
      {&StreamDetails::contactAddress, {"contact", "publisher", "WM/Publisher"}},
      {&StreamDetails::contactEmail, {"email", "contact-email"}},
      {&StreamDetails::created, {"creation_time", "date", "year", "WM/Year"}},
  };
  for (const auto& [field, names] : fields) details.*field = told(names);
  const int tags = static_cast<int>(core_.number("metadata/list/count").value_or(0));
  for (int i = 0; i < tags; ++i) {
    const auto of = "metadata/list/" + std::to_string(i);
    details.others.emplace_back(core_.text(of + "/key").value_or(""), core_.text(of + "/value").value_or(""));
  }
  const int tracks = static_cast<int>(core_.number("track-list/count").value_or(0));
  for (int i = 0; i < tracks; ++i) {
    const auto of = [&](const char* what) { return "track-list/" + std::to_string(i) + "/" + what; };
    const auto type = core_.text(of("type"));
    auto codec = core_.text(of("codec")).value_or("");
    const auto width = core_.text(of("demux-w"));
    if (width && type == "video") codec += ", " + *width + " x " + core_.text(of("demux-h")).value_or("0");
    details.codecs.emplace_back(type == "video" ? "Video" : type == "audio" ? "Audio" : "Text", codec);
  }
  details.receivedRate = 8 * core_.number("cache-speed").value_or(0);
  details.ahead = core_.number("demuxer-cache-duration").value_or(0);
  details.lostPictures = static_cast<int>(core_.number("frame-drop-count").value_or(0));
  return details;
}

}  // namespace kvo
