// quorvel-icons DIR SIZE...: writes the program's icon into DIR, one PNG for each size (pixels), in
// the folders in which desktops look for icon themes: DIR/48x48/apps/quorvel.png.

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <cstdio>

#include "platform/qt/Pictures.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc < 3) {
    std::fprintf(stderr, "usage: quorvel-icons DIR SIZE...\n");
    return 2;
  }
  const QIcon icon = quorvel::PictureIcon("app");
  for (int i = 2; i < argc; ++i) {
    const int size = QByteArray(argv[i]).toInt();
    const QDir folder(
        QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[1])).arg(size));
    const QString file = folder.filePath(QStringLiteral("quorvel.png"));
    if (size < 1 || !folder.mkpath(QStringLiteral(".")) || !icon.pixmap(size, size).save(file)) {
      std::fprintf(stderr, "quorvel-icons: cannot write %s\n", qPrintable(file));
      return 1;
    }
  }
  return 0;
}
