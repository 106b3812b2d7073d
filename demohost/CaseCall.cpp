#include "demohost/CaseCall.h"

#include "demohost/Format.h"
#include "demohost/Frames.h"
#include "demohost/Record.h"

namespace quorvel::demohost {

std::string Money(std::string_view cents) {
  return "$" + Show(Form::Money, cents);
}

std::string PlainMoney(std::string_view cents) {
  auto text = Show(Form::Money, cents);
  std::erase(text, ',');
  return text;
}

bool IsDigits(std::string_view text, std::size_t count) {
  return text.size() == count && text.find_first_not_of("0123456789") == std::string::npos;
}

std::string CaseCall::Value(int number) const {
  return Attribute(entry, number);
}

void CaseCall::Set(int number, std::string_view stored) {
  SetAttribute(entry, number, stored);
}

void CaseCall::Show(int number, std::string_view text) {
  steps_.push_back({Frame({"~GENOUT~", std::to_string(number), text})});
}

void CaseCall::SetAndShow(int number, std::string_view stored, std::string_view shown) {
  Set(number, stored);
  Show(number, shown);
}

void CaseCall::Tell(std::string_view title, std::string_view text) {
  steps_.push_back({Frame({"~MSGBOX~", title, text}), true});
}

void CaseCall::MaintenanceMode() {
  steps_.push_back({Frame({"~MAINT.MODE~"}), true});
}

void CaseCall::EntryMode() {
  steps_.push_back({Frame({"~ENTRY.MODE~"}), true});
}

void CaseCall::Replace(std::string_view value) {
  word_ = "CHGKEY";
  data = value;
}

long long CaseCall::Today() const {
  return DayNumber(host.Now());
}

bool CaseCall::InUse(std::string_view file, const std::string& key) {
  const auto& locks = host.RecordLocks();
  if (!locks.HeldByOther(port, file, key)) return false;
  const auto holder = host.NameOf(locks.Holder(file, key).value_or(0));
  Tell("Record in use", key + " is being changed by " + holder + ".");
  Error();
  return true;
}

std::string CaseCall::Reply() const {
  return Frame({"~CASELOGIC~", word_.empty() ? hook : word_, entry, original, data});
}

}  // namespace quorvel::demohost
