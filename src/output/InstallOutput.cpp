#include "output/InstallOutput.h"

#include "link/HandOvers.h"

namespace quorvel {

void InstallOutput() {
  // There is no report viewer yet: what its closing would enable again is enabled at once, so that
  // a host that captures a report leaves the session usable.
  Ask().ShowReport = [] { Ask().EnableSessionWindows(true); };
}

}  // namespace quorvel
