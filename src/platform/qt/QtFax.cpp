#include "platform/qt/QtFax.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "platform/HylaFax.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Desktop.h"
#include "platform/qt/Text.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace quorvel {
namespace {

constexpr int kBetweenPaints = 50;           // milliseconds
constexpr qsizetype kLongestMessage = 1000;  // bytes: a box has to hold it

std::string Login() {
  for (const char* name : {"USER", "LOGNAME", "USERNAME"}) {
    if (qEnvironmentVariableIsSet(name)) return qgetenv(name).toStdString();
  }
  return {};
}

std::string Program() {
  const QString program = QStandardPaths::findExecutable(QStringLiteral("sendfax"));
  if (program.isEmpty()) {
    throw RuntimeError(Failure::FileNotFound,
                       "There is no fax service on this computer: the program sendfax of HylaFAX "
                       "(package hylafax-client) is not installed.");
  }
  return PathToBytes(program);
}

// The arguments as the program is to get them. The toolkit would hand them over in UTF-8, but
// HylaFAX puts the bytes on its cover page as they are, in ISO 8859-1.
class ByteArguments {
 public:
  ByteArguments(std::string program, std::vector<std::string> arguments)
      : texts_(std::move(arguments)) {
    texts_.insert(texts_.begin(), std::move(program));
    for (std::string& text : texts_) pointers_.push_back(text.data());
    pointers_.push_back(nullptr);
  }
  ByteArguments(const ByteArguments&) = delete;
  ByteArguments& operator=(const ByteArguments&) = delete;

  void SetUp(QProcess& process) const {
    process.setProgram(PathToUnicode(texts_.front()));
    QStringList list;
    for (std::size_t i = 1; i < texts_.size(); ++i) list.append(ToUnicode(texts_[i]));
    process.setArguments(list);
#ifdef Q_OS_UNIX
    process.setChildProcessModifier([this] {
      setsid();  // no terminal: it can't ask for a password where nobody sees it
      execv(pointers_[0], pointers_.data());
    });
#endif
  }

 private:
  std::vector<std::string> texts_;
  std::vector<char*> pointers_;
};

void TakeOutput(QProcess& process, QByteArray& output) {
  output += process.readAll();
  output.truncate(kLongestMessage);
}

// Waits for the end, and collects what the program writes. False when the time is over.
bool WaitForEnd(QProcess& process, int limit, QByteArray& output) {
  QElapsedTimer time;
  time.start();
  while (process.state() != QProcess::NotRunning && time.elapsed() < limit) {
    process.waitForFinished(kBetweenPaints);
    TakeOutput(process, output);
    if (HasDesktop()) desktop().Paint();
  }
  return process.state() == QProcess::NotRunning;
}

}  // namespace

void QtFax::SendFax(const FaxJob& job, std::int32_t& result, std::string& message,
                    std::int32_t& /*extra*/) {
  const ByteArguments arguments(Program(), SendFaxArguments(job, Login()));
  const QFileInfo document(PathToUnicode(job.AttachmentFile));
  if (!document.isFile()) throw RuntimeError(Failure::FileNotFound);
  if (!document.isReadable()) throw RuntimeError(Failure::PermissionDenied);

  QProcess process;
  arguments.SetUp(process);
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.setStandardInputFile(document.filePath());
  process.start();
  QByteArray output;
  const bool ended = process.waitForStarted() && WaitForEnd(process, limit_, output);
  if (process.error() == QProcess::FailedToStart) {
    throw RuntimeError(Failure::InvalidCall, "The program sendfax can't be started.");
  }
  if (!ended) {
    process.kill();
    process.waitForFinished();
    throw RuntimeError(Failure::InvalidCall,
                       "The fax server has not answered in " + std::to_string(limit_ / 1000) +
                           " seconds. It is not certain whether the fax has been scheduled.");
  }
  TakeOutput(process, output);
  message = output.trimmed().toStdString();
  result = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
  if (result != 0 && message.empty()) message = "sendfax has failed without telling why.";
}

}  // namespace quorvel
