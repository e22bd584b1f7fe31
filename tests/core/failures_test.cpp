#include "core/telling/failures.h"

#include "core/telling/message_table.h"
#include "core/telling/messages.h"
#include "support/fakes.h"
#include "support/memory_store.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Bench;

TEST(ErrorLog, EntriesHaveTheirExactBytes) {
  Bench b;
  b.log.LogError("text");
  EXPECT_EQ(b.files.all["/prog/KVOError.Log"],
            "text Error Logged at >>  - 07-03-2026  -  \r 07-03-2026  -   2:05:09 PM\r\n");
  b.log.trace("step 1");
  EXPECT_EQ(b.files.all["/prog/Trace.LOG"], "step 1  \r\n");
  EXPECT_EQ(b.settings.preferences().ErrorLog, "/prog/KVOError.Log");
  for (const auto& [hour, text] :
       {std::pair{0, " 12:05:09 AM"}, std::pair{12, " 12:05:09 PM"}, std::pair{9, " 9:05:09 AM"}}) {
    b.clock.time.hour = hour;
    b.log.LogError("t");
    EXPECT_TRUE(test::holds(b.files.all["/prog/KVOError.Log"], text)) << text;
  }
}

TEST(ErrorLog, ALogThatCannotBeWrittenIsToldOfInTheEmergencyFile) {
  Bench b;
  b.settings.adjust().ErrorLog = "/no/such/drive.log";
  b.files.unwritable.insert("/no/such/drive.log");
  b.log.LogError("lost");
  EXPECT_EQ(b.files.all["/prog/KVOERROR.LOG"],
            " **** W A R N I N G ****Error Handler did not process an error correctly. Possibly check  the "
            "Errorlog path is not set to an incorrect drive mapping in the INI file Or  You do not have "
            "Write permissions for this workstation. Contact your system administrator.\r\n");
  b.files.unwritable.insert("/prog/KVOERROR.LOG");
  b.log.LogError("lost again");
}

TEST(Failures, AFatalOneIsShownAndEndsTheProgram) {
  Bench b;
  b.settings.adjust().Support = "Mail us.";
  int ended = 0;
  Failures failures(b.log, b.boxes, b.settings, [&] { ++ended; });
  failures.LogError("minor");
  EXPECT_TRUE(b.boxes.shown.empty());
  failures.LogError("the end", true);
  EXPECT_EQ(b.boxes.told(),
            "KVO Fatal Error|An Error has occured - KVO is terminating. \r\nthe end\r\nMail us.");
  EXPECT_EQ(ended, 1);
  failures.LogError("traced", false, true);
  EXPECT_EQ(b.log.texts().size(), 2U);
  failures.ShowErrorBox("what", "before: ", " - Error");
  EXPECT_EQ(b.boxes.told(), "KVO5 - Error|before: what");
}

TEST(FrmMessage, IsNotShownAgainWhereTheUserSaidSo) {
  Bench b;
  test::MemoryStore store;
  Frm_Message message(b.boxes, store);
  b.boxes.styledAnswer = {Answer::Ok, true};
  for (const auto name : {std::string_view("FIRST"), std::string_view("FIRST"), std::string_view("SECOND"),
                          kNoShowCheck, kNoShowCheck})
    message.ShowWarningOKOnly("Tip", "A tip", name);
  ASSERT_EQ(b.boxes.styled.size(), 4U) << "once for each name, and each time without one";
  EXPECT_EQ(b.boxes.styled[0].prompt, "Click OK to continue");
  EXPECT_TRUE(b.boxes.styled[0].offersNeverAgain);
  b.boxes.styledAnswer = {Answer::No, false};
  EXPECT_EQ(message.ShowWarningBox("Sure", "Really ?"), Answer::No);
  EXPECT_TRUE(b.boxes.styled.back().yesAndNo && !b.boxes.styled.back().offersNeverAgain);
}

TEST(Messages, AreFoundByTheirNumbers) {
  EXPECT_EQ(LoadResString(491), "Right Click to Add Media");
  int last = 0;
  for (const auto& text : kNumberedTexts) {
    EXPECT_LT(last, text.number) << "in order, each once";
    last = text.number;
  }
}

}  // namespace
}  // namespace kvo
