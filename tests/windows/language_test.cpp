// The window in another language: what the program says of itself is in it, what the user has is as it is.
#include "adapters/qt/qt_translations.h"
#include "core/telling/translated.h"
#include "ui/texts.h"
#include "windows/face_bench.h"

#include <QRegularExpression>
#include <QTranslator>
#include <algorithm>

namespace kvo {
namespace {

using test::FaceBench;

// A language in which everything stands between brackets.
class Brackets : public QTranslator {
 public:
  Brackets()
      : before_(
            std::locale::global(std::locale(std::locale(), std::make_unique<QtTranslations>().release()))) {
    QCoreApplication::installTranslator(this);
  }

  ~Brackets() override {
    QCoreApplication::removeTranslator(this);
    std::locale::global(before_);
  }
  [[nodiscard]] bool isEmpty() const override { return false; }
  QString translate(const char* /*context*/, const char* text, const char* /*more*/,
                    int /*n*/) const override {
    return QString("[%1]").arg(text);
  }

 private:
  std::locale before_;
};

// The texts that stand in no brackets and do not come from the clips, as their names, kinds and measures do.
QStringList untranslated(const QStringList& texts) {
  static const QRegularExpression measures(QString::fromUtf8("^[\\d .×x]+(- [A-Z]+)?$"));
  QStringList out;
  for (const auto& text : texts) {
    const bool says = std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.isLetter(); });
    if (says && !text.contains('[') && !text.contains(".avi") && !text.contains("/v/") && text != "KVO5" &&
        !measures.match(text).hasMatch())
      out << text;
  }
  out.removeDuplicates();
  return out;
}

QStringList textsOf(const QWidget& face) {
  QStringList texts{face.windowTitle()};
  for (auto* widget : face.findChildren<QWidget*>()) {
    texts << widget->accessibleName() << widget->accessibleDescription() << widget->toolTip();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) texts << label->text();
  }
  return texts;
}

void addCaptions(QStringList& texts, const std::vector<MenuEntry>& entries) {
  for (const auto& entry : entries) {
    texts << told(entry.caption);
    addCaptions(texts, entry.entries);
  }
}

TEST(Language, AllThatTheWindowSaysIsTranslated) {
  const Brackets language;
  for (const auto& clips : {std::vector<std::string>{}, {"a.avi", "b.avi"}}) {
    FaceBench b(clips);
    b.listCommands.moveDown();
    b.history.undo();
    b.window.resume.chip = translated("Resume at %1", {"1:00"});
    b.draw();
    auto texts = textsOf(b.face());
    addCaptions(texts, b.menu.windowMenu());
    addCaptions(texts, b.menu.listMenu());
    EXPECT_GT(texts.size(), 60);
    EXPECT_EQ(untranslated(texts).join(" | ").toStdString(), "");

    b.links.display().Lbl_MiniMode_Click();
    b.draw();
    EXPECT_EQ(untranslated(textsOf(b.face())).join(" | ").toStdString(), "");
  }
}

TEST(Language, WhatIsPutIntoATextStandsInItsPlaceAsItIs) {
  for (const auto& [pattern, text] :
       {std::pair{"%2 of %1", "b %1 of a"}, {"%1%", "a%"}, {"%3 %0 %", "%3 %0 %"}, {"", ""}})
    EXPECT_EQ(translated(pattern, {"a", "b %1"}), text);
}

}  // namespace
}  // namespace kvo
