// A grey JPEG file, written row by row: one that is huge need not fit into memory as a picture.
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>
#include <string>
#include <vector>

namespace kvo::test {

/// As high as `row` is wide, each row being `row`. With a script it is progressive, in the script's passes.
inline std::string greyJpeg(std::vector<JSAMPLE> row, const std::vector<jpeg_scan_info>& script = {}) {
  const auto side = static_cast<JDIMENSION>(row.size());
  jpeg_compress_struct coder{};
  jpeg_error_mgr errors{};
  coder.err = jpeg_std_error(&errors);
  jpeg_create_compress(&coder);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&coder, &bytes, &size);
  coder.image_width = coder.image_height = side;
  coder.input_components = 1;
  coder.in_color_space = JCS_GRAYSCALE;
  jpeg_set_defaults(&coder);
  if (!script.empty()) {
    coder.scan_info = script.data();
    coder.num_scans = static_cast<int>(script.size());
  }
  jpeg_start_compress(&coder, TRUE);
  JSAMPROW rows = row.data();
  while (coder.next_scanline < side) jpeg_write_scanlines(&coder, &rows, 1);
  jpeg_finish_compress(&coder);
  jpeg_destroy_compress(&coder);
  std::string file(reinterpret_cast<const char*>(bytes), size);
  std::free(bytes);
  return file;
}

}  // namespace kvo::test
