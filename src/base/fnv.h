// The hash FNV-1a of 64 bits: the same in every process and on every machine, so that names of files and the
// like may go by it. No guard against anybody who wants two texts to have the same.
#pragma once

#include <cstdint>
#include <string_view>

namespace kvo {

constexpr std::uint64_t kFnvBegin = 14695981039346656037ULL;

/// `hash` is that of the bytes ahead of these.
constexpr std::uint64_t fnv1a(std::string_view bytes, std::uint64_t hash = kFnvBegin) {
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  return hash;
}

}  // namespace kvo
