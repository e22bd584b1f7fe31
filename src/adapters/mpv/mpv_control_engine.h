// The engine that plays by properties, on libmpv.
#pragma once

#include "adapters/mpv/mpv_engine.h"

#include <functional>
#include <string>
#include <vector>

namespace kvo {

class MpvControlEngine : public MpvEngine<ControlEngine> {
 public:
  /// `stage` outlives the engine.
  explicit MpvControlEngine(MpvStage& stage) : MpvEngine(stage) {}

  void Run() override;
  void setFileName(const std::string& fileOrAddress) override;
  [[nodiscard]] std::string fileName() const override { return file() ? file()->name() : ""; }
  void openAhead(const std::string& file, double seconds) override { stage().openAhead(file, seconds); }

  [[nodiscard]] EngineOpening opening() const override;
  [[nodiscard]] int bufferingProgress() const override { return file() ? file()->buffered() : 0; }
  [[nodiscard]] std::string errorDescription() const override { return file() ? file()->fault() : fault_; }

  void setSelectionStart(double seconds) override { selectionStart_ = seconds; }
  [[nodiscard]] double selectionStart() const override { return selectionStart_; }
  void setSelectionEnd(double seconds) override;
  [[nodiscard]] double selectionEnd() const override { return selectionEnd_; }

  void setPlayCount(int times) override { playCount_ = times; }
  void setAutoRewind(bool on) override { autoRewind_ = on; }
  void setAutoStart(bool on) override { autoStart_ = on; }

  [[nodiscard]] std::string mediaTitle() const override;
  [[nodiscard]] std::string mediaAuthor() const override;
  [[nodiscard]] int bandwidth() const override { return file() ? file()->bandwidth() : 0; }

  [[nodiscard]] StreamDetails streamDetails() const override {
    return file() ? file()->details() : StreamDetails();
  }

  void whenEndOfStream(std::function<void()> heard) override { endOfStream_ = std::move(heard); }

 private:
  void sectionEnded();
  void fileChanged();
  void opened();

  std::string fault_;
  double selectionStart_ = 0;
  double selectionEnd_ = 0;
  int playCount_ = 1;
  int played_ = 0;  // times since the file was taken in hand, or since the last end
  bool autoRewind_ = false;
  bool autoStart_ = false;
  bool isOpen_ = false;  // what is to be done behind the opening has been done
  std::function<void()> endOfStream_;
};

}  // namespace kvo
