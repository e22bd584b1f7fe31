#include "app/window_program.h"

#include "adapters/qt/qt_translations.h"
#include "app/commands.h"
#include "app/window_wiring.h"
#include "core/telling/messages.h"
#include "playback/captions.h"
#include "render/system_profile.h"
#include "ui/theme.h"
#include "windows/gallery/gallery.h"

#include <QIcon>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>

namespace kvo {
namespace {

// What stands for the program in a desktop's lists of windows. `shared` is the installation's share folder.
QIcon programIcon(const std::string& shared) {
  QIcon icon;
  for (const char* size : {"16x16", "24x24", "32x32", "48x48", "64x64", "128x128", "256x256"}) {
    icon.addFile(QString::fromStdString(shared + "/icons/hicolor/" + size + "/apps/kvo5.png"));
  }
  return icon;
}

}  // namespace

int WindowProgram::run(const std::vector<std::string>& arguments, const std::string& shippedFolder) {
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

MenuDoors WindowProgram::doors() {
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

QueueActs WindowProgram::queueActs() {
  const auto act = [this](auto work) {
    return [this, work](auto... given) {
      work(given...);
      draw();
    };
  };
  return {.choose = act([this](int row) { queueLinks_.choose(row); }),
          .act = act([this] { queueLinks_.act(); }),
          .remove = act([this] { queueLinks_.remove(); }),
          .move = act([this](int place) { queueLinks_.move(place); }),
          .openFolder = act([this] { queueLinks_.openFolder(); }),
          .clear = act([this] { queueLinks_.clear(); })};
}

void WindowProgram::showQueue() {
  queueLinks_.show();
  frmQueue_.draw(true);
}

void WindowProgram::tellOfQueue(const std::string& line) {
  session_.log.LogError(line);
  loop_.post([this, line] { boxes_.show({"KVO - Render Queue", line, BoxButtons::Ok, BoxIcon::Warning}); });
}

void WindowProgram::showNow() {
  window_.draw();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void WindowProgram::coverScreen() {
  links_.display().coverOrBack();
  if (state_.face.minimumDetails) links_.display().startAtSourceSize();
}

void WindowProgram::settled() {
  companions_.settled();
  if (!state_.face.visible) frmQueue_.draw(false);
  if (!state_.face.visible && editor_.desk().isOpen()) frmRush_.draw();
}

void WindowProgram::draw() {
  window_.draw();
  positionWindows_.draw(window_.shownFace());
  frmCodec_.draw(window_.shownFace());
  frmStreamInfo_.draw(window_.shownFace());
  frmRush_.draw();
  frmQueue_.draw(window_.shownFace() != nullptr);
}

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
