#include "app/window_wiring.h"

#include "adapters/posix/posix_machine.h"
#include "app/commands.h"
#include "app/look_command.h"
#include "app/sketch_command.h"
#include "base/numbers.h"

#include <QPoint>
#include <cstdlib>
#include <utility>

namespace kvo {

WindowProgram::WindowProgram(const ProgramFolder& programFolder, const std::string& placesFile,
                             const std::string& executableFolder, std::string cacheFolder)
    : cache_(std::move(cacheFolder)),
      session_(programFolder, boxes_),
      handover_(handoverFolder(), handoverName(programFolder.path())),
      loop_([this] { draw(); }),
      // the collection
      probe_(probeParts(executableFolder)),
      list_(state_, session_.collection, session_.settings),
      history_(state_, session_.collection, session_.settings, list_),
      recent_(store_, session_.files),
      commands_(collectionPorts(), session_.file, session_.settings, session_.collection, views()),
      looker_({.processes = session_.processes, .loop = loop_, .order = lookingProcess(executableFolder)}),
      intakeWindow_(intakeWindowParts()),
      intake_(intakeParts()),
      parts_(programParts()),
      intro_(parts_),
      mailbox_(parts_, intro_),
      // what plays, and the commands
      links_(faceParts()),
      skins_(skinPorts(), links_, session_.settings, state_),
      startUp_(parts_, skins_, intro_, mailbox_),
      shutDown_(parts_, mailbox_),
      media_({.dialogs = dialogs_, .desktop = desktop_, .questions = boxes_, .boxes = boxes_},
             session_.settings, state_, mailbox_),
      listCommands_({.files = session_.files, .clock = session_.clock, .boxes = boxes_}, history_, list_,
                    intro_, session_.collection, state_, session_.settings),
      web_(executableFolder + "../lib/kvo5/KVOWeb.so", canShutIn),
      pages_([this](QWidget* parent) { return web_.makeView(parent); }, {store_, desktop_, "WebWindowPlace"}),
      codec_(codecParts()),
      streamInfo_(state_.streamInfo, links_.player(), loop_),
      play_(playParts()),
      menu_(menuParts(), doors()),
      // pictures, and who goes along
      picture_(session_.streams, loop_, state_.picture),
      sketches_({.processes = session_.processes, .loop = loop_, .order = sketchingProcess(executableFolder)},
                jpeg_),
      facts_(
          loop_, [this](const std::string& path) { return session_.streams.facts(path); },
          [this](const std::string& path, const Result<StreamFacts>& facts) {
            if (facts) list_.takeFacts(path, *facts);
          }),
      companions_(companionParts(placesFile)),
      // the windows
      window_(state_, faceLogic(), faceMaterial()),
      positionWindows_(state_.positions, state_.mode, play_.positions(),
                       {.store = store_, .desktop = desktop_}, [this] { draw(); }),
      frmCodec_(state_.codec, [this] { codec_.hide(); }),
      frmStreamInfo_(state_.streamInfo, streamInfo_, [this] { draw(); }),
      editor_(editorParts(), std::make_unique<SdlSoundOutput>()),
      queue_(queuePorts(executableFolder), [this] { queueLinks_.changed(); }),
      queueLinks_({.window = state_,
                   .session = session_,
                   .store = queueStore_,
                   .runner = queue_,
                   .desktop = desktop_,
                   .view = [this](const std::string& movie) { renders_.play(movie); },
                   .draw = [this] { draw(); }}),
      renders_(renderParts(executableFolder)),
      frmQueue_(queueLinks_.state(), queueActs(), {store_, desktop_, "QueueWindowPlace"},
                [this] { queueLinks_.hide(); }),
      frmRush_(editorWindowParts()),
      autosave_(autosaveParts()) {
  wire();
  links_.takeInterfaceSize();
}

void WindowProgram::wire() {
  links_.link(skins_);
  mailbox_.guard({.player = loadCheck_, .log = session_.log, .endProgram = [] { std::exit(kExitFailed); }});
  const auto stop = [this](const Movie& clip) { play_.positions().endOfPlayMoved(clip); };
  session_.file.poster().whenEndOfPlayMoved(stop);
  intake_.poster().whenEndOfPlayMoved(stop);
  startUp_.whenLoaded([this] { links_.takeInterfaceSize(); });
  commands_.whenOpened([this] {
    skins_.applyStored();
    editor_.desk().collectionOpened();
  });
  listCommands_.placedBy([this] { return playerPlace(links_.player()); });
  listCommands_.whenUnseen([this] { links_.display().AllDetOn(); });
  intakeWindow_.whenJoined([this](int number) { rowPictures_.joined(number); });
  sketches_.whenCome([this](const std::string& path) {
    companions_.hover().came(path);
    rowPictures_.came();
    frmRush_.sketchCame(path);
  });
  editor_.desk().whenLooked([this] { keeping_.want(cache_); });
  list_.whenUnknown([this](const std::string& path) { facts_.want(path); });
  shutDown_.whenBusy([this] { (void)renders_.mayEnd(); });
  shutDown_.whenLeaving([this] { return queueLinks_.mayLeave(); });
}

BatchProbe::Parts WindowProgram::probeParts(const std::string& executableFolder) {
  return {.files = session_.files,
          .processes = session_.processes,
          .loop = loop_,
          .clock = session_.clock,
          .folders = session_.temporaryFolders,
          .program = executableFolder + "KVOprop"};
}

CollectionCommands::Ports WindowProgram::collectionPorts() {
  return {.files = session_.files,
          .boxes = boxes_,
          .dialogs = dialogs_,
          .loop = loop_,
          .folder = session_.folder,
          .desktop = desktop_};
}

CollectionCommands::Views WindowProgram::views() {
  return {.window = state_, .list = list_, .history = history_, .recent = recent_};
}

IntakeWindow::Parts WindowProgram::intakeWindowParts() {
  return {.window = state_,
          .settings = session_.settings,
          .collection = session_.collection,
          .loop = loop_,
          .list = list_,
          .desktop = desktop_,
          .refusals = refusals_};
}

AddClips::Parts WindowProgram::intakeParts() {
  return {.files = session_.files,
          .clock = session_.clock,
          .boxes = refusals_,
          .looker = tellingLooker_,
          .disc = disc_,
          .folder = session_.folder,
          .probe = probe_,
          .log = session_.log,
          .settings = session_.settings,
          .collection = session_.collection,
          .host = intakeWindow_};
}

ProgramParts WindowProgram::programParts() {
  return {.files = session_.files,
          .boxes = boxes_,
          .loop = loop_,
          .handover = patient_,
          .store = store_,
          .desktop = desktop_,
          .folder = session_.folder,
          .settings = session_.settings,
          .collection = session_.collection,
          .commands = commands_,
          .intake = intake_,
          .refusals = refusals_,
          .window = state_,
          .list = list_,
          .history = history_,
          .timers = timers_};
}

FaceLinks::Parts WindowProgram::faceParts() {
  return {.window = state_,
          .settings = session_.settings,
          .collection = session_.collection,
          .streams = session_.streams,
          .counts = counts_,
          .control = control_,
          .graphs = graphs_,
          .probe = probe_,
          .desktop = desktop_,
          .boxes = boxes_,
          .timers = timers_};
}

Skins::Ports WindowProgram::skinPorts() {
  return {.dialogs = dialogs_,
          .boxes = boxes_,
          .loop = loop_,
          .pictures = face_,
          .log = session_.log,
          .folder = session_.folder};
}

CodecInfo::Parts WindowProgram::codecParts() {
  return {.window = state_,
          .settings = session_.settings,
          .collection = session_.collection,
          .list = list_,
          .files = session_.files,
          .folder = session_.folder,
          .probe = probe_,
          .boxes = boxes_,
          .loop = loop_,
          .player = links_.player()};
}

PlayLinks::Parts WindowProgram::playParts() {
  return {.window = state_,
          .settings = session_.settings,
          .collection = session_.collection,
          .files = session_.files,
          .boxes = boxes_,
          .loop = loop_,
          .desktop = desktop_,
          .pages = pages_,
          .network = network_,
          .http = http_,
          .timers = timers_,
          .list = list_,
          .history = history_,
          .collections = commands_,
          .media = media_,
          .intro = intro_,
          .mailbox = mailbox_,
          .face = links_,
          .codec = codec_};
}

MainMenu::Parts WindowProgram::menuParts() {
  return {.window = state_,
          .settings = session_.settings,
          .collections = commands_,
          .recent = recent_,
          .media = media_,
          .list = listCommands_,
          .history = history_,
          .shutDown = shutDown_,
          .skins = skins_};
}

Companions::Parts WindowProgram::companionParts(const std::string& placesFile) {
  return {.sketches = sketches_,
          .saver = saver_,
          .resume = {.window = state_,
                     .collection = session_.collection,
                     .settings = session_.settings,
                     .player = links_.player(),
                     .loop = loop_,
                     .files = session_.files,
                     .placesFile = placesFile},
          .outside = {.window = state_,
                      .collection = session_.collection,
                      .files = session_.files,
                      .player = links_.player(),
                      .loop = loop_,
                      .transport = play_.transport(),
                      .list = listCommands_,
                      .menu = menu_,
                      .shutDown = shutDown_,
                      .mailbox = mailbox_,
                      .setRate =
                          [this](double rate) { play_.positions().rate.SetRate(FormatMask(rate, "0.00")); }},
          .controls = mpris_};
}

FrmFileOpen::Logic WindowProgram::faceLogic() {
  return {.menu = menu_,
          .positions = play_.positions(),
          .list = listCommands_,
          .history = history_,
          .media = media_,
          .mailbox = mailbox_,
          .shutDown = shutDown_,
          .display = links_.display(),
          .pictures = picture_,
          .rows = rowPictures_,
          .hover = companions_.hover(),
          .resume = companions_.resume(),
          .settled = [this] { settled(); },
          .transport = play_.transport(),
          .showCodec = [this] { codec_.ShowCodec(); },
          .showStream = [this] { streamInfo_.Lbl_StreamInfo_Click(); },
          .showQueue = [this] { showQueue(); }};
}

FrmFileOpen::Material WindowProgram::faceMaterial() {
  return {.skin = face_,
          .images = images_,
          .store = store_,
          .desktop = desktop_,
          .folder = withSeparator(session_.folder.path()),
          .video = &stage_.output(),
          .graphicsDevice = hasGraphicsDevice()};
}

EditorLinks::Parts WindowProgram::editorParts() {
  return {.window = state_,
          .session = session_,
          .loop = loop_,
          .store = store_,
          .history = history_,
          .list = list_,
          .commands = listCommands_,
          .collections = commands_,
          .mailbox = mailbox_,
          .face = links_,
          .play = play_,
          .draw = [this] { draw(); },
          .openMenu =
              [this](int x, int y) {
                clipMenu_.openListMenu({x, y}, QApplication::activeWindow());
              },
          .questions = boxes_};
}

QueueRunner::Ports WindowProgram::queuePorts(const std::string& executableFolder) {
  return {.store = queueStore_,
          .locks = session_.nameLocks,
          .engine = {session_.files, session_.temporaryFolders, session_.processes, loop_,
                     executableFolder + "KVORender"},
          .work = &queueWork_};
}

RenderLinks::Parts WindowProgram::renderParts(const std::string& executableFolder) {
  return {.window = state_,
          .session = session_,
          .loop = loop_,
          .editor = editor_,
          .face = links_,
          .play = play_,
          .mailbox = mailbox_,
          .store = store_,
          .dialogs = dialogs_,
          .work = longWork_,
          .desktop = desktop_,
          .queueStore = queueStore_,
          .engine = executableFolder + "KVORender",
          .draw = [this] { draw(); }};
}

EditorWindow::Parts WindowProgram::editorWindowParts() {
  return {.links = editor_,
          .render = renders_,
          .queue = queueLinks_,
          .session = session_,
          .loop = loop_,
          .sketches = sketches_,
          .store = store_,
          .desktop = desktop_,
          .dialogs = dialogs_,
          .motion = motion_,
          .pictures = withSeparator(session_.folder.path()) + "Buttons/",
          .draw = [this] { draw(); }};
}

Autosave::Parts WindowProgram::autosaveParts() {
  return {.files = session_.files,
          .boxes = boxes_,
          .loop = loop_,
          .folder = session_.folder,
          .log = session_.log,
          .settings = session_.settings,
          .collection = session_.collection,
          .window = state_,
          .commands = commands_};
}

}  // namespace kvo
