#include "app/tour/SampleHost.h"

namespace quorvel {

SampleHost::SampleHost(const QString& program, const QString& folder)
    : program_(program), folder_(folder) {
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  Start();
}

SampleHost::~SampleHost() {
  Kill();
}

bool SampleHost::Start() {
  const QString port = QString::fromStdString(address_).section(':', -1);
  process_.start(program_, {"--port", port.isEmpty() ? QString("0") : port, "--data",
                            folder_ + "/sample.sqlite"});
  if (!process_.waitForStarted() || !process_.waitForReadyRead()) return false;
  const QString line = QString::fromLatin1(process_.readLine()).trimmed();
  if (!line.startsWith("listening on ")) return false;
  address_ = line.section(' ', -1).toStdString();
  return true;
}

void SampleHost::Kill() {
  if (process_.state() == QProcess::NotRunning) return;
  process_.kill();
  process_.waitForFinished();
}

void SampleHost::ShutDown() {
  if (process_.state() == QProcess::NotRunning) return;
  process_.terminate();
  if (!process_.waitForFinished()) Kill();
}

bool SampleHost::Restart() {
  Kill();
  return Start();
}

}  // namespace quorvel
