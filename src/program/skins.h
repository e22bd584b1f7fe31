// The skin of the main window: which picture is its face, the colours that go with it, its outline and the
// side logo. What is not for here: reading and painting pictures (the port SkinPictures), drawing buttons.
#pragma once

#include "core/telling/error_log.h"
#include "ports/event_loop.h"
#include "ports/file_dialogs.h"
#include "ports/message_boxes.h"
#include "ports/skin_pictures.h"
#include "program/main_window_state.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// What the skin asks of the player and of the buttons that are drawn on it.
class SkinCalls {
 public:
  SkinCalls() = default;
  SkinCalls(const SkinCalls&) = delete;
  SkinCalls& operator=(const SkinCalls&) = delete;
  virtual ~SkinCalls() = default;

  /// Draws every button once, the seven of steps and speeds among them where `stepButtons` is set; they are
  /// disabled else.
  virtual void BuildAllButs(bool stepButtons) = 0;
  /// Draws one key.
  virtual void BuildButton(KeyWord word) = 0;
  virtual void PlayerPause() = 0;
  virtual void PlayerStop() = 0;
  virtual void GlobalMediaPlay() = 0;
  [[nodiscard]] virtual bool playerHoldsClip() const = 0;
  /// The clip in hand is a file.
  [[nodiscard]] virtual bool clipHasPath() const = 0;
};

/// A skin that comes with the program.
struct StockSkin;

/// A line of the menu of skins.
struct SkinEntry {
  std::string caption;
  bool isChosen = false;  ///< it is the skin in use
};

class Skins {
 public:
  struct Ports {
    FileDialogs& dialogs;
    MessageBoxes& boxes;
    EventLoop& loop;
    SkinPictures& pictures;
    ErrorLog& log;
    const ProgramFolder& folder;
  };

  Skins(const Ports& ports, SkinCalls& calls, KVO2& settings, MainWindowState& window)
      : ports_(ports), calls_(calls), settings_(settings), window_(window) {}

  /// Applies the skin that the settings name, with the colours that go with it: when the main window is made,
  /// and behind the opening of a collection. A name that was never filled is "Def".
  void applyStored();

  /// Applies a skin and draws all buttons. It is, in this order: the built-in one that `SkinPath` names; the
  /// picture `file`; the one that the user chooses, unless `noDialog` is set; the stored one. A picture that
  /// cannot be shown is told in the log, and "Def" takes its place. False when the user took the dialog back,
  /// and while a skin is being applied: everything stays as it was.
  bool skins(bool noDialog, bool stepButtons, const std::string& file, bool showWindow);

  /// The skins that come with the program, and as the last one the command that asks for a picture.
  [[nodiscard]] std::vector<SkinEntry> menu() const;

  /// What the line `place` of the menu, from 0, stands for. A picture that cannot be shown is told in a box.
  /// Nothing happens where a picture of the program's own is missing, and while another command is under way.
  void choose(int place);

  /// Gives the window the outline of the mask picture; where that is none, which is told in the log, the
  /// window is a rectangle.
  void ShapeMe();

  /// Gives the window its whole rectangle; as long as that stands there is no mask.
  void ShapePlain();

  /// The side logo with this caption; its colour, and that of the side line, is `colour`, 0 for blue.
  void FadBorder(std::string_view caption, ColorRef colour);

  /// Paints the detail labels in the colour that the settings hold.
  void Cupdisptextcol();

 private:
  [[nodiscard]] std::string fileOf(const StockSkin& skin) const;
  [[nodiscard]] const StockSkin* inUse() const;
  void takeStock(const StockSkin& skin);
  void askForPicture();
  bool paintChosen();
  void paint(const std::string& path);
  void endPaused(bool showWindow);
  void endPlaying(bool stepButtons);

  Ports ports_;
  SkinCalls& calls_;
  KVO2& settings_;
  MainWindowState& window_;
  std::string refusal_;  // why the last picture could not be shown; empty where it could
};

/// A colour by its text in the settings, a number or "&H00FF0000&"; kDefaultColor where it is none.
ColorRef colorOfText(std::string_view text);

}  // namespace kvo
