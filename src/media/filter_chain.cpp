#include "media/filter_chain.h"

#include "media/filter_library.h"

namespace kvo::media {
namespace {

struct FreePads {
  const FilterLibrary* functions;
  void operator()(AVFilterInOut* pads) const { functions->avfilter_inout_free(&pads); }
};

}  // namespace

void FreeFilterGraph::operator()(AVFilterGraph* graph) const { functions->avfilter_graph_free(&graph); }

Result<FilterChain> FilterChain::make(const std::string& filters, const AVFrame& like, int threads) {
  const auto library = filterLibrary();
  if (!library) return library.error();
  const auto& f = **library;
  FilterChain made;
  made.graph_ = {f.avfilter_graph_alloc(), FreeFilterGraph{&f}};
  auto* graph = made.graph_.get();
  if (graph == nullptr) return Error{"out of memory for a filter"};
  graph->nb_threads = threads;
  made.width_ = like.width;
  made.height_ = like.height;
  made.format_ = like.format;
  // The times of the pictures are the caller's, in units of the caller's.
  const auto source = "video_size=" + std::to_string(like.width) + "x" + std::to_string(like.height) +
                      ":pix_fmt=" + std::to_string(like.format) + ":time_base=1/1000000";
  int done = f.avfilter_graph_create_filter(&made.entry_, f.avfilter_get_by_name("buffer"), "in",
                                            source.c_str(), nullptr, graph);
  if (done >= 0) {
    done = f.avfilter_graph_create_filter(&made.exit_, f.avfilter_get_by_name("buffersink"), "out", nullptr,
                                          nullptr, graph);
  }
  if (done < 0) return ffmpegError("a filter cannot be made", done);
  AVFilterInOut* outputs = f.avfilter_inout_alloc();
  AVFilterInOut* inputs = f.avfilter_inout_alloc();
  if (outputs != nullptr && inputs != nullptr) {
    *outputs = {av_strdup("in"), made.entry_, 0, nullptr};
    *inputs = {av_strdup("out"), made.exit_, 0, nullptr};
    done = f.avfilter_graph_parse_ptr(graph, filters.c_str(), &inputs, &outputs, nullptr);
  } else {
    done = AVERROR(ENOMEM);
  }
  const std::unique_ptr<AVFilterInOut, FreePads> freeOutputs(outputs, FreePads{&f});
  const std::unique_ptr<AVFilterInOut, FreePads> freeInputs(inputs, FreePads{&f});
  if (done >= 0) done = f.avfilter_graph_config(graph, nullptr);
  if (done < 0) return ffmpegError("the filter " + filters + " cannot be made", done);
  return made;
}

bool FilterChain::fits(const AVFrame& frame) const {
  return frame.width == width_ && frame.height == height_ && frame.format == format_;
}

Outcome FilterChain::push(const SharedFrame& frame) {
  const int done = graph_.get_deleter().functions->av_buffersrc_add_frame_flags(entry_, frame.get(),
                                                                                AV_BUFFERSRC_FLAG_KEEP_REF);
  return done < 0 ? Outcome(ffmpegError("a picture cannot be filtered", done)) : Outcome();
}

Result<SharedFrame> FilterChain::pull() {
  auto frame = newFrame();
  const int got = graph_.get_deleter().functions->av_buffersink_get_frame(exit_, frame.get());
  if (got == AVERROR(EAGAIN) || got == AVERROR_EOF) return SharedFrame();
  if (got < 0) return ffmpegError("a picture cannot be filtered", got);
  return frame;
}

}  // namespace kvo::media
