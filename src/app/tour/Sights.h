#pragma once

#include <QApplication>
#include <cstddef>
#include <string>

#include "platform/controls/Desktop.h"

namespace quorvel {

class frmEntry;

// What the user of the real windows sees.

// The menu with this title is in front, and no request is under way.
bool MenuShows(const std::string& title);
// The main menu, with no box above it: where every piece of work begins and ends.
bool MainMenuShows();
// The terminal is in front and shows this text.
bool TerminalShows(const std::string& text);
// A message box is open whose text holds this.
bool BoxShows(const char* text = "");
bool PopupShows();

template <class F>
bool DialogShows() {
  const F* form = LoadedForm<F>();
  return form && form->IsVisible();
}

// A dialog of the toolkit itself, as QFileDialog.
template <class Dialog>
bool ToolkitDialogShows() {
  return qobject_cast<Dialog*>(QApplication::activeModalWidget()) != nullptr;
}

// The data-entry screen, while no request of it is under way and no box above it; else nullptr.
frmEntry* EntryScreen();
// The screen waits for the key of a record.
bool KeyEntryShows();
// The screen shows a record.
bool RecordShows();
// The report viewer shows at least so many lines.
bool ReportShows(std::size_t lines);
bool PictureShows();
// No window of a session is left.
bool SessionOver();

// All of it in words, a line each, for the report of a step that did not get ready.
std::string WhatShows();

}  // namespace quorvel
