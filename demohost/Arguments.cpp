#include "demohost/Arguments.h"

#include <charconv>

namespace quorvel::demohost {
namespace {

bool ParsePort(const std::string& text, std::uint16_t& port) {
  const auto* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, port);
  return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto& word = words[i];
    const bool takesValue = word == "--data" || word == "--port";
    if (takesValue && (i + 1 == words.size() || words[i + 1].empty())) {
      arguments.error = word + " needs a value";
    } else if (word == "--data") {
      arguments.dataFile = words[++i];
    } else if (word == "--port") {
      if (!ParsePort(words[++i], arguments.port))
        arguments.error = "--port needs a number from 0 to 65535, not " + words[i];
    } else if (word == "--reset") {
      arguments.reset = true;
    } else if (word == "--help" || word == "-h") {
      arguments.help = true;
    } else {
      arguments.error = "unknown option " + word;
    }
    if (!arguments.error.empty()) break;
  }
  return arguments;
}

std::string HelpText() {
  return "quorvel-demohost - a sample host for the Quorvel GUI client\n"
         "\n"
         "  --data FILE  the file that holds its records; without it, demohost.sqlite in the\n"
         "               application folder ($QUORVEL_HOME; else the program's folder on Windows,\n"
         "               $XDG_DATA_HOME/quorvel or ~/.local/share/quorvel elsewhere)\n"
         "  --reset      fill that file with the sample data anew; all changes are lost\n"
         "  --port N     the telnet port on 127.0.0.1; 0 takes a free one (default 2323)\n"
         "  --help       this text\n"
         "\n"
         "Its first line of output is \"listening on 127.0.0.1:PORT\".\n"
         "Users: demo with the password demo, sales with the password sales.\n";
}

}  // namespace quorvel::demohost
