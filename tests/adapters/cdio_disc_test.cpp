// A disc of two pieces of music and of files, as an image.
#include "adapters/cdio/cdio_disc.h"

#include "support/real_world.h"

#include <fstream>

namespace kvo {
namespace {

TEST(CdioDisc, TellsTheTracksOfWhatIsMounted) {
  const test::ScratchFolder scratch;
  constexpr int kSector = 2352, kSectors = 450;
  std::ofstream(scratch / "disc.bin", std::ios::binary) << std::string(std::size_t{kSector} * kSectors, '\0');
  std::ofstream(scratch / "disc.cue") << "FILE \"disc.bin\" BINARY\n"
                                         "  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"
                                         "  TRACK 02 AUDIO\n    INDEX 01 00:02:00\n"
                                         "  TRACK 03 MODE1/2352\n    INDEX 01 00:04:00\n";
  std::ofstream(scratch / "text.cue") << "no disc";
  std::ofstream(scratch / "mounts") << "proc /proc proc rw 0 0\n"
                                    << scratch / "text.cue"
                                    << " /media/none iso9660 ro 0 0\n"
                                    << scratch / "gone"
                                    << " /media/gone iso9660 ro 0 0\n"
                                    << scratch / "disc.cue"
                                    << " /media/a\\040disc iso9660 ro 0 0\n";
  CdioDisc disc(scratch / "mounts");
  const auto table = disc.read("/media/a disc/");
  ASSERT_TRUE(table);
  std::vector<std::pair<int, bool>> tracks;
  for (const auto& track : table->tracks) tracks.emplace_back(track.TrackOffSet, track.isSound);
  EXPECT_EQ(tracks, (std::vector<std::pair<int, bool>>{{150, true}, {300, true}, {450, false}}));
  EXPECT_EQ(table->end, 600);
  for (const auto* folder : {"/proc", "/media/none", "/media/gone", "/nowhere/"})
    EXPECT_FALSE(disc.read(folder)) << folder;
}

}  // namespace
}  // namespace kvo
