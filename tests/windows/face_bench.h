// The main window with its logic on stand-ins for the ports, its pictures from the build, on no screen.
#pragma once

#include "adapters/jpeg/turbo_jpeg.h"
#include "adapters/posix/posix_files.h"
#include "app/play_links.h"
#include "ports/video_output.h"
#include "program/menus.h"
#include "support/fake_engines.h"
#include "support/named_sketches.h"
#include "support/program_bench.h"
#include "ui/cool_list_view.h"
#include "ui/widget_bench.h"
#include "windows/main/frm_file_open.h"

#include <memory>
#include <string>
#include <vector>

namespace kvo::test {

/// One picture of one colour.
class FakeVideo : public VideoOutput {
 public:
  std::optional<std::uint8_t> grey;  ///< nothing: there is no picture
  int drawn = 0;

  bool useOpenGl(OpenGl /*gl*/) override { return false; }
  void useSoftware() override {}
  [[nodiscard]] bool hasPicture() const override { return grey.has_value(); }
  void draw(int /*buffer*/, int /*width*/, int /*height*/) override {}
  void draw(const Rows& rows) override {
    ++drawn;
    std::fill_n(rows.first, rows.stride * static_cast<std::size_t>(rows.height), *grey);
  }
  void whenPictureDue(std::function<bool()> heard) override { due = std::move(heard); }

  std::function<bool()> due;
};

struct NoNetwork : Network {
  [[nodiscard]] bool connected() const override { return false; }
};

struct NoHttp : Http {
  void get(const std::string& address, std::size_t /*most*/, Heard heard) override { heard(Error{address}); }
};

struct FaceBench : ProgramBench {
  explicit FaceBench(const std::vector<std::string>& clips = {"a.avi", "b.avi", "c.jpg"}, double size = 1) {
    saveCollection("/prog/KVO5.INI", clips);
    for (const auto& clip : clips) engineFiles["/v/" + clip] = {};
    links.link(faceSkins);
    sketches.whenCome([this](const std::string& path) {
      hover.came(path);
      rows.came();
    });
    listCommands.whenUnseen([this] { links.display().AllDetOn(); });
    window.face.interfaceSize = size;
    links.takeInterfaceSize();
    startUp.run({}, "/");
    for (int i = 1; i <= collection.MovieList.count(); ++i) {
      auto& clip = collection.MovieList[i];
      streams.all[clip.Path() + clip.MovieName()] = {.hasVideo = true, .width = 640, .height = 480};
      clip.IsStill(clip.MovieName().ends_with(".jpg"));
      if (clip.IsStill()) continue;
      clip.DurationTime(Value(10));
      clip.DurationFrames(Value(250));
      clip.LoopEnd(Value(10));
    }
    list.fill();
    list.show();
    if (!clips.empty()) list.PreviewMovie(1);
    window.face.interfaceSize = size;
    links.takeInterfaceSize();
    faceSkins.applyStored();
    window.face.visible = true;
    open();
  }

  void open() {
    FrmFileOpen::Logic logic{menu,    play.positions(), listCommands,    history,         media,
                             mailbox, shutDown,         links.display(), picture,         rows,
                             hover,   resume,           nullptr,         play.transport()};
    logic.showQueue = [this] { ++queuesWanted; };
    const FrmFileOpen::Material material{skin, images, store, desktop, KVO_SHARE "/kvo5/", &video};
    frm = std::make_unique<FrmFileOpen>(window, logic, material);
    draw();
    QApplication::setActiveWindow(&face());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&face()));
  }
  void draw() { frm->draw(); }
  void show(int clip) {
    list.PreviewMovie(clip);
    draw();
  }

  /// The face that is shown.
  [[nodiscard]] static QWidget& face() {
    QWidget* shown = nullptr;
    for (auto* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->windowType() == Qt::Window) {
        EXPECT_EQ(shown, nullptr) << "two faces at once";
        shown = window;
      }
    }
    if (shown == nullptr) throw std::runtime_error("no face is shown");
    return *shown;
  }

  /// What a screen reader calls so, of what is seen once all is drawn.
  [[nodiscard]] QWidget* find(const QString& name) {
    draw();
    for (auto* widget : face().findChildren<QWidget*>()) {
      if (widget->isVisible() && widget->accessibleName() == name) return widget;
    }
    return nullptr;
  }
  [[nodiscard]] QWidget& at(const QString& name) {
    auto* widget = find(name);
    if (widget == nullptr) throw std::runtime_error("there is no " + name.toStdString());
    return *widget;
  }
  /// Of these names, those that are seen.
  std::string seen(QStringList names) {
    names.removeIf([this](const QString& name) { return find(name) == nullptr; });
    return names.join(", ").toStdString();
  }
  CoolListView& clips() { return dynamic_cast<CoolListView&>(at("Clips")); }
  void click(const QString& name, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&at(name), button);
  }
  void key(Qt::Key which, Qt::KeyboardModifiers held = {}) {
    auto* target = face().focusWidget();
    QTest::keyClick(target != nullptr ? target : &face(), which, held);
  }

  /// Waits for the thread that fetches pictures.
  void waitForPicture() {
    const auto before = window.picture.revision;
    for (int i = 0; i < 500 && window.picture.revision == before; ++i) {
      QTest::qWait(2);
      loop.advance(1);
    }
    draw();
  }

  FakeVideo video;
  FakeFiles engineFiles;
  FakeControlEngine control{loop, engineFiles};
  FakeFilterGraphs graphs{loop, engineFiles};
  NamedCounts counts;
  NoStreamProbe probe;
  FaceLinks links{
      {window, settings, collection, streams, counts, control, graphs, probe, desktop, boxes, timers}};
  Skins faceSkins{{dialogs, boxes, loop, pictures, log, folder}, links, settings, window};
  NoWebPages pages;
  NoNetwork network;
  NoHttp http;
  CodecInfo codec{{window, settings, collection, list, files, folder, probe, boxes, loop, links.player()}};
  PlayLinks play{{window, settings, collection, files, boxes, loop, desktop, pages, network, http, timers,
                  list, history, commands, media, intro, mailbox, links, codec}};
  MainMenu menu{{window, settings, commands, recent, media, listCommands, history, shutDown, faceSkins},
                {.freeZoom = [this] { links.display().Lbl_MiniMode_Click(); },
                 .minimumDetails = [this] { links.display().turnDetails(); },
                 .interfaceSize = [this] { links.takeInterfaceSize(); },
                 .fullPicture = [this] { links.display().mnu_DirXFullSC_Click(); },
                 .ordered = [this](MenuCommand tick) { play.ordered(tick); },
                 .createMovie = [this] { ++moviesWanted; }}};
  int moviesWanted = 0;
  int queuesWanted = 0;
  ClipPicture picture{streams, loop, window.picture};
  NamedSketches sketches;
  ListPictures rows{{sketches, collection, window.list}};
  HoverPreview hover{sketches, window};
  Resume resume{{window, collection, settings, links.player(), loop, files, "/state/KVO5/Places"}};
  PosixFiles disk;
  TurboJpeg jpeg;
  SkinFace skin{{disk, jpeg}, {QSize(562, 410)}};
  ImageList1 images{{disk, jpeg}, KVO_SHARE "/kvo5/ImageList1/"};
  std::unique_ptr<FrmFileOpen> frm;
};

struct Face : testing::Test, FaceBench {};

}  // namespace kvo::test
