// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "playback/VideoFrame.h"

#include <mutex>

namespace marvo {

/// Hands pictures from the decoder's thread to the window's, newest first, with three buffers: one being
/// written, one waiting, one shown. Neither side waits for the other; a picture that was not fetched in time
/// is replaced by the next one.
class FrameExchange
{
public:
    /// A header may claim any size, and three pictures are held: no more than twice the sides of "4K".
    static constexpr unsigned largestWidth = 8192;
    static constexpr unsigned largestHeight = 4320;

    /// Decoder: the format of the next pictures. False for an impossible size or without memory.
    bool setFormat(QSize size, PixelLayout layout, ColourMatrix matrix);
    /// Decoder, after setFormat(): the frame to write the next picture into.
    const VideoFrame& beginWriting();
    /// Decoder: the picture is complete. True when the reader has not been told of one yet.
    bool publish();

    /// Reader: the newest picture in exchange for the one shown so far; the same one when there is no newer.
    VideoFrame exchange(VideoFrame shown);

    /// Either side; null before the first picture.
    QSize size() const;

private:
    bool isUsable(const VideoFrame& frame) const;

    mutable std::mutex m_mutex; // guards all but the pixels of m_writing, which are the decoder's
    QSize m_size;
    PixelLayout m_layout = PixelLayout::I420;
    ColourMatrix m_matrix = ColourMatrix::BT601;
    VideoFrame m_writing;
    VideoFrame m_waiting;
    bool m_isWaitingNew = false;
};

} // namespace marvo
