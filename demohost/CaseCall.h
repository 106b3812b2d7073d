// A call of a screen's business rules: what the client sends at a hook, and the answer.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "demohost/Application.h"

namespace quorvel::demohost {

/// A frame for the client. Some make it send a return, which must come before the next frame goes.
struct Step {
  std::string frame;
  bool bringsReturn = false;
};

/// What the rules of one session remember from one call to the next.
using CaseMemory = std::map<std::string, std::string>;

/// Amounts in cents as the conversions MR2,$ and MR2 show them: "$1,234.50", "1234.50".
std::string Money(std::string_view cents);
std::string PlainMoney(std::string_view cents);

/// True for exactly that many digits.
bool IsDigits(std::string_view text, std::size_t count);

class CaseCall {
 public:
  CaseCall(Application& application, int sessionPort, const std::string& sessionUser,
           CaseMemory& remembered)
      : host(application), port(sessionPort), user(sessionUser), memory(remembered) {}

  Application& host;
  int port;  // the session, owner of its locks
  const std::string& user;
  CaseMemory& memory;

  // From the request, and back in the reply.
  int field = 0;         // number; 0 for the hooks of a record
  std::string hook;      // "AfterRead", "ai_CUST.LIMIT"
  std::string entry;     // the record on the screen: attribute n is field n, in stored form
  std::string original;  // the same as it was read
  std::string data;      // of field hooks: the value

  Store& Data() { return host.Data(); }
  std::string Value(int number) const;
  void Set(int number, std::string_view stored);
  /// Puts a text on the screen, in displayed form; the record is not touched.
  void Show(int number, std::string_view text);
  /// Both: the stored value into the record, its displayed form onto the screen.
  void SetAndShow(int number, std::string_view stored, std::string_view shown);
  /// A message box; the client goes on when the user has closed it.
  void Tell(std::string_view title, std::string_view text);
  /// Closes the fields that are open only for new records (MaintenanceMode) or for old ones.
  void MaintenanceMode();
  void EntryMode();

  /// Today's day number.
  long long Today() const;
  /// True if another session has the record locked. The client locks before it reads, but doesn't
  /// look at the answer: so this tells the user, and the reply closes the record again.
  bool InUse(std::string_view file, const std::string& key);

  // The reply words.
  void Error() { data = "Error"; }       // refuses the entry, or stops the operation
  void Return() { word_ = "RETURN"; }    // passes by the field, drops the entry, does not write
  void Replace(std::string_view value);  // after ai_: stores this value instead

  /// What goes out ahead of the reply, and the reply.
  const std::vector<Step>& Steps() const { return steps_; }
  std::string Reply() const;

 private:
  std::string word_;
  std::vector<Step> steps_;
};

}  // namespace quorvel::demohost
