#include "output/frmFax.h"

#include <optional>

#include "link/HandOvers.h"
#include "link/Marks.h"
#include "link/SessionState.h"
#include "platform/controls/Desktop.h"
#include "settings/WindowPlacing.h"

namespace quorvel {
namespace {

// Which value of FaxValues each field shows. The recipient's number gets the prefix besides.
struct PresetField {
  std::size_t index;
  TextBox frmFax::*field;
};
constexpr PresetField kPresetFields[] = {
    {0, &frmFax::txtToName},      {1, &frmFax::txtToCompany}, {2, &frmFax::txtToFax},
    {3, &frmFax::txtToPhone},     {4, &frmFax::txtToEmail},   {5, &frmFax::txtFromName},
    {6, &frmFax::txtFromCompany}, {7, &frmFax::txtFromFax},   {8, &frmFax::txtFromPhone},
    {9, &frmFax::txtFromEmail},   {10, &frmFax::txtFaxDesc},
};

struct CoverField {
  std::string FaxJob::*property;
  TextBox frmFax::*field;
};
constexpr CoverField kCoverFields[] = {
    {&FaxJob::RecipientName, &frmFax::txtToName},
    {&FaxJob::RecipientCompany, &frmFax::txtToCompany},
    {&FaxJob::RecipientPhone, &frmFax::txtToPhone},
    {&FaxJob::RecipientEmail, &frmFax::txtToEmail},
    {&FaxJob::SenderName, &frmFax::txtFromName},
    {&FaxJob::SenderCompany, &frmFax::txtFromCompany},
    {&FaxJob::SenderPhone, &frmFax::txtFromPhone},
    {&FaxJob::SenderEmail, &frmFax::txtFromEmail},
    {&FaxJob::CoverDate, &frmFax::txtFaxDate},
    {&FaxJob::CoverSubject, &frmFax::txtFaxDesc},
    {&FaxJob::CoverText, &frmFax::txtCoverPage},
};

// Recipient and sender are labelled alike.
struct PartyLabel {
  const char* caption;
  Label frmFax::*to;
  Label frmFax::*from;
};
constexpr PartyLabel kPartyLabels[] = {
    {"Name", &frmFax::lblToName, &frmFax::lblFromName},
    {"Company", &frmFax::lblToCompany, &frmFax::lblFromCompany},
    {"Fax Number", &frmFax::lblToFax, &frmFax::lblFromFax},
    {"Phone Number", &frmFax::lblToPhone, &frmFax::lblFromPhone},
    {"E-mail", &frmFax::lblToEmail, &frmFax::lblFromEmail},
};

}  // namespace

frmFax::frmFax() : Window(Kind::Dialog, "frmFax") {
  Caption = "Send A Fax";
  Resizable = true;
  txtCoverPage.MultiLine = true;
  NameControls();
  lblCoverPage.StandsFor(txtCoverPage);
  cmdCancel.Cancel = true;
  SetLayout(
      {Field(lblServerName, txtServerName), Field(lblFaxDate, txtFaxDate),
       Field(lblFaxDesc, txtFaxDesc), Bar({&chkSendCover}),
       Beside(
           {Group(fraTo, {Field(lblToName, txtToName), Field(lblToCompany, txtToCompany),
                          Field(lblToFax, txtToFax), Field(lblToPhone, txtToPhone),
                          Field(lblToEmail, txtToEmail)}),
            Group(fraFrom, {Field(lblFromName, txtFromName), Field(lblFromCompany, txtFromCompany),
                            Field(lblFromFax, txtFromFax), Field(lblFromPhone, txtFromPhone),
                            Field(lblFromEmail, txtFromEmail)})}),
       Wide(lblCoverPage), Stretch(txtCoverPage), Buttons({&cmdSend, &cmdCancel, &cmdFaxSet})});

  chkSendCover.Click = [this] { SetFaxInfo(chkSendCover.Value()); };
  cmdSend.Click = [this] { cmdSend_Click(); };
  cmdCancel.Click = [this] { Unload(); };
  cmdFaxSet.Click = [this] { cmdFaxSet_Click(); };
}

void frmFax::NameControls() {
  lblServerName.Caption = "Fax Server";
  lblFaxDate.Caption = "Date";
  lblFaxDesc.Caption = "Subject";
  chkSendCover.Caption = "Send Cover Page";
  lblCoverPage.Caption = "Cover Page Text:";
  fraTo.Caption = "Fax To";
  fraFrom.Caption = " Fax From";
  for (const PartyLabel& row : kPartyLabels) {
    (this->*row.to).Caption = row.caption;
    (this->*row.from).Caption = row.caption;
  }
  cmdSend.Caption = "&Send Fax";
  cmdCancel.Caption = "&Cancel";
  cmdFaxSet.Caption = "&Fax Settings";
}

void frmFax::Form_Load() {
  const SessionState& s = Session();
  CenterOnScreen(*this);
  RefreshFaxOptions();
  for (const PresetField& row : kPresetFields) (this->*row.field).Text = s.FaxValues[row.index];
  txtToFax.Text = s.FaxPrefix + txtToFax.Text();
  txtFaxDate.Text = desktop().backend().application().ShortDate();
}

void frmFax::RefreshFaxOptions() {
  txtServerName.Text = Session().FaxServer;
  chkSendCover.Value = Session().SendCover == 1;
  SetFaxInfo(chkSendCover.Value());
}

void frmFax::SetFaxInfo(const bool& enabled) {
  for (const PresetField& row : kPresetFields) (this->*row.field).Enabled = enabled;
  txtFaxDate.Enabled = enabled;
  txtCoverPage.Enabled = enabled;
}

void frmFax::cmdFaxSet_Click() {
  Ask().ShowFaxSettings();
  RefreshFaxOptions();
}

void frmFax::cmdSend_Click() {
  if (txtServerName.Text().empty()) {
    desktop().MsgBox("Fax server name is required!");
    return txtServerName.SetFocus();
  }
  if (txtToFax.Text().empty()) {
    desktop().MsgBox("Fax TO number is required!");
    return txtToFax.SetFocus();
  }
  std::int32_t result = 0;
  std::int32_t extra = 0;
  std::string message;
  std::optional<RuntimeError> failure;
  desktop().SetMousePointer(MousePointer::Hourglass);
  FillJob();
  try {
    desktop().backend().fax().SendFax(wsnFax, result, message, extra);
  } catch (const RuntimeError& thrown) {
    failure = thrown;
  }
  desktop().SetMousePointer(MousePointer::Default);
  if (failure) {
    desktop().MsgBox("Error Sending Fax" + std::string(1, LF) +
                     "Error: " + std::to_string(failure->number()) + LF + failure->what());
  } else if (result != 0) {
    desktop().MsgBox("Fax Control Error" + std::string(1, LF) + "Error: " + std::to_string(result) +
                     LF + message);
  } else {
    desktop().MsgBox("Fax has been scheduled!", MessageBoxStyle::kOkOnly, "Fax OK");
    Unload();
  }
}

// Without a cover page, what only that needs stays as it was.
void frmFax::FillJob() {
  wsnFax.ServerName = txtServerName.Text();
  wsnFax.SenderFaxNumber = txtFromFax.Text();
  wsnFax.RecipientFaxNumber = txtToFax.Text();
  wsnFax.JobDescription = txtFaxDesc.Text();
  wsnFax.AttachmentKind = "File";
  wsnFax.AttachmentFile = Session().CaptureFile;
  wsnFax.CoverPageWanted = chkSendCover.Value() ? "Yes" : "No";
  if (!chkSendCover.Value()) return;
  for (const CoverField& row : kCoverFields) wsnFax.*row.property = (this->*row.field).Text();
  if (wsnFax.CoverText.empty()) wsnFax.CoverText = " ";  // fax services take no empty one
}

}  // namespace quorvel
