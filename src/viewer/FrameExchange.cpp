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

bool FrameExchange::setSize(QSize size)
{
    if (size.isEmpty() || size.width() > LargestWidth || size.height() > LargestHeight)
        return false;
    QImage first(size, QImage::Format_RGB32);
    const std::scoped_lock lock(m_mutex);
    m_size = size;
    m_writing = std::move(first);
    return !m_writing.isNull();
}

uchar* FrameExchange::beginWriting()
{
    const QSize size = this->size();
    if (m_writing.size() != size)
        m_writing = QImage(size, QImage::Format_RGB32);
    return m_writing.bits(); // a copy that is held elsewhere stays as it is
}

bool FrameExchange::publish()
{
    const std::scoped_lock lock(m_mutex);
    std::swap(m_writing, m_waiting);
    return !std::exchange(m_isWaitingNew, true);
}

QImage FrameExchange::exchange(QImage shown)
{
    const std::scoped_lock lock(m_mutex);
    if (!std::exchange(m_isWaitingNew, false))
        return shown;
    std::swap(shown, m_waiting);
    return shown;
}

QSize FrameExchange::size() const
{
    const std::scoped_lock lock(m_mutex);
    return m_size;
}

} // namespace marvo
