// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace marvo::test {

constexpr int filmFps = 30;

/// A film of a white bar that moves two pixels to the right with each picture, so that a picture tells its
/// number.
struct Film
{
    enum class Codec { H264, MotionJpeg };
    Codec codec = Codec::H264;
    double seconds = 4;
    bool hasSound = true;
    bool hasVideo = true;
    int fps = filmFps;
};

/// False when ffmpeg fails.
bool writeFilm(const Film& film, const QString& path);

/// The number of a picture of such a film; -1 when the bar is not there.
int pictureNumber(const QImage& picture);

} // namespace marvo::test
