// The boxes that say why a clip was not added, or what is odd about one that was.
#pragma once

#include "ports/message_boxes.h"

#include <string>
#include <string_view>

namespace kvo {

/// What is known of the codec that an AVI asks for; empty what is not.
struct CodecNotes {
  std::string code;  ///< "DIVX", or "Unknown"
  std::string developer;
  std::string address;
  std::string notes;
};

Box refusedFull();
/// What is no address that a player knows.
Box refusedAddress(std::string_view address);
Box refusedRealFamily();
Box refusedNonMedia();
Box refusedArchive(const std::string& name);
/// `unreadable`: it has no header that tells a size; else its size is out of range.
Box refusedImage(bool unreadable);
Box refusedUnverified(std::string_view name);
/// A folder in which there is nothing to play.
Box refusedFolder(std::string_view name);
/// A movie that a viewer of its own would have to show.
Box refusedMovie();
/// In words of the player. `codec` may be null.
Box refusedByPlayer(const std::string& name, std::string_view errorText, const CodecNotes* codec);
/// One that crashed or hung who looked into it.
Box refusedByCrash();
Box refusedUnmapped(bool dropped);

Box warnedOfMpeg(const std::string& name);
Box warnedOfAsf(const std::string& name);
Box warnedOfNoLength(const std::string& name);
Box askedAboutViewer();
/// The player itself is spoilt; the program ends behind this.
Box toldOfSpoiltPlayer();

}  // namespace kvo
