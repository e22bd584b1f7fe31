// The program's boxes, driven as a user drives them.
#include "ui/widget_bench.h"
#include "windows/message/frm_message_boxes.h"
#include "windows/message/message_window.h"

#include <QTimer>
#include <QToolButton>
#include <functional>

namespace kvo {
namespace {

struct MessageBoxes : testing::Test {
  FrmMessageBoxes boxes;

  /// Does `act` with the box that is open next.
  static void whenShown(const std::function<void(MessageWindow&)>& act) {
    QTimer::singleShot(0, [act] {
      auto* window = dynamic_cast<MessageWindow*>(QApplication::activeModalWidget());
      ASSERT_NE(window, nullptr);
      act(*window);
    });
  }
};

TEST_F(MessageBoxes, AreAnsweredByKeyboardAndPointer) {
  using Keys = std::vector<Qt::Key>;
  const struct {
    BoxButtons buttons;
    Keys keys;
    Answer answer;
    bool isRisky = false;
  } rows[] = {
      {BoxButtons::Ok, {Qt::Key_Return}, Answer::Ok},
      {BoxButtons::Ok, {Qt::Key_Escape}, Answer::Ok},
      {BoxButtons::OkCancel, {Qt::Key_Space}, Answer::Ok},
      {BoxButtons::OkCancel, {Qt::Key_Escape}, Answer::Cancel},
      {BoxButtons::YesNo, {Qt::Key_Enter}, Answer::Yes},
      {BoxButtons::YesNo, {Qt::Key_Escape}, Answer::No},
      {BoxButtons::YesNo, {Qt::Key_N}, Answer::No},
      {BoxButtons::YesNo, {Qt::Key_Q, Qt::Key_Tab, Qt::Key_Return}, Answer::No},
      {BoxButtons::YesNoCancel, {Qt::Key_Right, Qt::Key_Right, Qt::Key_Space}, Answer::Cancel},
      {BoxButtons::YesNoCancel, {Qt::Key_Escape}, Answer::Cancel},
      {BoxButtons::YesNoCancel, {}, Answer::Cancel},  // by the cross
      {BoxButtons::YesNo, {Qt::Key_Return}, Answer::No, true},
      {BoxButtons::YesNo, {Qt::Key_Y}, Answer::Yes, true},
  };
  for (const auto& row : rows) {
    whenShown([&](MessageWindow& window) {
      for (const auto* key : window.findChildren<QPushButton*>())
        EXPECT_EQ(key->property("kind") == "primary", key == window.focusWidget())
            << key->text().toStdString();
      for (const auto key : row.keys) QTest::keyClick(window.focusWidget(), key);
      if (row.keys.empty()) window.findChild<QToolButton*>()->click();
    });
    Box box{"Caption", "Text", row.buttons};
    box.isRisky = row.isRisky;
    EXPECT_EQ(boxes.show(box), row.answer)
        << static_cast<int>(row.buttons) << testing::PrintToString(row.keys);
  }
}

TEST_F(MessageBoxes, ShowTheirTextsAndAreReadAloud) {
  whenShown([&](MessageWindow& window) {
    EXPECT_EQ(window.windowTitle(), "KVO - Caption");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->text(QAccessible::Description),
              "One of /two  three");
    test::expectNamed(window);
    for (const auto* text : {"KVO - Caption", "Error", "One of /two", "three", "Replace", "No", "Close"})
      EXPECT_NE(test::named(window, text), nullptr);
    window.close();
  });
  boxes.show({.caption = "KVO - Caption",
              .text = "One of /two\r\n\r\nthree\r\n",
              .buttons = BoxButtons::YesNo,
              .icon = BoxIcon::Critical,
              .renamed = {{"Yes", "Replace"}}});
}

TEST_F(MessageBoxes, FitTheScreenWhateverIsTold) {
  std::string text = std::string(300, 'x') + "\r\n";
  for (int i = 0; i < 200; ++i) text += "/srv/" + std::string(90, 'a') + "/clip.avi is missing\r\n";
  whenShown([&](MessageWindow& window) {
    EXPECT_LE(window.height(), 700);
    for (const auto* label : window.findChildren<QLabel*>())
      EXPECT_LE(label->width(), 470) << label->text().toStdString();
    window.close();
  });
  boxes.show({"Caption", text});
}

TEST_F(MessageBoxes, AreMovedByTheirFace) {
  whenShown([&](MessageWindow& window) {
    const auto before = window.pos();
    auto* label = test::named<QLabel>(window, "Text");
    QTest::mousePress(label, Qt::LeftButton, {}, {5, 5});
    test::movePointer(*label, {45, 25}, Qt::LeftButton);
    EXPECT_EQ(window.pos() - before, QPoint(40, 20));
    window.close();
  });
  boxes.show({"Caption", "Text"});
}

TEST_F(MessageBoxes, OfferNotToBeShownAgain) {
  for (const bool offers : {true, false}) {
    whenShown([&](MessageWindow& window) {
      auto* box = window.findChild<QCheckBox*>();
      ASSERT_EQ(box != nullptr, offers);
      if (offers) QTest::keyClick(box, Qt::Key_Space);
      QTest::keyClick(&window, Qt::Key_Return);
    });
    const auto answer = boxes.showStyled({"Tip", "A tip", "Click OK to continue", true, offers});
    EXPECT_EQ(answer.answer, Answer::Yes);
    EXPECT_EQ(answer.neverAgain, offers);
  }
}

TEST_F(MessageBoxes, TakeALineThatIsTyped) {
  const struct {
    const char* typed;
    Qt::Key key;
    std::optional<std::string> answer;
    const char* begins = "";
  } rows[] = {{" http://a/n.asx ", Qt::Key_Return, "http://a/n.asx"},
              {"http://a", Qt::Key_Escape, std::nullopt},
              {"  ", Qt::Key_Return, std::nullopt},
              {"", Qt::Key_Return, "lake at dusk", "lake at dusk"},
              {"b", Qt::Key_Return, "b", "chosen as a whole"}};
  for (const auto& row : rows) {
    whenShown([&](MessageWindow& window) {
      auto* field = window.findChild<QLineEdit*>();
      ASSERT_EQ(window.focusWidget(), field);
      EXPECT_EQ(field->accessibleName(), "Enter the URL");
      QTest::keyClicks(field, row.typed);
      QTest::keyClick(field, row.key);
      if (!window.isVisible()) return;
      EXPECT_EQ(window.typed(), "  ") << "nothing is no answer";
      QTest::keyClick(field, Qt::Key_Escape);
    });
    EXPECT_EQ(boxes.ask("Add Web page to Collection", "Enter the URL          ", row.begins), row.answer)
        << row.typed;
  }
}

TEST_F(MessageBoxes, AnswerThemselvesInTime) {
  QString told;
  whenShown([&](MessageWindow& window) {
    for (const auto* label : window.findChildren<QLabel*>()) told += label->text() + "|";
  });
  Box box{"Caption", "Text", BoxButtons::YesNo};
  box.seconds = 0.3;
  QElapsedTimer clock;
  clock.start();
  EXPECT_EQ(boxes.show(box), Answer::Yes);
  EXPECT_GE(clock.elapsed(), 300);
  EXPECT_TRUE(told.contains("Yes in 1 s")) << told.toStdString();
}

TEST_F(MessageBoxes, GoByThemselvesWhenNothingIsLeftToAsk) {
  for (const auto buttons : {BoxButtons::YesNo, BoxButtons::OkCancel}) {
    int looks = 0;
    Box box{"Caption", "Text", buttons};
    box.stands = [&] { return ++looks < 3; };
    EXPECT_EQ(boxes.show(box), buttons == BoxButtons::YesNo ? Answer::No : Answer::Cancel);
    EXPECT_EQ(looks, 3) << "it stays while the question stands";
  }
}

}  // namespace
}  // namespace kvo
