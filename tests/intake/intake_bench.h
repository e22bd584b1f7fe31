// Adding clips on stand-ins for its ports.
#pragma once

#include "intake/add_clips.h"
#include "support/fakes.h"
#include "support/named_looks.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

struct PlainHost : IntakeHost {
  std::vector<std::string> told;
  std::vector<int> joined;
  int stopsAt = 0;

  void analysing(int number, int total, const std::string& name) override {
    told.push_back(std::to_string(number) + "/" + std::to_string(total) + " " + name);
  }
  bool stopped() override { return stopsAt > 0 && static_cast<int>(told.size()) >= stopsAt; }
  void analysed() override { told.emplace_back("end"); }
  void added(int number) override { joined.push_back(number); }
  bool showInViewer(const std::string& /*file*/) override { return true; }
};

struct PlainDisc : DiscContents {
  DiscTable table;
  Result<DiscTable> read(const std::string& folder) override {
    return table.tracks.empty() ? Result<DiscTable>(Error{"no disc at " + folder}) : table;
  }
};

struct IntakeBench : Bench {
  NamedLooks looks;
  PlainHost host;
  PlainDisc disc;
  NoStreamProbe probe;
  AddClips intake{{files, clock, boxes, looks, disc, folder, probe, log, settings, collection, host}};

  /// A file that is there and answers so when it is looked into.
  void put(const std::string& path, const MediaLook& look, LookEnd end = LookEnd::Looked) {
    files.all[path] = "some bytes";
    looks.all[path] = {end, look};
  }

  /// The clip that one name has become; null when it was refused.
  Movie* add(const std::string& name, const AddManner& manner = {}) {
    const int before = collection.MovieList.count();
    const bool any = intake.add({name}, manner);
    EXPECT_EQ(any, collection.MovieList.count() > before) << name;
    return any ? &collection.MovieList[collection.MovieList.count()] : nullptr;
  }

  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (int i = 1; i <= collection.MovieList.count(); ++i)
      all.push_back(collection.MovieList[i].MovieName());
    return all;
  }
  /// The last box: its caption and text.
  [[nodiscard]] std::string box() const {
    return boxes.shown.empty() ? "" : boxes.shown.back().caption + "|" + boxes.shown.back().text;
  }
};

}  // namespace kvo::test
