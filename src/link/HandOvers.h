#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quorvel {

class Panel;
class TelnetControl;
class Terminal;
class Window;

// Everything that this folder, or one above it, asks of a folder that stands higher: the only door
// upward. Each operation does nothing (or gives nothing) until its owner installs it at start-up.
// Whoever wants to know what the host can make the client do reads this page.
struct HandOvers {
  // --- the main window (menus)
  std::function<void()> ShowMainWindow = [] {};
  std::function<Window*()> MainWindow = [] { return nullptr; };
  std::function<Panel*()> ButtonPanel = [] { return nullptr; };  // pnlButtons
  std::function<void()> ShowButtonPanel = [] {};                 // places, shows and enables it
  std::function<void(int, const std::string&)> SetButtonCaption = [](int, const std::string&) {};
  std::function<std::string(int)> ButtonCaption = [](int) { return std::string(); };
  std::function<void()> ShowAbout = [] {};

  // --- the terminal window (terminal)
  std::function<TelnetControl*()> Telnet = [] { return nullptr; };  // TELNET1; loads frmTelnet
  std::function<TelnetControl*()> LoadedTelnet = [] { return nullptr; };  // never loads it
  std::function<Terminal*()> TerminalControl = [] { return nullptr; };    // VT2201, never loads it
  std::function<void()> ShowTelnetWindow = [] {};
  std::function<void()> FitTelnetWindow = [] {};  // sizes it and its terminal to the main window
  std::function<void()> FocusTelnetWindow = [] {};
  std::function<void()> FocusTerminal = [] {};  // VT2201
  std::function<void(std::string_view)> WriteTerminal = [](std::string_view) {};
  // What a capture keeps the user from: frmTelnet, pnlButtons, mnuBookMarks.
  std::function<void(bool)> EnableSessionWindows = [](bool) {};

  // --- settings
  std::function<void()> LoadConfiguration = [] {};
  std::function<void()> ApplySettings = [] {};
  std::function<void(Window& parent, Window& child)> CenterOnParent = [](Window&, Window&) {};
  std::function<void(Window&)> CenterOnScreen = [](Window&) {};
  std::function<void()> ShowTerminalSettings = [] {};  // frmTerm

  // --- command strings (terminal)
  std::function<void(const std::string&)> SendCommandString = [](const std::string&) {};
  std::function<void()> ShowCommandButtons = [] {};  // frmButtons
  std::function<void()> ShowFunctionKeys = [] {};    // frmFunk

  // --- menus
  std::function<void()> StartMenu = [] {};
  std::function<void()> HideMenu = [] {};
  std::function<void()> UnloadMenu = [] {};
  std::function<void(bool)> ScaleMenu = [](bool) {};  // with its window, or not at all
  std::function<void()> ShowBookmarks = [] {};
  std::function<void()> ShowHelpText = [] {};  // frmHelpText
  std::function<void()> UnloadHelpText = [] {};

  // --- data-entry screens (entry)
  std::function<void()> ShowEntryScreen = [] {};
  std::function<void()> UnloadEntryScreen = [] {};
  // The screen may be left, whatever record is open: the link has ended.
  std::function<void()> FreeEntryScreen = [] {};
  // The screen, its list and its locator go, whatever they hold.
  std::function<void()> DropEntryWindows = [] {};
  // Whether a record is open; then the screen is in front, and has said that it comes first.
  std::function<bool()> KeepsOpenRecord = [] { return false; };
  std::function<Window*()> EntryWindow = [] { return nullptr; };  // frmEntry, if it is loaded
  std::function<void(const std::string&)> ApplyScreenMode = [](const std::string&) {};
  std::function<void(int, const std::string&)> SelectComboItem = [](int, const std::string&) {};
  std::function<void(int, const std::string&)> SetFieldText = [](int, const std::string&) {};
  std::function<void(int)> FocusField = [](int) {};
  std::function<void()> ShowList = [] {};  // frmList, waits for it

  // --- output
  std::function<void(const std::string&)> RunExport = [](const std::string&) {};
  std::function<void()> ShowReport = [] {};            // frmReport, with the capture file
  std::function<void()> ShowImage = [] {};             // frmImage
  std::function<void()> ShowExportParameters = [] {};  // frmExpParm
  std::function<void()> ChoosePrinter = [] {};
  std::function<void()> ShowFaxSettings = [] {};
};

// The hand-overs of the process.
HandOvers& Ask();

}  // namespace quorvel
