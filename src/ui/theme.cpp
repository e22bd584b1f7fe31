#include "ui/theme.h"

#include "ui/focus_ring.h"
#include "ui/kvo_style.h"
#include "ui/made.h"
#include "ui/tool_tips.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QtMath>
#include <algorithm>
#include <array>

// What a static library carries has to be asked for, from outside any namespace.
static void carryResources() { Q_INIT_RESOURCE(ui); }

namespace kvo {
namespace {

constexpr int kIconSide = 16;
constexpr std::array kIconRatios = {1.0, 1.25, 1.5, 2.0};

constexpr const char* kSizeProperty = "themeSize";  // of the application
constexpr int kBodyText = 12;                       // pixels

int atSize(double pixels, double size) { return pixels <= 1 ? qFloor(pixels * size) : qRound(pixels * size); }

QByteArray resource(const QString& path) {
  carryResources();
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

QPalette themePalette() {
  struct Role {
    QPalette::ColorRole role;
    Rgb rgb;
  };
  constexpr std::array kRoles = {
      Role{QPalette::Window, token("ink1")},      Role{QPalette::WindowText, token("text1")},
      Role{QPalette::Base, token("ink0")},        Role{QPalette::AlternateBase, token("ink2")},
      Role{QPalette::Text, token("text1")},       Role{QPalette::PlaceholderText, token("text3")},
      Role{QPalette::Button, token("ink3")},      Role{QPalette::ButtonText, token("text1")},
      Role{QPalette::Highlight, token("tealBg")}, Role{QPalette::HighlightedText, token("text1")},
      Role{QPalette::ToolTipBase, token("tip")},  Role{QPalette::ToolTipText, token("text1")},
      Role{QPalette::Link, token("teal")},        Role{QPalette::LinkVisited, token("violet")},
      Role{QPalette::BrightText, token("red")},   Role{QPalette::Light, token("ink4")},
      Role{QPalette::Midlight, token("ink3")},    Role{QPalette::Mid, token("line2")},
      Role{QPalette::Dark, token("line1")},       Role{QPalette::Shadow, token("void")},
  };
  QPalette palette;
  for (const auto& [role, rgb] : kRoles) palette.setColor(role, toColour(rgb));
  for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
    palette.setColor(QPalette::Disabled, role, toColour(token("textOff")));
  }
  return palette;
}

QString themeSheet(double size) {
  auto sheet = QString::fromUtf8(resource(":/theme/kvo5.qss"));
  auto tokens = kTokens;  // of two names that begin alike the longer goes first
  std::sort(tokens.begin(), tokens.end(),
            [](const Token& a, const Token& b) { return a.name.size() > b.name.size(); });
  for (const auto& [name, rgb] : tokens) {
    sheet.replace("@" + QLatin1String(name.data(), static_cast<qsizetype>(name.size())),
                  toColour(rgb).name());
  }
  static const QRegularExpression lengths("([0-9.]+)px");
  QString sized;
  qsizetype from = 0;
  for (auto found = lengths.globalMatch(sheet); found.hasNext();) {
    const auto length = found.next();
    sized += sheet.mid(from, length.capturedStart() - from);
    sized += QString("%1px").arg(atSize(length.captured(1).toDouble(), size));
    from = length.capturedEnd();
  }
  return sized + sheet.mid(from);
}

QFont numberFont(double pixels) {
  QFont font;
  font.setFamilies({"JetBrains Mono", "Noto Sans Mono", "DejaVu Sans Mono"});
  font.setPixelSize(qRound(pixels));
  return font;
}

QFont themedFont(const QWidget& widget, double pixels, QFont::Weight weight) {
  auto font = widget.font();
  font.setPixelSize(themed(pixels));
  font.setWeight(weight);
  return font;
}

// Drawn once: to read and render a source takes longer than all else that is drawn of a key.
QPixmap iconPicture(const QString& name, Rgb colour, int side, double pixelRatio) {
  QPixmap picture;
  const auto kept = QString("kvo/%1/%2/%3/%4").arg(name).arg(colour).arg(side).arg(pixelRatio);
  if (QPixmapCache::find(kept, &picture)) return picture;
  auto svg = resource(":/icons/" + name + ".svg");
  if (svg.isEmpty()) return {};
  // The sources are drawn in the colour of text.
  svg.replace(toColour(token("text1")).name().toUpper().toLatin1(), toColour(colour).name().toLatin1());
  picture = QPixmap(qRound(side * pixelRatio), qRound(side * pixelRatio));
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  QSvgRenderer(svg).render(&painter);
  painter.end();
  picture.setDevicePixelRatio(pixelRatio);
  QPixmapCache::insert(kept, picture);
  return picture;
}

QIcon themeIcon(const QString& name) {
  QIcon icon;
  for (double ratio : kIconRatios) {
    const auto add = [&](Rgb colour, QIcon::Mode mode, QIcon::State state) {
      icon.addPixmap(iconPicture(name, colour, kIconSide, ratio), mode, state);
    };
    add(token("text1"), QIcon::Normal, QIcon::Off);
    add(token("tealHi"), QIcon::Normal, QIcon::On);
    add(token("textOff"), QIcon::Disabled, QIcon::Off);
  }
  return icon;
}

// Qt owns what it is given.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
void applyTheme(QApplication& application) {
  QApplication::setStyle(made<KvoStyle>());
  QApplication::setPalette(themePalette());
  setThemeSize(application, 1);
  made<FocusRing>(application);
  made<ToolTips>(application);
}
// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)

void setThemeSize(QApplication& application, double size) {
  application.setProperty(kSizeProperty, size);
  QFont font;
  font.setFamilies({"Inter", "Noto Sans", "DejaVu Sans"});
  font.setPixelSize(themed(kBodyText));
  QApplication::setFont(font);
  application.setStyleSheet(themeSheet(size));
}

double themeSize() {
  const auto size = QCoreApplication::instance()->property(kSizeProperty);
  return size.isValid() ? size.toDouble() : 1;
}

int themed(double pixels) { return atSize(pixels, themeSize()); }

}  // namespace kvo
