// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// icon-sizes SVG OUT.png SIZE...: draws the application's icon once for each size, for desktops that look for
// pixels. OUT.png gets "-SIZE" before its ending.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fputs("marvo: icon-sizes takes SVG OUT.png SIZE...\n", stderr);
        return 1;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid()) {
        std::fprintf(stderr, "marvo: %s: not a drawing\n", argv[1]);
        return 1;
    }
    for (int i = 3; i < argc; ++i) {
        const int size = QByteArray(argv[i]).toInt();
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawing.render(&painter);
        painter.end();
        QString name = QString::fromLocal8Bit(argv[2]);
        name.insert(name.lastIndexOf(QLatin1Char('.')), QStringLiteral("-%1").arg(size));
        if (!image.save(name)) {
            std::fprintf(stderr, "marvo: %s: not written\n", qUtf8Printable(name));
            return 1;
        }
    }
    return 0;
}
