// Any records, read from any bytes, through the whole compiler: it must neither crash nor hang.
#include "editor/tabs/operations.h"
#include "support/store_bench.h"

namespace {

constexpr int kMaxClips = 40;  // more cost time and show nothing new

class AllStreams : public kvo::MediaContents {
 public:
  kvo::Result<kvo::StreamFacts> facts(const std::string& path) override {
    kvo::StreamFacts facts;
    facts.hasVideo = path.size() % 3 != 0;
    facts.hasAudio = path.size() % 2 == 0;
    return facts;
  }
  kvo::Result<kvo::FramePicture> frame(const std::string& path, double /*seconds*/, int /*width*/,
                                       int /*height*/) override {
    return kvo::Error{path};  // no compiler looks at pictures
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvo::test::StoreBench b;
  AllStreams streams;
  b.files.all["/col/a.INI"] = std::string(reinterpret_cast<const char*>(data), size);
  b.file.ReadINI("/col/a.INI", {.mayRewrite = false, .keepMissingClips = true});
  while (b.collection.MovieList.count() > kMaxClips)
    b.collection.MovieList.remove(b.collection.MovieList.count());
  const kvo::Editing c{b.collection, b.settings, b.editor, streams, b.files,
                       b.boxes,      b.folder,   b.log,    b.clock};
  kvo::compileText(c);
  kvo::compilePreviewText(c, 1 + static_cast<int>(size % 10));
  for (int i = 1; i <= std::min(c.clips().count(), 3); ++i) {
    kvo::CreatePinPPreview(c, i, {.preview = size % 2 == 0, .backdropAudio = true, .overlayAudio = true});
    kvo::Previewtransition(c, i);
    kvo::PreviewEffect(c, i);
  }
  return 0;
}
