#include "intake/add_clips.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "intake/addresses.h"
#include "intake/analyse_file.h"
#include "intake/asx_stream.h"
#include "intake/clip_names.h"
#include "intake/refusals.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::uint64_t kMostOfCdFile = 4096;  // bytes

std::string cleanTag(std::string_view text) { return std::string(trimmed(text.substr(0, text.find('\0')))); }

// A stream, or a page, tells of no length; what it sounds like is heard when it plays.
void becomeStream(Movie& clip) {
  clip.IsStream(true);
  clip.HasAudio(true);
  clip.RenderAudio(true);
}

}  // namespace

bool AddClips::AddMoviesm(const std::string& text, const AddManner& manner) {
  return add(namesIn(text, parts_.files), manner);
}

bool AddClips::add(std::vector<std::string> names, const AddManner& manner) {
  auto& state = parts_.settings.state;
  if (parts_.collection.MovieList.empty() && !state.KVOIsInEditMode) state.AllDetOff = false;
  OrderCDATrackList(names);
  const auto total = static_cast<int>(names.size());
  bool any = false;
  for (int i = 0; i < total; ++i) {
    const auto& name = names[static_cast<std::size_t>(i)];
    parts_.host.analysing(i + 1, total, name);
    if (parts_.host.stopped()) break;
    if (parts_.collection.MovieList.count() >= kMaxClips) {
      refuse(refusedFull());
      break;
    }
    any |= addOne(name, manner);
  }
  wasStopped_ = parts_.host.stopped();
  parts_.host.analysed();
  if (any) state.postChange(99, 99);
  return any;
}

Movie AddClips::newRecord(const std::string& name) const {
  const auto& collection = parts_.collection;
  Movie clip;
  clip.KeyID(freshKeyIDs(collection, toLongClamped(secondsSinceMidnight(parts_.clock)), 1).front());
  clip.MovieName(std::string(fileNamePart(name)));
  clip.AudioOutputLevel(1.0F);
  clip.IsStream(false);
  clip.Path(std::string(folderPart(name)));
  clip.Orderinplaylist(toInteger(collection.MovieList.count() + 1).value_or(0));
  return clip;
}

bool AddClips::addOne(const std::string& name, const AddManner& manner) {
  auto clip = newRecord(name);
  if (isAddress(name)) {
    clip.MovieName(std::string(trimmed(name)));
    clip.Path("");
    return addAddress(std::move(clip), manner);
  }
  if (isUnmapped(name) && !parts_.files.exists(name)) return refuse(refusedUnmapped(false));
  return addFile(std::move(clip), manner);
}

bool AddClips::addAddress(Movie clip, const AddManner& manner) {
  const auto& address = clip.MovieName();
  if (isUnmapped(address)) return refuse(refusedUnmapped(false));
  if (!isPlayableAddress(address)) return refuse(refusedAddress(address));
  becomeStream(clip);
  const auto byName = intakeClassOfAddress(address);
  if (byName == IntakeClass::RealFamily) return refuse(refusedRealFamily());
  if (isRefusedAddress(address)) return refuse(refusedNonMedia());
  const bool isPage = byName == IntakeClass::Page || byName == IntakeClass::Flash;
  if (byName == IntakeClass::QuickTime) clip.IsTrueQT4(true);
  if (isPage || (manner.IsWebPageAdd && byName != IntakeClass::QuickTime && !namesStream(address)))
    clip.IsHTML(true);
  return join(std::move(clip));
}

bool AddClips::addFile(Movie clip, const AddManner& manner) {
  if (!parts_.files.exists(clipFile(clip))) return refuse(refusedUnverified(clip.MovieName()));
  const auto byName = intakeClass(clip.MovieName());
  switch (byName) {
    case IntakeClass::RealFamily:
      return refuse(refusedRealFamily());
    case IntakeClass::NonMedia:
      return refuse(refusedNonMedia());
    case IntakeClass::Archive:
      return refuse(refusedArchive(clip.MovieName()));
    case IntakeClass::ExtendedCd:
      return addExtendedCd(clip);
    default:
      break;
  }
  AnalyseFile(clip, parts_.files, parts_.clock, parts_.log);
  if (clip.MovieName().find('+', 1) != std::string::npos) clip.AltName(SmartName(clip.MovieName()));
  if (byName == IntakeClass::Page || byName == IntakeClass::Flash) {
    clip.IsHTML(true);
    clip.HasAudio(byName == IntakeClass::Flash);
    clip.RenderAudio(clip.HasAudio());
    return join(std::move(clip));
  }
  if (IsASXAStream(clip, parts_.files)) {
    becomeStream(clip);
    return join(std::move(clip));
  }
  if (byName == IntakeClass::CdTrack) {
    const auto bytes = parts_.files.read(clipFile(clip), kMostOfCdFile);
    takeCdFile(clip, bytes ? std::string_view(*bytes) : std::string_view());
    return join(std::move(clip));
  }
  return addLooked(std::move(clip), manner);
}

bool AddClips::addLooked(Movie clip, const AddManner& manner) {
  const auto file = clipFile(clip);
  CImageInfo head;
  if (intakeClass(clip.MovieName()) == IntakeClass::Image) head.ReadImageInfo(parts_.files, file);
  const auto answer = look(file);
  auto verdict = judge({.name = clip.MovieName(),
                        .isEmpty = ToNumber(clip.Size()) == 0,
                        .head = head,
                        .answer = answer,
                        .UseWMPfirst = parts_.settings.preferences().UseWMPfirst});
  if (verdict.wantsCodec) verdict.box = withCodec(file, answer.look.errorText);
  tell(verdict);
  if (verdict.kind == Verdict::Kind::TakeBack) return false;
  if (verdict.kind == Verdict::Kind::AskViewer) {
    if (!DidPlayAdd(clip, manner.quiet)) return false;
    return join(std::move(clip));
  }
  takeLook(clip, answer.look);
  AnalyseImage(clip, head);
  takeTags(clip, answer.look.tags);
  return join(std::move(clip));
}

LookAnswer AddClips::look(const std::string& file) {
  return parts_.looker.look(file, [this] { return parts_.host.stopped(); });
}

void AddClips::takeTags(Movie& clip, const MediaTags& tags) const {
  if (extensionOf(clip.MovieName()) != "MP3" || cleanTag(tags.title).empty()) return;
  clip.AltName(cleanTag(tags.title));
  clip.Genre(cleanTag(tags.genre));
  clip.Artist(cleanTag(tags.artist));
  clip.Album(cleanTag(tags.album));
}

bool AddClips::DidPlayAdd(Movie& clip, bool quiet) {
  if (!quiet) {
    if (!parts_.host.showInViewer(clipFile(clip))) return refuse(refusedMovie());
    if (parts_.boxes.show(askedAboutViewer()) != Answer::Yes) return false;
  }
  becomeViewerClip(clip);
  return true;
}

bool AddClips::addExtendedCd(const Movie& clip) {
  const auto& folder = clip.Path();
  const auto table = parts_.disc.read(folder);
  auto tracks = table ? PopulateFromExtendedCD(*table, folder) : std::vector<Movie>();
  if (tracks.empty()) return refuse(refusedMovie());
  parts_.collection.kind = CollectionKind::HoldsExtendedCD;
  for (auto& track : tracks) {
    const auto fresh = newRecord(folder + track.MovieName());
    track.KeyID(fresh.KeyID());
    track.Orderinplaylist(fresh.Orderinplaylist());
    join(std::move(track));
    if (parts_.collection.MovieList.count() >= kMaxClips) break;
  }
  return true;
}

bool AddClips::refuse(const Box& box) {
  parts_.boxes.show(box);
  return false;
}

// The box that also says what the file is made with.
Box AddClips::withCodec(const std::string& file, const std::string& errorText) {
  const auto made = GetAVICompressor({parts_.files, parts_.folder, parts_.probe}, file);
  const auto& [developer, address, notesOfIt] = made.description;
  const CodecNotes notes{made.codec, developer, address, notesOfIt};
  return refusedByPlayer(std::string(fileNamePart(file)), errorText, &notes);
}

void AddClips::tell(const Verdict& verdict) {
  if (!verdict.box) return;
  if (verdict.once && !told_.insert(verdict.box->caption).second) return;
  parts_.boxes.show(*verdict.box);
}

bool AddClips::join(Movie clip) {
  auto& clips = parts_.collection.MovieList;
  UpdLastRead(clip.Path());
  clips.add(std::move(clip)).listener(&poster_);
  parts_.settings.state.ListIsDirty = true;
  parts_.host.added(clips.count());
  return true;
}

void AddClips::UpdLastRead(const std::string& folder) {
  if (!folder.empty() && parts_.settings.preferences().LoadFrom != folder)
    parts_.settings.change().LoadFrom = folder;
}

}  // namespace kvo
