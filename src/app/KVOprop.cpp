// Prints what a media file says of its streams: phrases that the program's probe looks for, or JSON. The
// reason why a file cannot be opened is a line on standard error. Exit codes: 0 done, 1 failed, 2 wrong
// usage.
#include "base/guarded.h"
#include "intake/property_report.h"
#include "media/media_facts.h"
#include "media/stream_properties.h"

#include <cstdio>
#include <span>
#include <string>
#include <string_view>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

constexpr const char* kUsage = "usage: KVOprop [--json] [--] FILE\n";

struct Wish {
  bool help = false;
  bool json = false;
  std::string file;
};

// Behind "--" all is a name.
bool readWish(std::span<char*> arguments, Wish& wish) {
  bool names = false;
  for (const std::string_view argument : arguments) {
    if (!names && argument == "--") {
      names = true;
    } else if (!names && argument == "--json") {
      wish.json = true;
    } else if (!names && (argument == "--help" || argument == "-h")) {
      wish.help = true;
    } else if (wish.file.empty() && (names || !argument.starts_with("--"))) {
      wish.file = argument;
    } else {
      return false;
    }
  }
  return wish.help || !wish.file.empty();
}

}  // namespace

int main(int argc, char** argv) {
  Wish wish;
  if (argc < 1 || !readWish(std::span(argv, static_cast<std::size_t>(argc)).subspan(1), wish)) {
    std::fputs(kUsage, stderr);
    return kWrongUsage;
  }
  if (wish.help) {
    std::fputs(kUsage, stdout);
    std::fputs(
        "Prints what a media file says of its streams, with --json as one object. What stands behind -- is "
        "a\n"
        "name. Exit codes: 0 done, 1 the file cannot be opened, 2 wrong usage.\n",
        stdout);
    return std::fflush(stdout) == 0 ? 0 : kFailed;
  }
  kvo::media::silenceRemarks();
  const auto properties = kvo::guarded([&] { return kvo::media::readStreamProperties(wish.file); });
  std::fputs((wish.json ? kvo::propertyJson(wish.file, properties) : kvo::propertyReport(properties)).c_str(),
             stdout);
  if (!properties) std::fprintf(stderr, "KVOprop: %s\n", properties.error().text.c_str());
  return properties ? 0 : kFailed;
}
