#include "platform/qt/Looks.h"

#include <QApplication>
#include <QFontDatabase>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "platform/qt/Text.h"

namespace quorvel {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kLargestFont = 500;  // points; more only costs memory

bool WantsFixedPitch(const QString& name) {
  return name.startsWith(QLatin1String("VT220"), Qt::CaseInsensitive) ||
         name.startsWith(QLatin1String("Courier"), Qt::CaseInsensitive) ||
         name.endsWith(QLatin1String("Mono"), Qt::CaseInsensitive) ||
         name.compare(QLatin1String("Fixedsys"), Qt::CaseInsensitive) == 0 ||
         name.compare(QLatin1String("Terminal"), Qt::CaseInsensitive) == 0;
}

QFont FindFixedPitch() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  // Complete in what a terminal shows, and of a truly fixed pitch in both weights.
  if (QFontDatabase::hasFamily(QStringLiteral("DejaVu Sans Mono"))) {
    font.setFamily(QStringLiteral("DejaVu Sans Mono"));
  }
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  return font;
}

// Looked up once: asking the system for each control of a screen was a third of its building.
QFont FixedPitch() {
  static const QFont font = FindFixedPitch();
  return font;
}

}  // namespace

// Some X servers make up a resolution near to the usual one; a layout in whole pixels is worth
// more than that difference.
int TwipsPerPixel() {
  constexpr double kUsual = 96;
  constexpr double kNear = 8;
  const QScreen* screen = QGuiApplication::primaryScreen();
  const double dpi = screen ? screen->logicalDotsPerInch() : kUsual;
  const double counted = std::abs(dpi - kUsual) <= kNear ? kUsual : dpi;
  return std::max(1, qRound(kTwipsPerInch / counted));
}

int ToPixels(int twips) {
  return qRound(static_cast<double>(twips) / TwipsPerPixel());
}

int ToTwips(int pixels) {
  return pixels * TwipsPerPixel();
}

QFont ToQFont(const Font& font) {
  const QString name = ToCaption(font.name);
  QFont out = QApplication::font();
  if (!name.isEmpty() && QFontDatabase::hasFamily(name)) {
    out = QFont(name);
  } else if (WantsFixedPitch(name)) {
    out = FixedPitch();
  }
  if (font.size > 0) out.setPointSizeF(std::min(font.size, kLargestFont));
  out.setBold(font.bold);
  out.setItalic(font.italic);
  return out;
}

QColor ToQColor(int colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

}  // namespace quorvel
