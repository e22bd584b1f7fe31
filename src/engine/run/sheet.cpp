#include "engine/run/sheet.h"

#include "engine/picture/compositor.h"
#include "media/bgr.h"
#include "media/png.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace kvo::engine {
namespace {

constexpr int kGap = 6;           // pixels between frames
constexpr int kLabelHeight = 18;  // pixels

int frameWidth(const Timeline& timeline, int frameHeight) {
  return std::clamp(static_cast<int>(std::lround(1.0 * frameHeight * timeline.width / timeline.height)), 1,
                    4096);
}

Result<cv::Mat> smallFrame(Compositor& compositor, std::int64_t number, cv::Size size) {
  const auto picture = compositor.frame(number);
  if (!picture) return picture.error();
  cv::Mat bgr(picture->height(), picture->width(), CV_8UC3);
  media::toBgr(*picture, bgr.data, bgr.step);
  cv::Mat small;
  cv::resize(bgr, small, size, 0, 0, cv::INTER_AREA);
  return small;
}

}  // namespace

Result<std::string> drawSheet(const std::vector<SheetRow>& rows, const SheetLayout& layout) {
  int widest = 1;
  for (const auto& row : rows) {
    if (!row.timeline.hasVideo) return Error{row.label + " has no picture"};
    widest = std::max(widest, frameWidth(row.timeline, layout.frameHeight));
  }
  const int rowHeight = kLabelHeight + layout.frameHeight + kGap;
  cv::Mat sheet(std::max(1, static_cast<int>(rows.size()) * rowHeight + kGap),
                layout.frames * (widest + kGap) + kGap, CV_8UC3, cv::Scalar::all(255));
  int top = kGap;
  for (const auto& row : rows) {
    cv::putText(sheet, row.label, {kGap, top + kLabelHeight - 6}, cv::FONT_HERSHEY_SIMPLEX, 0.42,
                cv::Scalar::all(40), 1, cv::LINE_AA);
    Compositor compositor(row.timeline);
    const cv::Size size(frameWidth(row.timeline, layout.frameHeight), layout.frameHeight);
    const auto last = std::max<std::int64_t>(0, row.timeline.frames() - 1);
    for (int i = 0; i < layout.frames; ++i) {
      const auto frame = smallFrame(compositor, last * i / std::max(1, layout.frames - 1), size);
      if (!frame) return frame.error();
      frame->copyTo(sheet(cv::Rect({kGap + i * (widest + kGap), top + kLabelHeight}, size)));
    }
    top += rowHeight;
  }
  return media::encodePng(sheet.data, sheet.step, sheet.cols, sheet.rows);
}

}  // namespace kvo::engine
