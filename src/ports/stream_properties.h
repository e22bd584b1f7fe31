// What a media file says of each of its streams, and of itself.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kvo {

struct StreamProperty {
  enum class Kind { Audio, Video, Other };
  Kind kind = Kind::Other;
  std::string codec{};      ///< FFmpeg's name: "wmv3"
  std::string codecName{};  ///< and its long one: "Windows Media Video 9"
  std::string language{};   ///< "eng"; empty when the file does not tell
  double bitRate = 0;       ///< bits a second; 0 when it is not known
  int width = 0;            ///< pixels, of a picture
  int height = 0;
  double frameRate = 0;  ///< pictures a second; 0 when there is none
  int sampleRate = 0;    ///< samples a second, of sound
  int channels = 0;
};

struct StreamProperties {
  std::string container{};      ///< FFmpeg's name: "ASF (Advanced / Active Streaming Format)"
  bool isWindowsMedia = false;  ///< an ASF container
  bool isProtected = false;     ///< needs a license to be played
  bool isSeekable = true;
  bool isStill = false;  ///< one picture: no length, no rates
  double duration = 0;   ///< seconds; 0 when the file does not tell
  double bitRate = 0;    ///< bits a second, of the whole file
  std::vector<StreamProperty> streams{};
  std::vector<std::pair<std::string, std::string>> tags{};  ///< "title" and its text, in the file's order
};

}  // namespace kvo
