// Texts, values and paths.
#include "base/text.h"

#include "base/paths.h"
#include "base/value.h"
#include "support/real_world.h"

#include <filesystem>
#include <fstream>
#include <map>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(Text, ExtensionIsTheLastThreeCharacters) {
  const std::pair<const char*, const char*> rows[] = {{"a.avi", "AVI"}, {"a.jpeg", "PEG"}, {"a.au", "AU"},
                                                      {"x", "X"},       {"", ""},          {"a.aiff", "IFF"},
                                                      {"a.", ""},       {"a.b.c", "C"}};
  for (const auto& [name, kind] : rows) EXPECT_EQ(extensionOf(name), kind) << name;
}

TEST(Text, NaturalOrderCounts) {
  const std::vector<std::string> ordered = {"",       "10 a",    "clip",     "clip 1", "Clip 02",
                                            "clip 2", "CLIP 10", "clip 10b", "clip a", "\xC3\xA4"};
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    for (std::size_t j = 0; j < ordered.size(); ++j)
      EXPECT_EQ(naturalLess(ordered[i], ordered[j]), i < j) << ordered[i] << "|" << ordered[j];
  }
}

TEST(Text, BytesThatAreNotUtf8AreWindows1252) {
  EXPECT_EQ(textFromBytes("caf\xE9 \x80"), "caf\xC3\xA9 \xE2\x82\xAC");
  EXPECT_EQ(textFromBytes("caf\xC3\xA9"), "caf\xC3\xA9");
  EXPECT_EQ(textFromBytes("\xEF\xBB\xBF[KVO]"), "[KVO]");
  // Line by line: one that is no UTF-8 spoils no other.
  EXPECT_EQ(textFromBytes("\xC3\xA9\r\ncaf\xE9\r\n\xC3\xA9"), "\xC3\xA9\r\ncaf\xC3\xA9\r\n\xC3\xA9");
  for (const auto* bad : {"\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE2\x82"})
    EXPECT_FALSE(isUtf8(bad));
}

TEST(Text, FieldsAreApartAtCommasAndQuotesKeepThem) {
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"", {""}},
      {" a b\t,, \"c, d\" x,e", {"a b", "", "c, d", "e"}},
      {"a,", {"a", ""}},
      {"\"open, end", {"open, end"}}};
  for (const auto& [line, fields] : rows) EXPECT_EQ(commaFields(line), fields) << line;
  std::string_view rest = "\t\"a,b\" , c = d, e ";
  EXPECT_EQ(nextField(rest).toLineEnd, "a,b");
  EXPECT_EQ(nextField(rest).toLineEnd, "c = d, e ");
  EXPECT_EQ(rest, " e ");
}

TEST(Text, CutsBetweenCharacters) {
  EXPECT_EQ(cutTo("a\xC3\xA9z", 2), "a\xC3\xA9") << "characters are counted, not bytes";
  EXPECT_EQ(cutTo("\xE6\x97\xA5\xE6\x97\xA5", 1), "\xE6\x97\xA5");
  EXPECT_EQ(cutTo("abc", 20), "abc");
  EXPECT_EQ(replaced("a--b-", "-", ""), "ab");
  EXPECT_TRUE(holdsText("44.1 Khz", "KHZ"));
  EXPECT_TRUE(endsInText("a.Ini", ".INI") && !endsInText("INI", ".INI"));
  EXPECT_EQ(quoted("a\"b"), "\"a\"b\"");
}

TEST(Value, IsEmptyUntilSet) {
  EXPECT_FALSE(Value().isSet() || Value("N/A").wholeNumber());
  EXPECT_EQ(Value().text() + Value(1.5).text() + " " + Value("1.50").text(), "1.5 1.50");
  EXPECT_EQ(Value("1.50 s").number(), 1.5);
}

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
  for (const auto* name : {"VTS_01_2.VOB", "VTS_01_1.vob", "VIDEO_TS.IFO", "a.mpg"})
    std::ofstream(disc / name) << "x";
  EXPECT_EQ(DvdSource(disc / "VIDEO_TS.IFO"), disc / "VTS_01_1.vob");
  EXPECT_EQ(DvdSource(disc / "a.mpg"), disc / "a.mpg");
  EXPECT_EQ(DvdSource("/none/VIDEO_TS.BUP"), "/none/VIDEO_TS.BUP");
}

TEST(Paths, TakeNamesApart) {
  EXPECT_EQ(ProgramFolder("/p").beside("\\Trace.LOG") + ProgramFolder("/").beside("\\a"), "/p/Trace.LOG/a");
  EXPECT_EQ(std::string(folderPart("/a/b.avi")).append(fileNamePart("/a/b\\c.avi")), "/a/b\\c.avi");
  EXPECT_EQ(fileNamePart("http://x/y.asx"), "http://x/y.asx");
  EXPECT_EQ(withSeparator(""), "");
  using Row = std::tuple<const char*, const char*, const char*>;
  for (const auto& [name, folder, full] :
       {Row{"b.avi", "/a", "/a/b.avi"}, Row{"./x/../b.avi", "/a/c", "/a/c/b.avi"},
        Row{"../b.avi", "/a/c", "/a/b.avi"}, Row{"/x/../b.avi", "/a", "/x/../b.avi"},
        Row{"http://a/../b", "/a", "http://a/../b"}})
    EXPECT_EQ(absoluteName(name, folder), full);
  const std::pair<const char*, bool> addresses[] = {
      {"HTTP://x/y.asx", true}, {"/a/b://c.avi", false}, {"://x", false}, {"C://x", false}};
  for (const auto& [text, address] : addresses) EXPECT_EQ(isAddress(text), address) << text;
  EXPECT_EQ(wholeExtension("/a.b/c.Jpeg") + wholeExtension("/a.b/c"), "JPEG");
}

}  // namespace
}  // namespace kvo
