// Draws the program's mark into PNG files of the sizes that an icon theme holds. Run once by the build.

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>

#include "shell/logo.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("usage: make_icons FOLDER SIZE...\n", stderr);
        return 2;
    }
    for (const QString& size : arguments.mid(2)) {
        QImage image(size.toInt(), size.toInt(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        shell::paintLogo(painter, image.rect());
        const QString file = arguments[1] + QLatin1Char('/') + size + QStringLiteral(".png");
        if (!painter.end() || !image.save(file)) {
            std::fprintf(stderr, "%s: cannot be written\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
