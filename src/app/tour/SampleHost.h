#pragma once

#include <QProcess>
#include <QString>
#include <string>

namespace quorvel {

// The sample host as a process of its own, on a free port of this machine which it keeps.
class SampleHost {
 public:
  // `program`: the host's executable; `folder`: where it keeps its data.
  SampleHost(const QString& program, const QString& folder);
  ~SampleHost();
  SampleHost(const SampleHost&) = delete;
  SampleHost& operator=(const SampleHost&) = delete;

  // "127.0.0.1:PORT"; empty if the host did not start.
  const std::string& Address() const { return address_; }

  // Stops at once, as by a failure of power.
  void Kill();
  // Asks it to shut down.
  void ShutDown();
  // Starts it anew on the same port; what runs is killed. False if it does not come up.
  bool Restart();

 private:
  bool Start();

  const QString program_;
  const QString folder_;
  QProcess process_;
  std::string address_;
};

}  // namespace quorvel
