#include "media/filter_library.h"

#include <dlfcn.h>
#include <string>

extern "C" {
#include <libavutil/macros.h>
}

namespace kvo::media {
namespace {

constexpr const char* kName = "libavfilter.so." AV_STRINGIFY(LIBAVFILTER_VERSION_MAJOR);

template <class Function>
bool take(void* library, Function& function, const char* name) {
  function = reinterpret_cast<Function>(::dlsym(library, name));
  return function != nullptr;
}

Result<FilterLibrary> loaded() {
  void* library = ::dlopen(kName, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return Error{std::string("cannot load ") + kName + ": " + ::dlerror()};
  FilterLibrary f;
  const bool whole = take(library, f.avfilter_graph_alloc, "avfilter_graph_alloc") &&
                     take(library, f.avfilter_graph_free, "avfilter_graph_free") &&
                     take(library, f.avfilter_graph_create_filter, "avfilter_graph_create_filter") &&
                     take(library, f.avfilter_graph_parse_ptr, "avfilter_graph_parse_ptr") &&
                     take(library, f.avfilter_graph_config, "avfilter_graph_config") &&
                     take(library, f.avfilter_get_by_name, "avfilter_get_by_name") &&
                     take(library, f.avfilter_inout_alloc, "avfilter_inout_alloc") &&
                     take(library, f.avfilter_inout_free, "avfilter_inout_free") &&
                     take(library, f.av_buffersrc_add_frame_flags, "av_buffersrc_add_frame_flags") &&
                     take(library, f.av_buffersink_get_frame, "av_buffersink_get_frame");
  if (!whole) return Error{std::string(kName) + " lacks a function"};
  return f;
}

}  // namespace

Result<const FilterLibrary*> filterLibrary() {
  static const auto library = loaded();
  return library ? Result<const FilterLibrary*>(&*library) : Result<const FilterLibrary*>(library.error());
}

}  // namespace kvo::media
