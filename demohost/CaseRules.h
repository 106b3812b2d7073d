// Business rules of the screens, by program and hook.
#pragma once

#include <span>
#include <string_view>

#include "demohost/CaseCall.h"

namespace quorvel::demohost {

struct CaseRule {
  std::string_view program, hook;
  void (*run)(CaseCall&);
};

/// Runs the rule that `program` has for the hook of the call; without one, the reply is what came.
void RunCaseRules(std::string_view program, CaseCall& call);

std::span<const CaseRule> OrderRules();

}  // namespace quorvel::demohost
