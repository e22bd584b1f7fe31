// The small picture of a clip with its colours.
#include "app/colour_pictures.h"

#include "support/fakes.h"
#include "support/real_world.h"
#include "support/virtual_loop.h"

namespace kvo {
namespace {

TEST(ColourPictures, AreMadeAsideAndFollowTheRecord) {
  const test::ScratchFolder folder;
  test::makeMedia(folder, "grey.avi",
                  {"-f", "lavfi", "-i", "color=c=0x404040:s=64x48:r=25:d=1", "-c:v", "mpeg4"});
  test::Bench b;
  auto& clip = b.addVideo("grey.avi", 0, 1, folder.path() + "/");
  test::VirtualLoop loop;
  int came = 0;
  ColourPictures pictures(b.editing, loop, [&] { ++came; });
  EXPECT_EQ(pictures.of(1, 40, 30), nullptr) << "it is being made";
  ASSERT_TRUE(loop.workComesHome());
  EXPECT_EQ(came, 1);
  const auto plain = pictures.of(1, 40, 30);
  ASSERT_NE(plain, nullptr);
  EXPECT_EQ(std::pair(plain->width, plain->height), std::pair(40, 30));
  const auto middle = [](const FramePicture& p) { return p.bgr[p.bgr.size() / 2]; };
  clip.Brightness(3);
  EXPECT_EQ(pictures.of(1, 40, 30), plain) << "the last one stands meanwhile";
  ASSERT_TRUE(loop.workComesHome());
  EXPECT_GT(middle(*pictures.of(1, 40, 30)), middle(*plain) + 10);
  EXPECT_EQ(pictures.of(2, 40, 30), nullptr) << "there is no such clip";
  b.addVideo("gone.avi", 0, 1, folder.path() + "/");
  EXPECT_EQ(pictures.of(2, 40, 30), nullptr) << "none of another clip";
  ASSERT_TRUE(loop.workComesHome());
  EXPECT_EQ(pictures.of(2, 40, 30), nullptr) << "its file is not there";
}

}  // namespace
}  // namespace kvo
