// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/CaptureSnapshots.h"

#include "capture/CaptureExif.h"
#include "support/Log.h"
#include "workers/DetachedWorkers.h"

#include <QBuffer>
#include <QImageWriter>

#include <utility>

namespace marvo {

namespace {

constexpr int jpegQuality = 95;

} // namespace

std::string encodeCapture(const QImage& picture, const CaptureFacts& facts)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpg");
    writer.setQuality(jpegQuality);
    if (picture.isNull() || !writer.write(picture))
        return {};
    std::string jpeg = buffer.data().toStdString();
    addExif(jpeg, picture.width(), picture.height(), facts); // the picture is worth keeping without it too
    return jpeg;
}

CaptureSnapshots::CaptureSnapshots(std::function<Shown()> shown, DetachedWorkers& workers, std::string path)
    : m_shown(std::move(shown)), m_workers(workers), m_store(std::make_shared<CaptureStore>(std::move(path)))
{}

Snapshot CaptureSnapshots::take()
{
    auto promise = std::make_shared<std::promise<std::shared_ptr<const CaptureFile>>>();
    m_workers.start([promise, before = m_last, shown = m_shown(), store = m_store] {
        if (before.valid())
            before.wait();
        const std::string jpeg = encodeCapture(shown.picture, shown.facts);
        if (jpeg.empty())
            logLine("cannot make a JPEG file of the picture shown");
        promise->set_value(
            std::make_shared<const CaptureFile>(jpeg.empty() ? store->last() : store->write(jpeg)));
    });
    m_last = promise->get_future().share();
    return m_last;
}

} // namespace marvo
