// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSize>
#include <QtPlugin>

#include <array>
#include <cstdint>
#include <stop_token>
#include <vector>

namespace marvo {

/// Some pictures of a film as its file has them: a key picture and those that follow it, in order.
struct CodedPictures
{
    std::array<char, 4> codec{};     ///< biCompression of the film's format
    std::vector<std::uint8_t> setUp; ///< what follows the format's BITMAPINFOHEADER
    std::vector<std::vector<std::uint8_t>> pictures;
};

/// Decodes pictures. The libraries for it number more than twenty, so that it stands behind this, in a module
/// that is loaded when the first picture is wanted. Any thread.
class PictureDecoder
{
public:
    virtual ~PictureDecoder() = default;
    /// The last of the pictures, in the size that fits into `within` at its own proportions, never larger
    /// than it is; null when it cannot be decoded, or when it is told to stop.
    virtual QImage decodeLast(const CodedPictures& coded, QSize within,
                              const std::stop_token& stop) const = 0;
};

/// The module's; null, with a line in the log, where it is missing or does not load. The first call takes
/// some milliseconds. Any thread.
const PictureDecoder* pictureDecoder();

} // namespace marvo

#define MARVO_PICTURE_DECODER "org.marvo.PictureDecoder/1"
Q_DECLARE_INTERFACE(marvo::PictureDecoder, MARVO_PICTURE_DECODER)
