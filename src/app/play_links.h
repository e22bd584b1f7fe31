// What transport, positions, list and window ask of each other: wiring, and no rules.
#pragma once

#include "app/face_links.h"
#include "playback/positions/positions.h"
#include "playback/transport/transport.h"
#include "program/codec_info.h"
#include "program/intro.h"
#include "program/list_commands.h"
#include "program/mailbox.h"
#include "program/media_commands.h"
#include "program/menus.h"

#include <optional>
#include <string>

namespace kvo {

/// Where the player stands; none while it is empty.
std::optional<PlayerPlace> playerPlace(Player& player);

class PlayLinks : public TransportHost, public PositionsHost {
 public:
  struct Parts {
    MainWindowState& window;
    KVO2& settings;
    Collection& collection;
    Files& files;
    MessageBoxes& boxes;
    EventLoop& loop;
    Desktop& desktop;
    WebPages& pages;
    Network& network;
    Http& http;
    PlayTimers& timers;
    ClipList& list;
    History& history;
    CollectionCommands& collections;
    MediaCommands& media;
    Intro& intro;
    Mailbox& mailbox;
    FaceLinks& face;
    CodecInfo& codec;
  };
  explicit PlayLinks(const Parts& parts);

  [[nodiscard]] Transport& transport() { return transport_; }
  [[nodiscard]] Positions& positions() { return positions_; }

  /// A tick of those that steer playing is another now.
  void ordered(MenuCommand tick);

  // Of the transport
  void select(int number) override { parts_.list.select(number); }
  void Displaymovieinfo(int number) override { parts_.codec.Displaymovieinfo(number); }
  void caption(const std::string& text) override { parts_.window.face.caption = text; }
  void FadBorder(const std::string& text) override { parts_.face.FadBorder(text); }
  void showList(bool on) override { parts_.window.list.visible = on; }
  void NoMoviesinCollection() override { parts_.list.show(); }
  [[nodiscard]] bool busy() const override { return parts_.window.busy(); }
  bool startUpVideoEnded() override;
  void closeClipWindows() override { positions_.closeDisplays(); }
  void SectionToPlay(bool keepPosition) override { positions_.core.section.SectionToPlay(keepPosition); }
  void clipLoaded() override { positions_.loaded(); }
  void showPosition() override { positions_.core.displays.showPosition(); }
  [[nodiscard]] bool markDragged() const override;
  void endMarkDrag() override { positions_.marks.endDrag(); }
  void keepSpeed(double rate) override { positions_.rate.keep(rate); }
  void Lbl_NextMov_Click() override { positions_.remote.Lbl_NextMov_Click(); }

  // Of the positions
  bool edit(std::string_view act, Integer changeCode, const std::function<void(Movie&)>& change,
            std::string_view series) override;
  [[nodiscard]] bool windowVisible() const override { return parts_.window.face.visible; }
  void Displaymovieinfo() override { parts_.codec.Displaymovieinfo(parts_.collection.icurMov); }
  void ShowSliderStuff() override { parts_.face.display().ShowSliderStuff(); }
  void EndAnim() override { parts_.face.display().EndAnim(); }

 private:
  Parts parts_;
  Transport transport_;
  Positions positions_;
};

}  // namespace kvo
