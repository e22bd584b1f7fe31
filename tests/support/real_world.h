// Real media for tests, made on the spot by ffmpeg's test sources, and finished files taken apart by ffmpeg
// again, so that what our own room of FFmpeg does is checked from outside.
#pragma once

#include "support/texts.h"

#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

/// A folder of the test's own that is gone with the object.
class ScratchFolder {
 public:
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  [[nodiscard]] std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  [[nodiscard]] const std::string& path() const { return path_; }
  /// Names of what is in it, sorted.
  [[nodiscard]] std::vector<std::string> names() const;

 private:
  std::string path_;
};

struct ProgramEnd {
  int exitCode = 0;
  std::string out;
  std::string err;
};

/// A program that runs beside the test without a shell, in a group of its own; what it says is kept. It is
/// told to end with the object.
class Companion {
 public:
  explicit Companion(const std::vector<std::string>& command);
  Companion(const Companion&) = delete;
  Companion& operator=(const Companion&) = delete;
  ~Companion();

  [[nodiscard]] int number() const { return process_; }
  void signal(int number) const;
  /// Its standard output and error until now.
  [[nodiscard]] std::string said() const;
  /// Waits for the first line of its standard output.
  [[nodiscard]] std::string firstLine() const;
  [[nodiscard]] bool hasEnded();
  /// Waits for its end: the exit code, or 128 and the signal that ended it.
  int end();

 private:
  int out_;  // files in memory
  int err_;
  int process_;
  std::optional<int> end_;
};

/// Waits for what comes about elsewhere. The limit is only for a fault: a busy machine takes long.
bool eventually(const std::function<bool()>& holds,
                std::chrono::milliseconds limit = std::chrono::minutes(2));

/// Waits for the end of a process that somebody else has started.
bool comesToItsEnd(int process);

/// Bytes that follow no rule, always the same ones.
std::string noise(std::size_t count);

/// A whole file; empty where there is none.
std::string bytesOf(const std::string& path);

/// Runs a program without a shell, to its end.
ProgramEnd runProgram(const std::vector<std::string>& command);

/// ffmpeg with `arguments` and the file to make. The test fails when ffmpeg does. What no other file is
/// needed for is made once for all programs, and kept in the build folder.
std::string makeMedia(const ScratchFolder& folder, const std::string& name,
                      const std::vector<std::string>& arguments);

/// 64 x 48 pictures whose grey tells the number of the frame: read back by frameNumber(). Lossless.
std::string makeCountingVideo(const ScratchFolder& folder, const std::string& name, const std::string& rate,
                              int frames);

struct DecodedPicture {
  int width = 0;
  std::vector<std::uint8_t> rgb;
  [[nodiscard]] int at(int x, int y, int colour) const {
    return rgb[static_cast<std::size_t>(3 * (y * width + x) + colour)];
  }
  /// Mean of one colour over the whole picture.
  [[nodiscard]] double mean(int colour = 0) const;
  bool operator==(const DecodedPicture&) const = default;
};

/// Every frame of a movie, in order.
std::vector<DecodedPicture> picturesOf(const std::string& path, int width, int height);

/// The number that a frame of a counting video tells.
int frameNumber(const DecodedPicture& picture);

/// The sound as 44.1 kHz samples of one channel (0 left, 1 right), full scale 1.
std::vector<float> samplesOf(const std::string& path, int channel = 0);

/// Root mean square of a part, in dB of full scale.
double levelOf(const std::vector<float>& samples, double from, double to);

/// A value that ffprobe tells, like "stream=codec_name", the lines joined by blanks.
std::string probed(const std::string& path, const std::string& entries);

}  // namespace kvo::test
