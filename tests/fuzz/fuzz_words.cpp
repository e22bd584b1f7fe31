// Any lines as words of a command line, and as a text that another copy hands over: what comes out of a
// hand-over is what the words themselves ask for.
#include "app/command_line.h"
#include "base/text.h"
#include "fuzz/fuzz.h"
#include "program/start_command.h"
#include "support/fakes.h"

void kvo::fuzz(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) words.push_back(replaced(nextLine(text), "\1", "\n"));
  const auto line = readCommandLine(words);
  require(line || !line.error().text.empty());
  if (line) {
    require(!line->rate || (*line->rate >= 1 && *line->rate <= 1000));
    require(!line->range || (line->range->from >= 0 && line->range->to > line->range->from));
  }

  test::MemoryFiles files;
  files.all = {{"/v/a.avi", "x"}, {"/v/c.INI", "x"}};
  const auto here = readStartCommand(words, files, "/v");
  const auto handed = readStartCommand(handedOver(handoverText(words, "/v", files)), files, "/v");
  require(here.fullScreen == handed.fullScreen && here.collection.empty() == handed.collection.empty());
}
