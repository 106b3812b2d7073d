#include "platform/HylaFax.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Arguments = std::vector<std::string>;

FaxJob Job() {
  FaxJob job;
  job.ServerName = "faxhost:4559";
  job.SenderFaxNumber = "555-0900";
  job.RecipientFaxNumber = "9555-0103";
  job.JobDescription = "Your account";
  job.AttachmentKind = "File";
  job.AttachmentFile = "/tmp/TEMPRPT.TXT";
  job.CoverPageWanted = "Yes";
  job.RecipientName = "Ron Carter";
  job.RecipientCompany = "Carter & Sons";
  job.RecipientPhone = "555-0104";
  job.RecipientEmail = "ron@carter.example";
  job.SenderName = "Ann Bell";
  job.SenderCompany = "Meridian";
  job.SenderPhone = "555-0901";
  job.SenderEmail = "ann@meridian.example";
  job.CoverDate = "11/23/26";
  job.CoverSubject = "Balance";
  job.CoverText = "Dear Ron,\r\nplease read.";
  return job;
}

// The options of sendfax(1).
TEST(SendFaxArguments, WithAndWithoutACoverPage) {
  FaxJob job = Job();
  EXPECT_EQ(
      SendFaxArguments(job, "op"),
      (Arguments{"-h", "faxhost:4559",
                 "-S", "555-0900",
                 "-i", "Your account",
                 "-f", "Ann Bell <ann@meridian.example>",
                 "-W", "555-0900",
                 "-U", "555-0901",
                 "-X", "Meridian",
                 "-V", "555-0104",
                 "-x", "Carter & Sons",
                 "-r", "Balance",
                 "-c", "Date: 11/23/26\\nE-mail: ron@carter.example\\nDear Ron,\\nplease read.",
                 "-d", "Ron Carter@9555-0103"}));
  job.CoverPageWanted = "No";
  EXPECT_EQ(SendFaxArguments(job, "op"), (Arguments{"-h", "faxhost:4559", "-S", "555-0900", "-i",
                                                    "Your account", "-n", "-d", "9555-0103"}));
  FaxJob bare;
  bare.ServerName = "f";
  bare.RecipientFaxNumber = "1";
  bare.CoverPageWanted = "Yes";
  bare.CoverText = " ";
  EXPECT_EQ(SendFaxArguments(bare, "op"), (Arguments{"-h", "f", "-c", " ", "-d", "1"}));
}

TEST(SendFaxArguments, TheSenderIsNamedByItsAddress) {
  struct Case {
    std::string name, email, login, sender;
  };
  const Case cases[] = {
      {"Ann", "a@b", "op", "Ann <a@b>"},
      {"Ann", "", "op", "Ann <op>"},
      {"", "a@b", "op", "a@b"},
      {"", "", "op", ""},
      {"Ann", "", "", ""},
      {"Ann <x> (y) \"z\"", "a<b@c>", "op", "Ann  x   y   z <a b@c>"},
  };
  for (const Case& c : cases) {
    FaxJob job;
    job.CoverPageWanted = "Yes";
    job.SenderName = c.name;
    job.SenderEmail = c.email;
    const Arguments arguments = SendFaxArguments(job, c.login);
    const auto option = std::find(arguments.begin(), arguments.end(), "-f");
    EXPECT_EQ(option == arguments.end() ? "" : option[1], c.sender) << c.name << '/' << c.email;
  }
}

// Whatever a host puts into the fields, each stays one argument in its place and one line in the
// job.
TEST(SendFaxArguments, FieldsStayWithinTheirBounds) {
  FaxJob job;
  job.ServerName = "-h\nx";
  job.RecipientFaxNumber = "-n\r\n5 ";
  job.RecipientName = "a@b#c";
  job.JobDescription = std::string("$(id)\0;`x`\x1B", 11);
  job.CoverPageWanted = "Yes";
  job.CoverText = std::string("a\tb\0\r\n\n\xE4", 8);
  EXPECT_EQ(SendFaxArguments(job, ""), (Arguments{"-h", "-h x", "-i", "$(id) ;`x`", "-c",
                                                  "a b \\n\\n\xE4", "-d", "a b c@-n  5"}));
}

}  // namespace
}  // namespace quorvel
