#include "app/window_program.h"

#include "adapters/cdio/cdio_disc.h"
#include "adapters/curl/curl_http.h"
#include "adapters/dbus/bus_motion.h"
#include "adapters/dbus/bus_screen_saver.h"
#include "adapters/dbus/long_work_bus.h"
#include "adapters/dbus/mpris.h"
#include "adapters/jpeg/turbo_jpeg.h"
#include "adapters/media/media_picture_counts.h"
#include "adapters/mpv/mpv_control_engine.h"
#include "adapters/mpv/mpv_filter_graphs.h"
#include "adapters/posix/posix_machine.h"
#include "adapters/posix/posix_network.h"
#include "adapters/posix/socket_handover.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/qt_event_loop.h"
#include "adapters/qt/qt_file_dialogs.h"
#include "adapters/qt/qt_translations.h"
#include "adapters/qt/settings_store.h"
#include "adapters/sdl/sdl_sound_output.h"
#include "app/commands.h"
#include "app/companions.h"
#include "app/editor_window.h"
#include "app/face_links.h"
#include "app/known_files.h"
#include "app/look_command.h"
#include "app/play_links.h"
#include "app/queue_command.h"
#include "app/queue_links.h"
#include "app/render_links.h"
#include "app/session.h"
#include "app/sketch_command.h"
#include "base/numbers.h"
#include "core/telling/messages.h"
#include "intake/add_clips.h"
#include "intake/batch_probe.h"
#include "intake/looking_process.h"
#include "playback/captions.h"
#include "playback/display/layout.h"
#include "playback/stream_info.h"
#include "playback/transport/transport_load_check.h"
#include "program/autosave.h"
#include "program/clip_picture.h"
#include "program/intake_window.h"
#include "program/list_commands.h"
#include "program/list_pictures.h"
#include "program/media_commands.h"
#include "program/menus.h"
#include "program/missing_files.h"
#include "program/shut_down.h"
#include "program/start_up.h"
#include "render/system_profile.h"
#include "sketches/kept_sketches.h"
#include "ui/skin_face.h"
#include "ui/theme.h"
#include "windows/codec/frm_codec.h"
#include "windows/gallery/gallery.h"
#include "windows/main/face_menu.h"
#include "windows/main/frm_file_open.h"
#include "windows/message/frm_message_boxes.h"
#include "windows/position/position_windows.h"
#include "windows/render/frm_queue.h"
#include "windows/stream_info/frm_stream_info.h"
#include "windows/web/web_module.h"
#include "windows/web/window_pages.h"

#include <QApplication>
#include <QIcon>
#include <QPoint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>

namespace kvo {
namespace {

constexpr QSize kMainWindow(static_cast<int>(kFaceWidth / kTwipsPerPixel),
                            static_cast<int>(kFaceHeight / kTwipsPerPixel));

// Leaves what another copy sent in the mailbox while a box or a dialog waits for the user.
class PatientHandover : public Handover {
 public:
  explicit PatientHandover(Handover& mailbox) : mailbox_(mailbox) {}
  bool becomeFirst() override { return mailbox_.becomeFirst(); }
  bool send(std::string_view text) override { return mailbox_.send(text); }
  std::optional<std::string> take() override {
    return QApplication::activeModalWidget() == nullptr ? mailbox_.take() : std::nullopt;
  }

 private:
  Handover& mailbox_;
};

// The program wired to its window. One that lives as long as the process.
class WindowProgram {
 public:
  WindowProgram(const ProgramFolder& programFolder, const std::string& placesFile,
                const std::string& executableFolder, std::string cacheFolder)
      : cache_(std::move(cacheFolder)),
        session_(programFolder, boxes_),
        handover_(handoverFolder(), handoverName(programFolder.path())),
        loop_([this] { draw(); }),
        probe_({session_.files, session_.processes, loop_, session_.clock, session_.temporaryFolders,
                executableFolder + "KVOprop"}),
        list_(state_, session_.collection, session_.settings),
        history_(state_, session_.collection, session_.settings, list_),
        recent_(store_, session_.files),
        commands_({session_.files, boxes_, dialogs_, loop_, session_.folder, desktop_}, session_.file,
                  session_.settings, session_.collection, {state_, list_, history_, recent_}),
        looker_({session_.processes, loop_, lookingProcess(executableFolder)}),
        intakeWindow_({state_, session_.settings, session_.collection, loop_, list_, desktop_, refusals_}),
        intake_({session_.files, session_.clock, refusals_, tellingLooker_, disc_, session_.folder, probe_,
                 session_.log, session_.settings, session_.collection, intakeWindow_}),
        parts_{session_.files,
               boxes_,
               loop_,
               patient_,
               store_,
               desktop_,
               session_.folder,
               session_.settings,
               session_.collection,
               commands_,
               intake_,
               refusals_,
               state_,
               list_,
               history_,
               timers_},
        intro_(parts_),
        mailbox_(parts_, intro_),
        links_({state_, session_.settings, session_.collection, session_.streams, counts_, control_, graphs_,
                probe_, desktop_, boxes_, timers_}),
        skins_({dialogs_, boxes_, loop_, face_, session_.log, session_.folder}, links_, session_.settings,
               state_),
        startUp_(parts_, skins_, intro_, mailbox_),
        shutDown_(parts_, mailbox_),
        media_({dialogs_, desktop_, boxes_, boxes_}, session_.settings, state_, mailbox_),
        listCommands_({session_.files, session_.clock, boxes_}, history_, list_, intro_, session_.collection,
                      state_, session_.settings),
        web_(executableFolder + "../lib/kvo5/KVOWeb.so", canShutIn),
        pages_([this](QWidget* parent) { return web_.makeView(parent); },
               {store_, desktop_, "WebWindowPlace"}),
        codec_({state_, session_.settings, session_.collection, list_, session_.files, session_.folder,
                probe_, boxes_, loop_, links_.player()}),
        streamInfo_(state_.streamInfo, links_.player(), loop_),
        play_({state_, session_.settings, session_.collection, session_.files, boxes_, loop_, desktop_,
               pages_, network_, http_, timers_, list_, history_, commands_, media_, intro_, mailbox_, links_,
               codec_}),
        menu_({state_, session_.settings, commands_, recent_, media_, listCommands_, history_, shutDown_,
               skins_},
              doors()),
        picture_(session_.streams, loop_, state_.picture),
        sketches_({session_.processes, loop_, sketchingProcess(executableFolder)}, jpeg_),
        facts_(
            loop_, [this](const std::string& path) { return session_.streams.facts(path); },
            [this](const std::string& path, const Result<StreamFacts>& facts) {
              if (facts) list_.takeFacts(path, *facts);
            }),
        companions_({sketches_,
                     saver_,
                     {state_, session_.collection, session_.settings, links_.player(), loop_, session_.files,
                      placesFile},
                     {state_, session_.collection, session_.files, links_.player(), loop_, play_.transport(),
                      listCommands_, menu_, shutDown_, mailbox_,
                      [this](double rate) { play_.positions().rate.SetRate(FormatMask(rate, "0.00")); }},
                     mpris_}),
        window_(state_,
                {menu_, play_.positions(), listCommands_, history_, media_, mailbox_, shutDown_,
                 links_.display(), picture_, rowPictures_, companions_.hover(), companions_.resume(),
                 [this] { settled(); }, play_.transport(), [this] { codec_.ShowCodec(); },
                 [this] { streamInfo_.Lbl_StreamInfo_Click(); }, [this] { showQueue(); }},
                {face_, images_, store_, desktop_, withSeparator(session_.folder.path()), &stage_.output(),
                 hasGraphicsDevice()}),
        positionWindows_(state_.positions, state_.mode, play_.positions(), {store_, desktop_},
                         [this] { draw(); }),
        frmCodec_(state_.codec, [this] { codec_.hide(); }),
        frmStreamInfo_(state_.streamInfo, streamInfo_, [this] { draw(); }),
        editor_({state_, session_, loop_, store_, history_, list_, listCommands_, commands_, mailbox_, links_,
                 play_, [this] { draw(); },
                 [this](int x, int y) {
                   clipMenu_.openListMenu({x, y}, QApplication::activeWindow());
                 },
                 boxes_},
                std::make_unique<SdlSoundOutput>()),
        queue_({queueStore_,
                session_.nameLocks,
                {session_.files, session_.temporaryFolders, session_.processes, loop_,
                 executableFolder + "KVORender"},
                &queueWork_},
               [this] { queueLinks_.changed(); }),
        queueLinks_({state_, session_, queueStore_, queue_, [this] { draw(); }}),
        renders_({state_, session_, loop_, editor_, links_, play_, mailbox_, store_, dialogs_, longWork_,
                  desktop_, queueStore_, executableFolder + "KVORender", [this] { draw(); }}),
        frmQueue_(queueLinks_.state(), queueActs(), {store_, desktop_, "QueueWindowPlace"},
                  [this] { queueLinks_.hide(); }),
        frmRush_({editor_, renders_, queueLinks_, session_, loop_, sketches_, store_, desktop_, dialogs_,
                  motion_, withSeparator(session_.folder.path()) + "Buttons/", [this] { draw(); }}),
        autosave_({session_.files, boxes_, loop_, session_.folder, session_.log, session_.settings,
                   session_.collection, state_, commands_}) {
    links_.link(skins_);
    mailbox_.guard({loadCheck_, session_.log, [] { std::exit(kExitFailed); }});
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
    links_.takeInterfaceSize();
  }

  int run(const std::vector<std::string>& arguments, const std::string& shippedFolder) {
    auto done = prepareProgramFolder(session_.files, session_.folder, shippedFolder);
    if (done) done = copyShippedPictures(session_.files, session_.folder, shippedFolder);
    if (!done) {
      boxes_.show({std::string(kProductName), done.error().text, BoxButtons::Ok, BoxIcon::Critical});
      return kExitFailed;
    }
    SystemProfile({session_.files, session_.nameLocks, session_.folder, boxes_}).mend();
    Failures failures(session_.log, boxes_, session_.settings, [] { std::exit(kExitFailed); });
    try {
      switch (startUp_.run(arguments, std::filesystem::current_path().string())) {
        case StartEnd::HandedOver:
          return kExitDone;
        case StartEnd::NotTaken:
          return fail("the program runs already, and that copy does not take the files");
        case StartEnd::Failed:
          return kExitFailed;
        case StartEnd::Run:
          break;
      }
      rememberFiles(session_.streams, session_.files, cache_);
      links_.takeInterfaceSize();
      if (state_.face.fullScreen) coverScreen();
      showNow();
      renders_.render().sweep();
      queue_.start();  // it does not wait for somebody who answers what is asked now
      startUp_.tell();
      autosave_.begin();
      companions_.begin();
      const int code = QApplication::exec();
      companions_.leave();
      autosave_.end();
      if (session_.streams.hasNews()) keepFiles(session_.streams, session_.files, cache_);
      return code;
    } catch (const std::exception& thrown) {
      failures.LogError(std::string(LoadResString(179)) + " - " + thrown.what(), true);
      return kExitFailed;
    }
  }

 private:
  // What the menus ask of other rooms.
  MenuDoors doors() {
    return {
        .freeZoom = [this] { links_.display().Lbl_MiniMode_Click(); },
        .coverScreen = [this] { links_.display().Lbl_MinMax_Click(); },
        .zoom = [this](int percent) { links_.display().ResizePercent(percent); },
        .minimumDetails = [this] { links_.display().turnDetails(); },
        .interfaceSize = [this] { links_.takeInterfaceSize(); },
        .sizeFits = [this](double size) { return links_.display().sizeFits(size); },
        .fullPicture = [this] { links_.display().mnu_DirXFullSC_Click(); },
        .tracks = [this] { return links_.player().PlayerGetTracks(); },
        .chooseTrack = [this](MediaTrack::Kind kind, int id) { links_.player().PlayerChooseTrack(kind, id); },
        .findMissing = [this] { missing_.FindMissingFiles(); },
        .isPortable = [this] { return session_.collection.isPortable; },
        .makePortable = [this](bool on) { commands_.makePortable(on); },
        .captions =
            [this] { applyCaptions(links_.player(), session_.files, session_.settings.state.ShowCaps); },
        .ordered = [this](MenuCommand tick) { play_.ordered(tick); },
        .createMovie = [this] { editor_.CreateMovie(); },
        .resetMark =
            [this](bool in) {
              play_.positions().marks.reset(in ? SliderHandleId::Img_MarkIn : SliderHandleId::Img_MarkOut);
            }};
  }

  // What the window of the queue does to it.
  QueueActs queueActs() {
    const auto act = [this](auto work) {
      return [this, work](auto... given) {
        work(given...);
        draw();
      };
    };
    return {.choose = act([this](int row) { queueLinks_.choose(row); }),
            .pauseOrGoOn = act([this] { queueLinks_.pauseOrGoOn(); }),
            .remove = act([this] { queueLinks_.remove(); }),
            .move = act([this](int place) { queueLinks_.move(place); }),
            .clear = act([this] { queueLinks_.clear(); })};
  }

  void showQueue() {
    queueLinks_.show();
    frmQueue_.draw(true);
  }

  // Behind what holds the queue's file now.
  void tellOfQueue(const std::string& line) {
    session_.log.LogError(line);
    loop_.post([this, line] { boxes_.show({"KVO - Render Queue", line, BoxButtons::Ok, BoxIcon::Warning}); });
  }

  // As it is, and where the desktop puts it.
  void showNow() {
    window_.draw();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }

  void coverScreen() {
    links_.display().coverOrBack();
    if (state_.face.minimumDetails) links_.display().startAtSourceSize();
  }

  // The state is whole. Where the program ends, the editor goes first: the main window is the last to close.
  void settled() {
    companions_.settled();
    if (!state_.face.visible) frmQueue_.draw(false);
    if (!state_.face.visible && editor_.desk().isOpen()) frmRush_.draw();
  }

  void draw() {
    window_.draw();
    positionWindows_.draw(window_.shownFace());
    frmCodec_.draw(window_.shownFace());
    frmStreamInfo_.draw(window_.shownFace());
    frmRush_.draw();
    frmQueue_.draw(window_.shownFace() != nullptr);
  }

  std::string cache_;
  FrmMessageBoxes boxes_{[this] { showNow(); }};
  GatheredBoxes refusals_{boxes_};
  Session session_;
  MainWindowState state_;
  QtFileDialogs dialogs_;
  QtDesktop desktop_;
  BusScreenSaver saver_;
  BusMotion motion_;
  SettingsStore store_;
  SocketHandover handover_;
  PatientHandover patient_{handover_};
  QtEventLoop loop_;
  PlayTimers timers_{loop_};
  MpvStage stage_{loop_, session_.streams};
  MpvControlEngine control_{stage_};
  MpvFilterGraphs graphs_{stage_};
  MediaPictureCounts counts_{loop_, session_.streams};
  BatchProbe probe_;
  ClipList list_;
  History history_;
  RecentCollections recent_;
  CollectionCommands commands_;
  LookingProcess looker_;
  TellingLooker tellingLooker_{looker_, session_.streams};
  CdioDisc disc_;
  IntakeWindow intakeWindow_;
  AddClips intake_;
  MissingFiles missing_{{session_.files, dialogs_, boxes_, loop_, tellingLooker_, state_, session_.collection,
                         list_, history_}};
  ProgramParts parts_;
  Intro intro_;
  Mailbox mailbox_;
  TurboJpeg jpeg_;
  SkinFace face_{
      {session_.files, jpeg_}, {kMainWindow}, session_.folder.path(), [this](const std::string& line) {
        session_.log.LogError(line);
      }};
  ImageList1 images_{{session_.files, jpeg_}, withSeparator(session_.folder.path()) + "ImageList1/"};
  FaceLinks links_;
  Skins skins_;
  StartUp startUp_;
  ShutDown shutDown_;
  MediaCommands media_;
  ListCommands listCommands_;
  WebModule web_;
  WindowPages pages_;
  PosixNetwork network_;
  CurlHttp http_{loop_};
  CodecInfo codec_;
  StreamInfo streamInfo_;
  PlayLinks play_;
  TransportLoadCheck loadCheck_{timers_, links_.player(), [this] { links_.display().EndAnim(); }};
  MainMenu menu_;
  ClipPicture picture_;
  KeptSketches sketches_;
  ListPictures rowPictures_{{sketches_, session_.collection, state_.list}};
  LastWish<std::string, Result<StreamFacts>> facts_;
  LastWish<std::string, bool> keeping_{
      loop_, [this](const std::string& cache) { return keepFiles(session_.streams, session_.files, cache); },
      [](const std::string& /*cache*/, bool /*done*/) {}};
  Mpris mpris_;
  Companions companions_;
  FrmFileOpen window_;
  PositionWindows positionWindows_;
  FrmCodec frmCodec_;
  FrmStreamInfo frmStreamInfo_;
  FaceMenu clipMenu_{menu_, [this] { draw(); }};
  EditorLinks editor_;
  LongWorkBus longWork_;
  LongWorkBus queueWork_;
  QueueStore queueStore_{session_.files, queueFolder(session_.folder),
                         [this](const std::string& line) { tellOfQueue(line); }};
  QueueRunner queue_;
  QueueLinks queueLinks_;
  RenderLinks renders_;
  FrmQueue frmQueue_;
  EditorWindow frmRush_;
  Autosave autosave_;
};

// What stands for the program in a desktop's lists of windows. `shared` is the installation's share folder.
QIcon programIcon(const std::string& shared) {
  QIcon icon;
  for (const char* size : {"16x16", "24x24", "32x32", "48x48", "64x64", "128x128", "256x256"}) {
    icon.addFile(QString::fromStdString(shared + "/icons/hicolor/" + size + "/apps/kvo5.png"));
  }
  return icon;
}

}  // namespace

bool hasDisplay() {
  const auto isSet = [](const char* name) {
    const char* text = std::getenv(name);
    return text != nullptr && *text != '\0';
  };
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

int runWindow(int argc, char** argv, const ProgramFolder& folder, const std::string& executableFolder,
              const std::string& placesFile, const std::string& cacheFolder) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("KVO5");
  std::locale::global(std::locale(std::locale(), std::make_unique<QtTranslations>().release()));
  applyTheme(application);
  const auto shared = executableFolder + "../share";
  QApplication::setWindowIcon(programIcon(shared));
  WindowProgram program(folder, placesFile, executableFolder, cacheFolder);
  return program.run({argv + 1, argv + argc}, shared + "/kvo5");
}

int runGallery(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("KVO5");
  applyTheme(application);
  Gallery gallery;
  gallery.show();
  return QApplication::exec();
}

}  // namespace kvo
