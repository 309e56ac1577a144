// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace marvo::test {

constexpr int numberedFps = 30;

/// A film whose every picture tells its number and the film's, as white bars for the ones of 16 binary
/// digits.
struct NumberedFilm
{
    enum class Codec { H264, MotionJpeg };
    int film = 0; ///< 0 to 15
    double seconds = 3;
    Codec codec = Codec::H264;
    int width = 320;
    bool hasSound = true;
    bool isNoisy = false; ///< some megabytes large
};

/// False when ffmpeg fails.
bool writeNumberedFilm(const NumberedFilm& film, const QString& path);
/// Takes the index away, as when the camera loses power.
bool cutIndexOff(const QString& path);

struct PictureNumber
{
    int film = -1;
    int picture = -1; ///< -1: no such picture
    auto operator<=>(const PictureNumber&) const = default;
};
PictureNumber pictureNumberOf(const QImage& picture);

} // namespace marvo::test
