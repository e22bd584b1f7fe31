// The program wired to its windows: what there is of it, and what each room asks of the others.
#pragma once

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
#include "adapters/posix/posix_network.h"
#include "adapters/posix/socket_handover.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/qt_event_loop.h"
#include "adapters/qt/qt_file_dialogs.h"
#include "adapters/qt/settings_store.h"
#include "adapters/sdl/sdl_sound_output.h"
#include "app/companions.h"
#include "app/editor_window.h"
#include "app/face_links.h"
#include "app/known_files.h"
#include "app/play_links.h"
#include "app/queue_command.h"
#include "app/queue_links.h"
#include "app/render_links.h"
#include "app/session.h"
#include "intake/add_clips.h"
#include "intake/batch_probe.h"
#include "intake/looking_process.h"
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
#include "sketches/kept_sketches.h"
#include "ui/skin_face.h"
#include "windows/codec/frm_codec.h"
#include "windows/main/face_menu.h"
#include "windows/main/frm_file_open.h"
#include "windows/message/frm_message_boxes.h"
#include "windows/position/position_windows.h"
#include "windows/render/frm_queue.h"
#include "windows/stream_info/frm_stream_info.h"
#include "windows/web/web_module.h"
#include "windows/web/window_pages.h"

#include <QApplication>
#include <memory>
#include <string>
#include <vector>

namespace kvo {

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

// One that lives as long as the process.
class WindowProgram {
 public:
  /// `placesFile` keeps where the user left long clips, `cacheFolder` what may go at any time.
  WindowProgram(const ProgramFolder& programFolder, const std::string& placesFile,
                const std::string& executableFolder, std::string cacheFolder);
  WindowProgram(const WindowProgram&) = delete;
  WindowProgram& operator=(const WindowProgram&) = delete;

  /// Until the user ends it; the exit code of the process.
  int run(const std::vector<std::string>& arguments, const std::string& shippedFolder);

  /// The size of the normal face, pixels at size 1.
  static constexpr QSize kMainWindow{static_cast<int>(kFaceWidth / kTwipsPerPixel),
                                     static_cast<int>(kFaceHeight / kTwipsPerPixel)};

 private:
  // Who is told of what.
  void wire();

  // What each room asks for. None is more than the names of what stands in this class.
  BatchProbe::Parts probeParts(const std::string& executableFolder);
  CollectionCommands::Ports collectionPorts();
  CollectionCommands::Views views();
  IntakeWindow::Parts intakeWindowParts();
  AddClips::Parts intakeParts();
  ProgramParts programParts();
  FaceLinks::Parts faceParts();
  Skins::Ports skinPorts();
  CodecInfo::Parts codecParts();
  PlayLinks::Parts playParts();
  MainMenu::Parts menuParts();
  Companions::Parts companionParts(const std::string& placesFile);
  FrmFileOpen::Logic faceLogic();
  FrmFileOpen::Material faceMaterial();
  EditorLinks::Parts editorParts();
  QueueRunner::Ports queuePorts(const std::string& executableFolder);
  RenderLinks::Parts renderParts(const std::string& executableFolder);
  EditorWindow::Parts editorWindowParts();
  Autosave::Parts autosaveParts();

  // What the menus ask of other rooms.
  MenuDoors doors();
  // What the window of the queue does to it.
  QueueActs queueActs();
  void showQueue();
  // Behind what holds the queue's file now.
  void tellOfQueue(const std::string& line);
  // As it is, and where the desktop puts it.
  void showNow();
  void coverScreen();
  // The state is whole. Where the program ends, the editor goes first: the main window is the last to close.
  void settled();
  void draw();

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

}  // namespace kvo
