// What the real desktop asks of the system: pictures, the fax client, programs, the printer.

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPrinterInfo>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/qt/QtApplication.h"
#include "platform/qt/QtFax.h"
#include "platform/qt/QtPictures.h"
#include "platform/qt/QtPrinter.h"
#include "platform/qt/QtPrograms.h"

namespace quorvel {
namespace {

class Services : public ::testing::Test {
 protected:
  std::string Path(const QString& name) const { return folder_.filePath(name).toStdString(); }
  std::string Write(const QString& name, const QByteArray& bytes) const {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.write(bytes);
    return Path(name);
  }
  QByteArray Read(const QString& name) const {
    QFile file(folder_.filePath(name));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
  }
  // A program of this name, found before any other.
  void Install(const QString& name, const QByteArray& script) const {
    Write(name, "#!/bin/sh\ncd '" + folder_.path().toLocal8Bit() + "'\n" + script);
    QFile(folder_.filePath(name)).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    qputenv("PATH", folder_.path().toLocal8Bit() + ":/usr/bin:/bin");
  }
  // What a program that is not waited for leaves; empty if it never does.
  QByteArray Await(const QString& name) const {
    for (int i = 0; i < 500 && !QFile::exists(folder_.filePath(name)); ++i) QThread::msleep(20);
    return Read(name);
  }
  void TearDown() override { qputenv("PATH", path_); }

  QTemporaryDir folder_;
  const QByteArray path_ = qgetenv("PATH");
};

// The number of the failure; 0 for none.
template <class Act>
int FailureOf(const Act& act) {
  try {
    act();
  } catch (const RuntimeError& failure) {
    return failure.number();
  }
  return 0;
}

// --- pictures

QByteArray Encoded(const char* format) {
  QImage image(40, 30, QImage::Format_RGB32);
  image.fill(QColor(200, 30, 30));
  QPainter(&image).fillRect(0, 0, 20, 15, QColor(30, 30, 200));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QBuffer::WriteOnly);
  return image.save(&buffer, format) ? bytes : QByteArray();
}

// A picture of one black pixel, as GIF89a has it: 5 colour bits are not written
// by the toolkit.
const QByteArray kGif =
    QByteArray::fromHex("47494638396101000100800000000000ffffff2c00000000010001000002024401003b");

TEST_F(Services, FormatsOfPictures) {
  QtPictures pictures;
  for (const char* format : {"PNG", "JPEG", "BMP", "TIFF"}) {
    // The name tells nothing.
    const auto picture = pictures.ReadPicture(Write("picture.dat", Encoded(format)));
    EXPECT_EQ(picture->Width(), 40) << format;
    EXPECT_EQ(picture->Height(), 30) << format;
    const QImage& image = static_cast<const QtPicture&>(*picture).Image();
    EXPECT_GT(image.pixelColor(5, 5).blue(), 150) << format;
    EXPECT_GT(image.pixelColor(35, 25).red(), 150) << format;
  }
  EXPECT_EQ(pictures.ReadPicture(Write("a.gif", kGif))->Width(), 1);

  const auto picture = pictures.ReadPicture(Write("b.png", Encoded("PNG")));
  const auto scaled = picture->Scaled(80, 15);
  EXPECT_EQ(scaled->Width(), 80);
  EXPECT_EQ(scaled->Height(), 15);
  EXPECT_EQ(FailureOf([&] { picture->Scaled(0, 5); }), 5);
  EXPECT_EQ(FailureOf([&] { picture->Scaled(5, -5); }), 5);
  EXPECT_EQ(FailureOf([&] { picture->Scaled(30'000, 30'000); }), 7);
}

// A header of these measures: 14 and 40 bytes, numbers little-endian (Windows bitmap).
QByteArray BitmapOf(qint32 width, qint32 height) {
  QByteArray bytes = Encoded("BMP");
  for (int i = 0; i < 4; ++i) {
    bytes[18 + i] = static_cast<char>(static_cast<quint32>(width) >> (8 * i));
    bytes[22 + i] = static_cast<char>(static_cast<quint32>(height) >> (8 * i));
  }
  return bytes;
}

TEST_F(Services, WhatIsNoPicture) {
  QtPictures pictures;
  EXPECT_EQ(FailureOf([&] { pictures.ReadPicture(Path("none.png")); }), 53);
  EXPECT_EQ(FailureOf([&] { pictures.ReadPicture(""); }), 53);
  EXPECT_EQ(FailureOf([&] { pictures.ReadPicture(folder_.path().toStdString()); }), 53);
  EXPECT_EQ(FailureOf([&] { pictures.ReadPicture("/dev/zero"); }), 53);
  const QByteArray png = Encoded("PNG");
  const QByteArray files[] = {"",
                              "hello",
                              png.left(20),
                              png.left(png.size() / 2),
                              BitmapOf(60'000, 60'000),
                              BitmapOf(8193, 8193),
                              BitmapOf(-5, 7)};
  for (const QByteArray& file : files) {
    const int failure = FailureOf([&] { pictures.ReadPicture(Write("bad.png", file)); });
    EXPECT_TRUE(failure == 5 || failure == 7) << failure << ' ' << file.left(30).toHex().data();
  }
}

// --- fax

// Writes its arguments, one a line, and what it read; then does what the environment says.
constexpr const char* kSendFax =
    "for a in \"$@\"; do printf '%s\\n' \"$a\"; done > arguments\n"
    "cat > document\n"
    "[ -n \"$FAX_SAYS\" ] && echo \"$FAX_SAYS\" >&2\n"
    "[ -n \"$FAX_TAKES\" ] && exec sleep \"$FAX_TAKES\"\n"
    "exit ${FAX_STATUS:-0}\n";

class Fax : public Services {
 protected:
  Fax() {
    job_.ServerName = "faxhost";
    job_.RecipientFaxNumber = "555 0103";
    job_.JobDescription = "M\xFCller; touch x";
    job_.CoverPageWanted = "No";
    job_.AttachmentFile = Write("a report's $(name).txt", "line 1\r\n\xE4\r\n");
  }
  void TearDown() override {
    for (const char* name : {"FAX_SAYS", "FAX_TAKES", "FAX_STATUS"}) qunsetenv(name);
    Services::TearDown();
  }
  void Send(int milliseconds = 20'000) {
    QtFax(milliseconds).SendFax(job_, result_, message_, extra_);
  }

  FaxJob job_;
  std::int32_t result_ = 7;
  std::int32_t extra_ = 0;
  std::string message_;
};

TEST_F(Fax, TheClientGetsFieldsAndDocumentAsTheyAre) {
  Install("sendfax", kSendFax);
  Send();
  EXPECT_EQ(result_, 0);
  EXPECT_EQ(Read("arguments"), "-h\nfaxhost\n-i\nM\xFCller; touch x\n-n\n-d\n555 0103\n");
  EXPECT_EQ(Read("document"), "line 1\r\n\xE4\r\n");
  EXPECT_FALSE(QFile::exists(folder_.filePath("x")));  // no shell has seen it
}

TEST_F(Fax, WhatMayGoWrong) {
  qputenv("PATH", folder_.path().toLocal8Bit());
  try {
    Send();
    ADD_FAILURE();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 53);
    EXPECT_NE(std::string(failure.what()).find("sendfax of HylaFAX"), std::string::npos);
  }
  Install("sendfax", kSendFax);
  qputenv("FAX_SAYS", "Can not reach service hylafax at host \"faxhost\".");
  qputenv("FAX_STATUS", "3");
  Send();
  EXPECT_EQ(result_, 3);
  EXPECT_EQ(message_, "Can not reach service hylafax at host \"faxhost\".");

  qputenv("FAX_SAYS", QByteArray(100'000, 'x'));
  Send();
  EXPECT_EQ(message_.size(), 1000u);

  qunsetenv("FAX_SAYS");
  message_.clear();
  Send();
  EXPECT_NE(message_, "");

  qputenv("FAX_TAKES", "60");
  EXPECT_EQ(FailureOf([&] { Send(300); }), 5);

  job_.AttachmentFile = Path("none.txt");
  EXPECT_EQ(FailureOf([&] { Send(); }), 53);
}

// --- programs

TEST_F(Services, ProgramsGetTheirWordsAndStyles) {
  Install("program",
          "for a in \"$@\"; do printf '<%s>' \"$a\"; done > tmp.$$\n"
          "printf ' %s' \"$DESKTOP_STARTUP_ID\" >> tmp.$$\nmv tmp.$$ \"$1\"\n");
  qunsetenv("DESKTOP_STARTUP_ID");
  QtPrograms programs;
  programs.Start("  program out1  \"two words\" a'b $HOME; touch x", ProgramWindow::Hidden);
  EXPECT_EQ(Await("out1"), "<out1><two words><a'b><$HOME;><touch><x> ");
  EXPECT_FALSE(QFile::exists(folder_.filePath("x")));
  programs.Start("\"" + Path("program") + "\" out2", ProgramWindow::NormalNoFocus);
  const QByteArray quiet = Await("out2");
  EXPECT_TRUE(quiet.startsWith("<out2> quorvel-") && quiet.endsWith("_TIME0")) << quiet.data();

  struct Case {
    std::string command;
    int failure;
  };
  const Case cases[] = {{"", 53},
                        {"   ", 53},
                        {"no-such-program-here", 53},
                        {"/no/such/program x", 53},
                        {Write("plain.txt", "x"), 70},
                        {folder_.path().toStdString() + "/", 70}};
  for (const Case& c : cases) {
    const auto start = [&] { programs.Start(c.command, ProgramWindow::NormalFocus); };
    EXPECT_EQ(FailureOf(start), c.failure) << c.command;
  }
}

// --- printing

TEST_F(Services, TextOfTheHostNeedsAPrinterOrAChosenFile) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "there is a printer";
  QtPrinter printer;
  EXPECT_EQ(FailureOf([&] { printer.PrintText("x"); }), 482);
  printer.EndDocument();
  printer.Current().setOutputFormat(QPrinter::PdfFormat);
  printer.Current().setOutputFileName(folder_.filePath("out.pdf"));
  printer.TakeChoice();
  // Each text ends its line besides the line ends that it holds: 80 rows are more than a page.
  for (int i = 0; i < 40; ++i) printer.PrintText("label\r\n");
  printer.EndDocument();
  EXPECT_EQ(Read("out.pdf").count("/Type /Page\n"), 2);
  // Who prints a screen learns where it is, for it does not replace the document before it.
  EXPECT_EQ(printer.PrintScreen({"line"}), Path("out-2.pdf"));
  EXPECT_TRUE(QFile::exists(folder_.filePath("out-2.pdf")));
}

// --- copies of the program

TEST_F(Services, EachCopyHasAReportFileOfItsOwn) {
  qputenv("XDG_RUNTIME_DIR", folder_.path().toLocal8Bit());
  qputenv("QUORVEL_HOME", folder_.path().toLocal8Bit());
  const auto first = std::make_unique<QtApplication>(QStringList{"quorvel"});
  auto second = std::make_unique<QtApplication>(QStringList{"quorvel"});
  QtApplication third(QStringList{"quorvel"});
  EXPECT_EQ(first->OwnPathOf("REPORT.TXT"), Path("REPORT.TXT"));
  EXPECT_EQ(second->OwnPathOf("REPORT.TXT"), Path("REPORT-2.TXT"));
  second.reset();
  EXPECT_EQ(third.OwnPathOf("REPORT.TXT"), Path("REPORT-2.TXT"));
  qunsetenv("QUORVEL_HOME");
}

}  // namespace
}  // namespace quorvel
