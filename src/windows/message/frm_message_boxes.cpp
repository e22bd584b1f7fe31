#include "windows/message/frm_message_boxes.h"

#include "ui/texts.h"
#include "windows/message/message_window.h"

#include <QApplication>
#include <QCoreApplication>
#include <QStringList>
#include <QWidget>

namespace kvo {
namespace {

QStringList linesOf(const std::string& text) {
  QStringList lines;
  for (const auto& line : shownLines(shown(text))) lines << told(line.toStdString());
  while (lines.size() > 1 && lines.back().isEmpty()) lines.pop_back();
  return lines;
}

MessageSign signOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Question:
      return MessageSign::Question;
    case BoxIcon::Warning:
      return MessageSign::Warning;
    case BoxIcon::Critical:
      return MessageSign::Error;
    case BoxIcon::Done:
      return MessageSign::Done;
    default:
      return MessageSign::Information;
  }
}

std::vector<Answer> answersOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case BoxButtons::YesNo:
      return {Answer::Yes, Answer::No};
    case BoxButtons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
    default:
      return {Answer::Ok};
  }
}

const char* nameOf(Answer answer) {
  switch (answer) {
    case Answer::Yes:
      return QT_TRANSLATE_NOOP("kvo::FrmMessageBoxes", "Yes");
    case Answer::No:
      return QT_TRANSLATE_NOOP("kvo::FrmMessageBoxes", "No");
    case Answer::Cancel:
      return QT_TRANSLATE_NOOP("kvo::FrmMessageBoxes", "Cancel");
    default:
      return QT_TRANSLATE_NOOP("kvo::FrmMessageBoxes", "OK");
  }
}

QString tr(const char* text) { return QCoreApplication::translate("kvo::FrmMessageBoxes", text); }

QString keyText(Answer answer, const Box& box) {
  for (const auto& [from, to] : box.renamed) {
    if (from == nameOf(answer)) return told(to);
  }
  return tr(nameOf(answer));
}

// The one that the user is at, or else that there is: a program that has just begun has none that is active.
QWidget* windowBelow() {
  if (auto* active = QApplication::activeWindow(); active != nullptr && active->isVisible()) return active;
  for (auto* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowType() == Qt::Window) return window;
  }
  return nullptr;
}

MessageQuestion madeOf(MessageQuestion question, const Box& box) {
  question.answers = answersOf(box.buttons);
  question.face.sign = signOf(box.icon);
  question.face.caption = told(box.caption);
  question.face.lines = linesOf(box.text);
  question.face.keys.clear();
  for (const auto answer : question.answers) question.face.keys << keyText(answer, box);
  question.seconds = box.seconds;
  question.isRisky = box.isRisky;
  question.stands = box.stands;
  return question;
}

StyledAnswer asked(const MessageQuestion& question, const Box& box) {
  return MessageWindow(madeOf(question, box), windowBelow()).ask();
}

}  // namespace

Answer FrmMessageBoxes::show(const Box& box) {
  ahead_();
  return asked({}, box).answer;
}

StyledAnswer FrmMessageBoxes::showStyled(const StyledBox& box) {
  ahead_();
  MessageQuestion question;
  question.face.prompt = told(box.prompt);
  if (box.offersNeverAgain) question.face.neverAgain = tr("Never show this message again");
  return asked(question, {.caption = box.caption,
                          .text = box.message,
                          .buttons = box.yesAndNo ? BoxButtons::YesNo : BoxButtons::Ok,
                          .icon = box.icon});
}

std::optional<std::string> FrmMessageBoxes::ask(const std::string& title, const std::string& prompt,
                                                const std::string& text) {
  ahead_();
  MessageQuestion question;
  question.face.asksForText = true;
  question.face.text = shown(text);
  MessageWindow window(madeOf(question, {.caption = title,
                                         .text = told(prompt).trimmed().toStdString(),
                                         .buttons = BoxButtons::OkCancel,
                                         .icon = BoxIcon::Question}),
                       windowBelow());
  if (window.ask().answer != Answer::Ok) return std::nullopt;
  return window.typed().trimmed().toStdString();
}

}  // namespace kvo
