#include "media/avi_index.h"

#include <algorithm>

namespace kvo::media {
namespace {

constexpr std::int64_t kChunkHead = 8;  // bytes of a RIFF chunk's name and size

std::int64_t entryStart(AVStream& stream, int place) {
  return avformat_index_get_entry(&stream, place)->pos + kChunkHead;
}

// The first entry at `position` in the file or behind it; their count when there is none.
int find(AVStream& stream, std::int64_t position) {
  int from = 0;
  for (int count = avformat_index_get_entries_count(&stream); count > 0;) {
    const int half = count / 2;
    if (entryStart(stream, from + half) < position) {
      from += half + 1;
      count -= half + 1;
    } else {
      count = half;
    }
  }
  return from;
}

// Sound of a constant rate is counted by blocks, and the index counts its bytes.
std::int64_t bytesOfUnit(AVStream& stream) {
  const auto* first = avformat_index_get_entry(&stream, 0);
  const auto* second = avformat_index_get_entry(&stream, 1);
  const bool inBytes =
      first != nullptr && second != nullptr && second->timestamp - first->timestamp == first->size;
  return inBytes ? std::max(stream.codecpar->block_align, 1) : 1;
}

}  // namespace

void AviIndex::correct(AVPacket& packet, AVStream& stream) {
  if (packet.dts == AV_NOPTS_VALUE) return;
  const int entries = avformat_index_get_entries_count(&stream);
  int place = place_ + 1;
  if (place >= entries || entryStart(stream, place) != packet.pos) place = find(stream, packet.pos);
  if (place < entries && entryStart(stream, place) == packet.pos) {
    place_ = place;
    if (unit_ == 0) unit_ = bytesOfUnit(stream);
    shift_ = avformat_index_get_entry(&stream, place)->timestamp / unit_ - packet.dts;
  }
  packet.dts += shift_;
  if (packet.pts != AV_NOPTS_VALUE) packet.pts += shift_;
}

}  // namespace kvo::media
