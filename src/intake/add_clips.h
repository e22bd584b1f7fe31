// Makes clip records of files and addresses.
#pragma once

#include "core/records/collection.h"
#include "core/telling/error_log.h"
#include "intake/avi_compressor.h"
#include "intake/clip_intake.h"
#include "intake/extended_cd.h"
#include "intake/intake_host.h"
#include "intake/verdict.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/message_boxes.h"

#include <set>
#include <string>
#include <vector>

namespace kvo {

class AddClips : public ClipIntake {
 public:
  struct Parts {
    const Files& files;
    const Clock& clock;
    MessageBoxes& boxes;
    MediaLooker& looker;
    DiscContents& disc;
    const ProgramFolder& folder;
    StreamProbe& probe;
    ErrorLog& log;
    KVO2& settings;
    Collection& collection;
    IntakeHost& host;
  };
  /// All outlive the object.
  explicit AddClips(const Parts& parts) : parts_(parts), poster_(parts.settings) {}

  bool add(std::vector<std::string> names, const AddManner& manner) override;
  bool AddMoviesm(const std::string& text, const AddManner& manner) override;
  [[nodiscard]] bool wasStopped() const override { return wasStopped_; }

  /// Who hears of changes in the records that this brings.
  [[nodiscard]] ChangePoster& poster() { return poster_; }

 private:
  bool addOne(const std::string& name, const AddManner& manner);
  bool addAddress(Movie clip, const AddManner& manner);
  bool addFile(Movie clip, const AddManner& manner);
  bool addLooked(Movie clip, const AddManner& manner);
  bool addExtendedCd(const Movie& clip);
  void takeTags(Movie& clip, const MediaTags& tags) const;
  bool DidPlayAdd(Movie& clip, bool quiet);
  [[nodiscard]] Movie newRecord(const std::string& name) const;
  [[nodiscard]] LookAnswer look(const std::string& file);
  bool refuse(const Box& box);
  void tell(const Verdict& verdict);
  [[nodiscard]] Box withCodec(const std::string& file, const std::string& errorText);
  bool join(Movie clip);
  void UpdLastRead(const std::string& folder);

  Parts parts_;
  ChangePoster poster_;
  std::set<std::string> told_;  // captions of boxes that come once
  bool wasStopped_ = false;
};

}  // namespace kvo
