// quorvel-soak: works at the sample host for a given time, in the real windows, and looks whether
// the process grows.

#include <QCommandLineParser>
#include <QTemporaryDir>
#include <cstdio>

#include "app/Wiring.h"
#include "app/soak/Soak.h"
#include "link/StartUp.h"
#include "platform/controls/Desktop.h"

namespace {

using namespace quorvel;

struct CommandLine {
  QString host;
  SoakOptions soak;
  bool valid = false;
  bool help = false;
};

CommandLine Parse(const QStringList& words) {
  QCommandLineParser parser;
  const auto add = [&](const char* name, const char* text, const char* value = nullptr) {
    parser.addOption({QLatin1String(name), QLatin1String(text), "value", QLatin1String(value)});
  };
  parser.addHelpOption();
  add("host", "The program of the sample host.");
  add("seconds", "How long to work.", "1800");
  add("warm-up", "Seconds until the figures that the last ones are compared with.", "60");
  add("interval", "Seconds from one line of figures to the next.", "60");
  add("seed", "Another order of the stories.", "1");
  parser.addOption({"verbose", "Tell every story as it begins."});
  add("picture", "File for a picture of the windows if a story gets stuck.");

  CommandLine line;
  line.valid = parser.parse(words) && parser.positionalArguments().isEmpty();
  const auto number = [&](const char* name) {
    bool valid = false;
    const uint value = parser.value(QLatin1String(name)).toUInt(&valid);
    line.valid = line.valid && valid;
    return value;
  };
  line.host = parser.value("host");
  line.valid = line.valid && !line.host.isEmpty();
  line.soak.seconds = number("seconds");
  line.soak.warmUp = number("warm-up");
  line.soak.interval = number("interval");
  line.soak.seed = number("seed");
  line.soak.verbose = parser.isSet("verbose");
  line.soak.picture = parser.value("picture").toStdString();
  line.help = parser.isSet("help");
  if (line.help) std::fputs(parser.helpText().toLocal8Bit().constData(), stdout);
  if (!line.valid && !line.help) std::fputs(parser.helpText().toLocal8Bit().constData(), stderr);
  return line;
}

}  // namespace

int main(int argc, char** argv) {
  QTemporaryDir folder;
  if (!folder.isValid()) {
    std::fputs("quorvel-soak: can't make a folder to work in\n", stderr);
    return 1;
  }
  qputenv("QUORVEL_HOME", folder.path().toLocal8Bit());
  std::string configuration = kConfiguration;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  char* arguments[] = {argv[0], configuration.data(), nullptr};
  QtBackend backend(2, arguments);
  QStringList words;
  for (int i = 0; i < argc; ++i) words << QString::fromLocal8Bit(argv[i]);
  const CommandLine line = Parse(words);
  if (line.help) return 0;
  if (!line.valid) return 2;

  SampleHost host(line.host, folder.path());
  const Workplace place{backend, host, folder.path().toStdString()};
  if (host.Address().empty() || !WriteConfigurations(place)) {
    std::fputs("quorvel-soak: the sample host does not start\n", stderr);
    return 1;
  }
  Desktop desktop(backend);
  WireHandOvers();
  Soak soak(place, line.soak);
  desktop.Post(EventKind::Program, [] { Main(); });
  soak.Start();
  const int status = backend.Run();
  return status != 0 ? status : soak.ExitStatus();
}
