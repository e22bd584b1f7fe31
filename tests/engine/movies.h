// Whole movies, made in a folder of the test's own.
#pragma once

#include "adapters/posix/posix_files.h"
#include "engine/document/document_reader.h"
#include "engine/run/renderer.h"
#include "support/documents.h"
#include "support/real_world.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine {

class Movies : public testing::Test {
 protected:
  Result<RenderReport> make(const Result<Timeline>& timeline, const std::string& name, RenderJob job = {}) {
    if (!timeline) return timeline.error();
    job.output = out_ / name;
    steps_.clear();
    return render(*timeline, job, files_, [this](const RenderStep& step) { steps_.push_back(step); });
  }
  [[nodiscard]] std::string bytes(const std::string& name) const { return test::bytesOf(out_ / name); }
  /// What a movie of 64 x 48 shows, every bit of it. Beside other encoders libx264 writes the same pictures
  /// with a few bytes that differ now and then (1 render of 40).
  [[nodiscard]] std::vector<test::DecodedPicture> shown(const std::string& name) const {
    return test::picturesOf(out_ / name, 64, 48);
  }

  /// 18 seconds of three clips, which are as many segments.
  [[nodiscard]] static Result<Timeline> inThree(const std::string& video,
                                                const std::vector<test::DocumentClip>& sound = {}) {
    return readDocument(
        test::documentOf({{video, 0, 6, 0, 6}, {video, 0, 6, 6, 12}, {video, 0, 6, 12, 18}}, sound));
  }

  test::ScratchFolder media_;
  test::ScratchFolder out_;
  PosixFiles files_;
  std::vector<RenderStep> steps_;  ///< of the last one
};

}  // namespace kvo::engine
