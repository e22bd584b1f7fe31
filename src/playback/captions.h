// Texts over the picture: those of a file beside the clip that is named as the clip is.
#pragma once

#include "playback/player.h"
#include "ports/files.h"

#include <string>

namespace kvo {

/// Full path of the caption file beside a clip, whose full path is `clip`; empty where there is none. One in
/// SAMI goes ahead of the others.
std::string captionFileBeside(const Files& files, const std::string& clip);

/// Brings the clip in the player in line with the switch ShowCaps: with it the texts of its caption file are
/// shown, or those that it brings itself; without either, and without the switch, there are none.
void applyCaptions(Player& player, const Files& files, bool ShowCaps);

}  // namespace kvo
