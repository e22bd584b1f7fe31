// What is shown ahead of the collection's first clip: the files of the command line, or the intro of the
// collection. The intro is a guest: it leaves by every road without a trace.
#pragma once

#include "playback/transport/transport_commands.h"
#include "program/program_parts.h"

#include <string>
#include <vector>

namespace kvo {

class Intro {
 public:
  explicit Intro(const ProgramParts& parts);

  /// Shows the `named` files, else the collection's intro, else its first clip.
  void begin(const std::vector<std::string>& named);

  /// Begins with the first clip in the whole screen.
  void passOver();

  /// Who plays from now on.
  void transport(TransportCommands& transport) { transport_ = &transport; }

  /// The clip that is shown has reached its end.
  void ended() { introRunning_ = false; }

  /// Takes the intro out again; of a clip that ran in its place only the running ends.
  void leave();

  [[nodiscard]] bool IntroRunning() const { return introRunning_; }
  [[nodiscard]] bool StartingUp() const { return startingUp_; }

 private:
  void showFirstClip();
  void ShowStartupVid(const std::vector<std::string>& named);
  bool addIntro();
  void tick();

  ProgramParts parts_;
  const Movie* intro_ = nullptr;  // the clip of DefaultStartupVid while it is in the list
  bool isNamed_ = false;          // files of the command line run in place of the intro
  bool introRunning_ = false;
  bool startingUp_ = true;
  TransportCommands* transport_ = nullptr;
};

}  // namespace kvo
