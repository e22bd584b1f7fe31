// What a clip counts as when it is added, by its name alone.
#pragma once

#include "core/records/movie.h"

#include <string_view>

namespace kvo {

enum class IntakeClass {
  Media,       ///< whatever a player plays
  Image,       ///< a still whose header tells whether it is one
  Picture,     ///< animated pictures, and stills of other kinds
  QuickTime,   ///< may go to a viewer of its own
  Page,        ///< shown as a web page
  Flash,       ///< likewise, and it sounds
  CdTrack,     ///< of an audio CD
  ExtendedCd,  ///< stands for all the tracks of a CD
  RealFamily,  ///< refused
  NonMedia,    ///< refused
  Archive,     ///< refused
};

/// By the three characters at the name's end, and by the whole extension where the kinds of media know it.
IntakeClass intakeClass(std::string_view name);

/// Of an address. A host alone has no extension.
IntakeClass intakeClassOfAddress(std::string_view address);

/// One of the kinds that never pass for an address: programs and texts.
bool isRefusedAddress(std::string_view address);

/// An address of the kinds that are played as streams, by its name.
bool namesStream(std::string_view address);

/// Sound whose length a player tells: one without a length is told of.
bool isSoundType(std::string_view name);

/// A length of 0 says nothing of it.
bool reportsNoLength(std::string_view name);

}  // namespace kvo
