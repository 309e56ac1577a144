// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSize>

#include <mutex>

namespace marvo {

/// Hands pictures from the decoder's thread to the window's, newest first, with three buffers: one being
/// written, one waiting, one shown. Neither side waits for the other; a picture that was not fetched in time
/// is replaced by the next one.
class FrameExchange
{
public:
    /// Decoder: the size of the pictures to come. False when it is no size for a picture or there is no
    /// memory for one.
    bool setSize(QSize size);
    /// Decoder: the buffer to write the next picture into, rows of 4 bytes a pixel (blue, green, red, unused)
    /// without gaps; null without memory.
    uchar* beginWriting();
    /// Decoder: the picture is complete. True when the reader has not been told of one yet.
    bool publish();

    /// Reader: the newest picture in exchange for the one shown so far; the same one when there is no newer.
    QImage exchange(QImage shown);

    /// Either side; null before the first picture.
    QSize size() const;

private:
    mutable std::mutex m_mutex; // guards all but the pixels of m_writing, which are the decoder's
    QSize m_size;
    QImage m_writing;
    QImage m_waiting;
    bool m_isWaitingNew = false;
};

} // namespace marvo
