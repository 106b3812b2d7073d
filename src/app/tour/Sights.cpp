#include "app/tour/Sights.h"

#include <QMessageBox>

#include "entry/frmEntry.h"
#include "link/SessionState.h"
#include "menus/frmSubMenu.h"
#include "output/frmImage.h"
#include "output/frmReport.h"
#include "terminal/frmTelnet.h"

namespace quorvel {

bool MenuShows(const std::string& title) {
  const frmSubMenu* menu = LoadedForm<frmSubMenu>();
  return menu && menu->IsVisible() && desktop().focus().Front() == menu &&
         Session().MenuText.rfind(title, 0) == 0 && Session().PendingOp.empty();
}

bool MainMenuShows() {
  return MenuShows("Main Menu") && !BoxShows();
}

bool TerminalShows(const std::string& text) {
  const frmTelnet* window = LoadedForm<frmTelnet>();
  if (!window || desktop().focus().Front() != window) return false;
  for (const std::string& line : window->VT2201.ScreenLines()) {
    if (line.find(text) != std::string::npos) return true;
  }
  return false;
}

bool BoxShows(const char* text) {
  const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  return box && box->text().contains(QLatin1String(text));
}

bool PopupShows() {
  return QApplication::activePopupWidget() != nullptr;
}

frmEntry* EntryScreen() {
  frmEntry* screen = LoadedForm<frmEntry>();
  const bool quiet = screen && screen->IsVisible() && Session().PendingOp.empty() && !BoxShows();
  return quiet ? screen : nullptr;
}

bool KeyEntryShows() {
  const frmEntry* screen = EntryScreen();
  return screen && screen->cmdOK.Enabled();
}

bool RecordShows() {
  const frmEntry* screen = EntryScreen();
  return screen && !screen->cmdOK.Enabled();
}

bool ReportShows(std::size_t lines) {
  const frmReport* report = LoadedForm<frmReport>();
  return report && report->IsVisible() && report->txtReport.Lines().Count() >= lines;
}

bool PictureShows() {
  const frmImage* image = LoadedForm<frmImage>();
  return image && image->IsVisible() && image->ledPicture.ImageHandle() && !BoxShows();
}

bool SessionOver() {
  return LoadedForm<frmTelnet>() == nullptr && LoadedForm<frmSubMenu>() == nullptr &&
         QApplication::activeModalWidget() == nullptr;
}

std::string WhatShows() {
  std::string text;
  for (const Window* window : desktop().LoadedWindows()) {
    text += window->Name() + " is loaded" + (window->IsVisible() ? " and visible" : "");
    text += desktop().focus().Front() == window ? ", in front\n" : "\n";
  }
  if (const QWidget* modal = QApplication::activeModalWidget()) {
    text += std::string(modal->metaObject()->className()) + " is open";
    const auto* box = qobject_cast<const QMessageBox*>(modal);
    text += box ? ": " + box->text().toStdString() + "\n" : "\n";
  }
  if (!Session().PendingOp.empty()) text += "the session waits: " + Session().PendingOp + "\n";
  return text;
}

}  // namespace quorvel
