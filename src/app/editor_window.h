// The editor's window with its pages, picture and timeline: made when it is opened for the first time.
#pragma once

#include "app/colour_pictures.h"
#include "app/editor_links.h"
#include "app/queue_links.h"
#include "app/render_links.h"
#include "editor/samples/engine_samples.h"
#include "ports/desktop.h"
#include "ports/file_dialogs.h"
#include "ports/motion.h"
#include "sketches/sketches.h"

#include <QImage>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kvo {

class FrmAnalysing;
class FrmKeyframe;
class FrmRush;
class HandWatch;
class PreviewPart;
struct PageLogic;
class TimelineView;

class EditorWindow {
 public:
  struct Parts {
    EditorLinks& links;
    RenderLinks& render;
    QueueLinks& queue;
    Session& session;
    EventLoop& loop;
    Sketches& sketches;
    UserStore& store;
    const Desktop& desktop;
    FileDialogs& dialogs;
    Motion& motion;
    std::string pictures;        ///< the folder of the keys' pictures, with its separator
    std::function<void()> draw;  ///< all windows
  };
  /// All of it outlives the window.
  explicit EditorWindow(const Parts& parts);
  ~EditorWindow();

  void draw();
  /// A small picture, or the peaks, of this file have come.
  void sketchCame(const std::string& file);

 private:
  void make();
  void makePage(int tab);
  void makePreview();
  void makeTimeline();
  void makeRender();
  [[nodiscard]] PageLogic pageLogic();
  [[nodiscard]] std::shared_ptr<const FramePicture> sketchOf(int clipNo) const;
  [[nodiscard]] QImage pictureOf(int clipNo);
  [[nodiscard]] QImage withColours(int clipNo);

  Parts parts_;
  // As widgets draw it; the same one as long as the picture is.
  struct ShownPicture {
    std::shared_ptr<const FramePicture> picture;
    QImage image;
  };
  static const QImage& kept(ShownPicture& shown, const std::shared_ptr<const FramePicture>& picture);

  EngineSamples transitions_;
  EngineSamples effects_;
  ColourPictures colours_;
  std::map<int, ShownPicture> pictures_;  // by clip
  ShownPicture coloured_;
  std::unique_ptr<FrmRush> frm_;
  std::unique_ptr<FrmKeyframe> keyframes_;
  std::unique_ptr<FrmAnalysing> analysing_;
  std::vector<std::unique_ptr<HandWatch>> hands_;  // of the windows in which edits are made
  TimelineView* timeline_ = nullptr;               // the window's
  PreviewPart* preview_ = nullptr;                 // the window's
  std::array<bool, kEditorTabs> hasPage_{};
};

}  // namespace kvo
