#include "engine/document/document_reader.h"

#include <cmath>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

constexpr const char* kFade = "{16B280C5-EE70-11D1-9066-00C04FD9189D}";

std::string clip(const std::string& src, const std::string& times) {
  return "<track>\r\n<clip src=\"" + src + "\" " + times + " >\r\n</clip>\r\n";
}

const std::string kSize = "width=\"320\" height=\"240\"";

// `head` is the size and, where it is not 25, the rate: the first of an attribute stands.
std::string document(const std::string& tracks, const std::string& head = kSize) {
  return "<timeline>\r\n<group type=\"video\" bitdepth=\"24\" " + head +
         " framerate=\"25\" name=\"VIDEO\" buffering=\"30\"  >\r\n" + tracks + "</group>\r\n</timeline>\r\n";
}

const std::string kTimes = "mstart=\"1\" mstop=\"5.0000\" start=\"0\" stop=\"2.0000\"";

TEST(DocumentReader, TakesClipsTransitionsAndEnvelopes) {
  const auto text =
      "<timeline>\r\n<group type=\"video\" bitdepth=\"16\" width=\"320\" height=\"240\" framerate=\"29.97\" "
      ">\r\n" +
      clip("C:\\a & <b>.avi", kTimes) + "<transition start=\"0\" stop=\"2.0000\" clsid=\"" + kFade +
      "\">\r\n  \r\n<param name=\"Progress\" value=\"0.0\">\r\n<linear time=\"0.875\" "
      "value=\"1\"/>\r\n</param>\r\n"
      "</transition>\r\n<transition clsid=\"{99999999-9999-9999-9999-999999999999}\" start=\"0\" stop=\"1\" "
      "/>\r\n"
      "</track>\r\n</group>\r\n<group type=\"audio\" SamplingRate=\"44100\" name=\"AUDIO\">\r\n" +
      clip("m.mp3", kTimes)
          .replace(clip("m.mp3", kTimes).find("</clip>"), 7,
                   "<effect start=\"0\"  stop=\"5.0\" "
                   "clsid=\"{036A9790-C153-11d2-9EF7-006008039E37}\" >\r\n<param name=\"Vol\" "
                   "value=\"0\">\r\n<at time=\"1\" value=\"0.5\"/>\r\n</param>\r\n</effect></clip>") +
      "</track></group></timeline>";
  const auto timeline = readDocument(text);
  ASSERT_TRUE(timeline) << timeline.error().text;
  EXPECT_EQ(timeline->bitDepth, 16);
  EXPECT_EQ(timeline->frameRate, FrameRate(30000, 1001));
  ASSERT_EQ(timeline->video.size(), 1U);
  const auto& video = timeline->video[0];
  EXPECT_EQ(video.src, "C:\\a & <b>.avi");
  EXPECT_EQ(video.ratio(), 2);
  EXPECT_EQ(video.sourceTime(1.5), 4);
  ASSERT_EQ(video.transitions.size(), 1U) << "the plain cut draws nothing";
  EXPECT_NEAR(video.transitions[0].progressAt(0.4375), 0.5, 1e-9);
  ASSERT_EQ(timeline->audio.size(), 1U);
  ASSERT_EQ(timeline->audio[0].envelopes.size(), 1U);
  EXPECT_EQ(timeline->audio[0].envelopes[0].at(0.999), 0);
  EXPECT_EQ(timeline->audio[0].envelopes[0].at(1), 0.5);
}

TEST(DocumentReader, TakesCompositionsGroupsAndEffects) {
  const auto text =
      "<timeline><group type=\"video\" width=\"320\" height=\"240\" framerate=\"25\"><composite "
      "username=\"x\">" +
      clip("a.avi", kTimes)
          .replace(clip("a.avi", kTimes).find("</clip>"), 7,
                   "<effect clsid=\"{7312498D-E87A-11d1-81E0-0000F87557DB}\" start=\"0\" "
                   "stop=\"16\"><param name=\"PixelRadius\" value=\"0\"><linear "
                   "time=\"000002.5\"  value=\"40\"/></param></effect></clip>") +
      "</track>" + clip("b.avi", "mstart=\"0\" mstop=\"9\" start=\"1\" stop=\"10\"") +
      "<transition start=\"1\" stop=\"10\" clsid=\"{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}\"><param "
      "name=\"Width\" "
      "value=\"160\"/></transition></track><transition start=\"0\" stop=\"1\" clsid=\"" +
      kFade +
      "\"></transition></composite></group><group type=\"video\" width=\"64\" height=\"48\" "
      "framerate=\"10\">" +
      clip("c.avi", kTimes) + "</track></group><group type=\"audio\">" +
      clip("d.wav", kTimes)
          .replace(clip("d.wav", kTimes).find("</clip>"), 7,
                   "<effect start=\"0\" stop=\"2\" clsid=\"{036A9790-C153-11d2-9EF7-006008039E37}\" "
                   "/><param name=\"Vol\" value=\"0.25\" /></clip>") +
      "</track></group></timeline>";
  const auto timeline = readDocument(text);
  ASSERT_TRUE(timeline) << timeline.error().text;
  EXPECT_EQ(timeline->width * 1000 + timeline->frameRate.perSecond(), 320025)
      << "the first group says what the movie is like";
  ASSERT_EQ(timeline->video.size(), 2U) << "a composition is one layer, the further group lies above";
  const auto& composition = timeline->video[0];
  EXPECT_TRUE(composition.src.empty());
  EXPECT_EQ(composition.start, 0);
  EXPECT_EQ(composition.stop, 10) << "as long as what is in it";
  EXPECT_EQ(composition.transitions.size(), 1U);
  ASSERT_EQ(composition.inside.size(), 2U);
  ASSERT_EQ(composition.inside[0].effects.size(), 1U);
  EXPECT_EQ(composition.inside[0].effects[0].params.number("pixelradius", 1.25, 0), 20);
  EXPECT_EQ(composition.inside[1].transitions.at(0).params.number("width", 0, 0), 160);
  EXPECT_EQ(timeline->video[1].src, "c.avi");
  EXPECT_EQ(timeline->audio.at(0).envelopes.at(0).at(1), 0.25) << "a volume behind a closed effect";
}

TEST(DocumentReader, NumbersOfParametersCanBeReckonedWith) {
  const auto timeline =
      readDocument(document(clip("a.avi", kTimes) + "<transition start=\"0\" stop=\"2\" clsid=\"" + kFade +
                            "\"><param name=\"a\" value=\"-1e308\"><linear time=\"1e300\" "
                            "value=\"1e308\"/></param><param name=\"b\" "
                            "value=\"nan\"><linear time=\"1\" value=\"inf\"/></param></transition></track>"));
  ASSERT_TRUE(timeline) << timeline.error().text;
  for (const auto* name : {"a", "b"}) {
    for (const double time : {0.0, 0.5, 1.0, 1e301}) {
      EXPECT_LE(std::fabs(timeline->video[0].transitions.at(0).params.number(name, time, 0)), 1e9) << name;
    }
  }
}

TEST(DocumentReader, NamesStandAsTheyAre) {
  for (const auto* name : {"a b.avi", "it's.avi", "say \"so\".avi", "a&b;.avi", "&amp;.avi", "<i>.avi",
                           "$(x)`y`.avi", "\xC3\xBC.avi", "a=\"1\".avi", "-dash.avi"}) {
    const auto timeline = readDocument(document(clip(name, kTimes) + "</track>"));
    ASSERT_TRUE(timeline) << name << ": " << timeline.error().text;
    EXPECT_EQ(timeline->video[0].src, name);
  }
  const auto still =
      readDocument(document(clip("odd\"name.jpg", " stretchmode=\"crop\"  " + kTimes) + "</track>"));
  ASSERT_TRUE(still);
  EXPECT_EQ(still->video[0].src, "odd\"name.jpg");
  EXPECT_EQ(still->video[0].fit, media::Fit::Crop);
}

TEST(DocumentReader, RefusesWhatCannotBeRenderedAndSaysWhy) {
  const auto manyClips = [] {
    std::string tracks;
    for (int i = 0; i < 70000; ++i) tracks += clip("a.avi", kTimes) + "</track>";
    return document(tracks);
  };
  std::string bomb = "<?xml version=\"1.0\"?><!DOCTYPE t [<!ENTITY a \"aaaaaaaaaa\">";
  for (char c = 'b'; c < 'z'; ++c) {
    bomb += std::string("<!ENTITY ") + c + " \"&" + static_cast<char>(c - 1) + ";&" +
            static_cast<char>(c - 1) + ";\">";
  }
  const auto nested = "<timeline>" + [] {
    std::string open;
    for (int i = 0; i < 100000; ++i) open += "<a>";
    return open;
  }();
  const auto withEffect = [](const std::string& clsid, const std::string& times) {
    auto text = clip("a.avi", kTimes);
    text.insert(text.find("</clip>"), "<effect clsid=\"" + clsid + "\" " + times + "></effect>");
    return text + "</track>";
  };
  std::string deep;
  for (int i = 0; i < 40; ++i) deep += "<composite>";
  deep += clip("a.avi", kTimes) + "</track>";
  for (int i = 0; i < 40; ++i) deep += "</composite>";
  struct Row {
    std::string text;
    const char* says;
  };
  const Row rows[] = {
      {"", "damaged"},
      {"hello", "damaged"},
      {"<html></html>", "<timeline>"},
      {"<timeline></timeline>", "no clips"},
      {document(clip("a.avi", kTimes) + "</track>").substr(0, 180), "damaged"},
      {nested, "damaged"},
      {bomb + "]><timeline>&y;</timeline>", "no clips"},
      {manyClips(), "65536"},
      {document(clip("", kTimes) + "</track>"), "names no file"},
      {document(clip("a.avi", "mstart=\"0\" mstop=\"0.0000\" start=\"0\" stop=\"1\"") + "</track>"), "a.avi"},
      {document(clip("a.avi", "mstart=\"0\" mstop=\"1\" start=\"2\" stop=\"1\"") + "</track>"), "no length"},
      {document(clip("a.avi", "mstart=\"0\" mstop=\"N/A\" start=\"0\" stop=\"1\"") + "</track>"),
       "no numbers"},
      {document(clip("a.avi", "mstart=\"0\" mstop=\"1e300\" start=\"0\" stop=\"1\"") + "</track>"),
       "no numbers"},
      {document(clip("a.avi", kTimes) +
                "<transition start=\"0\" stop=\"1\" clsid=\"{x}\"></transition></track>"),
       "{x}"},
      {document("<track><transition start=\"0\" stop=\"1\" clsid=\"" + std::string(kFade) +
                "\"></transition></track>"),
       "without a clip"},
      {document(withEffect("{x}", "start=\"0\" stop=\"2\"")), "there is no effect {x}"},
      {document(withEffect("{7312498D-E87A-11d1-81E0-0000F87557DB}", "start=\"0\"")),
       "a.avi: the times of its effect"},
      {document(deep), "nested too deep"},
      {document(clip("a.avi", kTimes) + "</track>", "width=\"0\" height=\"0\""), "0 x 0"},
      {document(clip("a.avi", kTimes) + "</track>", "width=\"20000\" height=\"20000\""), "20000 x 20000"},
      {document(clip("a.avi", kTimes) + "</track>", kSize + " framerate=\"0.1\""),
       "rate 0.1 is not within 1 to 1000"},
      {document(clip("a.avi", kTimes) + "</track>", kSize + " framerate=\"0.99\""), "rate 0.99 is not"},
      {document(clip("a.avi", kTimes) + "</track>", kSize + " framerate=\"1e9\""), "rate 1e9 is not"},
      {document(clip("a.avi", kTimes) + "</track>", kSize + " framerate=\"x\""), "rate x is not"},
  };
  for (const auto& row : rows) {
    const auto timeline = readDocument(row.text);
    ASSERT_FALSE(timeline) << row.says;
    EXPECT_NE(timeline.error().text.find(row.says), std::string::npos) << timeline.error().text;
  }
}

}  // namespace
}  // namespace kvo::engine
