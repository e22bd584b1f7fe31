// A movie made from the window: what a render asks of the windows about it.
#pragma once

#include "app/editor_links.h"
#include "app/render_pictures.h"
#include "ports/desktop.h"
#include "render/hardware_trial.h"
#include "render/movie_render.h"
#include "render/queue/queue_store.h"

#include <functional>
#include <optional>
#include <string>

namespace kvo {

class RenderLinks : public RenderHost {
 public:
  struct Parts {
    MainWindowState& window;
    Session& session;
    EventLoop& loop;
    EditorLinks& editor;
    FaceLinks& face;
    PlayLinks& play;
    Mailbox& mailbox;
    UserStore& store;
    FileDialogs& dialogs;
    LongWork& work;
    const Desktop& desktop;
    QueueStore& queueStore;
    std::string engine;          ///< path of its program
    std::function<void()> draw;  ///< all windows
  };
  /// All of it outlives the object.
  explicit RenderLinks(const Parts& parts);

  [[nodiscard]] const RenderState& state() const { return state_; }
  [[nodiscard]] MovieRender& render() { return render_; }

  /// The keys of the card that make a movie: begins with the next turn of the loop, and is drawn as it goes.
  void write();
  void addToQueue();
  void writePair();
  /// The movie of the report joins the collection and plays.
  void view();
  /// A movie that stands joins the collection, where it is no clip yet, and plays. While another is being
  /// made a box says so.
  void play(const std::string& movie);
  /// Cmd_RendertoFile, and KVOBut_RenderPinP.
  void Rendertofile();
  void RenderPinP();

  /// KVOBut_AbortRender: ends the render, once the user has said so.
  void abort();
  /// A render is under way, which ends with the program: asks whether it is to.
  [[nodiscard]] bool mayEnd();

  /// Ahead of each drawing.
  void settle();

  void PlayerStop() override;
  void ImagesOff() override;
  void UpdLastRead() override;
  void AddMoviesm(const std::string& path) override;
  void DisabEditControls(bool disabled) override;
  void ApplyStillSettings() override;
  void KillPreview() override { parts_.editor.KillPreview(); }
  void Buildtabs() override;
  void deleteWorkFiles() override { parts_.editor.desk().deleteWorkFiles(); }
  Outcome StripWavFromCurrentVideo(const std::string& source, const std::string& wav) override;
  void renderChanged() override;

 private:
  void begin(std::function<void()> work);
  void addMovie();
  void letPlay();

  Parts parts_;
  RenderState state_;
  HardwareTrial hardware_;
  MovieRender render_;
  RenderPictures pictures_;
  std::optional<CommandPass> pass_;  // while a movie is made the collection is its own
  bool isPair_ = false;              // what is made has no place on the timeline
  bool isAsking_ = false;            // whether the render is to end
  std::string joins_;                // the movie that is to join the collection
};

}  // namespace kvo
