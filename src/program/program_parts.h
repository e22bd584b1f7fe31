// What the rules of the program's life work on; owned elsewhere.
#pragma once

#include "intake/clip_intake.h"
#include "playback/play_timers.h"
#include "ports/desktop.h"
#include "ports/handover.h"
#include "program/collection_commands.h"
#include "program/gathered_boxes.h"

namespace kvo {

struct ProgramParts {
  Files& files;
  MessageBoxes& boxes;
  EventLoop& loop;
  Handover& handover;
  UserStore& store;
  Desktop& desktop;
  const ProgramFolder& folder;
  KVO2& settings;
  Collection& collection;
  CollectionCommands& commands;
  ClipIntake& intake;
  GatheredBoxes& refusals;  ///< the boxes of the intake
  MainWindowState& window;
  ClipList& list;
  History& history;
  PlayTimers& timers;
};

}  // namespace kvo
