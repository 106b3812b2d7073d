#pragma once

#include "platform/Fax.h"

namespace quorvel {

// Faxes by way of HylaFAX: its client program sendfax, found on the PATH, takes the job to the
// server. No shell is involved. While it runs the windows are painted, and serve nothing else.
class QtFax : public FaxService {
 public:
  // `milliseconds` it may take altogether: a server that does not answer must not keep the user for
  // good. Longer than the minute that converting a long report takes.
  explicit QtFax(int milliseconds = 120'000) : limit_(milliseconds) {}

  // `result` is the exit status of sendfax, `message` what it wrote.
  void SendFax(const FaxJob& job, std::int32_t& result, std::string& message,
               std::int32_t& extra) override;

 private:
  const int limit_;
};

}  // namespace quorvel
