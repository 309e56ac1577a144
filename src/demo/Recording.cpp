// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Recording.h"

#include "demo/AviWriter.h"
#include "demo/JpegEncoder.h"
#include "demo/OutputFile.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace marvo::demo {

namespace {

void paintCounter(Canvas& picture, int frame)
{
    picture.fill({static_cast<std::uint8_t>(counterLuma(frame)), 128, 128});
    const int scale = std::max(1, picture.height() / 30);
    picture.drawText(picture.width() / 4, picture.height() / 3, scale, std::to_string(frame),
                     rgb(240, 240, 240));
}

void quietTone(std::span<std::int16_t> samples, std::int64_t first, int rateHz)
{
    for (std::int16_t& sample : samples) {
        // Whole periods repeat each second, which keeps the phase small and exact.
        const double phase = static_cast<double>(first++ % rateHz) * 440 / rateHz;
        sample = static_cast<std::int16_t>(1500 * std::sin(2 * std::numbers::pi * phase));
    }
}

} // namespace

std::optional<std::string> writeRecording(const std::string& path, const RecordingOptions& options,
                                          const std::stop_token& stop)
{
    const int fps = std::clamp(options.framesPerSecond, 1, 1000);
    const int rateHz = std::clamp(options.soundRateHz, 0, 192'000);
    OutputFile file(path);
    Canvas picture(options.width, options.height);
    JpegEncoder encoder(options.quality);
    AviWriter film(file, {picture.width(), picture.height(), fps, rateHz});
    if (!options.software.empty())
        film.putBeforeMovie(softwareList(options.software));
    if (options.dataPlace == DataAreaPlace::BeforeMovie)
        film.putBeforeMovie(options.dataChunks);

    std::vector<std::int16_t> samples;
    const Bytes* frame = nullptr;
    for (int i = 0; i < options.frameCount && !file.hasFailed(); ++i) {
        if (stop.stop_requested())
            return "stopped";
        bool changed = true;
        if (options.paint)
            changed = options.paint(picture, i);
        else
            paintCounter(picture, i);
        if (changed || frame == nullptr)
            frame = &encoder.encode(picture);
        if (frame->empty())
            return "cannot write '" + path + "': no memory for a frame";
        film.putFrame(*frame);

        const std::int64_t from = std::int64_t{i} * rateHz / fps;
        samples.resize(static_cast<std::size_t>((std::int64_t{i} + 1) * rateHz / fps - from));
        if (!samples.empty()) {
            if (options.sound)
                options.sound(samples, from);
            else
                quietTone(samples, from, rateHz);
            film.putSound(samples);
        }
        if (options.progress)
            options.progress(i + 1);
    }
    film.finish(options.dataPlace == DataAreaPlace::AfterIndex ? options.dataChunks : Bytes{});
    if (stop.stop_requested())
        return "stopped";
    return file.commit();
}

} // namespace marvo::demo
