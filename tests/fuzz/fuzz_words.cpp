// Any lines as words of a command line, and as a text that another copy hands over: what comes out of a
// hand-over is what the words themselves ask for.
#include "app/command_line.h"
#include "base/text.h"
#include "program/start_command.h"
#include "support/fakes.h"

#include <algorithm>
#include <cstdlib>

namespace {

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) lines.emplace_back(kvo::nextLine(text));
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  auto words = linesOf(text);
  for (auto& word : words) std::replace(word.begin(), word.end(), '\1', '\n');
  const auto line = kvo::readCommandLine(words);
  if (line && line->rate && !(*line->rate >= 1 && *line->rate <= 1000)) std::abort();
  if (line && line->range && !(line->range->from >= 0 && line->range->to > line->range->from)) std::abort();
  if (!line && line.error().text.empty()) std::abort();

  kvo::test::MemoryFiles files;
  files.all["/v/a.avi"] = "x";
  files.all["/v/c.INI"] = "x";
  const auto here = kvo::readStartCommand(words, files, "/v");
  const auto handed =
      kvo::readStartCommand(kvo::handedOver(kvo::handoverText(words, "/v", files)), files, "/v");
  if (here.fullScreen != handed.fullScreen || here.collection.empty() != handed.collection.empty())
    std::abort();
  return 0;
}
