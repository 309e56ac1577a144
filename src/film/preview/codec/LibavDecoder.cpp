// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/preview/codec/LibavDecoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

namespace marvo {
namespace {

/// A header may claim any size: no more than twice the sides of "4K".
constexpr int largestWidth = 8192;
constexpr int largestHeight = 4320;
constexpr std::size_t largestSetUp = 64 * 1024;

struct Release
{
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};
template <typename T>
using Owned = std::unique_ptr<T, Release>;

AVCodecID codecOf(const CodedPictures& coded)
{
    const std::string_view name(coded.codec.data(), coded.codec.size());
    if (name == "MJPG" || name == "mjpg")
        return AV_CODEC_ID_MJPEG;
    if (name == "H264" || name == "h264" || name == "X264" || name == "x264" || name == "avc1" ||
        name == "AVC1")
        return AV_CODEC_ID_H264;
    return AV_CODEC_ID_NONE;
}

Owned<AVCodecContext> openCodec(const CodedPictures& coded)
{
    const AVCodec* codec = avcodec_find_decoder(codecOf(coded));
    Owned<AVCodecContext> context(codec != nullptr ? avcodec_alloc_context3(codec) : nullptr);
    if (!context)
        return nullptr;
    context->thread_count = 1; // the film beside it has the other processors
    context->skip_loop_filter = AVDISCARD_ALL;
    context->flags2 |= AV_CODEC_FLAG2_FAST;
    context->flags |= AV_CODEC_FLAG_LOW_DELAY;
    context->max_pixels = std::int64_t{largestWidth} * largestHeight;
    if (!coded.setUp.empty() && coded.setUp.size() <= largestSetUp) {
        context->extradata =
            static_cast<std::uint8_t*>(av_mallocz(coded.setUp.size() + AV_INPUT_BUFFER_PADDING_SIZE));
        if (context->extradata == nullptr)
            return nullptr;
        std::memcpy(context->extradata, coded.setUp.data(), coded.setUp.size());
        context->extradata_size = static_cast<int>(coded.setUp.size());
    }
    return avcodec_open2(context.get(), codec, nullptr) == 0 ? std::move(context) : nullptr;
}

QImage scaled(const AVFrame& frame, QSize within)
{
    if (frame.width <= 0 || frame.height <= 0 || frame.width > largestWidth || frame.height > largestHeight)
        return {};
    QSize size(frame.width, frame.height);
    if (size.width() > within.width() || size.height() > within.height())
        size = size.scaled(within, Qt::KeepAspectRatio).expandedTo({1, 1});
    QImage image(size, QImage::Format_RGB32);
    Owned<SwsContext> scaler(
        sws_getContext(frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), size.width(),
                       size.height(), AV_PIX_FMT_BGRA, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (image.isNull() || !scaler)
        return {};
    std::uint8_t* const planes[] = {image.bits()};
    const int pitches[] = {static_cast<int>(image.bytesPerLine())};
    sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, planes, pitches);
    return image;
}

} // namespace

QImage LibavDecoder::decodeLast(const CodedPictures& coded, QSize within, const std::stop_token& stop) const
{
    av_log_set_level(AV_LOG_QUIET); // what is damaged is told by a missing picture
    const Owned<AVCodecContext> context = openCodec(coded);
    const Owned<AVFrame> frame(av_frame_alloc());
    const Owned<AVPacket> packet(av_packet_alloc());
    if (!context || !frame || !packet || within.isEmpty())
        return {};
    bool hasPicture = false;
    const auto receive = [&] {
        const Owned<AVFrame> next(av_frame_alloc());
        while (next && avcodec_receive_frame(context.get(), next.get()) == 0) {
            av_frame_unref(frame.get());
            av_frame_move_ref(frame.get(), next.get());
            hasPicture = true;
        }
    };
    for (const auto& picture : coded.pictures) {
        if (stop.stop_requested() || av_new_packet(packet.get(), static_cast<int>(picture.size())) != 0)
            return {};
        std::memcpy(packet->data, picture.data(), picture.size());
        avcodec_send_packet(context.get(), packet.get());
        av_packet_unref(packet.get());
        receive();
    }
    avcodec_send_packet(context.get(), nullptr);
    receive();
    return hasPicture ? scaled(*frame, within) : QImage();
}

} // namespace marvo
