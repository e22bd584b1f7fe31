#include "base/paths.h"

#include "support/real_world.h"

#include <filesystem>
#include <fstream>
#include <map>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(ProgramFolder, IsFoundByEnvironment) {
  std::map<std::string, std::string> variables{{"HOME", "/home/u"}};
  const auto find = [&] {
    return findProgramFolder([&](const char* name) { return variables[name]; }, "/nowhere").path();
  };
  EXPECT_EQ(find(), "/home/u/.local/share/KVO5");
  variables["XDG_DATA_HOME"] = "/data/";
  EXPECT_EQ(find(), "/data/KVO5");
  variables["KVO5_HOME"] = "/kvo/";
  EXPECT_EQ(find(), "/kvo");
  for (const auto* home : {"", "relative"}) {
    variables = {{"HOME", home}};
    EXPECT_EQ(find().front(), '/') << "never below the working folder";
  }
}

TEST(ProgramFolder, HoldsItsFilesInAnyCaseOfLetters) {
  const test::ScratchFolder scratch;
  std::filesystem::create_directories(scratch / "skins/Mine");
  const ProgramFolder folder(scratch.path());
  EXPECT_EQ(folder.beside("\\Skins\\MINE"), scratch / "skins/Mine");
  EXPECT_EQ(folder.beside("\\Skins\\other"), scratch / "Skins\\other") << "which is not there";
}

TEST(Paths, AMenuOfADvdLeadsToItsFilm) {
  const test::ScratchFolder disc;
  for (const auto* name : {"VTS_01_2.VOB", "vts_01_1.vob", "VIDEO_TS.IFO", "a.mpg"})
    std::ofstream(disc / name) << "x";
  std::filesystem::rename(disc / "vts_01_1.vob", disc / "VTS_01_1.vob");
  EXPECT_EQ(DvdSource(disc / "VIDEO_TS.IFO"), disc / "VTS_01_1.vob");
  EXPECT_EQ(DvdSource(disc / "a.mpg"), disc / "a.mpg");
  EXPECT_EQ(DvdSource("/none/VIDEO_TS.BUP"), "/none/VIDEO_TS.BUP");
}

TEST(Paths, TakeNamesApart) {
  EXPECT_EQ(ProgramFolder("/p").beside("\\Trace.LOG"), "/p/Trace.LOG");
  EXPECT_EQ(ProgramFolder("/").beside("\\a"), "/a");
  EXPECT_EQ(fileNamePart("/a/b\\c.avi"), "b\\c.avi");
  EXPECT_EQ(fileNamePart("http://x/y.asx"), "http://x/y.asx");
  EXPECT_EQ(folderPart("/a/b.avi"), "/a/");
  EXPECT_EQ(withSeparator(""), "");
  const std::tuple<const char*, const char*, const char*> rows[] = {{"b.avi", "/a", "/a/b.avi"},
                                                                    {"./x/../b.avi", "/a/c", "/a/c/b.avi"},
                                                                    {"../b.avi", "/a/c", "/a/b.avi"},
                                                                    {"/x/../b.avi", "/a", "/x/../b.avi"},
                                                                    {"http://a/../b", "/a", "http://a/../b"}};
  for (const auto& [name, folder, full] : rows) EXPECT_EQ(absoluteName(name, folder), full);
  const std::pair<const char*, bool> addresses[] = {
      {"HTTP://x/y.asx", true}, {"/a/b://c.avi", false}, {"://x", false}, {"C://x", false}};
  for (const auto& [text, address] : addresses) EXPECT_EQ(isAddress(text), address) << text;
  EXPECT_EQ(wholeExtension("/a.b/c.Jpeg") + wholeExtension("/a.b/c"), "JPEG");
}

}  // namespace
}  // namespace kvo
