// A disc of two pieces of music and of files, as an image.
#include "adapters/cdio/cdio_disc.h"

#include "support/real_world.h"

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
  std::ofstream mounts(scratch / "mounts");
  mounts << "proc /proc proc rw 0 0\n";
  for (const auto& [image, place] :
       {std::pair{"text.cue", "none"}, {"gone", "gone"}, {"disc.cue", "a\\040disc"}})
    mounts << scratch / image << " /media/" << place << " iso9660 ro 0 0\n";
  mounts.close();
  CdioDisc disc(scratch / "mounts");
  const auto table = disc.read("/media/a disc/");
  ASSERT_TRUE(table);
  std::string tracks;
  for (const auto& track : table->tracks)
    tracks += test::lineOf(track.TrackOffSet, track.isSound ? "sound, " : "data, ");
  EXPECT_EQ(tracks + std::to_string(table->end), "150 sound, 300 sound, 450 data, 600");
  for (const auto* folder : {"/proc", "/media/none", "/media/gone", "/nowhere/"})
    EXPECT_FALSE(disc.read(folder)) << folder;
}

}  // namespace
}  // namespace kvo
