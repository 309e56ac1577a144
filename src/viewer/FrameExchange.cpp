// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/FrameExchange.h"

#include <utility>

namespace marvo {

namespace {
/// A header may claim any size, and three pictures are held: no more than twice the sides of "4K".
constexpr int LargestWidth = 8192;
constexpr int LargestHeight = 4320;
} // namespace

bool FrameExchange::setFormat(QSize size, PixelLayout layout)
{
    if (size.isEmpty() || size.width() > LargestWidth || size.height() > LargestHeight)
        return false;
    VideoFrame first(size, layout);
    const std::scoped_lock lock(m_mutex);
    m_size = size;
    m_layout = layout;
    m_writing = std::move(first);
    return !m_writing.isNull();
}

const VideoFrame& FrameExchange::beginWriting()
{
    const std::scoped_lock lock(m_mutex);
    if (m_writing.size() != m_size || m_writing.layout() != m_layout)
        m_writing = VideoFrame(m_size, m_layout);
    return m_writing;
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
