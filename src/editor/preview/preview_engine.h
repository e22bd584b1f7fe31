// The preview: compiles what is to be seen, has the player show it, and follows it with texts, bar and
// selection. The movie is one; the samples by which tabs show what they set are others, which begin by
// themselves and take each other's place.
#pragma once

#include "editor/preview/newest_picture.h"
#include "editor/preview/preview_host.h"
#include "editor/preview/preview_state.h"
#include "editor/tabs/editing.h"
#include "editor/tabs/operations.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace kvo {

class PreviewEngine {
 public:
  /// What the keys beside the picture do.
  enum class Key { ToStart, StepBack, PlayOrPause, StepForward, ToEnd };

  /// All of it outlives the engine. `pictures` is what the player puts its pictures into.
  PreviewEngine(PreviewState& state, const Editing& editing, TimelinePlayer& player, NewestPicture& pictures,
                EventLoop& loop, PreviewHost& host);
  PreviewEngine(const PreviewEngine&) = delete;
  PreviewEngine& operator=(const PreviewEngine&) = delete;
  ~PreviewEngine();

  /// The Preview button: plays the movie from the place of the bar, or ends the one that plays. A sample
  /// gives way to it.
  void PrepPreview();

  /// Compiles the movie at the power of the settings and fills totals and bar; with `Play` it plays. False
  /// when there is nothing to show or the collection may not be edited.
  bool CreatePreview(bool Play);

  /// Ends whatever is shown, and lets go of it; its last picture stands until there is another.
  void KillPreview();

  /// Halts what plays, and lets it go on.
  void PausePreview();
  /// Halts a sample that plays, so that a frame can be seen in its place.
  void haltSample();
  void PreviewtransPort(Key key);

  /// Shows a place of the movie as it is now, in seconds, standing; where it plays it goes on from there.
  void showAt(double seconds);
  /// The user takes the bar, moves it to a place in seconds, or lets it go.
  void holdRange(bool held);
  void moveRange(double seconds);
  /// Space: plays the movie, halts it, lets it go on.
  void playOrPauseMovie();

  /// The collection is another than the one that was compiled. What stands of the movie is shown anew.
  void movieIsStale();
  /// The same by an edit: when the hand rests the movie is shown at the playhead. Where a transition leads
  /// into the clip in hand that stays to be seen, unless the movie stood there.
  void movieEdited();
  /// The clips have other places in the movie: bar and cuts follow, unless it plays.
  void takeTimes();
  /// The playhead is at `seconds`, and so the bar of the movie. What stands of the movie elsewhere goes, but
  /// for a movie that is to be shown anew; where nothing is shown the texts tell the place. Nothing while the
  /// movie plays.
  void standAt(double seconds);
  /// The clip in hand is to be seen: a sample goes, and what stands of the movie.
  void showClip();

  /// The editor's missing files are others: what could not be shown for want of one may be tried again.
  void filesCame();

  /// The sample that is shown, if one is, is made anew: its clip has changed.
  void sampleAnew();

  /// Begins a sample of a clip, by the newest wish: those that come faster than samples can be made replace
  /// each other. What is shown of the same clip goes on at the same place.
  void sample(Sample what, int clipNo);

 private:
  struct Wish {
    Sample what = Sample::Transition;
    int clipNo = 0;
  };

  /// Gives the player the text of a document, which is of the state's kind; unless `NoPlay`, it plays from
  /// `StartSeconds`. A document that makes no sense is told in the state's failure.
  void PreviewIt(std::string Document, double StartSeconds, bool NoPlay);
  /// Plays what the player has; from the start when that is wanted at the last frame.
  void DirXPlay(double StartSeconds);
  /// Texts, bar and selection by where the player is.
  void GetCurrPos();
  void TimeCodeOn();
  void TimeCodeOff();
  void UpdateRenderPosDisplay(const std::string& text);
  [[nodiscard]] std::int64_t GetPreviewPositionFrame() const;
  [[nodiscard]] PlayState GetPreviewPlayState() const { return player_.state(); }

  [[nodiscard]] bool isSample() const;
  [[nodiscard]] bool movieRuns() const;
  [[nodiscard]] double secondsOf(std::int64_t frame) const;
  [[nodiscard]] std::int64_t frameOf(double seconds) const;
  [[nodiscard]] std::int64_t frameInClip(double seconds) const;
  [[nodiscard]] double placeOf(std::int64_t frame) const;
  void release();
  void fillBar();
  [[nodiscard]] double movieLength() const;
  void tellPlace(double seconds);
  void standOn(std::int64_t frame);
  void showAnew();
  [[nodiscard]] bool leadsIntoClip(double seconds) const;
  void saveGraph(const std::string& document);
  void seekTo(std::int64_t frame);
  bool standOnMovie();
  void beginWish();
  [[nodiscard]] std::string documentOf(const Wish& wish, SampleSize size) const;
  [[nodiscard]] int overlayPositionOf(const Wish& wish) const;
  void writeSample();
  void watchEnd();
  void arrived(std::int64_t frame, std::shared_ptr<const Bitmap> picture);
  void failed(const std::string& text);
  [[nodiscard]] std::string reasonOf(const std::string& text);
  void UpdateFrmFileOpenFillist();

  PreviewState& state_;
  const Editing& editing_;
  TimelinePlayer& player_;
  NewestPicture& pictures_;
  PreviewHost& host_;
  std::unique_ptr<Timer> Timer1_;        // texts and bar
  std::unique_ptr<Timer> tmrTimer_;      // the end
  std::unique_ptr<Timer> TimerPreview_;  // a sample's document goes to its file
  std::unique_ptr<Timer> pace_;          // of samples that follow each other
  std::unique_ptr<Timer> rest_;          // of the hand that edits
  std::optional<Wish> wish_;
  std::optional<Wish> unwritten_;         // the sample whose document is to be kept
  std::optional<std::int64_t> sought_;    // the frame that is on its way
  std::optional<std::int64_t> standsOn_;  // the frame that is seen for the playhead's place
  double standsAt_ = 0;                   // seconds of the movie: where the host was told that it stands
  double playhead_ = 0;                   // seconds of the movie: where the host is
  RenderRange movieBar_;                  // the movie's, while a sample has the bar
  RevisedList<double> movieCuts_;
  std::string waitsFor_;  // the file for want of which it failed
  bool stale_ = true;
  bool owesMovie_ = false;  // it is to be shown anew
  bool seeking_ = false;    // by the user's choice; the playhead follows
  bool began_ = false;      // the player has been seen doing what it was told
  int tick_ = 0;
};

}  // namespace kvo
