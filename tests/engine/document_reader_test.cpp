#include "engine/document/document_reader.h"

#include "base/numbers.h"
#include "engine/picture/frame_plan.h"
#include "support/golden.h"

#include <cmath>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

const std::string kSize = R"(width="320" height="240")";
const std::string kTimes = R"(mstart="1" mstop="5.0000" start="0" stop="2.0000")";
const std::string kFade = R"(clsid="{16B280C5-EE70-11D1-9066-00C04FD9189D}")";

std::string clip(const std::string& src, const std::string& times = kTimes, const std::string& inside = "") {
  return "<track>\r\n<clip src=\"" + src + "\" " + times + " >\r\n" + inside + "</clip>\r\n";
}

std::string track(const std::string& src, const std::string& times = kTimes, const std::string& inside = "") {
  return clip(src, times, inside) + "</track>";
}

// `head` is the size and, where it is not 25, the rate: the first of an attribute stands.
std::string document(const std::string& tracks, const std::string& head = kSize) {
  return "<timeline>\r\n<group type=\"video\" bitdepth=\"24\" " + head +
         " framerate=\"25\" name=\"VIDEO\" buffering=\"30\"  >\r\n" + tracks + "</group>\r\n</timeline>\r\n";
}

// What is planned of a document at some of its frames, and its sounds.
std::string told(const Result<Timeline>& timeline) {
  if (!timeline) return timeline.error().text;
  auto text = std::to_string(timeline->width) + " x " + std::to_string(timeline->height) + ", " +
              std::to_string(timeline->bitDepth) + " bits, " +
              ShortText(timeline->frameRate.perSecond() * 1001) + " frames in 1001 s\n";
  FramePlanner planner(*timeline);
  for (const int frame : {0, 13, 31, 45, 100, 249, 250})
    text += "frame " + std::to_string(frame) + "\n" + toText(planner.at(frame));
  for (const auto& clip : timeline->audio) {
    text += "sound " + clip.src;
    for (const auto& envelope : clip.envelopes)
      text += " " + ShortText(envelope.at(0.999)) + " " + ShortText(envelope.at(1));
    text += "\n";
  }
  return text;
}

TEST(DocumentReader, TakesWhatACompileWrites) {
  auto log = told(
      readDocument("<timeline>\r\n<group type=\"video\" bitdepth=\"16\" " + kSize +
                   " framerate=\"29.97\" >\r\n" + clip("C:\\a & <b>.avi") +
                   "<transition start=\"0\" stop=\"2.0000\" " + kFade +
                   R"(>
  
<param name="Progress" value="0.0">
<linear time="0.875" value="1"/>
</param>
</transition>
<transition clsid="{99999999-9999-9999-9999-999999999999}" start="0" stop="1" />
</track>
</group>
<group type="audio" SamplingRate="44100" name="AUDIO">
)" +
                   track("m.mp3", kTimes,
                         R"(<effect start="0"  stop="5.0" clsid="{036A9790-C153-11d2-9EF7-006008039E37}" >
<param name="Vol" value="0">
<at time="1" value="0.5"/>
</param>
</effect>)") + "</group></timeline>"));
  const auto blur = R"(<effect clsid="{7312498D-E87A-11d1-81E0-0000F87557DB}" start="0" stop="16">
<param name="PixelRadius" value="0"><linear time="000002.5"  value="40"/></param></effect>)";
  const auto placing = R"(<transition start="1" stop="10" clsid="{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}">
<param name="Width" value="160"/></transition></track>)";
  const auto volume = R"(<effect start="0" stop="2" clsid="{036A9790-C153-11d2-9EF7-006008039E37}" />
<param name="Vol" value="0.25" />)";
  // The first group says what the movie is like; a composition is one layer, the further group lies above.
  log += told(readDocument(
      "<timeline><group type=\"video\" " + kSize + " framerate=\"25\"><composite username=\"x\">" +
      track("a.avi", kTimes, blur) + clip("b.avi", R"(mstart="0" mstop="9" start="1" stop="10")") + placing +
      "<transition start=\"0\" stop=\"1\" " + kFade + "></transition></composite></group>" +
      R"(<group type="video" width="64" height="48" framerate="10">)" + track("c.avi") +
      "</group><group type=\"audio\">" + track("d.wav", kTimes, volume) + "</group></timeline>"));
  test::expectGoldenLog(log);
}

TEST(DocumentReader, NumbersOfParametersCanBeReckonedWith) {
  const auto timeline =
      readDocument(document(clip("a.avi") + "<transition start=\"0\" stop=\"2\" " + kFade +
                            R"(><param name="a" value="-1e308"><linear time="1e300" value="1e308"/></param>
<param name="b" value="nan"><linear time="1" value="inf"/></param></transition></track>)"));
  ASSERT_TRUE(timeline) << timeline.error().text;
  for (const auto* name : {"a", "b"}) {
    for (const double time : {0.0, 0.5, 1.0, 1e301})
      EXPECT_LE(std::fabs(timeline->video[0].transitions.at(0).params.number(name, time, 0)), 1e9) << name;
  }
}

TEST(DocumentReader, RefusesWhatCannotBeRenderedAndSaysWhy) {
  const auto times = [](const char* mstop, const char* start) {
    return document(track(
        "a.avi", std::string("mstart=\"0\" mstop=\"") + mstop + "\" start=\"" + start + "\" stop=\"1\""));
  };
  const auto repeated = [](const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
  };
  std::string bomb = "<?xml version=\"1.0\"?><!DOCTYPE t [<!ENTITY a \"aaaaaaaaaa\">";
  for (char c = 'b'; c < 'z'; ++c) {
    const auto twice = repeated(std::string("&") + static_cast<char>(c - 1) + ";", 2);
    bomb += std::string("<!ENTITY ") + c + " \"" + twice + "\">";
  }
  const std::string cut = "<transition start=\"0\" stop=\"1\" ";
  const std::string rows[] = {
      "",
      "hello",
      "<html></html>",
      "<timeline></timeline>",
      document(track("a.avi")).substr(0, 180),
      "<timeline>" + repeated("<a>", 100000),
      bomb + "]><timeline>&y;</timeline>",
      document(repeated(track("a.avi"), 70000)),
      document(track("")),
      times("0.0000", "0"),
      times("1", "2"),
      times("N/A", "0"),
      times("1e300", "0"),
      document(clip("a.avi") + cut + "clsid=\"{x}\"></transition></track>"),
      document("<track>" + cut + kFade + "></transition></track>"),
      document(track("a.avi", kTimes, "<effect clsid=\"{x}\" start=\"0\" stop=\"2\"></effect>")),
      document(
          track("a.avi", kTimes, R"(<effect clsid="{7312498D-E87A-11d1-81E0-0000F87557DB}" start="0"/>)")),
      document(repeated("<composite>", 40) + track("a.avi") + repeated("</composite>", 40)),
      document(track("a.avi"), R"(width="0" height="0")"),
      document(track("a.avi"), R"(width="20000" height="20000")"),
      document(track("a.avi"), kSize + " framerate=\"0.99\""),
      document(track("a.avi"), kSize + " framerate=\"1e9\""),
      document(track("a.avi"), kSize + " framerate=\"x\"")};
  std::string log;
  for (const auto& text : rows) log += told(readDocument(text)) + "\n";
  test::expectGoldenLog(log);
}

}  // namespace
}  // namespace kvo::engine
