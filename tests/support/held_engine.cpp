#include "support/held_engine.h"

#include <sys/stat.h>
#include <system_error>

namespace kvo::test {
namespace {

namespace fs = std::filesystem;

constexpr auto kEngineScript = R"(#!/bin/sh
here=${0%/*}
if mv "$here/next" "$here/taken" 2>/dev/null; then
  share=$(cat "$here/taken")
  for word; do
    shift
    case $word in
      /S) skip=yes ;;  # between this one and its starter stands a shell more
      /J) share= ;;
    esac
    case $skip in
      yes) skip=next ;;
      next) skip= ;;
      *) set -- "$@" "$word" ;;
    esac
  done
  # That it is done with its share is not to be taken for the end of the movie.
  if [ -n "$share" ]; then "$here/real/KVORender" /J "$share" "$@" >"$here/said" || exit; fi
  # It halts once its end hangs on its starter's: whoever hears of it may kill that at once.
  exec setpriv --pdeathsig KILL sh -c 'echo $$ >"$0/halting"; mv "$0/halting" "$0/halted"; read never <"$0/nothing"' "$here"
fi
exec "$here/real/KVORender" "$@"
)";

}  // namespace

HeldEngine::HeldEngine(const std::string& programs) {
  const auto bin = folder_ / "bin";
  fs::create_directory(bin);
  fs::create_directory_symlink(programs, bin + "/real");
  fs::create_directory_symlink(fs::path(programs).parent_path() / "share", folder_ / "share");
  // It looks for its engine beside itself, and a link by name would lead it to the real one.
  std::error_code isElsewhere;
  fs::create_hard_link(programs + "/kvo5", kvo5(), isElsewhere);
  if (isElsewhere) fs::copy_file(programs + "/kvo5", kvo5());
  std::ofstream(bin + "/KVORender") << kEngineScript;
  fs::permissions(bin + "/KVORender", fs::perms::owner_all);
  EXPECT_EQ(::mkfifo((bin + "/nothing").c_str(), 0600), 0);
}

void HeldEngine::haltNext(const std::string& share) const {
  fs::remove(folder_ / "bin/halted");
  std::ofstream(folder_ / "bin/arming") << share;
  fs::rename(folder_ / "bin/arming", folder_ / "bin/next");
}

int HeldEngine::halted() const {
  EXPECT_TRUE(eventually([&] { return fs::exists(folder_ / "bin/halted"); }));
  return std::stoi("0" + bytesOf(folder_ / "bin/halted"));
}

}  // namespace kvo::test
