// Any lines as words of a command line, and as a text that another copy hands over: what comes out of a
// hand-over is what the words themselves ask for.
#include "app/command_line.h"
#include "base/text.h"
#include "program/start_command.h"
#include "support/fakes.h"

#include <cstdlib>

namespace {

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto words = linesOf({reinterpret_cast<const char*>(data), size});
  const auto line = kvo::readCommandLine(words);
  if (line && line->rate && !(*line->rate >= 1 && *line->rate <= 1000)) std::abort();
  if (line && line->range && !(line->range->from >= 0 && line->range->to > line->range->from)) std::abort();
  if (!line && line.error().text.empty()) std::abort();

  kvo::test::MemoryFiles files;
  files.all["/v/a.avi"] = "x";
  files.all["/v/c.INI"] = "x";
  const auto here = kvo::readStartCommand(words, files, "/v");
  const auto handed = kvo::readStartCommand(linesOf(kvo::handoverText(words, "/v", files)), files, "/v");
  if (here.fullScreen != handed.fullScreen || here.collection.empty() != handed.collection.empty())
    std::abort();
  return 0;
}
