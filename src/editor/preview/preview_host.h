// What the preview asks of the editor and of the main window around it.
#pragma once

#include "editor/compiler/picture_in_picture.h"
#include "editor/tabs/still_options.h"
#include "editor/tabs/tab_host.h"

namespace kvo {

class PreviewHost : public TabHost {
 public:
  /// False while a load or another command has the collection.
  [[nodiscard]] virtual bool mayEdit() const = 0;
  /// The editor is open, and nothing of it is held by the user.
  [[nodiscard]] virtual bool isAtRest() const = 0;

  /// The main window's timers stand, its player is stopped.
  virtual void haltPlayer() = 0;
  /// And out of sight, and the direct positioner is closed.
  virtual void parkPlayer() = 0;

  /// Tabs and tools of the editor, and those of the main window.
  virtual void FrmFileOpenToolsOnOff(bool on) = 0;

  /// Tmr_CheckChanges runs or stands.
  virtual void watchChanges(bool on) = 0;

  /// Selects a row of the main list, 1 for the first, without loading its clip.
  virtual void selectRow(int clipNo) = 0;

  /// The movie stands at `seconds`, where the user has sent it or it has ended.
  virtual void movieStands(double seconds) = 0;

  /// The main window shows the details of the selected clip.
  virtual void Displaymovieinfo() = 0;

  /// The movie has come to its end: the window's caption says what it is made from.
  virtual void restoreCaption() = 0;

  /// What a preview left beside the program goes.
  virtual void deleteWorkFiles() = 0;

  [[nodiscard]] virtual StillControls stillControls() const = 0;
  /// The box is ticked: the movie that has come to its end goes back to its start.
  [[nodiscard]] virtual bool Chk_AutoRewind() const = 0;

  /// The preview's state is another than before: it is to be drawn.
  virtual void previewChanged() = 0;
};

}  // namespace kvo
