#include "render/movie_render.h"

#include "base/numbers.h"
#include "base/text.h"
#include "core/telling/translated.h"
#include "editor/tabs/operations.h"
#include "render/awake.h"
#include "render/output_hold.h"
#include "render/output_kinds.h"
#include "render/render_texts.h"
#include "vocabulary/encode_profiles.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <tuple>

namespace kvo {
namespace {

constexpr std::uint64_t kMaxMovieDocument = 256ULL << 20U;
constexpr int kWavProfile = 23;  // that the sound of a WAV is made by first
constexpr double kLargeMegabytes = 600;
constexpr double kLongSeconds = 90 * 60;
constexpr double kToldFrom = 30;  // seconds: the end of a render that takes longer is told on the desktop

std::string collectionTitle(std::string_view fileName) {
  const auto dot = fileName.rfind('.');
  return std::string(fileName.substr(0, dot));
}

}  // namespace

MovieRender::MovieRender(const Ports& ports, RenderState& state)
    : ports_(ports),
      state_(state),
      profile_({ports.editing.files, ports.locks, ports.editing.folder, ports.editing.boxes}),
      mobjSlumber_(ports.engine.loop),
      driver_(ports.engine, [this] { hearEngine(); }) {}

std::string MovieRender::collectionName() const { return collectionTitle(ports_.editing.collection.IniName); }

void MovieRender::WriteRenderMovie(bool PicInPicDocumentReady) {
  if (state_.isRunning) return;
  ports_.host.PlayerStop();
  Job job;
  if (!readJob(PicInPicDocumentReady, job) || !askForName(job) || !isFree(job.file)) return;
  state_.isRunning = true;
  state_.RenderAborted = false;
  state_.canView = false;
  state_.notes.clear();
  ports_.host.DisabEditControls(true);
  bool isShown = false;
  {
    const Awake awake(ports_.work);
    job_ = &job;
    sweep();
    remember(job);
    note(job.working);
    takeFilm(job);
    isShown = makeMovie(job);
    job_ = nullptr;
  }
  state_.document = nullptr;
  state_.picture = nullptr;
  forget(job.working);
  state_.isRunning = false;
  ports_.host.DisabEditControls(false);
  if (!isShown) restore(job);
}

// What the engine would find only behind the estimate: the queue, say, is making that movie.
bool MovieRender::isFree(const std::string& file) const {
  const bool isMade = isBeingMade(ports_.locks, file);
  if (isMade) ports_.editing.boxes.show(renderFailedBox(beingMade(file).text));
  return !isMade;
}

bool MovieRender::readDocument(bool ready, Job& job) {
  const auto& e = ports_.editing;
  if (!ready) {
    job.document = compileText(e);
    return true;
  }
  auto text = e.files.read(e.folder.beside("\\KVORender.xtl"), kMaxMovieDocument);
  if (text) {
    job.document = std::move(*text);
  } else {
    e.boxes.show(renderFailedBox(text.error().text));
  }
  return text.ok();
}

bool MovieRender::readJob(bool ready, Job& job) {
  job.isPicInPic = ready;
  if (!readDocument(ready, job)) return false;
  readLengths(job);
  const auto& query = job.query;
  job.kind = ready ? OutputKind::Avi : state_.kind;
  if (job.kind == OutputKind::Wmv || job.kind == OutputKind::Wma) {
    const auto row = static_cast<std::size_t>(std::max(state_.profileRow, 0));
    job.profile = row < state_.Lst_WMVFormats.size() ? GetWMVRenderProfileInt(state_.Lst_WMVFormats[row]) : 1;
  } else if (!query.hasVideo && movieFileOf(job.kind).hasPicture) {
    job.kind = OutputKind::Wav;
  }
  if (job.kind == state_.kind && !ready) job.preset = chosenPreset();
  if (job.preset != nullptr && job.preset->megabytes > 0) job.megabytes = state_.wishedMegabytes;
  job.inHardware = !ready && job.kind == state_.kind && state_.offersHardware && state_.Chk_Hardware;
  if (job.audioOnly()) job.profile = kWavProfile;
  return true;
}

double MovieRender::pairLength() const {
  const auto& e = ports_.editing;
  return picInPicLength(e.collection, pair_.backdropNo, optionsOf(e).stillDuration);
}

void MovieRender::readLengths(Job& job) const {
  const auto& e = ports_.editing;
  auto& query = job.query;
  if (job.isPicInPic) {
    query.hasVideo = true;
    query.videoTotal = query.lastClipStop = job.length = pairLength();
    return;
  }
  query.hasVideo = !e.editor.hasNoVideo;
  query.videoTotal = ToNumber(e.editor.VideoTotalTime);
  query.audioTotal = ToNumber(e.editor.AudioTotalTime);
  if (!e.clips().empty()) query.lastClipStop = e.clips()[e.clips().count()].TimeLineStop().number();
  job.length = query.hasVideo ? query.videoTotal : query.audioTotal;
  if (ports_.create.Opt_RenderRangeWhole) return;
  // The engine is told hundredths.
  const auto hundredths = [](double seconds) { return std::round(seconds * 100) / 100; };
  job.range = {hundredths(ports_.create.Txt_From), hundredths(ports_.create.Txt_Too)};
  job.length = job.range->second - job.range->first;
}

bool MovieRender::isOneOfTheClips(const std::string& file) const {
  const auto& e = ports_.editing;
  for (int number = 1; number <= e.clips().count(); ++number) {
    if (e.files.sameFile(clipFile(e.clips()[number]), file)) return true;
  }
  return false;
}

// What cannot be is told at once, and the dialog comes again with what was typed.
bool MovieRender::askForName(Job& job) {
  const auto pattern = filterOf(job.kind);
  const auto extension = "." + std::string(extensionOf(job.kind));
  FileQuestion question{.title = "Create New Movie",
                        .filters = {{pattern, pattern}},
                        .folder = folder_.empty() ? ports_.moviesFolder() : folder_,
                        .name = collectionName() + extension,
                        .mayExist = true};
  do {
    const auto name = ports_.dialogs.save(question);
    if (!name || name->empty()) return false;
    job.file = endsInText(*name, extension) ? *name : *name + extension;
    question.name = fileNamePart(*name);
    if (const auto folder = folderPart(*name); isThere(folder)) question.folder = folder;
  } while (!mayBe(job.file));
  // In the same folder, so that it comes under the final name in one step; nobody else's name.
  job.working = std::string(folderPart(job.file)) + ".rendering-" +
                std::to_string(ports_.engine.processes.ownNumber()) + (job.audioOnly() ? ".WMA" : extension);
  return true;
}

bool MovieRender::isThere(std::string_view folder) const {
  while (folder.size() > 1 && folder.ends_with('/')) folder.remove_suffix(1);
  return ports_.editing.files.isFolder(std::string(folder));
}

// False, with a box, for a file that the movie cannot be, or is not to be.
bool MovieRender::mayBe(const std::string& file) const {
  const auto& e = ports_.editing;
  if (const auto folder = folderPart(file); !isThere(folder)) {
    e.boxes.show(renderFailedBox(translated("There is no folder %1", {folder})));
    return false;
  }
  if (isOneOfTheClips(file)) {
    e.boxes.show(renderFailedBox(translated("cannot write %1: it is one of the clips", {file})));
    return false;
  }
  return !e.files.exists(file) || e.boxes.show(replaceQuestion(file)) == Answer::Yes;
}

// True when the movie is being viewed, or the options are shown: nothing is to be restored then.
bool MovieRender::makeMovie(Job& job) {
  auto& adjust = ports_.editing.settings.adjust();
  adjust.RenderEstimateSecs = static_cast<Integer>(boundEstimate(adjust.RenderEstimateSecs));
  job.query.estimateSeconds = adjust.RenderEstimateSecs;
  state_.sizeLabel.clear();
  state_.completed.clear();
  state_.countdown.clear();
  state_.reached.reset();
  wavIsToCome_ = job.audioOnly();
  driver_.forget();
  show(RenderFrame::Estimate);
  const double known = ports_.editing.settings.state.TimeLineVideoTotTime;
  if (job.query.hasVideo && known > 0 && !job.isPicInPic) job.query.videoTotal = known;
  switch (CalcEstimateTimeTotRender(job)) {
    case Estimate::Failed:
      return false;
    case Estimate::DiskShort:
      showOptions(job.isPicInPic);
      return true;
    case Estimate::GoOn:
      break;
  }
  return renderAll(job);
}

int MovieRender::estimateLimit() const {
  const auto& e = ports_.editing;
  if (!e.settings.state.RenderEffects) return 15;
  int rich = 0;
  for (int number = 1; number <= e.clips().count(); ++number)
    rich += ToNumber(e.clips()[number].EffectWord()) > 0 ? 1 : 0;
  return rich * 5 + 30;
}

// The labels are cleared and the pie is full when it comes back.
MovieRender::Estimate MovieRender::CalcEstimateTimeTotRender(const Job& job) {
  auto& e = ports_.editing;
  Part part{.OutFile = job.working, .MaxSeconds = estimateLimit()};
  state_.sample = estimateRange(job.query);
  if (state_.sample) std::tie(part.RangeStart, part.RangeStop) = *state_.sample;
  const bool started = DoRender(job, part);
  state_.countdown.clear();
  state_.progress.clear();
  state_.pie = {100, kPieGreen};
  changed();
  // The options that come back tell of an abort: nothing of the movie has been made.
  if (!started || state_.RenderAborted) return Estimate::Failed;
  if (tellFailure()) return Estimate::Failed;
  const auto facts = e.files.facts(job.working);
  const double total = job.length > 0 ? job.length : job.query.audioTotal;
  const auto& progress = driver_.state().progress;
  // A device that is tried again ahead of the first picture is no measure of the rest.
  const double took = progress.elapsed - (job.inHardware ? progress.begunAt : 0);
  auto result = projected(job.query, took, facts ? static_cast<double>(facts->size) : 0, total);
  if (job.megabytes > 0) result.megabytes = std::min(result.megabytes, job.megabytes * 1e6 / (1 << 20));
  e.files.remove(job.working);
  state_.RenderSeconds = renderSecondsOf(result, total);
  state_.sizeLabel = estimatedSizeText(result.megabytes);
  tellWork();
  changed();
  if (isDiskShort(result.megabytes, ports_.freeMegabytes(job.file))) {
    e.boxes.show(diskShortBox(result.megabytes));
    return Estimate::DiskShort;
  }
  return warn(result.megabytes) ? Estimate::GoOn : Estimate::Failed;
}

bool MovieRender::confirmed(const StyledBox& box, bool& neverAgain) {
  const auto said = ports_.editing.boxes.showStyled(box);
  const bool isYes = said.answer == Answer::Yes || said.answer == Answer::Ok;
  // Whoever says no wants to be asked again.
  neverAgain = said.neverAgain && isYes;
  return isYes;
}

bool MovieRender::warn(double megabytes) {
  const auto& preferences = ports_.editing.settings.preferences();
  if (!preferences.OutputWarningsOn) return true;
  bool neverAgain = false;
  if (megabytes > kLargeMegabytes && !preferences.RenderDiskWarning) {
    if (!confirmed(diskSpaceWarning(megabytes), neverAgain)) return false;
    if (neverAgain) ports_.editing.settings.adjust().RenderDiskWarning = true;
  }
  if (state_.RenderSeconds > kLongSeconds && !preferences.RenderTimeWarning) {
    if (!confirmed(renderTimeWarning(state_.RenderSeconds), neverAgain)) return false;
    if (neverAgain) ports_.editing.settings.adjust().RenderTimeWarning = true;
  }
  return true;
}

bool MovieRender::renderAll(const Job& job) {
  const auto& e = ports_.editing;
  state_.summary = renderSummary(job.kind, job.length, profileText(job.profile));
  state_.caption = creatingCaption(job.file, collectionName());
  takeFilm(job);
  const auto& range = job.range;
  state_.movieSeconds = range ? range->first : 0;
  state_.pie = {};
  driver_.forget();
  begun_ = ports_.engine.loop.now();
  show(RenderFrame::Rendering);
  ports_.host.ImagesOff();
  const auto begun = ports_.engine.loop.now();
  Part part{.OutFile = job.audioOnly() ? job.working : job.file,
            .MaxSeconds = countdownSeconds(state_.RenderSeconds)};
  if (range) std::tie(part.RangeStart, part.RangeStop) = *range;
  bool isMade = DoRender(job, part);
  state_.caption = editorCaption(collectionName());
  const bool isWhole = isMade && driver_.state().phase == EnginePhase::Done;
  if (!isWhole) state_.heading = state_.RenderAborted ? "Render aborted" : "The movie has not been made";
  changed();
  // What was done when the abort came is a movie all the same.
  if (state_.RenderAborted && !isWhole) {
    e.boxes.show(abortedBox());
    return false;
  }
  if (isMade) isMade = !tellFailure();
  if (isMade && job.audioOnly()) {
    const auto written = ports_.host.StripWavFromCurrentVideo(job.working, job.file);
    wavIsToCome_ = false;
    changed();
    if (!written) e.boxes.show(state_.RenderAborted ? abortedBox() : renderFailedBox(written.error().text));
    if (!written && state_.RenderAborted) return false;
    isMade = written.ok();
  }
  const double took = std::chrono::duration<double>(ports_.engine.loop.now() - begun).count();
  if (!isMade) {
    tellEnd(translated("%1 could not be made.", {fileNamePart(job.file)}), took);
    return false;
  }
  report(job, took);
  tellEnd(translated("%1 has been created !", {fileNamePart(job.file)}), took);
  return !job.audioOnly() && offerView(job);
}

// Somebody who has gone to do something else hears of it.
void MovieRender::tellEnd(const std::string& text, double took) {
  if (took >= kToldFrom) ports_.work.tell("KVO5", text);
}

// True when the movie has joined the collection.
bool MovieRender::offerView(const Job& job) {
  const auto& e = ports_.editing;
  bool views = e.settings.preferences().RenderAutoView;
  if (!views) {
    bool neverAgain = false;
    views = confirmed(viewQuestion(job.file), neverAgain);
    if (neverAgain) e.settings.adjust().RenderAutoView = true;
  }
  if (!views) return false;
  view();
  return true;
}

void MovieRender::view() {
  if (!state_.canView) return;
  state_.canView = false;
  show(RenderFrame::None);
  ports_.host.Buildtabs();
  ports_.host.AddMoviesm(madeFile_);
}

void MovieRender::report(const Job& job, double seconds) {
  ports_.host.deleteWorkFiles();
  const auto facts = ports_.editing.files.facts(job.file);
  state_.completed = completedText(seconds);
  state_.sizeLabel = outputSizeText(facts ? static_cast<double>(facts->size) : 0);
  state_.progress.clear();
  for (const auto& hole : driver_.state().damage) state_.notes.push_back(damageText(hole));
  const auto& notes = driver_.state().notes;
  state_.notes.insert(state_.notes.end(), notes.begin(), notes.end());
  madeFile_ = job.file;
  if (job.isPicInPic) rememberPair(job.file);
  state_.canView = true;
  show(RenderFrame::Report);
}

void MovieRender::restore(const Job& job) {
  ports_.host.KillPreview();
  state_.picture = nullptr;
  if (job.profile != kNoProfile && !job.audioOnly() && state_.kind != OutputKind::Wma)
    state_.kind = OutputKind::Wmv;
  state_.caption = editorCaption(collectionName());
  state_.countdown.clear();
  state_.progress.clear();
  if (state_.frame != RenderFrame::Report) return showOptions(job.isPicInPic);
  changed();
}

}  // namespace kvo
