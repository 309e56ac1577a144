// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/JpegEncoder.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace marvo::demo {

namespace {

constexpr int rowsAtOnce = 16; // one row of blocks: 16 luma rows, 8 of each colour plane

struct ErrorManager : jpeg_error_mgr
{
    std::jmp_buf back;
};

[[noreturn]] void onError(j_common_ptr info) { std::longjmp(static_cast<ErrorManager*>(info->err)->back, 1); }

void onMessage(j_common_ptr) {}

/// Hands libjpeg a byte list that grows.
struct Destination : jpeg_destination_mgr
{
    Bytes bytes;
    static constexpr std::size_t firstSize = 64 * 1024;

    static Destination& of(j_compress_ptr info) { return *static_cast<Destination*>(info->dest); }

    static void begin(j_compress_ptr info)
    {
        Destination& self = of(info);
        self.bytes.resize(std::max(self.bytes.capacity(), firstSize));
        self.next_output_byte = self.bytes.data();
        self.free_in_buffer = self.bytes.size();
    }

    static boolean grow(j_compress_ptr info)
    {
        Destination& self = of(info);
        const std::size_t used = self.bytes.size();
        self.bytes.resize(used * 2);
        self.next_output_byte = self.bytes.data() + used;
        self.free_in_buffer = self.bytes.size() - used;
        return TRUE;
    }

    static void end(j_compress_ptr info)
    {
        Destination& self = of(info);
        self.bytes.resize(self.bytes.size() - self.free_in_buffer);
    }
};

} // namespace

struct JpegEncoder::State
{
    jpeg_compress_struct info{};
    ErrorManager errors{};
    Destination destination{};
    int quality = 75;

    bool encode(const Canvas& picture);
};

JpegEncoder::JpegEncoder(int quality) : m_state(std::make_unique<State>())
{
    State& s = *m_state;
    s.quality = quality;
    s.info.err = jpeg_std_error(&s.errors);
    s.errors.error_exit = onError;
    s.errors.output_message = onMessage;
    if (setjmp(s.errors.back) != 0)
        return;
    jpeg_create_compress(&s.info);
    s.destination.init_destination = Destination::begin;
    s.destination.empty_output_buffer = Destination::grow;
    s.destination.term_destination = Destination::end;
    s.info.dest = &s.destination;
}

JpegEncoder::~JpegEncoder() { jpeg_destroy_compress(&m_state->info); }

bool JpegEncoder::State::encode(const Canvas& picture)
{
    if (setjmp(errors.back) != 0) {
        jpeg_abort_compress(&info);
        return false;
    }
    info.image_width = static_cast<JDIMENSION>(picture.width());
    info.image_height = static_cast<JDIMENSION>(picture.height());
    info.input_components = 3;
    info.in_color_space = JCS_YCbCr;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    info.dct_method = JDCT_IFAST;
    info.raw_data_in = TRUE;
    jpeg_start_compress(&info, TRUE);

    std::array<JSAMPROW, rowsAtOnce> luma{};
    std::array<JSAMPROW, rowsAtOnce / 2> u{};
    std::array<JSAMPROW, rowsAtOnce / 2> v{};
    std::array<JSAMPARRAY, 3> planes{luma.data(), u.data(), v.data()};
    while (info.next_scanline < info.image_height) {
        const int top = static_cast<int>(info.next_scanline);
        // libjpeg only reads the rows, though its type does not say so.
        for (int row = 0; row < rowsAtOnce; ++row)
            luma[row] = const_cast<JSAMPROW>(picture.luma(top + row));
        for (int row = 0; row < rowsAtOnce / 2; ++row) {
            u[row] = const_cast<JSAMPROW>(picture.chromaU(top / 2 + row));
            v[row] = const_cast<JSAMPROW>(picture.chromaV(top / 2 + row));
        }
        jpeg_write_raw_data(&info, planes.data(), rowsAtOnce);
    }
    jpeg_finish_compress(&info);
    return true;
}

const Bytes& JpegEncoder::encode(const Canvas& picture)
{
    Bytes& frame = m_state->destination.bytes;
    if (!m_state->encode(picture))
        frame.clear();
    // A marker may be preceded by any number of fill bytes 0xFF (T.81, B.1.1.2).
    if (frame.size() % 2 != 0)
        frame.insert(frame.end() - 2, 0xFF);
    return frame;
}

} // namespace marvo::demo
