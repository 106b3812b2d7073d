#include "output/InstallOutput.h"

#include "link/HandOvers.h"
#include "output/PrintReport.h"
#include "output/RunExport.h"
#include "output/frmExpParm.h"
#include "output/frmFaxSettings.h"
#include "output/frmImage.h"
#include "output/frmReport.h"
#include "platform/controls/Desktop.h"

namespace quorvel {
namespace {

void InstallReports() {
  HandOvers& ask = Ask();
  ask.ShowReport = ShowReport;
  ask.RunExport = [](std::string command) { RunExport(command); };
  ask.ShowExportParameters = [] { Form<frmExpParm>()->ShowModal(); };
  ask.ChoosePrinter = ChoosePrinter;
}

void InstallImages() {
  Ask().ShowImage = [] { Form<frmImage>()->Show(); };
}

void InstallFax() {
  Ask().ShowFaxSettings = [] { Form<frmFaxSettings>()->ShowModal(); };
}

}  // namespace

void InstallOutput() {
  InstallReports();
  InstallImages();
  InstallFax();
}

}  // namespace quorvel
