// A process of its own for the test of running copies: enters the registry under the title of its
// argument, says "ready", and "raised" when another copy calls it to the front.

#include <QCoreApplication>
#include <cstdio>

#include "platform/qt/CopyRegistry.h"

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QString title = app.arguments().value(1);
  const quorvel::CopyRegistry copies([&title] { return title; },
                                     [] {
                                       std::puts("raised");
                                       std::fflush(stdout);
                                     });
  std::puts("ready");
  std::fflush(stdout);
  return QCoreApplication::exec();
}
