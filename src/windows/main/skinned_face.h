// The normal face of the main window: the skin with its keys, and the plates on it. It has no frame and one
// size; its outline is that of a mask.
#pragma once

#include "playback/transport/transport.h"
#include "program/clip_picture.h"
#include "program/hover_preview.h"
#include "program/list_commands.h"
#include "program/list_pictures.h"
#include "program/resume.h"
#include "ui/face_drag.h"
#include "ui/skin_face.h"
#include "windows/main/keys_part.h"
#include "windows/main/window_acts.h"

#include <QPixmap>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <string>
#include <utility>

namespace kvo {

class CollectionDetailsPart;
class DetailsPart;
class EmptyPanePart;
class GlassPart;
class HoverPart;
class LargePicturePart;
class ListPart;
class LoadingPart;
class PicturePart;
class CreateMovieKey;
class PositionPart;
class SliderPart;
class TitleRailPart;
class VideoFeed;
class VolumePart;

class SkinnedFace : public QWidget {
 public:
  struct Logic {
    ListCommands& list;
    History& history;
    Mailbox& mailbox;
    Display& display;
    Positions& positions;
    ClipPicture& pictures;
    ListPictures& rows;
    HoverPreview& hover;
    Resume& resume;
    Transport& transport;
    std::function<void()> addMedia;
    std::function<void()> showCodec;
    std::function<void()> showStream;
    std::function<void()> showQueue;
  };

  /// `folder` is the program's. `acted` is called behind each act.
  SkinnedFace(MainWindowState& state, const Logic& logic, WindowActs& acts, SkinFace& skin,
              ImageList1& images, const std::string& folder, std::function<void()> acted);
  ~SkinnedFace() override;

  /// See PictureBox.
  void showVideo(VideoFeed& feed);
  /// Brings everything in line with the state.
  void draw();

 protected:
  void moveEvent(QMoveEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void press(Transport& transport, bool right);
  // What the user does there, and all is drawn anew.
  [[nodiscard]] auto act(std::function<void()> work) {
    return [this, work = std::move(work)] {
      work();
      acted_();
    };
  }
  void makeParts(WindowActs& acts, const std::string& folder);
  void makePictures();
  void makeSlider(const std::string& folder);
  void makeEmptyPane(const std::string& folder);
  [[nodiscard]] KeysPart::Acts keyActs(WindowActs& acts);
  void setTabOrder();
  void layOut();
  void drawParts();
  void drawHover();
  void showParts();
  void showPart(QWidget& part, bool shown);
  void paintGround();
  void paintSpine(QPainter& painter) const;
  void shape();

  MainWindowState& state_;
  Logic logic_;
  SkinFace& skin_;
  ImageList1& images_;
  std::function<void()> acted_;
  FaceScale scale_;
  double pixelRatio_ = 0;
  std::uint64_t skinRevision_ = 0;
  std::uint64_t keysRevision_ = 0;
  bool waits_ = false;  // the pointer says so
  QPixmap ground_;      // the skin with its spine and keys
  ShapedWidget shaped_;
  FaceDrag drag_{*this};
  std::unique_ptr<KeysPart> keys_;
  TitleRailPart* rail_ = nullptr;
  ListPart* list_ = nullptr;
  PicturePart* picture_ = nullptr;
  LargePicturePart* largePicture_ = nullptr;
  CollectionDetailsPart* collection_ = nullptr;
  PositionPart* position_ = nullptr;
  CreateMovieKey* createMovie_ = nullptr;
  DetailsPart* details_ = nullptr;
  SliderPart* slider_ = nullptr;
  HoverPart* hover_ = nullptr;
  GlassPart* glass_ = nullptr;
  VolumePart* volume_ = nullptr;
  EmptyPanePart* empty_ = nullptr;
  LoadingPart* loading_ = nullptr;
  QPointer<QWidget> focusBefore_;  // who had the keyboard ahead of long work
};

}  // namespace kvo
