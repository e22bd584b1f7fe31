// Frm_Codec: what is known of the codec of the clip in hand, as data.
#pragma once

#include <string>

namespace kvo {

struct CodecWindowState {
  bool visible = false;
  std::string code;       ///< "XVID"
  std::string developer;  ///< who made it
  std::string address;    ///< on the web
  std::string notes;      ///< at most two lines, parted by CR LF
  bool operator==(const CodecWindowState&) const = default;
};

/// Notes longer than 53 characters have a CR LF behind the 53rd, and only there.
std::string codecNotes(const std::string& notes);

}  // namespace kvo
