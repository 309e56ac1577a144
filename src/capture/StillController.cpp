// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/StillController.h"

#include "media/MRVMedia.h"
#include "playback/MediaPlayer.h"
#include "support/AtomicFile.h"

#include <QFile>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace marvo {

namespace {

constexpr std::chrono::seconds saveTimeout{5};
constexpr int mostOfOneName = 1000;

struct Written
{
    std::string path;
    std::error_code error;

    static Written outOfMemory() { return {{}, std::make_error_code(std::errc::not_enough_memory)}; }
};

/// Under the first name that is free: "name.jpg", "name_2.jpg" and so on.
Written writeStill(const std::string& folder, const std::string& name, const CaptureSnapshots::Shown& shown)
{
    const std::string jpeg = encodeCapture(shown.picture, shown.facts);
    if (jpeg.empty())
        return Written::outOfMemory();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    for (int number = 1; !error && number <= mostOfOneName; ++number) {
        const std::string path =
            folder + "/" + name + (number > 1 ? "_" + std::to_string(number) : std::string()) + ".jpg";
        AtomicFile file;
        std::error_code written = file.open(path, AtomicFile::Existing::Keep);
        if (!written)
            written = file.write(jpeg);
        if (!written)
            written = file.commit();
        if (!written)
            return {path, {}};
        if (written != std::errc::file_exists)
            error = written;
    }
    return {{}, error ? error : std::make_error_code(std::errc::file_exists)};
}

} // namespace

std::string stillName(const CaptureFacts& facts, const std::string& mediaPath, std::int64_t timeMs)
{
    char text[64];
    const char* camera = isRearMedia(mediaPath) ? "rear" : "front";
    if (facts.taken) {
        std::snprintf(text, sizeof text, "%04u-%02u-%02u_%02u-%02u-%02u.%03u_%s",
                      unsigned{facts.taken->wYear}, unsigned{facts.taken->wMonth},
                      unsigned{facts.taken->wDay}, unsigned{facts.taken->wHour},
                      unsigned{facts.taken->wMinute}, unsigned{facts.taken->wSecond},
                      unsigned{facts.taken->wMilliseconds}, camera);
        return text;
    }
    std::snprintf(text, sizeof text, "_%lld.%03lld_s_%s", static_cast<long long>(timeMs / 1000),
                  static_cast<long long>(timeMs % 1000), camera);
    return std::filesystem::path(mediaPath).stem().string().substr(0, 150) + text;
}

StillController::StillController(const MediaPlayer& player, std::function<CaptureSnapshots::Shown()> shown,
                                 std::string folder)
    : m_player(player),
      m_shown(std::move(shown)),
      m_folder(std::move(folder)),
      m_link(std::make_shared<ObjectLink<StillController>>(this))
{}

StillController::~StillController()
{
    m_link->sever();
    m_workers.waitForAll(saveTimeout);
}

void StillController::saveStill()
{
    if (!m_player.isPlaying() && !m_player.isPaused())
        return;
    auto shown = m_shown();
    const std::string name = stillName(shown.facts, m_player.mediaPath(), m_player.timeMs());
    runInBackground(
        m_workers, m_link,
        [folder = m_folder, name, shown = std::move(shown)] { return writeStill(folder, name, shown); },
        [](StillController& self, const Written& written) {
            if (written.error)
                Q_EMIT self.failed(QString::fromStdString(written.error.message()));
            else
                Q_EMIT self.saved(QFile::decodeName(QByteArray::fromStdString(written.path)));
        });
}

} // namespace marvo
