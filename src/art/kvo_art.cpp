// Renders the art of the program while it is built: kvo_art SOURCE.svg (OUTPUT SCALE)...
// An output is a .bmp, a .jpg or a .png. A scale of 1 gives the size that the source names, in pixels; others
// are that size times the scale, rounded to whole pixels, halves to even.
#include "art/picture_files.h"
#include "base/guarded.h"

#include <algorithm>
#include <cairo.h>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <string_view>

#include <librsvg/rsvg.h>

namespace kvo::art {
namespace {

struct Freed {
  void operator()(RsvgHandle* svg) const { g_object_unref(svg); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Svg = std::unique_ptr<RsvgHandle, Freed>;
using Surface = std::unique_ptr<cairo_surface_t, Freed>;
using Context = std::unique_ptr<cairo_t, Freed>;

Error errorOf(GError* failed) {
  Error error{failed->message};
  g_error_free(failed);
  return error;
}

Result<Surface> render(RsvgHandle* svg, double scale) {
  double width = 0;
  double height = 0;
  if (!rsvg_handle_get_intrinsic_size_in_pixels(svg, &width, &height))
    return Error{"the size is not in pixels"};
  const auto across = static_cast<int>(std::nearbyint(width * scale));
  const auto down = static_cast<int>(std::nearbyint(height * scale));
  Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, across, down));
  const Context context(cairo_create(surface.get()));
  cairo_scale(context.get(), across / width, down / height);
  const RsvgRectangle whole{0, 0, width, height};
  GError* failed = nullptr;
  if (!rsvg_handle_render_document(svg, context.get(), &whole, &failed)) return errorOf(failed);
  cairo_surface_flush(surface.get());
  return surface;
}

// Cairo's colours are weighed by their alpha, ours are not.
Picture pictureOf(cairo_surface_t* surface) {
  Picture picture{cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface), {}};
  const auto rowBytes = static_cast<std::size_t>(picture.width) * 4;
  const auto* row = cairo_image_surface_get_data(surface);
  for (int y = 0; y < picture.height; ++y, row += cairo_image_surface_get_stride(surface)) {
    picture.bgra.insert(picture.bgra.end(), row, row + rowBytes);
  }
  for (std::size_t i = 0; i < picture.bgra.size(); i += 4) {
    const int alpha = picture.bgra[i + 3];
    if (alpha == 0) continue;
    for (std::size_t c = i; c < i + 3; ++c) {
      picture.bgra[c] = static_cast<std::uint8_t>(std::min(255, (picture.bgra[c] * 255 + alpha / 2) / alpha));
    }
  }
  return picture;
}

Outcome write(cairo_surface_t* surface, const std::string& path) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  if (path.ends_with(".png")) {
    if (cairo_surface_write_to_png(surface, path.c_str()) != CAIRO_STATUS_SUCCESS)
      return Error{"cannot write " + path};
    return {};
  }
  const auto picture = pictureOf(surface);
  const auto bytes = path.ends_with(".jpg") ? jpegOf(picture) : bmpOf(picture);
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  if (!file.flush()) return Error{"cannot write " + path};
  return {};
}

double scaleOf(std::string_view text) {
  double scale = 0;
  std::from_chars(text.data(), text.data() + text.size(), scale);
  return scale;
}

Outcome run(std::span<char* const> arguments) {
  if (arguments.empty() || arguments.size() % 2 == 0) return Error{"kvo_art SOURCE.svg (OUTPUT SCALE)..."};
  GError* failed = nullptr;
  const Svg svg(rsvg_handle_new_from_file(arguments[0], &failed));
  if (svg == nullptr) return errorOf(failed);
  for (std::size_t i = 1; i < arguments.size(); i += 2) {
    const auto surface = render(svg.get(), scaleOf(arguments[i + 1]));
    if (!surface) return Error{std::string(arguments[0]) + ": " + surface.error().text};
    if (auto written = write(surface->get(), arguments[i]); !written) return written;
  }
  return {};
}

}  // namespace
}  // namespace kvo::art

int main(int argc, char** argv) {
  const auto done = kvo::guarded([&] { return kvo::art::run({argv + 1, argv + argc}); });
  if (done.ok()) return 0;
  std::fprintf(stderr, "%s\n", done.error().text.c_str());
  return 1;
}
