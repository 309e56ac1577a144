// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/FrameExchange.h"

#include <utility>

namespace marvo {

bool FrameExchange::setFormat(QSize size, PixelLayout layout, ColourMatrix matrix)
{
    if (size.isEmpty() || size.width() > static_cast<int>(largestWidth) ||
        size.height() > static_cast<int>(largestHeight))
        return false;
    VideoFrame first(size, layout, matrix);
    VideoFrame second(size, layout, matrix);
    if (first.isNull() || second.isNull())
        return false;
    const std::scoped_lock lock(m_mutex);
    m_size = size;
    m_layout = layout;
    m_matrix = matrix;
    m_writing = std::move(first);
    if (!m_isWaitingNew) // else it is still to be shown, whatever its size
        m_waiting = std::move(second);
    return true;
}

const VideoFrame& FrameExchange::beginWriting()
{
    const std::scoped_lock lock(m_mutex);
    if (!isUsable(m_writing))
        m_writing = VideoFrame(m_size, m_layout, m_matrix);
    // Without memory for a third picture the waiting one is given up: the decoder must write.
    if (m_writing.isNull() && isUsable(m_waiting)) {
        std::swap(m_writing, m_waiting);
        m_isWaitingNew = false;
    }
    return m_writing;
}

/// Whether it has the film's present size.
bool FrameExchange::isUsable(const VideoFrame& frame) const
{
    return frame.size() == m_size && frame.layout() == m_layout && frame.matrix() == m_matrix;
}

bool FrameExchange::publish()
{
    const std::scoped_lock lock(m_mutex);
    std::swap(m_writing, m_waiting);
    return !std::exchange(m_isWaitingNew, true);
}

VideoFrame FrameExchange::exchange(VideoFrame shown)
{
    const std::scoped_lock lock(m_mutex);
    if (std::exchange(m_isWaitingNew, false))
        std::swap(shown, m_waiting);
    return shown;
}

QSize FrameExchange::size() const
{
    const std::scoped_lock lock(m_mutex);
    return m_size;
}

} // namespace marvo
