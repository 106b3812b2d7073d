#include "entry/CaseHooks.h"

#include "link/SessionState.h"

namespace quorvel {
namespace {

const char* PrefixOf(FieldHook hook) {
  switch (hook) {
    case FieldHook::BeforeInput:
      return "bi_";
    case FieldHook::AfterInput:
      return "ai_";
    case FieldHook::AfterStore:
      return "as_";
    case FieldHook::BeforeOutput:
      return "bo_";
  }
  return "";
}

}  // namespace

bool CaseHooks::CallRecord(const std::string& hook) const {
  SessionState& s = Session();
  if (s.CaseProgram.empty()) return false;
  s.CaseData.clear();
  s.CaseHook = hook;
  screen_.CaseCall("0");
  return true;
}

bool CaseHooks::RecordFails(const std::string& hook) const {
  return CallRecord(hook) && Session().CaseData == "Error";
}

std::string CaseHooks::AskRecord(const std::string& hook) const {
  return CallRecord(hook) ? Session().CaseHook : std::string();
}

bool CaseHooks::CallField(FieldHook hook, const FieldDefinition& field,
                          const std::optional<std::string>& data) const {
  SessionState& s = Session();
  if (s.CaseProgram.empty() || !field.Calls(hook) || field.name.empty()) return false;
  s.CaseHook = PrefixOf(hook) + field.name;
  if (data) s.CaseData = *data;
  screen_.CaseCall(std::to_string(field.number));
  return true;
}

}  // namespace quorvel
