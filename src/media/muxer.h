// FFmpeg's muxers, writing into a Replacement. For this room only.
#pragma once

#include "media/ffmpeg.h"
#include "ports/files.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace kvo::media {

class Muxer {
 public:
  /// A file of FFmpeg's format `format` in `target`, which outlives it. `name` is for error lines.
  static Result<std::unique_ptr<Muxer>> open(Replacement& target, const char* format, std::string name);

  Muxer(const Muxer&) = delete;
  Muxer& operator=(const Muxer&) = delete;
  ~Muxer() = default;

  /// A stream to be described ahead of begin(). Throws std::bad_alloc.
  AVStream& newStream();
  /// Whether what describes a stream belongs in the file's head.
  [[nodiscard]] bool headerInFile() const;

  using Options = std::initializer_list<std::pair<const char*, const char*>>;
  Outcome begin(const Options& options);
  /// Takes the packet, whose times are in units of `timeBase`.
  Outcome write(AVPacket& packet, const AVStream& stream);
  /// What is held back, and the index.
  Outcome finish();

  [[nodiscard]] Replacement& target() { return sink_.target; }

 private:
  struct FreeIo {
    void operator()(AVIOContext* io) const;
  };
  struct FreeMuxer {
    void operator()(AVFormatContext* c) const { avformat_free_context(c); }
  };
  // Where the muxer's bytes go.
  struct Sink {
    Replacement& target;
    std::int64_t at = 0;
    Outcome done{};

    static int write(void* self, std::uint8_t* bytes, int count);
    static int read(void* self, std::uint8_t* bytes, int count);
    static std::int64_t seek(void* self, std::int64_t offset, int whence);
  };

  Muxer(Replacement& target, std::string name) : sink_{target}, name_(std::move(name)) {}
  [[nodiscard]] Error failure(int code) const;
  static int openAgain(AVFormatContext* c, AVIOContext** io, const char* url, int flags,
                       AVDictionary** options);
  static int closeAgain(AVFormatContext* c, AVIOContext* io);

  Sink sink_;
  std::string name_;
  std::unique_ptr<AVIOContext, FreeIo> io_;
  std::unique_ptr<Sink> again_;  // of what reads the file while it is made
  std::unique_ptr<AVFormatContext, FreeMuxer> muxer_;
};

}  // namespace kvo::media
