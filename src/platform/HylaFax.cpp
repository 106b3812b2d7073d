#include "platform/HylaFax.h"

#include <algorithm>

#include "platform/PlainText.h"

namespace quorvel {
namespace {

bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < ' ' || code == 0x7F;
}

// Without blanks at either end, and blanks for control characters and for those in `special`.
std::string OneLine(std::string text, std::string_view special = {}) {
  std::replace_if(
      text.begin(), text.end(),
      [special](char c) { return IsControl(c) || special.find(c) != std::string_view::npos; }, ' ');
  return std::string(Trimmed(text));
}

// A name may not hold what separates a name from an address.
std::string Name(const std::string& text) {
  return OneLine(text, "@<>()\"#");
}

std::string Lines(const std::string& text) {
  std::string out;
  for (const char c : text) {
    if (c == '\n') {
      out += "\\n";
    } else if (c != '\r') {
      out += IsControl(c) ? ' ' : c;
    }
  }
  return out;
}

std::string Comments(const FaxJob& job) {
  std::string comments;
  const auto add = [&comments](const char* label, const std::string& value) {
    if (!value.empty()) comments += label + value + "\\n";
  };
  add("Date: ", OneLine(job.CoverDate));
  add("E-mail: ", OneLine(job.RecipientEmail));
  return comments + Lines(job.CoverText);
}

// In the form of a letter's From: line.
std::string Sender(const FaxJob& job, const std::string& login) {
  const std::string name = Name(job.SenderName);
  std::string email = OneLine(job.SenderEmail, "<>()\"");
  const std::string& address = email.empty() ? login : email;
  if (name.empty()) return email;
  return address.empty() ? std::string() : name + " <" + address + ">";
}

}  // namespace

std::vector<std::string> SendFaxArguments(const FaxJob& job, const std::string& login) {
  std::vector<std::string> arguments;
  const auto add = [&arguments](const char* option, const std::string& value) {
    if (value.empty()) return;
    arguments.emplace_back(option);
    arguments.push_back(value);
  };
  add("-h", OneLine(job.ServerName));
  add("-S", OneLine(job.SenderFaxNumber));
  add("-i", OneLine(job.JobDescription));
  std::string recipient = OneLine(job.RecipientFaxNumber);
  if (job.CoverPageWanted == "Yes") {
    add("-f", Sender(job, login));
    add("-W", OneLine(job.SenderFaxNumber));
    add("-U", OneLine(job.SenderPhone));
    add("-X", OneLine(job.SenderCompany));
    add("-V", OneLine(job.RecipientPhone));
    add("-x", OneLine(job.RecipientCompany));
    add("-r", OneLine(job.CoverSubject));
    add("-c", Comments(job));
    const std::string name = Name(job.RecipientName);
    if (!name.empty()) recipient = name + "@" + recipient;
  } else {
    arguments.emplace_back("-n");
  }
  // Last: it takes the options in front of it.
  arguments.emplace_back("-d");
  arguments.push_back(recipient);
  return arguments;
}

}  // namespace quorvel
