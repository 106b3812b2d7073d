#pragma once

#include "entry/CaseHooks.h"
#include "entry/EntryControls.h"
#include "entry/FieldDisplay.h"
#include "entry/OpenScreen.h"
#include "entry/ScreenDefinition.h"
#include "entry/ScreenFields.h"
#include "entry/Validation.h"

namespace quorvel {

// What the units that drive an open screen work with. All of it belongs to its window.
struct ScreenParts {
  OpenScreen& screen;
  EntryControls& controls;
  const ScreenDefinition& definition;
  ScreenFields& fields;
  const CaseHooks& hooks;
  const FieldDisplay& display;
  const Validation& validation;
};

}  // namespace quorvel
