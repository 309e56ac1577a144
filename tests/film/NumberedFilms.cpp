// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/NumberedFilms.h"

#include <QFile>
#include <QProcess>
#include <QStringList>

namespace marvo::test {

namespace {
constexpr int bars = 16;
constexpr int pictureBars = 11; ///< and one more that is always white: black is no picture
} // namespace

bool writeNumberedFilm(const NumberedFilm& film, const QString& path)
{
    const int barWidth = film.width / bars;
    QString filter = QStringLiteral("null");
    const auto bar = [&](int number, const QString& when) {
        filter += QStringLiteral(",drawbox=x=%1:y=0:w=%2:h=180:color=white:t=fill:enable='%3'")
                      .arg(number * barWidth)
                      .arg(barWidth)
                      .arg(when);
    };
    for (int i = 0; i < pictureBars; ++i)
        bar(i, QStringLiteral("mod(floor(n/%1)\\,2)").arg(1 << i));
    for (int i = 0; i < 4; ++i)
        bar(pictureBars + 1 + i, QString::number(film.film >> i & 1));
    bar(pictureBars, QStringLiteral("1"));
    if (film.isNoisy)
        filter += QStringLiteral(",noise=alls=40:allf=t");
    const QString length = QString::number(film.seconds);
    QStringList arguments = {QStringLiteral("-loglevel"),
                             QStringLiteral("error"),
                             QStringLiteral("-y"),
                             QStringLiteral("-f"),
                             QStringLiteral("lavfi"),
                             QStringLiteral("-i"),
                             QStringLiteral("color=black:s=%1x180:r=%2:d=%3,%4")
                                 .arg(film.width)
                                 .arg(numberedFps)
                                 .arg(length, filter)};
    if (film.hasSound)
        arguments += {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                      QStringLiteral("sine=f=440:r=16000:d=%1").arg(length)};
    const QString codec = film.codec == NumberedFilm::Codec::H264
                              ? QStringLiteral("-c:v libx264 -preset ultrafast -bf 0 -g 30 -pix_fmt yuv420p")
                              : QStringLiteral("-c:v mjpeg -q:v 3 -pix_fmt yuvj420p");
    arguments += codec.split(QLatin1Char(' '));
    arguments += {QStringLiteral("-c:a"), QStringLiteral("pcm_s16le"), path};
    return QProcess::execute(QStringLiteral("ffmpeg"), arguments) == 0;
}

bool cutIndexOff(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    const qint64 index = file.readAll().lastIndexOf("idx1");
    return index > 0 && file.resize(index);
}

PictureNumber pictureNumberOf(const QImage& picture)
{
    if (picture.isNull())
        return {};
    const auto isWhite = [&](int bar) {
        return qGray(picture.pixel((2 * bar + 1) * picture.width() / (2 * bars), picture.height() / 2)) > 128;
    };
    PictureNumber number{0, 0};
    for (int i = 0; i < pictureBars; ++i)
        number.picture |= isWhite(i) ? 1 << i : 0;
    for (int i = 0; i < 4; ++i)
        number.film |= isWhite(pictureBars + 1 + i) ? 1 << i : 0;
    return isWhite(pictureBars) ? number : PictureNumber();
}

} // namespace marvo::test
