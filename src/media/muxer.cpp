#include "media/muxer.h"

#include "ports/read_back.h"

namespace kvo::media {
namespace {

constexpr int kIoBuffer = 1 << 18;

AVIOContext* newIo(int writes, void* sink, int (*read)(void*, std::uint8_t*, int),
                   int (*write)(void*, std::uint8_t*, int), std::int64_t (*seek)(void*, std::int64_t, int)) {
  auto* buffer = static_cast<unsigned char*>(av_malloc(kIoBuffer));
  auto* io = avio_alloc_context(buffer, kIoBuffer, writes, sink, read, write, seek);
  if (io == nullptr) throw std::bad_alloc();
  return io;
}

}  // namespace

void Muxer::FreeIo::operator()(AVIOContext* io) const {
  av_freep(static_cast<void*>(&io->buffer));
  avio_context_free(&io);
}

int Muxer::Sink::write(void* self, std::uint8_t* bytes, int count) {
  auto& sink = *static_cast<Sink*>(self);
  if (!sink.done) return AVERROR(EIO);
  sink.done = sink.target.write(static_cast<std::uint64_t>(sink.at),
                                {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count)});
  if (!sink.done) return AVERROR(EIO);
  sink.at += count;
  return count;
}

int Muxer::Sink::read(void* self, std::uint8_t* bytes, int count) {
  auto& sink = *static_cast<Sink*>(self);
  const auto got = readBackOf(sink.target)
                       ->read(static_cast<std::uint64_t>(sink.at),
                              {reinterpret_cast<char*>(bytes), static_cast<std::size_t>(count)});
  if (!got) return AVERROR(EIO);
  sink.at += static_cast<std::int64_t>(*got);
  return *got == 0 ? AVERROR_EOF : static_cast<int>(*got);
}

std::int64_t Muxer::Sink::seek(void* self, std::int64_t offset, int whence) {
  auto& sink = *static_cast<Sink*>(self);
  const auto size = static_cast<std::int64_t>(sink.target.size());
  if ((whence & AVSEEK_SIZE) != 0) return size;
  switch (whence & ~AVSEEK_FORCE) {
    case SEEK_SET:
      sink.at = offset;
      break;
    case SEEK_CUR:
      sink.at += offset;
      break;
    case SEEK_END:
      sink.at = size + offset;
      break;
    default:
      return AVERROR(EINVAL);
  }
  return sink.at;
}

// The muxer of MP4 reads what it has written when it moves the index to the front.
int Muxer::openAgain(AVFormatContext* c, AVIOContext** io, const char* /*url*/, int flags,
                     AVDictionary** /*options*/) {
  auto& muxer = *static_cast<Muxer*>(c->opaque);
  if ((flags & AVIO_FLAG_WRITE) != 0 || readBackOf(muxer.sink_.target) == nullptr) return AVERROR(ENOSYS);
  muxer.again_ = std::make_unique<Sink>(Sink{muxer.sink_.target});
  *io = newIo(0, muxer.again_.get(), &Sink::read, nullptr, &Sink::seek);
  return 0;
}

int Muxer::closeAgain(AVFormatContext* /*c*/, AVIOContext* io) {
  FreeIo()(io);
  return 0;
}

Error Muxer::failure(int code) const {
  return sink_.done ? ffmpegError("cannot write " + name_, code) : sink_.done.error();
}

Result<std::unique_ptr<Muxer>> Muxer::open(Replacement& target, const char* format, std::string name) {
  std::unique_ptr<Muxer> made(new Muxer(target, std::move(name)));
  made->io_.reset(newIo(1, &made->sink_, nullptr, &Sink::write, &Sink::seek));
  AVFormatContext* raw = nullptr;
  const int allocated = avformat_alloc_output_context2(&raw, nullptr, format, nullptr);
  if (allocated < 0) return made->failure(allocated);
  made->muxer_.reset(raw);
  made->io_->seekable = AVIO_SEEKABLE_NORMAL;
  made->io_->direct = 1;  // whole frames go to the file without a copy into the buffer
  raw->pb = made->io_.get();
  raw->flags |= AVFMT_FLAG_CUSTOM_IO;
  raw->opaque = made.get();
  raw->io_open = &openAgain;
  raw->io_close2 = &closeAgain;
  return made;
}

AVStream& Muxer::newStream() {
  auto* stream = avformat_new_stream(muxer_.get(), nullptr);
  if (stream == nullptr) throw std::bad_alloc();
  return *stream;
}

bool Muxer::headerInFile() const { return (muxer_->oformat->flags & AVFMT_GLOBALHEADER) != 0; }

Outcome Muxer::begin(const Options& options) {
  AVDictionary* entries = nullptr;
  for (const auto& [key, value] : options) av_dict_set(&entries, key, value, 0);
  const int begun = avformat_write_header(muxer_.get(), &entries);
  av_dict_free(&entries);
  return begun < 0 ? Outcome(failure(begun)) : Outcome();
}

Outcome Muxer::write(AVPacket& packet, const AVStream& stream) {
  packet.stream_index = stream.index;
  const int written = av_interleaved_write_frame(muxer_.get(), &packet);
  return written < 0 || !sink_.done ? Outcome(failure(written)) : Outcome();
}

Outcome Muxer::finish() {
  const int ended = av_write_trailer(muxer_.get());
  avio_flush(io_.get());
  return ended < 0 || !sink_.done ? Outcome(failure(ended)) : Outcome();
}

}  // namespace kvo::media
