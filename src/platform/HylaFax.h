#pragma once

#include <string>
#include <vector>

#include "platform/Fax.h"

namespace quorvel {

// The arguments (its name left out) with which HylaFAX's client program schedules a job: see
// sendfax(1). The document is not among them; sendfax reads it from its standard input, so that no
// path ever gets into the command lines by which HylaFAX converts documents.
//
// Fields become one line each, without control characters; line breaks of the cover page's text are
// "\n", as faxcover(1) wants them. What HylaFAX has no field for (the date and the recipient's
// e-mail) stands in front of that text. `login` is the user's name on this system, to which HylaFAX
// sends its messages where the sender has no e-mail address.
std::vector<std::string> SendFaxArguments(const FaxJob& job, const std::string& login);

}  // namespace quorvel
