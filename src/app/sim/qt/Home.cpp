#include "app/sim/qt/Home.h"

#include <QDir>

namespace quorvel::sim {
namespace {

struct FolderRow {
  const char* variable;
  const char* folder;
};
constexpr FolderRow kFolders[] = {
    {"HOME", ""},
    {"XDG_CONFIG_HOME", "config"},
    {"XDG_DATA_HOME", "data"},
    {"XDG_CACHE_HOME", "cache"},
    {"XDG_RUNTIME_DIR", "run"},
};

}  // namespace

Home::Home() {
  for (const FolderRow& row : kFolders) {
    const QString path = folder_.filePath(QLatin1String(row.folder));
    QDir().mkpath(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv(row.variable, QFile::encodeName(path));
  }
  // No printer of the system's either.
  qputenv("CUPS_SERVER", QFile::encodeName(folder_.filePath("no-printers")));
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
}

void Home::EmptyDocuments() const {
  QDir(folder_.filePath("Documents")).removeRecursively();
}

}  // namespace quorvel::sim
