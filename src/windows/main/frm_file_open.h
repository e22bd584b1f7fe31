// The main window: its faces, of which one is shown, and what they share. Each part of a face draws its
// struct of the state and calls the logic for what the user does there; nothing is decided here.
#pragma once

#include "playback/display/face_corner.h"
#include "program/clip_picture.h"
#include "program/list_pictures.h"
#include "program/media_commands.h"
#include "windows/main/free_zoom_face.h"
#include "windows/main/full_picture.h"
#include "windows/main/skinned_face.h"
#include "windows/main/video_surface.h"
#include "windows/place/window_place.h"

#include <QElapsedTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kvo {

class FrmFileOpen {
 public:
  /// Whom the parts ask.
  struct Logic {
    MainMenu& menu;
    Positions& positions;
    ListCommands& list;
    History& history;
    MediaCommands& media;
    Mailbox& mailbox;
    ShutDown& shutDown;
    Display& display;
    ClipPicture& pictures;
    ListPictures& rows;
    HoverPreview& hover;
    Resume& resume;
    std::function<void()> settled;  ///< the state is whole: called ahead of each drawing
    Transport& transport;
    std::function<void()> showCodec = [] {};   ///< Frm_Codec is to open
    std::function<void()> showStream = [] {};  ///< frmStreamInfo is
    std::function<void()> showQueue = [] {};   ///< FrmQueue is
  };
  /// What the window is made of.
  struct Material {
    SkinFace& skin;
    ImageList1& images;
    UserStore& store;  ///< remembers its place
    Desktop& desktop;
    std::string folder;            ///< the program's, with a separator at its end
    VideoOutput* video = nullptr;  ///< null where nothing plays
    bool graphicsDevice = false;   ///< the machine has one
  };

  FrmFileOpen(MainWindowState& state, const Logic& logic, const Material& material);

  /// Brings the widgets in line with the state.
  void draw();

  /// The face that is shown; null while none is.
  [[nodiscard]] QWidget* shownFace();

 private:
  [[nodiscard]] QWidget& face();
  [[nodiscard]] FaceOnScreen onScreen(const QWidget& face) const;
  void showFace();
  void exchange(QWidget& now, QWidget& other);
  void leave();

  MainWindowState& state_;
  std::optional<VideoFeed> video_;
  std::function<void()> settled_;
  WindowActs acts_;
  SkinnedFace skinned_;
  FreeZoomFace zoom_;
  FullPicture full_;
  WindowPlace place_;
  FaceCorner corner_;
  QElapsedTimer clock_;
  bool drawing_ = false;
  bool again_ = false;  // the state has changed since the drawing began
};

}  // namespace kvo
