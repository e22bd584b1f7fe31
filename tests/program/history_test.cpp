// One history of every edit: what is written through its gate is taken back whole, whatever it was.
#include "core/file/collection_text.h"
#include "editor/compiler/picture_in_picture.h"
#include "program/list_commands.h"
#include "support/program_bench.h"

#include <numeric>
#include <random>
#include <set>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;

struct EditBench : ProgramBench {
  EditBench() {
    for (const auto* name : {"a.avi", "b.avi", "c.avi", "d.avi", "e.avi", "f.avi"}) addVideo(name, 0, 8);
    makeEven();
  }
  bool change(const std::function<void()>& work, std::string_view series = {}, Integer code = 98) {
    return history.change(CommandPass(window), "edit", code, work, series);
  }
  bool drag(const std::function<void()>& work) { return change(work, "drag"); }

  [[nodiscard]] std::string text() const {
    std::string all;
    EXPECT_TRUE(print(settings, collection, [&](const PrintedBlock& block) {
      all += block.text;
      return Outcome();
    }));
    return all;
  }
};

// Anything that an author of an edit may write, in any mixture.
class Gestures {
 public:
  Gestures(EditBench& bench, unsigned seed) : b_(bench), random_(seed) {}

  void make() {
    const int clips = b_.collection.MovieList.count();
    const int kind = number(0, 9);
    if (kind == 0 && clips > 2) return b_.listCommands.Removeit(number(1, clips));
    if (kind == 1) return b_.listCommands.moveTo(number(1, clips + 1));
    if (kind == 2 && clips < 30) return b_.listCommands.copy(CopyMode::Exact);
    if (kind == 3) return b_.listCommands.rename("n" + std::to_string(number(1, 999)));
    if (kind == 4) return b_.listCommands.setVolume(number(0, 100));
    const bool drags = number(0, 2) == 0;
    for (int i = drags ? number(1, 4) : 1; i > 0; --i)
      b_.change([&] { write(number(1, 3)); }, drags ? std::to_string(kind) : "");
  }

 private:
  int number(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

  void write(int times) {
    if (times > 1) write(times - 1);
    auto& clips = b_.collection.MovieList;
    auto& keyframes = b_.collection.KeyframeList;
    auto& clip = clips[number(1, clips.count())];
    if (keyframes.empty()) keyframes.add({}).ClipName = clip.KeyID();
    const auto one = [&] { return number(1, keyframes.count()); };
    const std::function<void()> writes[] = {
        [&] { clip.TransIn(static_cast<Single>(number(0, 40))); },
        [&] { clip.TransType(number(0, 1) == 0 ? "CUT" : "Iris"); },
        [&] { clip.LoopEnd(Value(number(1, 10))); },
        [&] { clip.EffectWord(std::string(static_cast<std::size_t>(number(1, 60)), '1')); },
        [&] { clip.Notes(Value(number(0, 9))); },
        [&] { clip.HasPicInPic(picInPicText({.overlayClip = number(1, clips.count() + 1)})); },
        [&] { b_.settings.change().PreviewCPU = static_cast<Integer>(number(1, 10)); },
        [&] { b_.settings.adjust().StillsIndividual = number(0, 1) == 0; },
        [&] {
          if (keyframes.count() < 50) keyframes.add({}).ClipName = clip.KeyID();
        },
        [&] { keyframes.remove(one()); },
        [&] { keyframes[one()].Transparency = static_cast<Single>(number(0, 100)); },
        [&] {
          if (clips.count() > 2) clips.remove(number(1, clips.count()));
          b_.collection.icurMov = 1;
        }};
    writes[number(0, static_cast<int>(std::size(writes)) - 1)]();
  }

  EditBench& b_;
  std::mt19937 random_;
};

TEST(History, ThousandsOfEditsLeadBackToTheFirstByteAndOnToTheLast) {
  for (const unsigned seed : {1U, 2U}) {
    EditBench b;
    Gestures gestures(b, seed);
    const auto first = b.text();
    for (int i = 0; i < 1500; ++i) gestures.make();
    const auto last = b.text();
    const auto steps = b.window.history.done.size();
    EXPECT_GT(steps, 900U);
    ASSERT_NE(first, last);
    std::vector<std::string> on{last};
    while (!b.window.history.undo.empty()) {
      b.history.undo();
      if (b.window.history.done.size() % 150 == 0) on.push_back(b.text());
    }
    EXPECT_EQ(b.text(), first);
    EXPECT_FALSE(b.dirty());
    EXPECT_EQ(b.window.history.undone.size(), steps);
    while (!b.window.history.redo.empty()) {
      if (b.window.history.done.size() % 150 == 0) {
        ASSERT_EQ(b.text(), on.back()) << "step " << b.window.history.done.size();
        on.pop_back();
      }
      b.history.redo();
    }
    EXPECT_EQ(b.text(), last);
    b.history.undo(steps);
    EXPECT_EQ(b.text(), first) << "all at once, from the list of the history";
  }
}

TEST(History, AChangeIsOneStepWhateverItWrites) {
  EditBench b;
  b.list.select(2);
  const auto first = b.text();
  EXPECT_FALSE(b.change([&] {
    b.clip(2).Volume(b.clip(2).Volume());
    b.settings.change().PreviewCPU = b.settings.preferences().PreviewCPU;
  }));
  EXPECT_FALSE(b.dirty()) << "what was written is what stood there";
  std::vector<int> told;
  b.history.whenEdited([&](int number) { told.push_back(number); });
  EXPECT_TRUE(b.change([&] {
    b.clip(2).EffectWord("101");
    b.clip(5).TransIn(12);
    b.collection.KeyframeList.add({}).ClipName = 2;
    b.settings.change().PreviewCPU = 9;
  }));
  EXPECT_EQ(told, std::vector{2});
  EXPECT_EQ(b.settings.state.ObjectChange, 98);
  EXPECT_EQ(b.window.history.done, std::vector<std::string>{"edit"});
  b.list.select(4);
  b.history.undo();
  EXPECT_EQ(b.text(), first);
  EXPECT_FALSE(b.dirty());
  EXPECT_EQ(b.collection.icurMov, 2) << "the user sees where it happens";
  b.history.redo();
  EXPECT_EQ(b.clip(5).TransIn(), 12);
  EXPECT_EQ(b.settings.preferences().PreviewCPU, 9);

  const CommandPass held(b.window);
  EXPECT_FALSE(b.change([&] { b.clip(1).TransIn(1); })) << "another command runs";
  EXPECT_EQ(b.clip(1).TransIn(), 0);
}

TEST(History, KnowsValuesThatNoFileOfACollectionHas) {
  EditBench b;
  std::string order = "stacked";
  b.history.alsoKeep({[&] { return order; }, [&](const std::string& text) { order = text; }});
  EXPECT_TRUE(b.change([&] { order = "in sequence"; }));
  EXPECT_FALSE(b.dirty()) << "there is nothing to save";
  EXPECT_FALSE(b.change([&] { order = "in sequence"; }));
  for (const int value : {1, 2}) {
    b.drag([&] {
      order = std::to_string(value);
      b.clip(1).TransIn(static_cast<Single>(value));
    });
  }
  EXPECT_TRUE(b.dirty());
  b.history.undo();
  EXPECT_EQ(order, "in sequence") << "as it was ahead of the drag";
  EXPECT_FALSE(b.dirty());
  b.history.undo();
  EXPECT_EQ(order, "stacked");
  b.history.redo(2);
  EXPECT_EQ(order, "2");
  EXPECT_TRUE(b.dirty());
}

TEST(History, OneGestureIsOneStep) {
  EditBench b;
  const auto first = b.text();
  const auto drag = [&](int value) {
    b.drag([&] {
      b.clip(1).TransIn(static_cast<Single>(value));
      b.clip(b.collection.MovieList.count()).Volume(static_cast<Integer>(value));
      if (value == 2) b.collection.KeyframeList.add({}).ClipName = 1;
      if (value == 3) b.collection.MovieList.remove(3);
      if (value == 4) b.collection.KeyframeList[1].Transparency = 5;
    });
  };
  for (const int value : {1, 2, 3, 4, 5}) drag(value);
  EXPECT_EQ(b.window.history.done.size(), 1U);
  const auto last = b.text();
  b.history.undo();
  EXPECT_EQ(b.text() + b.window.history.undo, first);
  b.history.redo();
  EXPECT_EQ(b.text() + b.window.history.redo, last);
  drag(6);
  b.history.endSeries();
  drag(7);
  EXPECT_EQ(b.window.history.done.size(), 3U) << "a redo, and a hand that lets go, end a gesture";
  b.history.together([&] {
    b.listCommands.rename("x");
    b.listCommands.copy(CopyMode::Exact);
  });
  for (int i = 0; i < 2; ++i) b.history.undo(2);
  EXPECT_EQ(b.text(), first);
  EXPECT_EQ(b.window.history.undone.size(), 4U);
}

// Whoever has followed the one before has to follow this one.
TEST(History, EachEditOfAGestureTellsOfItsChange) {
  EditBench b;
  for (const Single tenths : {2.5F, 20.0F, 5.0F}) {
    b.settings.state.ObjectChange = 0;
    b.history.edit(
        CommandPass(b.window), "speed", 2, 98, [&](Movie& clip) { clip.Playspeed(tenths); }, "speed");
    EXPECT_EQ(b.settings.state.ObjectChange, 98) << tenths;
  }
  EXPECT_EQ(b.window.history.done.size(), 1U);
}

TEST(History, ATransitionThatIsLeftNoRoomIsHeldByTheSameStep) {
  EditBench b;
  const auto transitions = [&] {
    std::string all;
    for (int i = 1; i <= b.collection.MovieList.count(); ++i) all += ShortText(b.clip(i).TransIn()) + " ";
    return all;
  };
  for (const int number : {2, 3}) {
    b.clip(number).TransType("Iris");
    b.clip(number).TransIn(60);
  }
  b.clip(1).DurationTime(Value(0));
  const auto first = b.text();
  const auto trim = [&](double seconds) {
    b.history.edit(
        CommandPass(b.window), "mark", 1, 96, [&](Movie& clip) { clip.LoopEnd(Value(seconds)); }, "mark");
  };
  const auto drag = [&](double seconds) { b.drag([&] { b.clip(1).LoopEnd(Value(seconds)); }); };
  const std::tuple<const char*, std::function<void()>, const char*> rows[] = {
      {"a mark", [&] { trim(0.28); }, "0 3 60 0 0 0 "},
      {"one that is set too early, then later", [&] { trim(2), trim(1), trim(5); }, "0 50 60 0 0 0 "},
      {"and with room again", [&] { trim(1), trim(7); }, "0 60 60 0 0 0 "},
      {"an edge that is dragged", [&] { drag(1), drag(3), drag(3); }, "0 30 60 0 0 0 "},
      {"a speed", [&] { b.change([&] { b.clip(2).Playspeed(20); }); }, "0 40 40 0 0 0 "},
      {"two at once", [&] { b.change([&] { b.clip(1).LoopEnd(Value(2)), b.clip(2).LoopEnd(Value(3)); }); },
       "0 20 30 0 0 0 "},
      {"a clip of nothing known", [&] { b.change([&] { b.clip(1).LoopEnd(Value(0)); }); }, "0 60 60 0 0 0 "}};
  for (const auto& [what, act, expected] : rows) {
    act();
    EXPECT_EQ(transitions(), expected) << what;
    EXPECT_EQ(b.window.history.done.size(), 1U) << what;
    const auto last = b.text();
    b.history.undo();
    EXPECT_EQ(b.text(), first) << what;
    b.history.redo();
    EXPECT_EQ(b.text(), last) << what;
    b.history.undo();
  }
  b.change([&] { b.clip(1).LoopEnd(Value(2)); });
  b.clip(3).TransIn(75);
  const auto shorter = b.text();
  b.listCommands.rename("x");
  EXPECT_EQ(b.clip(3).TransIn(), 75) << "no clip has another length";
  b.history.undo();
  EXPECT_EQ(b.text(), shorter);
  b.clip(3).TransIn(60);
  b.clip(5).LoopEnd(Value(1));
  const auto ahead = b.text();
  const auto rise = [&](int from, int to) {
    for (int number = from; number > to; --number)
      b.listCommands.choose({number}, number), b.listCommands.moveTo(number - 1);
  };
  const std::tuple<const char*, std::function<void()>, const char*> moves[] = {
      {"a short clip passes by", [&] { rise(5, 1); }, "0 0 20 60 0 0 "},
      {"it goes by and back", [&] { rise(5, 2), b.listCommands.choose({2}, 2), b.listCommands.moveTo(6); },
       "0 20 60 0 0 0 "},
      {"two leave",
       [&] {
         b.history.remove(CommandPass(b.window), {1, 2});
       },
       "40 0 0 0 "},
      {"a short clip comes ahead of it", [&] { b.listCommands.choose({5}, 5), b.listCommands.moveTo(3); },
       "0 20 0 10 0 0 "},
      {"it goes behind a short one", [&] { b.listCommands.choose({3}, 3), b.listCommands.moveTo(2); },
       "0 20 20 0 0 0 "},
      {"the clip between leaves", [&] { b.listCommands.choose({2}, 2), b.listCommands.Removeit(2); },
       "0 20 0 0 0 "}};
  for (const auto& [what, act, expected] : moves) {
    const auto before = b.window.history.done.size();
    act();
    EXPECT_EQ(transitions(), expected) << what;
    const auto steps = b.window.history.done.size() - before;
    const auto last = b.text();
    for (const bool back : {true, false, true}) {
      back ? b.history.undo(steps) : b.history.redo(steps);
      EXPECT_EQ(b.text() == (back ? ahead : last), true) << what << back;
    }
  }
}

TEST(History, AStepBackKeepsWhatHasBeenLearntOfFiles) {
  EditBench b;
  b.clip(2).RenderAudio(true);
  b.change([&] { b.clip(2).TransIn(7); });
  b.clip(2).HasAudio(true);  // its file is looked into only now
  for (const bool back : {true, false}) {
    back ? b.history.undo() : b.history.redo();
    EXPECT_TRUE(b.clip(2).HasAudio() && b.clip(2).RenderAudio()) << back;
  }
}

// Clip c has b over it, e has f.
TEST(History, OverlaysStayWithTheirClips) {
  static constexpr PlayerPlace kPlace{4, 100};
  const std::pair<void (*)(EditBench&), const char*> rows[] = {
      {[](EditBench& b) { b.listCommands.choose({2}, 2), b.listCommands.moveTo(7); }, "cbef"},
      {[](EditBench& b) { b.listCommands.sort(SortKey::Shuff); }, "cbef"},
      {[](EditBench& b) { b.listCommands.Removeit(1); }, "cbef"},
      {[](EditBench& b) { b.listCommands.Removeit(2); }, "ef"},
      {[](EditBench& b) { b.listCommands.Removeit(3); }, "ef"},
      {[](EditBench& b) { b.list.select(3), b.listCommands.copy(CopyMode::Exact); }, "cbcbef"},
      {[](EditBench& b) { b.listCommands.split(kPlace); }, "cbef"},
      {[](EditBench& b) { b.change([&] { b.collection.MovieList.remove(2); }); }, "ef"},
      {[](EditBench& b) { b.files.put({"/v/x.avi"}), b.mailbox.takeDropped({"/v/x.avi"}, 2); }, "cbef"},
  };
  for (const auto& [act, overlaid] : rows) {
    EditBench b;
    const auto pairs = [&] {
      std::multiset<std::string> all;
      for (int i = 1; i <= b.collection.MovieList.count(); ++i) {
        const auto look = readPicInPic(b.clip(i).HasPicInPic());
        if (look) all.insert(b.clip(i).MovieName().substr(0, 1) + b.clip(look->overlayClip).MovieName()[0]);
      }
      return std::accumulate(all.begin(), all.end(), std::string());
    };
    b.clip(3).HasPicInPic(picInPicText({.overlayClip = 2, .maxOpacity = 70}));
    b.clip(5).HasPicInPic(picInPicText({.overlayClip = 6}));
    const auto first = b.text();
    act(b);
    const auto last = b.text();
    EXPECT_EQ(pairs(), overlaid) << b.window.history.undo;
    b.history.undo();
    EXPECT_EQ(b.text(), first) << b.window.history.redo;
    b.history.redo();
    EXPECT_EQ(b.text(), last) << b.window.history.undo;
    EXPECT_EQ(pairs(), overlaid) << b.window.history.undo;
  }
}

TEST(ListCommands, CopiesHaveTheKeyframesToo) {
  for (const auto& [mode, keyframes] :
       {std::pair{CopyMode::Exact, "1@0=0 1@4=40 1@9=90 new@0=0 new@4=40 new@9=90 "},
        {CopyMode::Tail, "1@0=0 1@4=40 1@9=90 new@6=40 new@9=90 "},
        {CopyMode::EqualChunk, "1@0=0 1@4=40 1@9=90 new@6=40 new@9=90 "},
        {CopyMode::Split, "1@0=0 1@4=40 1@4.99=49.9 new@5=50 new@9=90 "}}) {
    EditBench b;
    b.settings.change().OutPutFrameRate = 25;
    b.clip(1).LoopEnd(Value(mode == CopyMode::Split ? 10 : 6));
    for (const int second : {0, 4, 9}) {
      auto& k = b.collection.KeyframeList.add({});
      k.Time = Value(second);
      k.FrameNo = second * 25;
      k.EffectNo = 8;
      k.Param[0] = Value(second * 10);
      k.ClipName = 1;
    }
    const auto first = b.text();
    b.listCommands.placedBy([] { return PlayerPlace{5, 125}; });
    b.listCommands.copy(mode);
    std::string all;
    for (int i = 1; i <= b.collection.KeyframeList.count(); ++i) {
      const auto& k = b.collection.KeyframeList[i];
      EXPECT_TRUE(k.ClipName == 1 || k.ClipName == b.clip(2).KeyID());
      all += (k.ClipName == 1 ? "1@" : "new@") + k.Time.text() + "=" + k.Param[0].text() + " ";
    }
    EXPECT_EQ(all, keyframes);
    b.history.undo();
    EXPECT_EQ(b.text(), first) << "one step";
  }
}

TEST(ListCommands, ASplitLeavesBothPartsOfTheClip) {
  for (const auto& [frame, still, splits] :
       {std::tuple{100, false, true}, std::tuple{200, false, false}, std::tuple{25, false, false},
        std::tuple{230, false, false}, std::tuple{100, true, false}}) {
    EditBench b;
    b.clip(1).LoopStart(Value(1));
    b.clip(1).LoopEnd(Value(8));
    b.clip(1).IsStill(still);
    b.clip(1).TransIn(50);
    const auto first = b.text();
    EXPECT_FALSE(b.listCommands.whyNoCopy(CopyMode::Split).empty()) << "the player is empty";
    b.listCommands.placedBy([&, at = frame] { return PlayerPlace{at / 25.0, at}; });
    EXPECT_EQ(b.listCommands.whyNoCopy(CopyMode::Split).empty(), splits) << frame;
    b.listCommands.copy(CopyMode::Split);
    EXPECT_EQ(b.collection.icurMov, splits ? 2 : 1);
    if (!splits) continue;
    const auto& part = b.clip(2);
    EXPECT_EQ(b.clip(1).LoopEnd().text() + " " + part.LoopStart().text() + " " + part.LoopEnd().text(),
              "3.99 4 8");
    EXPECT_EQ((std::vector{b.clip(1).LoopEndFrames(), part.LoopStartFrames(), part.LoopEndFrames()}),
              (std::vector<Long>{99, 100, 200}));
    EXPECT_EQ(part.AltName(), "a.avi - 001");
    EXPECT_EQ(b.clip(2).TransIn(), 20) << "half of what is played";
    EXPECT_EQ(b.settings.state.ObjectChange, 99);
    EXPECT_EQ(b.window.history.undo, "Undo split a.avi");
    b.history.undo();
    EXPECT_EQ(b.text(), first);
  }
}

}  // namespace
}  // namespace kvo
