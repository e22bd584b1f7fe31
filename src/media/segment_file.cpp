#include "media/segment_file.h"

#include "base/fnv.h"
#include "media/ffmpeg.h"

#include <array>
#include <bit>
#include <string_view>

namespace kvo::media {
namespace {

static_assert(std::endian::native == std::endian::little);

constexpr std::string_view kMagic = "KVOSEG2\n";

struct SegmentHead {
  std::array<char, 8> magic{};
  std::uint64_t key = 0;
  std::uint64_t packets = 0;
  std::uint64_t holes = 0;
  std::uint64_t hash = 0;
};

struct PacketHead {
  std::int64_t pts = 0;
  std::int64_t dts = 0;
  std::int64_t duration = 0;
  std::int32_t flags = 0;
  std::int32_t size = 0;
};

struct HoleHead {
  double from = 0;
  double to = 0;
  std::uint32_t lost = 0;
  std::uint32_t nameBytes = 0;
};

template <class T>
bool readInto(std::ifstream& file, T& value) {
  return static_cast<bool>(file.read(reinterpret_cast<char*>(&value), sizeof value));
}

}  // namespace

std::string encoderVersions() {
  return std::to_string(avcodec_version()) + " " + std::to_string(swscale_version());
}

SegmentWriter::SegmentWriter(Replacement& target, std::uint64_t key)
    : target_(target), key_(key), at_(sizeof(SegmentHead)), hash_(kFnvBegin) {}

Outcome SegmentWriter::put(const void* bytes, std::size_t count) {
  const std::string_view more(static_cast<const char*>(bytes), count);
  auto done = target_.write(at_, more);
  at_ += count;
  hash_ = fnv1a(more, hash_);
  return done;
}

Outcome SegmentWriter::write(const EncodedFrame& frame) {
  const auto& packet = *frame.packet();
  const PacketHead head{packet.pts, packet.dts, packet.duration, packet.flags, packet.size};
  if (auto done = put(&head, sizeof head); !done) return done;
  ++packets_;
  return put(packet.data, static_cast<std::size_t>(packet.size));
}

Outcome SegmentWriter::finish(std::span<const Damage> damage) {
  for (const auto& hole : damage) {
    const HoleHead head{hole.from, hole.to, static_cast<std::uint32_t>(hole.lost),
                        static_cast<std::uint32_t>(hole.path.size())};
    if (auto done = put(&head, sizeof head); !done) return done;
    if (auto done = put(hole.path.data(), hole.path.size()); !done) return done;
  }
  SegmentHead head{{}, key_, packets_, damage.size(), hash_};
  kMagic.copy(head.magic.data(), head.magic.size());
  return target_.write(0, {reinterpret_cast<const char*>(&head), sizeof head});
}

std::uint64_t SegmentReader::hashOfRest() {
  std::array<char, 1U << 16U> block{};
  auto hash = kFnvBegin;
  while (file_.read(block.data(), block.size()) || file_.gcount() > 0)
    hash = fnv1a({block.data(), static_cast<std::size_t>(file_.gcount())}, hash);
  file_.clear();
  return hash;
}

// A file may have rotted, or stand without its bytes behind a power cut of a shared folder's server. Goes
// over it from head to head then, and back to the first packet.
bool SegmentReader::skim(std::uint64_t key) {
  file_.seekg(0, std::ios::end);
  const auto end = static_cast<std::int64_t>(file_.tellg());
  file_.seekg(0);
  SegmentHead head;
  if (!readInto(file_, head) || std::string_view(head.magic.data(), head.magic.size()) != kMagic ||
      head.key != key)
    return false;
  const auto first = file_.tellg();
  if (hashOfRest() != head.hash) return false;
  file_.seekg(first);
  for (auto i = head.packets; i > 0; --i) {
    PacketHead packet;
    if (!readInto(file_, packet) || packet.size < 0 || packet.size > end - file_.tellg()) return false;
    file_.seekg(packet.size, std::ios::cur);
  }
  for (auto i = head.holes; i > 0; --i) {
    HoleHead hole;
    if (!readInto(file_, hole) || hole.nameBytes > end - file_.tellg()) return false;
    std::string name(hole.nameBytes, '\0');
    if (!file_.read(name.data(), hole.nameBytes)) return false;
    damage_.push_back({std::move(name), hole.lost == 0 ? Lost::Picture : Lost::Sound, hole.from, hole.to});
  }
  if (file_.tellg() != end) return false;
  file_.seekg(first);
  left_ = head.packets;
  return static_cast<bool>(file_);
}

Result<SegmentReader> SegmentReader::open(const std::string& path, std::uint64_t key) {
  SegmentReader reader;
  reader.path_ = path;
  reader.file_.open(path, std::ios::binary);
  if (!reader.file_ || !reader.skim(key))
    return Error{"cannot read " + path + ": it is no segment of this render"};
  return reader;
}

Result<EncodedFrame> SegmentReader::next() {
  if (left_ == 0) return EncodedFrame();
  --left_;
  PacketHead head;
  auto packet = newPacket();
  if (!readInto(file_, head) || head.size < 0 || av_new_packet(packet.get(), head.size) < 0 ||
      !file_.read(reinterpret_cast<char*>(packet->data), head.size))
    return Error{"cannot read " + path_};
  packet->pts = head.pts;
  packet->dts = head.dts;
  packet->duration = head.duration;
  packet->flags = head.flags;
  return EncodedFrame(std::shared_ptr<AVPacket>(std::move(packet)));
}

}  // namespace kvo::media
