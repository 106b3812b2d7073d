#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quorvel {

// The session's configuration file: a text file of sections and keys, extension "inf". Settings are
// fields of SessionState under the names of their keys.

// Reads every key from ConfigPath; a missing file or key gives the default. RuntimeError with
// section and key in its text for a value that does not convert; no field has changed then.
void ReadConfiguration();

// Writes the keys that the user can change to ConfigPath, all other lines of the file left as they
// are. A file that can't be written loses the values silently.
void WriteConfiguration();

// Writes these keys and values to one section of ConfigPath, in this order; for the windows that
// save settings of their own.
void WriteSettings(const std::string& section,
                   const std::vector<std::pair<std::string, std::string>>& values);

// Settles ConfigPath (from ConfigArgument, else by the open dialog), reads the file and applies
// what concerns the main window. ConfigPath is empty when the user cancelled. When the file can't
// be taken, the settings, ConfigPath and the title in force stay as they were.
void LoadConfiguration();

// Asks for a path to save under; leaves it in ConfigPath. Nothing changes on cancel.
void SaveSettingsAs();

// Saves, asking for a path only when there is none.
void SaveSettings();

// SaveSettingsAs and, if there is a path then, WriteConfiguration.
void SaveSettingsUnderNewName();

// Asks whether to save changed settings, and under which name.
void AskToSaveSettings();

}  // namespace quorvel
