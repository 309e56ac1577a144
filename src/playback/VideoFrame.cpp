// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/VideoFrame.h"

#include <libyuv/convert_argb.h>
#include <libyuv/scale.h>

#include <cstddef>
#include <new>
#include <utility>

namespace marvo {

namespace {

constexpr int blockSize = 32; // what lines and their length are rounded up to

constexpr int rounded(int value) { return (value + blockSize - 1) / blockSize * blockSize; }

bool isJpegRange(PixelLayout layout)
{
    return layout == PixelLayout::J420 || layout == PixelLayout::J422 || layout == PixelLayout::J444;
}

/// The size of the planes of colour.
QSize colourSize(QSize size, PixelLayout layout)
{
    const QSize half((size.width() + 1) / 2, (size.height() + 1) / 2);
    switch (layout) {
    case PixelLayout::I420:
    case PixelLayout::J420:
        return half;
    case PixelLayout::I422:
    case PixelLayout::J422:
        return {half.width(), size.height()};
    case PixelLayout::I444:
    case PixelLayout::J444:
        break;
    }
    return size;
}

const libyuv::YuvConstants* coloursOf(const VideoFrame& frame)
{
    if (frame.matrix() == ColourMatrix::BT709)
        return isJpegRange(frame.layout()) ? &libyuv::kYuvF709Constants : &libyuv::kYuvH709Constants;
    return isJpegRange(frame.layout()) ? &libyuv::kYuvJPEGConstants : &libyuv::kYuvI601Constants;
}

/// Writes a frame into a picture of the same size.
void writeColours(const VideoFrame& frame, QImage& image)
{
    const QSize half = colourSize(frame.size(), frame.layout());
    const auto convert = half == frame.size()                     ? libyuv::I444ToARGBMatrix
                         : half.height() == frame.size().height() ? libyuv::I422ToARGBMatrix
                                                                  : libyuv::I420ToARGBMatrix;
    const auto& [y, u, v] = frame.planes();
    convert(y.pixels, y.pitch, u.pixels, u.pitch, v.pixels, v.pitch, image.bits(),
            static_cast<int>(image.bytesPerLine()), coloursOf(frame), image.width(), image.height());
}

/// Whether all planes can be halved exactly and stay large enough.
bool mayBeHalved(QSize size, QSize wanted)
{
    return size.width() % 4 == 0 && size.height() % 4 == 0 && size.width() / 2 >= wanted.width() &&
           size.height() / 2 >= wanted.height();
}

void prepare(VideoFrame& frame, QSize size, PixelLayout layout, ColourMatrix matrix)
{
    if (frame.size() != size || frame.layout() != layout || frame.matrix() != matrix)
        frame = VideoFrame(size, layout, matrix);
}

void scale(const VideoFrame& from, const VideoFrame& to)
{
    for (std::size_t i = 0; i < from.planes().size(); ++i) {
        const QSize size = i == 0 ? from.size() : colourSize(from.size(), from.layout());
        const QSize wanted = i == 0 ? to.size() : colourSize(to.size(), to.layout());
        const VideoFrame::Plane& source = from.planes()[i];
        const VideoFrame::Plane& target = to.planes()[i];
        libyuv::ScalePlane(source.pixels, source.pitch, size.width(), size.height(), target.pixels,
                           target.pitch, wanted.width(), wanted.height(), libyuv::kFilterBox);
    }
}

} // namespace

VideoFrame::VideoFrame(QSize size, PixelLayout layout, ColourMatrix matrix)
{
    const QSize colours = colourSize(size, layout);
    std::size_t bytes = 0;
    std::array<std::size_t, 3> offsets{};
    for (std::size_t i = 0; i < m_planes.size(); ++i) {
        const QSize plane = i == 0 ? size : colours;
        m_planes[i] = {nullptr, rounded(plane.width()), rounded(plane.height())};
        offsets[i] = bytes;
        bytes += static_cast<std::size_t>(m_planes[i].pitch) * static_cast<std::size_t>(m_planes[i].lines);
    }
    m_memory.reset(new (std::nothrow) uchar[bytes]);
    if (!m_memory)
        return;
    m_size = size;
    m_layout = layout;
    m_matrix = matrix;
    for (std::size_t i = 0; i < m_planes.size(); ++i)
        m_planes[i].pixels = m_memory.get() + offsets[i];
}

void VideoFrame::swap(VideoFrame& other) noexcept
{
    std::swap(m_size, other.m_size);
    std::swap(m_layout, other.m_layout);
    std::swap(m_matrix, other.m_matrix);
    std::swap(m_planes, other.m_planes);
    std::swap(m_memory, other.m_memory);
}

QImage VideoFrame::toImage() const { return FrameConverter().convert(*this, m_size); }

const QImage& FrameConverter::convert(const VideoFrame& frame, QSize size)
{
    const QSize own = frame.size();
    const bool isSmaller = !size.isEmpty() && size.width() <= own.width() && size.height() <= own.height();
    const QSize wanted = isSmaller ? size : own;
    const VideoFrame& scaled = wanted == own ? frame : scaledDown(frame, wanted);
    if (m_image.size() != scaled.size())
        m_image = scaled.isNull() ? QImage() : QImage(scaled.size(), QImage::Format_RGB32);
    if (!m_image.isNull())
        writeColours(scaled, m_image);
    return m_image;
}

/// By halves as far as possible: averaging four pixels takes a tenth of the time of other scaling, and the
/// last step then only mixes neighbours.
const VideoFrame& FrameConverter::scaledDown(const VideoFrame& frame, QSize size)
{
    const VideoFrame* from = &frame;
    for (VideoFrame& half : m_halves) {
        if (!mayBeHalved(from->size(), size))
            break;
        prepare(half, from->size() / 2, from->layout(), frame.matrix());
        if (half.isNull())
            return half;
        scale(*from, half);
        from = &half;
    }
    prepare(m_scaled, size, isJpegRange(frame.layout()) ? PixelLayout::J420 : PixelLayout::I420,
            frame.matrix());
    if (!m_scaled.isNull())
        scale(*from, m_scaled);
    return m_scaled;
}

} // namespace marvo
