// A captured report goes out by fax: frames in, what the user does in the two windows; the jobs of
// the fax service, boxes and the configuration file out.

#include "app/FarEndTest.h"
#include "output/frmFax.h"
#include "output/frmFaxSettings.h"
#include "output/frmReport.h"
#include "platform/RuntimeError.h"

namespace quorvel {
namespace {

class FaxTest : public FarEndTest {
 protected:
  // A session with these settings, and a report with these fax values in its viewer.
  void Capture(const Texts& values, const std::string& settings = {}) {
    LogIn("UserId=demo\nPwd=secret\n",
          "QuickExit=0\n[EXPORT]\nType=1\n" + (settings.empty() ? "" : "[FAX]\n" + settings));
    Session().ExportType = 1;  // the viewer
    std::string list;
    for (const std::string& value : values) {
      if (&value != values.data()) list += AM;
      list += value;
    }
    Deliver(FrameOf({"~CAPTURE-ON~", "", "", list}));
    Deliver("the report\r\n");
    Deliver(FrameOf({"~CAPTURE-OFF~"}));
  }
  // Opens the window, lets `user` act on it while it is open, and closes it.
  void WithFax(const std::function<void(frmFax&)>& act) {
    bool done = false;
    backend.onIdle = [&] {
      frmFax* fax = LoadedForm<frmFax>();
      if (!fax || done) return false;
      done = true;
      EXPECT_TRUE(fax->IsModal());
      act(*fax);
      if (LoadedForm<frmFax>()) LoadedForm<frmFax>()->cmdCancel.UserClick();
      return true;
    };
    LoadedForm<frmReport>()->mnuSendFax.UserClick();
    EXPECT_TRUE(done);
    EXPECT_FALSE(LoadedForm<frmFax>());
    backend.onIdle = {};
  }
  // The same in the settings window that opens meanwhile.
  void InSettings(frmFax& fax, const std::function<void(frmFaxSettings&)>& act) {
    auto before = std::exchange(backend.onIdle, [&act] {
      frmFaxSettings* settings = LoadedForm<frmFaxSettings>();
      if (settings) act(*settings);
      return settings != nullptr;
    });
    fax.cmdFaxSet.UserClick();
    backend.onIdle = std::move(before);
  }
  static Texts TextsOf(frmFax& f) {
    return {f.txtToName.Text(),      f.txtToCompany.Text(), f.txtToFax.Text(),
            f.txtToPhone.Text(),     f.txtToEmail.Text(),   f.txtFromName.Text(),
            f.txtFromCompany.Text(), f.txtFromFax.Text(),   f.txtFromPhone.Text(),
            f.txtFromEmail.Text(),   f.txtFaxDesc.Text()};
  }
  // Whether all of the fields of a cover page are open: 1 yes, 0 none, -1 some.
  static int Open(frmFax& f) {
    const Control* fields[] = {&f.txtToName,    &f.txtToCompany, &f.txtToFax,       &f.txtToPhone,
                               &f.txtToEmail,   &f.txtFromName,  &f.txtFromCompany, &f.txtFromFax,
                               &f.txtFromPhone, &f.txtFromEmail, &f.txtFaxDate,     &f.txtFaxDesc,
                               &f.txtCoverPage};
    const auto open = std::count_if(std::begin(fields), std::end(fields),
                                    [](const Control* field) { return field->Enabled(); });
    EXPECT_TRUE(f.txtServerName.Enabled() && f.chkSendCover.Enabled());
    return open == 13 ? 1 : open == 0 ? 0 : -1;
  }

  const Texts values_{"Ron",  "Carter", "555", "556", "r@c",         "Ann",
                      "Meri", "900",    "901", "a@m", "Your account"};
};

TEST_F(FaxTest, WithACoverPage) {
  Capture(values_, "FaxServer=faxhost\nFaxPrefix=9\nSendCover=1\n");
  backend.shortDate = "23/11/26";
  WithFax([&](frmFax& fax) {
    Texts shown = values_;
    shown[2] = "9555";
    EXPECT_EQ(TextsOf(fax), shown);
    EXPECT_EQ(fax.txtServerName.Text(), "faxhost");
    EXPECT_EQ(fax.txtFaxDate.Text(), "23/11/26");
    EXPECT_TRUE(fax.chkSendCover.Value());
    EXPECT_EQ(Open(fax), 1);
    fax.txtFaxDate.UserEdit("24/11/26");
    backend.pointers.clear();
    fax.cmdSend.UserClick();
  });
  ASSERT_EQ(backend.faxes.size(), 1u);
  const FaxJob& job = backend.faxes[0];
  EXPECT_EQ(
      (Texts{job.ServerName, job.SenderFaxNumber, job.RecipientFaxNumber, job.JobDescription,
             job.AttachmentKind, job.AttachmentFile, job.CoverPageWanted}),
      (Texts{"faxhost", "900", "9555", "Your account", "File", Session().CaptureFile, "Yes"}));
  EXPECT_EQ(
      (Texts{job.RecipientName, job.RecipientCompany, job.RecipientPhone, job.RecipientEmail}),
      (Texts{"Ron", "Carter", "556", "r@c"}));
  EXPECT_EQ((Texts{job.SenderName, job.SenderCompany, job.SenderPhone, job.SenderEmail}),
            (Texts{"Ann", "Meri", "901", "a@m"}));
  EXPECT_EQ((Texts{job.CoverDate, job.CoverSubject, job.CoverText}),
            (Texts{"24/11/26", "Your account", " "}));
  EXPECT_EQ(backend.messageBoxes,
            (std::vector<MessageBoxRequest>{{"Fax has been scheduled!", "Fax OK", 0}}));
  EXPECT_EQ(backend.pointers, (std::vector{MousePointer::Hourglass, MousePointer::Default}));
}

TEST_F(FaxTest, WithoutACoverPage) {
  Capture(values_, "FaxServer=faxhost\nSendCover=0\n");
  WithFax([&](frmFax& fax) {
    EXPECT_FALSE(fax.chkSendCover.Value());
    EXPECT_EQ(Open(fax), 0);
    EXPECT_EQ(fax.txtToFax.Text(), "555");  // greyed, still there
    fax.chkSendCover.UserToggle(true);
    EXPECT_EQ(Open(fax), 1);
    fax.chkSendCover.UserToggle(false);
    EXPECT_EQ(Open(fax), 0);
    fax.cmdSend.UserClick();
  });
  ASSERT_EQ(backend.faxes.size(), 1u);
  const FaxJob& job = backend.faxes[0];
  EXPECT_EQ(job.CoverPageWanted, "No");
  EXPECT_EQ(job.SenderFaxNumber + job.RecipientFaxNumber + job.JobDescription,
            "900555Your account");
  EXPECT_EQ(job.RecipientName + job.SenderCompany + job.CoverDate + job.CoverText, "");
}

TEST_F(FaxTest, WhatIsRequired) {
  Capture({}, "SendCover=1\n");
  WithFax([&](frmFax& fax) {
    EXPECT_EQ(TextsOf(fax), Texts(11));
    fax.cmdSend.UserClick();
    EXPECT_EQ(BoxTexts(), Texts{"Fax server name is required!"});
    EXPECT_TRUE(fax.txtServerName.HasFocus());
    fax.txtServerName.UserEdit("faxhost");
    fax.cmdSend.UserClick();
    EXPECT_EQ(BoxTexts().back(), "Fax TO number is required!");
    EXPECT_TRUE(fax.txtToFax.HasFocus());
    EXPECT_TRUE(backend.faxes.empty());
    fax.txtToFax.UserEdit("1");
    fax.cmdSend.UserClick();
  });
  EXPECT_EQ(backend.faxes.size(), 1u);
}

// A prefix alone counts as a number.
TEST_F(FaxTest, FailuresKeepTheWindowOpen) {
  Capture({}, "FaxServer=faxhost\nFaxPrefix=0\n");
  const auto answers = [&](std::int32_t number, const std::string& text, bool fails) {
    backend.onFax = [=](std::int32_t& result, std::string& message) {
      if (fails) throw RuntimeError(static_cast<Failure>(number), text);
      result = number;
      message = text;
    };
  };
  WithFax([&](frmFax& fax) {
    answers(53, "There is no fax service.", true);
    fax.cmdSend.UserClick();
    answers(-2147483647, "busy", false);
    fax.cmdSend.UserClick();
    EXPECT_EQ(BoxTexts(), (Texts{"Error Sending Fax\nError: 53\nThere is no fax service.",
                                 "Fax Control Error\nError: -2147483647\nbusy"}));
    EXPECT_EQ(backend.pointers.back(), MousePointer::Default);
    ASSERT_EQ(LoadedForm<frmFax>(), &fax);
    // The attachment is the capture file of the moment.
    Session().CaptureFile = "newer.txt";
    answers(0, "request id is 1", false);
    fax.cmdSend.UserClick();
    EXPECT_FALSE(LoadedForm<frmFax>());
  });
  ASSERT_EQ(backend.faxes.size(), 3u);
  EXPECT_EQ(backend.faxes[0].RecipientFaxNumber, "0");
  EXPECT_EQ(backend.faxes[2].AttachmentFile, "newer.txt");
  EXPECT_EQ(backend.messageBoxes.size(), 3u);
}

TEST_F(FaxTest, SettingsAreSavedAndTakenOver) {
  Capture({"", "", "555"}, "SendCover=1\nFaxPrefix=9\n");
  WithFax([&](frmFax& fax) {
    fax.txtServerName.UserEdit("by hand");
    InSettings(fax, [&](frmFaxSettings& settings) {
      EXPECT_TRUE(settings.IsModal());
      EXPECT_EQ(settings.txtFaxServer.Text(), "");
      EXPECT_EQ(settings.txtPrefix.Text(), "9");
      EXPECT_TRUE(settings.optSend0.Value() && !settings.optSend1.Value());
      settings.txtFaxServer.UserEdit("changed");
      settings.txtPrefix.UserEdit("7");
      settings.optSend1.UserClick();
      settings.cmdCancel.UserClick();
    });
    EXPECT_EQ(Session().FaxServer + Session().FaxPrefix, "9");
    EXPECT_EQ(Open(fax), 1);
    InSettings(fax, [&](frmFaxSettings& settings) {
      settings.txtFaxServer.UserEdit(std::string(255, 's'));
      settings.cmdOK.UserClick();
      EXPECT_EQ(BoxTexts(), Texts{"Fax Server has 255 characters; a setting has at most 254."});
      EXPECT_EQ(Session().FaxServer, "");
      settings.txtFaxServer.UserEdit("faxhost");
      settings.txtPrefix.UserEdit("7");
      settings.optSend1.UserClick();
      settings.cmdOK.UserClick();
    });
    EXPECT_EQ(fax.txtServerName.Text(), "faxhost");
    EXPECT_EQ(fax.txtToFax.Text(), "9555");  // not rebuilt
    EXPECT_FALSE(fax.chkSendCover.Value());
    EXPECT_EQ(Open(fax), 0);
  });
  std::ostringstream saved;
  saved << std::ifstream(Session().ConfigPath).rdbuf();
  EXPECT_NE(saved.str().find("[FAX]\nSendCover=0\nFaxPrefix=7\nFaxServer=faxhost\n"),
            std::string::npos)
      << saved.str();
}

}  // namespace
}  // namespace quorvel
