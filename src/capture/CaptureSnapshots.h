// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "capture/CaptureFacts.h"
#include "capture/CaptureFile.h"

#include <QImage>

#include <functional>
#include <future>
#include <memory>
#include <string>

namespace marvo {

class DetachedWorkers;

/// A picture that is being written or was written. get() waits for it; never call it on the main thread.
using Snapshot = std::shared_future<std::shared_ptr<const CaptureFile>>;

/// The picture as a JPEG file of its own size, quality 95, with the facts as EXIF; empty when there is no
/// picture or no memory. Any thread.
std::string encodeCapture(const QImage& picture, const CaptureFacts& facts);

/// Writes the picture that the player shows to the one file of captured pictures.
class CaptureSnapshots
{
public:
    /// A picture and what is known of it.
    struct Shown
    {
        QImage picture;
        CaptureFacts facts;
    };

    /// Both functions belong to the main thread; the path is that of the file.
    CaptureSnapshots(std::function<Shown()> shown, DetachedWorkers& workers, std::string path);

    /// Takes the picture at once and writes it on a worker, after those taken before. A picture that cannot
    /// be written is told in the log; the snapshot then is whatever the file holds.
    Snapshot take();

private:
    std::function<Shown()> m_shown;
    DetachedWorkers& m_workers;
    std::shared_ptr<CaptureStore> m_store;
    Snapshot m_last;
};

} // namespace marvo
