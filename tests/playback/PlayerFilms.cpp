// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/PlayerFilms.h"

#include <QProcess>
#include <QStringList>

namespace marvo::test {

bool writeFilm(const Film& film, const QString& path)
{
    const QString seconds = QString::number(film.seconds);
    QStringList arguments = {QStringLiteral("-loglevel"), QStringLiteral("error"), QStringLiteral("-y")};
    const auto input = [&](const QString& source) {
        arguments += {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"), source};
    };
    if (film.hasVideo) {
        input(QStringLiteral("color=black:s=640x360:r=%1:d=%2").arg(film.fps).arg(seconds));
        input(QStringLiteral("color=white:s=16x360:r=%1:d=%2").arg(film.fps).arg(seconds));
    }
    if (film.hasSound)
        input(QStringLiteral("sine=f=440:d=%1").arg(seconds));
    if (film.hasVideo) {
        arguments +=
            QStringLiteral("-filter_complex [0][1]overlay=x=n*2[v] -map [v]").split(QLatin1Char(' '));
        // As cameras do: no pictures out of order, and a key picture each second.
        const QString codec =
            film.codec == Film::Codec::H264
                ? QStringLiteral("-c:v libx264 -preset ultrafast -bf 0 -g 30 -pix_fmt yuv420p")
                : QStringLiteral("-c:v mjpeg -q:v 3 -pix_fmt yuvj420p");
        arguments += codec.split(QLatin1Char(' '));
        if (film.hasSound)
            arguments += {QStringLiteral("-map"), QStringLiteral("2:a")};
    }
    arguments += {QStringLiteral("-c:a"), QStringLiteral("pcm_s16le"), path};
    return QProcess::execute(QStringLiteral("ffmpeg"), arguments) == 0;
}

int pictureNumber(const QImage& picture)
{
    for (int x = 0; x < picture.width(); ++x) {
        if (qGray(picture.pixel(x, picture.height() / 2)) > 128)
            return x / 2 - 1; // the first has moved once already
    }
    return -1;
}

} // namespace marvo::test
