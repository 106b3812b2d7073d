#pragma once

#include "entry/EntryControls.h"
#include "entry/ScreenDefinition.h"
#include "entry/ScreenFields.h"

namespace quorvel {

// Builds the controls of a screen from its definition: display lines, key fields with cmdOK beside
// the last one, all other fields. Lengths are twips and fit 16 bits with sign.
//
// A failure ends the building in one message box that names the line or field; false then, and
// what has been built stays.
bool BuildScreen(const ScreenDefinition& definition, EntryControls& controls, ScreenFields& fields);

}  // namespace quorvel
