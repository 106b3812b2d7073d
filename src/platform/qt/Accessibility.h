#pragma once

#include <QString>
#include <string>

class QAccessibleInterface;

namespace quorvel {

// Gives the program's own widgets their roles for assistive tools: main window, child windows and
// dialogs, and terminals with their text. To be installed with the application there, and removed
// before it goes.
void InstallAccessibility();
void RemoveAccessibility();

// An accessible description. Test tools find things by their code names: with QUORVEL_A11Y_IDS=1 in
// the environment it ends in " [id:" code name "]".
QString AccessibleDescription(const QString& text, const std::string& codeName);

}  // namespace quorvel
