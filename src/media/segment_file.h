// The encoded pictures of a segment of a movie in a file of their own, from where they are laid into the
// movie as they are. A file is good for one render alone, which its key tells:
//   8         "KVOSEG2\n"
//   8 8 8 8   key, number of packets, number of holes, FNV-1a of all that follows
//   then, of each packet, its head (PacketHead) and its bytes, and of each hole its head and the file's name
// Numbers are little endian.
#pragma once

#include "base/result.h"
#include "media/damage.h"
#include "media/video_encoder.h"
#include "ports/files.h"

#include <cstdint>
#include <fstream>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kvo::media {

/// Which libraries encode: with others the same pictures become other bytes.
std::string encoderVersions();

class SegmentWriter {
 public:
  /// `target` outlives the writer, and is committed by its owner behind finish().
  SegmentWriter(Replacement& target, std::uint64_t key);

  /// The next packet. Fails when the target cannot be written.
  Outcome write(const EncodedFrame& frame);

  /// What could not be decoded for these pictures, and the head. Fails as write does.
  Outcome finish(std::span<const Damage> damage);

 private:
  Outcome put(const void* bytes, std::size_t count);

  Replacement& target_;
  const std::uint64_t key_;
  std::uint64_t at_;
  std::uint64_t packets_ = 0;
  std::uint64_t hash_;
};

class SegmentReader {
 public:
  /// Fails where there is no whole and sound file of that key. That reads all of it.
  static Result<SegmentReader> open(const std::string& path, std::uint64_t key);

  /// The next packet; an empty one behind the last. Fails when the file cannot be read.
  Result<EncodedFrame> next();

  [[nodiscard]] const std::vector<Damage>& damage() const { return damage_; }

 private:
  SegmentReader() = default;
  bool skim(std::uint64_t key);
  std::uint64_t hashOfRest();

  std::string path_;
  std::ifstream file_;
  std::uint64_t left_ = 0;  // packets
  std::vector<Damage> damage_;
};

}  // namespace kvo::media
