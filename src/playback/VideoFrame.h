// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QSize>

#include <array>
#include <memory>

namespace marvo {

/// How a decoded picture lies in memory: a plane of brightness and two of colour, one byte a value, with
/// the usual names. There is one colour value for 2 x 2 pixels (420), for 2 x 1 (422) or for each pixel
/// (444). Values range from 16 to 235 as in television (I) or from 0 to 255 as in JPEG (J).
enum class PixelLayout { I420, I422, I444, J420, J422, J444 };

/// The ITU recommendation for the colours: BT.601 (standard definition, JPEG) or BT.709 (high definition).
enum class ColourMatrix { BT601, BT709 };

/// libVLC does not report a film's colour matrix. Players then choose by size; JPEG has only one matrix.
constexpr ColourMatrix usualColourMatrix(int lines, bool isJpeg)
{
    constexpr int standardLines = 576;
    return lines > standardLines && !isJpeg ? ColourMatrix::BT709 : ColourMatrix::BT601;
}

/// A picture as the decoder leaves it: a third of its size on the screen. It can be moved, not copied.
class VideoFrame
{
public:
    struct Plane
    {
        uchar* pixels;
        int pitch; ///< bytes from a line to the next
        int lines; ///< with those below the picture, which decoders that work in blocks may write
    };

    VideoFrame() = default;
    /// A picture to be written; null when there is no memory for one.
    VideoFrame(QSize size, PixelLayout layout, ColourMatrix matrix = ColourMatrix::BT601);
    VideoFrame(VideoFrame&& other) noexcept { swap(other); }
    VideoFrame& operator=(VideoFrame&& other) noexcept
    {
        swap(other);
        return *this;
    }
    ~VideoFrame() = default;

    bool isNull() const { return m_memory == nullptr; }
    QSize size() const { return m_size; }
    PixelLayout layout() const { return m_layout; }
    ColourMatrix matrix() const { return m_matrix; }
    /// Brightness, blue and red difference.
    const std::array<Plane, 3>& planes() const { return m_planes; }

    /// The picture in its own size; null when the frame is.
    QImage toImage() const;

private:
    void swap(VideoFrame& other) noexcept;

    QSize m_size;
    PixelLayout m_layout = PixelLayout::I420;
    ColourMatrix m_matrix = ColourMatrix::BT601;
    std::array<Plane, 3> m_planes{};
    std::unique_ptr<uchar[]> m_memory;
};

/// Turns the frames of a film into pictures for the screen, one after the other in the same memory.
class FrameConverter
{
public:
    /// The frame in colours, 4 bytes a pixel. Where both sides of `size` are smaller than the frame's it is
    /// scaled down to that; to enlarge it is left to whoever draws it, as only a part of it may be seen.
    /// The picture stays until the next call; null when the frame is or there is no memory.
    const QImage& convert(const VideoFrame& frame, QSize size);

private:
    const VideoFrame& scaledDown(const VideoFrame& frame, QSize size);

    std::array<VideoFrame, 4> m_halves; ///< a half, a quarter and so on
    VideoFrame m_scaled;
    QImage m_image;
};

} // namespace marvo
