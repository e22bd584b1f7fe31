// libavfilter, loaded when the first picture needs it: it brings two dozen libraries along, which cost ten
// megabytes and twenty milliseconds at every start, and few movies have a use for it. For this room only.
#pragma once

#include "base/result.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

namespace kvo::media {

/// Its functions, under their own names.
struct FilterLibrary {
  decltype(&::avfilter_graph_alloc) avfilter_graph_alloc = nullptr;
  decltype(&::avfilter_graph_free) avfilter_graph_free = nullptr;
  decltype(&::avfilter_graph_create_filter) avfilter_graph_create_filter = nullptr;
  decltype(&::avfilter_graph_parse_ptr) avfilter_graph_parse_ptr = nullptr;
  decltype(&::avfilter_graph_config) avfilter_graph_config = nullptr;
  decltype(&::avfilter_get_by_name) avfilter_get_by_name = nullptr;
  decltype(&::avfilter_inout_alloc) avfilter_inout_alloc = nullptr;
  decltype(&::avfilter_inout_free) avfilter_inout_free = nullptr;
  decltype(&::av_buffersrc_add_frame_flags) av_buffersrc_add_frame_flags = nullptr;
  decltype(&::av_buffersink_get_frame) av_buffersink_get_frame = nullptr;
};

/// The library, for as long as the process lives. Fails when it is not there or lacks a function; it is not
/// looked for again then.
Result<const FilterLibrary*> filterLibrary();

}  // namespace kvo::media
