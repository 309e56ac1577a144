// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "capture/CaptureSnapshots.h"
#include "workers/DetachedWorkers.h"
#include "workers/ObjectLink.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace marvo {

class MediaPlayer;

/// The name of a still without its ending: the camera's clock at the picture and the camera, such as
/// "2024-05-17_14-20-09.120_front". Where the recording's name tells no time, its own name and the time in
/// it.
std::string stillName(const CaptureFacts& facts, const std::string& mediaPath, std::int64_t timeMs);

/// Saves the picture shown at once, without a dialog, playing or paused: a JPEG file of the film's own size
/// with what is known as EXIF, in a folder of the user's. No file is ever replaced.
class StillController : public QObject
{
    Q_OBJECT
public:
    /// The objects are not owned and must outlive this one. The folder, which need not exist, as bytes.
    StillController(const MediaPlayer& player, std::function<CaptureSnapshots::Shown()> shown,
                    std::string folder);
    /// Waits up to some seconds for stills that are still being written.
    ~StillController() override;

    void saveStill();

Q_SIGNALS:
    void saved(const QString& path);
    void failed(const QString& reason); ///< the system's words

private:
    const MediaPlayer& m_player;
    std::function<CaptureSnapshots::Shown()> m_shown;
    std::string m_folder;
    DetachedWorkers m_workers;
    std::shared_ptr<ObjectLink<StillController>> m_link;
};

} // namespace marvo
