#include "windows/gallery/gallery.h"

#include "ui/colour_button.h"
#include "ui/cool_list_view.h"
#include "ui/digit_display.h"
#include "ui/kvo_but.h"
#include "ui/level_lights.h"
#include "ui/made.h"
#include "ui/message_card.h"
#include "ui/progress_bar.h"
#include "ui/theme.h"
#include "ui/work_key.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFocusFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <QStyleOption>
#include <array>
#include <functional>

namespace kvo {
namespace {

enum class State { Rest, Hover, Pressed, Disabled, Focus, Lit };
constexpr std::array kStates = {State::Rest,     State::Hover, State::Pressed,
                                State::Disabled, State::Focus, State::Lit};
constexpr std::array kStateNames = {"Rest", "Hover", "Pressed", "Disabled", "Focus", "Lit"};

QLabel* label(const QString& text, const char* role) {
  auto* made = kvo::made<QLabel>(text);
  made->setProperty("role", role);
  return made;
}

// Looks as if the keyboard had brought the focus to it.
template <class Button, class Option>
class Focused : public Button {
 public:
  using Button::Button;

 protected:
  void initStyleOption(Option* option) const override {
    Button::initStyleOption(option);
    option->state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
  }
};

// Holds a widget in a state that otherwise only the user brings about.
void hold(QAbstractButton& button, State state) {
  button.setCheckable(state == State::Lit || button.isCheckable());
  button.setChecked(state == State::Lit || button.isChecked());
  button.setDown(state == State::Pressed);
  button.setEnabled(state != State::Disabled);
  button.setAttribute(Qt::WA_UnderMouse, state == State::Hover);
  if (state == State::Hover) {
    const QPointF middle(button.sizeHint().width() / 2.0, button.sizeHint().height() / 2.0);
    QMouseEvent over(QEvent::MouseMove, middle, middle, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &over);
  }
  const bool marksItself =
      qobject_cast<QCheckBox*>(&button) != nullptr || qobject_cast<QRadioButton*>(&button) != nullptr;
  if (state == State::Focus && !marksItself) made<QFocusFrame>(&button)->setWidget(&button);
}

// Rows of one kind of button each, a column a state.
class StateGrid : public QWidget {
 public:
  StateGrid() : grid_(made<QGridLayout>(this)) {
    grid_->setContentsMargins(16, 16, 16, 16);
    grid_->setHorizontalSpacing(24);
    grid_->setVerticalSpacing(10);
    for (std::size_t i = 0; i < kStates.size(); ++i) {
      grid_->addWidget(label(kStateNames[i], "hint"), 0, static_cast<int>(i) + 1, Qt::AlignCenter);
    }
  }

  void add(const QString& name, const std::function<QAbstractButton*(State)>& make) {
    const int row = grid_->rowCount();
    grid_->addWidget(label(name, "value"), row, 0);
    for (std::size_t i = 0; i < kStates.size(); ++i) {
      auto* button = make(kStates[i]);
      if (button == nullptr) continue;
      grid_->addWidget(button, row, static_cast<int>(i) + 1, Qt::AlignCenter);
      hold(*button, kStates[i]);
    }
  }
  void add(const QString& name, std::initializer_list<QWidget*> parts) {
    const int row = grid_->rowCount();
    grid_->addWidget(label(name, "value"), row, 0);
    int column = 1;
    for (auto* part : parts) {
      grid_->addWidget(part, row, column, 1, 2, Qt::AlignVCenter);
      column += 2;
    }
  }

 private:
  QGridLayout* grid_;
};

QPushButton* key(const QString& text, const char* kind) {
  auto* button = made<QPushButton>(text);
  button->setProperty("kind", kind);
  return button;
}

KVOBut* iconKey(const QString& icon, const QString& text = {}) {
  auto* button = made<KVOBut>();
  button->setIconName(icon);
  button->setText(text);
  button->setToolTip(text.isEmpty() ? icon : text);
  return button;
}

// With the shipped pictures, or as it is without them.
KVOBut* pictureKey(const QString& stem, const QString& text) {
  const auto path = QCoreApplication::applicationDirPath() + "/../share/kvo5/Buttons/" + stem;
  auto* button = iconKey({}, text);
  button->setPictures(path + "Nrm.bmp", path + "HVR.bmp", path + "DN.bmp");
  return button;
}

QSlider* slider(State state) {
  auto* slider = state == State::Focus ? made<Focused<QSlider, QStyleOptionSlider>>(Qt::Horizontal)
                                       : made<QSlider>(Qt::Horizontal);
  slider->setAccessibleName("Slider");
  slider->setValue(40);
  slider->setEnabled(state != State::Disabled);
  return slider;
}

ProgressBar* progress(int maximum, int value) {
  auto* bar = made<ProgressBar>();
  bar->setRange(0, maximum);
  bar->setValue(value);
  return bar;
}

LevelLights* lights(int level) {
  auto* made = kvo::made<LevelLights>();
  made->setLevel(level);
  return made;
}

DigitDisplay* digits(double height, const QString& text) {
  auto* display = made<DigitDisplay>(height);
  display->setText(text);
  return display;
}

WorkKey* work(const QString& words, double share, bool isBad) {
  auto* key = made<WorkKey>(nullptr);
  key->draw(words, "Renders in the background", share, isBad, themeSize());
  return key;
}

QWidget* colours() {
  auto* button = made<ColourButton>(token("detail"));
  button->setAccessibleName("Colour");
  return button;
}

QPushButton* menuKey() {
  auto* button = key("Menu", "");
  auto* menu = made<QMenu>(button);
  menu->addAction("Add Media...", QKeySequence("Ins"), [] {});
  menu->addSeparator();
  for (const auto* text : {"Loop clips", "Rewind at End and Stop"}) menu->addAction(text)->setCheckable(true);
  menu->actions().at(2)->setChecked(true);
  menu->actions().at(3)->setEnabled(false);
  auto* kinds = menu->addMenu("Visualisations");
  auto* one = made<QActionGroup>(menu);
  for (const auto* text : {"Use Graphical Visualisations", "Use Video Visualisations"}) {
    one->addAction(kinds->addAction(text))->setCheckable(true);
  }
  one->actions().at(1)->setChecked(true);
  button->setMenu(menu);
  return button;
}

QWidget* statesPage() {
  auto* page = made<StateGrid>();
  page->add("Pictures",
            [](State state) { return state == State::Lit ? nullptr : pictureKey("Plst_ADD", "Add"); });
  page->add("List keys", [](State) { return iconKey("add"); });
  page->add("Key with text", [](State) { return iconKey("repeat", "Reset"); });
  page->add("Primary", [](State state) { return state == State::Lit ? nullptr : key("Preview", "primary"); });
  page->add("Button", [](State) { return key("Preview", ""); });
  page->add("Danger", [](State state) { return state == State::Lit ? nullptr : key("Abort", "danger"); });
  page->add("Quiet", [](State state) { return state == State::Lit ? nullptr : key("Back", "quiet"); });
  page->add("Check", [](State state) -> QAbstractButton* {
    if (state == State::Focus) return made<Focused<QCheckBox, QStyleOptionButton>>("Off");
    return made<QCheckBox>(state == State::Lit ? "On" : "Off");
  });
  page->add("Option", [](State state) -> QAbstractButton* {
    auto* option = state == State::Focus ? made<Focused<QRadioButton, QStyleOptionButton>>("Off")
                                         : made<QRadioButton>(state == State::Lit ? "On" : "Off");
    option->setAutoExclusive(false);
    return option;
  });
  page->add("Slider", {slider(State::Rest), slider(State::Disabled), slider(State::Focus)});
  auto* sizes = made<QComboBox>();
  sizes->addItems({"640 x 480", "1280 x 720"});
  sizes->setAccessibleName("Size");
  auto* name = made<QLineEdit>("Holiday.wmv");
  name->setAccessibleName("Name");
  auto* number = made<QSpinBox>();
  number->setAccessibleName("Number");
  page->add("Fields", {sizes, name, number});
  page->add("Progress", {progress(12, 5), progress(0, 0), progress(12, 12)});
  page->add("Level", {lights(5), lights(9), lights(0)});
  page->add("Digits", {digits(16.5, "00:04:0104"), digits(36, "04.1600")});
  page->add("Work", {work("43%, 2 renders wait", 0.43, false), work("1 render failed", 0, true)});
  page->add("Colour, menu", {colours(), menuKey()});
  return page;
}

QPixmap selectionPicture() {
  QPixmap picture(32, 32);
  picture.fill(toColour(token("violetLo")));
  QPainter(&picture).fillRect(0, 24, 32, 8, toColour(token("violet")));
  return picture;
}

CoolListView* list(int style, int count) {
  auto* view = made<CoolListView>();
  CoolListProperties p;
  p.SelectModeStyle = style;
  p.SelectMode = style % 2;
  p.ItemHeightAuto = false;
  p.ItemHeight = 24;
  p.ItemTextLeft = 34;
  p.ScrollBarWidth = 14;
  p.BoxRadius = 4;
  p.WordWrap = false;
  view->setProperties(p);
  view->setFixedSize(238, 150);
  view->setSelectionPicture(selectionPicture());
  std::vector<QPixmap> icons;
  for (const auto* icon : {"film", "music", "still"}) {
    icons.push_back(iconPicture(icon, token("text2"), 16, view->devicePixelRatio()));
    icons.push_back(iconPicture(icon, token("tealHi"), 16, view->devicePixelRatio()));
  }
  view->SetImageList(icons);
  view->setLook({"Right Click to Add Media", 10, Qt::ElideRight,
                 [](int index) { return QString("0:%1").arg(index % 60, 2, 10, QChar('0')); }, true});
  constexpr std::array kNames = {"Opening", "lake at dusk.mpg", "a name that does not fit into the row.avi",
                                 "photo.jpg"};
  for (int i = 0; i < count; ++i) {
    const int kind = i % 3 * 2 + 1;
    view->list().AddItem(kNames[static_cast<std::size_t>(i) % kNames.size()], kind, kind + 1);
  }
  if (count > 1) {
    static_cast<void>(view->list().setListIndex(1));
    static_cast<void>(view->list().setItemSelected(1, true));
  }
  view->setAccessibleName(QString("Style %1").arg(style));
  return view;
}

QWidget* listsPage() {
  auto* page = made<QWidget>();
  auto* grid = made<QGridLayout>(page);
  grid->setContentsMargins(16, 16, 16, 16);
  constexpr int kColumns = 3, kStyles = 7;
  const auto put = [&](int cell, const QString& name, QWidget* view) {
    const int row = cell / kColumns * 2, column = cell % kColumns;
    grid->addWidget(label(name, "caption"), row, column);
    grid->addWidget(view, row + 1, column);
  };
  for (int style = 0; style < kStyles; ++style) {
    put(style, QString("Style %1").arg(style), list(style, style == 0 ? 10000 : 4 + style));
  }
  put(kStyles, "Empty", list(0, 0));
  auto* off = list(0, 4);
  off->setEnabled(false);
  put(kStyles + 1, "Disabled", off);
  grid->setRowStretch(grid->rowCount(), 1);
  return page;
}

QWidget* messagesPage() {
  auto* page = made<QWidget>();
  auto* grid = made<QGridLayout>(page);
  grid->setContentsMargins(16, 16, 16, 16);
  grid->setSpacing(16);
  const MessageFace faces[] = {
      {MessageSign::Warning,
       "KVO - Transition warning",
       {"This clip or the previous clip is too short", "to apply a transition to"},
       "Click OK to continue",
       "Never show this message again",
       {"OK"}},
      {MessageSign::Error,
       "KVO5 - Error in Morph file",
       {"The picture is missing"},
       "Click OK to continue",
       "",
       {"OK"}},
      {MessageSign::Done,
       "Completed",
       {"The movie has been created.", "", "Play it?"},
       "",
       "",
       {"Yes", "No"}},
  };
  int cell = 0;
  for (const auto& face : faces) {
    grid->addWidget(made<MessageCard>(face), cell / 2, cell % 2, Qt::AlignTop);
    ++cell;
  }
  grid->setRowStretch(grid->rowCount(), 1);
  grid->setColumnStretch(2, 1);
  return page;
}

// On a screen that is lower than the page.
QWidget* scrolled(QWidget* page) {
  auto* area = made<QScrollArea>();
  area->setAccessibleName(QObject::tr("Widgets"));
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setWidget(page);
  return area;
}

}  // namespace

Gallery::Gallery(QWidget* parent) : QTabWidget(parent) {
  setWindowTitle("KVO5 - Widgets");
  addTab(scrolled(statesPage()), "States");
  addTab(scrolled(listsPage()), "Lists");
  addTab(scrolled(messagesPage()), "Messages");
  resize(1000, 720);  // with a frame it fits a screen of 768 lines
}

}  // namespace kvo
