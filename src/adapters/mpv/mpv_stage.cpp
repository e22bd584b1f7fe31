#include "adapters/mpv/mpv_stage.h"

#include "base/guarded.h"

#include <clocale>
#include <utility>

namespace kvo {
namespace {

constexpr std::size_t kMostAtRest = 2;

}  // namespace

MpvStage::MpvStage(EventLoop& loop, MediaContents& facts, const MpvLimits& limits)
    : loop_(loop), facts_(facts), limits_(limits) {
  std::setlocale(LC_NUMERIC, "C");
}

MpvStage::~MpvStage() {
  for (const auto& file : resting_) output_.remove(*file);
  if (ahead_ != nullptr) output_.remove(*ahead_);
}

std::unique_ptr<MpvFile> MpvStage::atRest() {
  if (!resting_.empty()) {
    auto file = std::move(resting_.back());
    resting_.pop_back();
    return file;
  }
  auto file = std::make_unique<MpvFile>(
      MpvFile::House{loop_, facts_, limits_, [this](MpvFile& due) { output_.pictureDue(due); },
                     [this](MpvFile& opened) { output_.opened(opened); }},
      output_.openGl());
  output_.add(*file);
  return file;
}

void MpvStage::openAhead(const std::string& file, double seconds) {
  if (file.empty()) return giveBack(std::move(ahead_));
  if (ahead_ != nullptr && ahead_->name() == file) return ahead_->standAt(seconds);
  static_cast<void>(guarded([&]() -> Outcome {  // else it is opened when it is wanted, which tells why not
    if (ahead_ == nullptr) ahead_ = atRest();
    ahead_->open(file);
    ahead_->standAt(seconds);
    return {};
  }));
}

std::unique_ptr<MpvFile> MpvStage::take(const std::string& fileOrAddress) {
  std::unique_ptr<MpvFile> file;
  if (ahead_ != nullptr && ahead_->name() == fileOrAddress && ahead_->opening() != EngineOpening::Failed) {
    file = std::move(ahead_);
  } else {
    file = atRest();
    file->open(fileOrAddress);
  }
  output_.bring(file.get());
  return file;
}

void MpvStage::giveBack(std::unique_ptr<MpvFile> file) {
  if (file == nullptr) return;
  if (output_.isFront(*file)) output_.bring(nullptr);
  if (resting_.size() >= kMostAtRest) return output_.remove(*file);
  file->close();
  resting_.push_back(std::move(file));
}

}  // namespace kvo
