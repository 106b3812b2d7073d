#pragma once

#include <cstdint>
#include <string>

namespace quorvel {

// One fax as a fax service takes it: the file and the fields, each a text as the user left it.
struct FaxJob {
  std::string ServerName;
  std::string SenderFaxNumber;
  std::string RecipientFaxNumber;
  std::string JobDescription;
  std::string AttachmentKind;   // "File"
  std::string AttachmentFile;   // path of a text file
  std::string CoverPageWanted;  // "Yes" or "No"

  // Of the cover page.
  std::string RecipientName;
  std::string RecipientCompany;
  std::string RecipientPhone;
  std::string RecipientEmail;
  std::string SenderName;
  std::string SenderCompany;
  std::string SenderPhone;
  std::string SenderEmail;
  std::string CoverDate;
  std::string CoverSubject;
  std::string CoverText;
};

class FaxService {
 public:
  virtual ~FaxService() = default;
  // Schedules the job and returns when it is scheduled, or refused. `result` 0: accepted; any
  // other: refused, and `message` tells why. `extra` is the service's own. RuntimeError when the
  // service can't be asked at all; 53 with a text that says what is missing when there is none.
  virtual void SendFax(const FaxJob& job, std::int32_t& result, std::string& message,
                       std::int32_t& extra) = 0;
};

}  // namespace quorvel
