// Any records, read from any bytes, through the whole compiler: it must neither crash nor hang.
#include "editor/tabs/operations.h"
#include "fuzz/fuzz.h"
#include "support/store_bench.h"

namespace {

constexpr int kEnoughClips = 40;  // more cost time and show nothing new

class AllStreams : public kvo::MediaContents {
 public:
  kvo::Result<kvo::StreamFacts> facts(const std::string& path) override {
    return kvo::StreamFacts{.hasVideo = path.size() % 3 != 0, .hasAudio = path.size() % 2 == 0};
  }
  kvo::Result<kvo::FramePicture> frame(const std::string& path, double /*seconds*/, int /*width*/,
                                       int /*height*/) override {
    return kvo::Error{path};  // no compiler looks at pictures
  }
};

}  // namespace

void kvo::fuzz(std::string_view bytes) {
  test::StoreBench b;
  AllStreams streams;
  b.files.all["/col/a.INI"] = bytes;
  b.file.ReadINI("/col/a.INI", {.mayRewrite = false, .keepMissingClips = true});
  auto& clips = b.collection.MovieList;
  while (clips.count() > kEnoughClips) clips.remove(clips.count());
  const Editing c{b.collection, b.settings, b.editor, streams, b.files, b.boxes, b.folder, b.log, b.clock};
  compileText(c);
  compilePreviewText(c, 1 + static_cast<int>(bytes.size() % 10));
  for (int i = 1; i <= std::min(clips.count(), 3); ++i) {
    CreatePinPPreview(c, i, {.preview = bytes.size() % 2 == 0, .backdropAudio = true, .overlayAudio = true});
    Previewtransition(c, i);
    PreviewEffect(c, i);
  }
}
