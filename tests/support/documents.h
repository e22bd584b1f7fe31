// Timeline documents, as a compile would write them.
#pragma once

#include "base/numbers.h"

#include <string>
#include <vector>

namespace kvo::test {

/// A clip on a track of its own; times in seconds.
struct DocumentClip {
  std::string src;
  double mstart = 0, mstop = 1, start = 0, stop = 1;
  std::string inside{};      ///< elements of the clip
  std::string behind{};      ///< elements behind the clip
  std::string attributes{};  ///< stretchmode and the like
};

struct DocumentForm {
  int width = 64, height = 48;
  std::string rate = "25";
};

inline std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + "\"";
}
inline std::string attribute(const char* name, double value) { return attribute(name, ShortText(value)); }

inline std::string tracksOf(const std::vector<DocumentClip>& clips) {
  std::string text;
  for (const auto& c : clips) {
    text += "<track>\r\n<clip" + attribute("src", c.src) + c.attributes + attribute("mstart", c.mstart) +
            attribute("mstop", c.mstop) + attribute("start", c.start) + attribute("stop", c.stop) + " >\r\n" +
            c.inside + "</clip>\r\n" + c.behind + "</track>\r\n";
  }
  return text;
}

/// Of pictures and sounds; a document of no pictures has no video group.
inline std::string documentOf(const std::vector<DocumentClip>& video,
                              const std::vector<DocumentClip>& audio = {}, const DocumentForm& form = {}) {
  std::string text = "<timeline>\r\n";
  if (!video.empty()) {
    text += "<group type=\"video\" bitdepth=\"24\"" + attribute("width", form.width) +
            attribute("height", form.height) + attribute("framerate", form.rate) + ">\r\n" + tracksOf(video) +
            "</group>\r\n";
  }
  return text + "<group type=\"audio\" SamplingRate=\"44100\">\r\n" + tracksOf(audio) +
         "</group>\r\n</timeline>\r\n";
}

}  // namespace kvo::test
