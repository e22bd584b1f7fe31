// The queue as the windows show it, over a real file and in virtual time.
#include "app/queue_links.h"

#include "support/fake_processes.h"
#include "support/plain_desktop.h"
#include "support/real_world.h"
#include "support/scripted_boxes.h"
#include "support/virtual_loop.h"

namespace kvo {
namespace {

struct QueueInWindows {
  test::ScratchFolder home;
  test::ScriptedBoxes boxes;
  test::VirtualLoop loop;
  test::FakeProcesses processes;
  Session session{ProgramFolder(home.path()), boxes};
  MainWindowState window;
  int drawn = 0;
  QueueStore store{session.files, home / "Queue", [](const std::string&) {}};
  QueueRunner runner{{store,
                      session.nameLocks,
                      {session.files, session.temporaryFolders, processes, loop, "/bin/KVORender"}},
                     [this] { links.changed(); }};
  test::PlainDesktop desktop;
  std::string viewed;
  QueueLinks links{{window, session, store, runner, desktop,
                    [this](const std::string& movie) { viewed = movie; }, [this] { ++drawn; }}};

  explicit QueueInWindows(int jobs) {
    for (int i = 1; i <= jobs; ++i)
      EXPECT_TRUE(store.add("", {.document = "d", .output = home / (std::to_string(i) + ".avi")}, ""));
    runner.start();
  }
  // "2.avi 0%, 1.avi waiting*", a star behind the chosen one
  [[nodiscard]] std::string rows() const {
    std::string text;
    for (int i = 0; const auto& job : links.state().Lst_Queue)
      text += (text.empty() ? "" : ", ") + job.name + " " + job.state + (i++ == links.state().row ? "*" : "");
    return text;
  }
  // The first job comes to its end, and the next one begins.
  void endFirst() {
    processes.end(0);
    loop.advance(500);
  }
};

TEST(QueueLinks, TheChosenRenderIsFollowed) {
  QueueInWindows q(3);
  EXPECT_EQ(q.rows(), "1.avi 0%*, 2.avi waiting, 3.avi waiting");
  EXPECT_EQ(q.window.queue.text, "0%, 2 renders wait");
  q.links.choose(2);
  q.links.move(1);
  EXPECT_EQ(q.rows(), "3.avi waiting*, 1.avi 0%, 2.avi waiting");
  q.links.move(0);
  EXPECT_EQ(q.rows(), "3.avi waiting*, 1.avi 0%, 2.avi waiting") << "it is the first one";
  const int before = q.drawn;
  q.loop.advance(5000);
  EXPECT_EQ(q.drawn, before) << "nothing has changed";
  q.links.remove();
  EXPECT_EQ(q.rows(), "1.avi 0%*, 2.avi waiting");
  q.links.act();
  q.processes.end(143);
  EXPECT_EQ(q.rows(), "1.avi paused*, 2.avi waiting");
  q.loop.advance(500);
  EXPECT_EQ(q.rows(), "1.avi paused*, 2.avi 0%");
  q.processes.sayError("KVORender: disk full");
  q.processes.end(1);
  EXPECT_EQ(q.window.queue, (WorkGlance{"1 render failed", "Renders in the background", 0, true}));
  q.links.choose(1);
  q.links.act();
  EXPECT_EQ(q.rows(), "1.avi paused, 2.avi 0%*") << "another try";
  EXPECT_TRUE(q.boxes.shown.empty());
}

TEST(QueueLinks, WhatIsDoneIsCleared) {
  QueueInWindows q(3);
  EXPECT_FALSE(q.links.state().canClear);
  q.endFirst();
  EXPECT_TRUE(q.links.state().canClear);
  q.links.clear();
  EXPECT_EQ(q.rows(), "2.avi 0%*, 3.avi waiting");
  EXPECT_FALSE(q.links.state().canClear);
}

TEST(QueueLinks, WhatIsDoneIsViewed) {
  QueueInWindows q(1);
  q.endFirst();
  q.links.act();
  EXPECT_TRUE(test::holds(q.boxes.shown.at(0).text, "1.avi is not there any more"));
  std::ofstream(q.home / "1.avi") << "a movie";
  q.links.act();
  EXPECT_EQ(q.viewed, q.home / "1.avi");
  q.links.openFolder();
  EXPECT_EQ(q.desktop.files, std::vector<std::string>{q.home / ""});
}

TEST(QueueLinks, LeavingAsksWhereItLosesWhatIsMade) {
  QueueInWindows q(1);
  EXPECT_TRUE(q.links.mayLeave()) << "it goes on from its segments";
  EXPECT_TRUE(q.boxes.shown.empty());
  ASSERT_TRUE(q.store.add("", {.document = "d", .output = q.home / "whole.gif"}, "", true));
  q.endFirst();
  q.processes.say("progress 1.000 4.000");
  for (const auto answer : {Answer::No, Answer::Yes}) {
    q.boxes.answers.push_back(answer);
    EXPECT_EQ(q.links.mayLeave(), answer == Answer::Yes);
    const auto& asked = q.boxes.shown.back().text;
    EXPECT_TRUE(test::holds(asked, "whole.gif is made in one piece. What is done of it, 25%")) << asked;
  }
}

TEST(QueueLinks, TroubleIsShownAndLoggedOnce) {
  QueueInWindows q(1);
  std::ofstream(q.home / "Queue/Queue.txt") << "of another kind";
  q.loop.advance(5000);
  const auto why = q.home / "Queue/Queue.txt is not a queue of this program";
  EXPECT_EQ(q.links.state().trouble, why);
  EXPECT_EQ(q.window.queue, (WorkGlance{"The queue has stopped", why, 0, true}));
  EXPECT_EQ(q.rows(), "1.avi 0%*") << "as it was seen last";
  EXPECT_EQ(q.session.log.texts(), std::vector<std::string>{why});
}

}  // namespace
}  // namespace kvo
