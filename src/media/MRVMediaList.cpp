// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MRVMediaList.h"

#include <QMetaObject>

#include <chrono>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>

namespace marvo {

/// One scan on its worker. The worker shares the ownership, so that a list can go, or begin another scan,
/// without waiting for a medium that does not answer; the abandoned worker ends when it can and is not heard.
class MRVMediaList::Scan : public std::enable_shared_from_this<Scan>
{
public:
    explicit Scan(MRVMediaList& list) : m_list(&list) {}

    void start(const std::string& folder)
    {
        try {
            std::thread([self = shared_from_this(), folder] { self->run(folder); }).detach();
        } catch (const std::system_error& error) {
            deliver({.medias = {}, .folderError = error.code()});
        }
    }

    /// Main thread. Behind it the list is not touched any more.
    void abandon()
    {
        m_stop.request_stop();
        const std::lock_guard lock(m_mutex);
        m_list = nullptr;
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr auto progressInterval = std::chrono::milliseconds(100);

    void run(const std::string& folder)
    {
        auto lastProgress = Clock::now();
        const auto onFound = [&](std::size_t found) {
            const auto now = Clock::now();
            if (now - lastProgress < progressInterval)
                return;
            lastProgress = now;
            post(
                [found](Scan&, MRVMediaList& list) { Q_EMIT list.scanProgress(static_cast<qint64>(found)); });
        };
        deliver(scanFolder(folder, m_stop.get_token(), onFound));
    }

    void deliver(MediaScan result)
    {
        post([shared = std::make_shared<MediaScan>(std::move(result))](Scan& scan, MRVMediaList& list) {
            list.publish(scan, *shared);
        });
    }

    /// Has the list's thread do something with the list, unless the scan has been abandoned by then.
    template <typename Action>
    void post(Action action)
    {
        const std::lock_guard lock(m_mutex);
        if (m_list == nullptr)
            return;
        QMetaObject::invokeMethod(
            m_list,
            [self = shared_from_this(), action] {
                if (self->m_list != nullptr) // only this thread writes it
                    action(*self, *self->m_list);
            },
            Qt::QueuedConnection);
    }

    std::stop_source m_stop;
    std::mutex m_mutex;
    MRVMediaList* m_list; ///< null once the scan is abandoned
};

MRVMediaList::MRVMediaList(QObject* parent) : QObject(parent) {}

MRVMediaList::~MRVMediaList()
{
    if (m_scan)
        m_scan->abandon();
}

void MRVMediaList::setDirectoryPath(const std::string& path)
{
    m_directoryPath = path;
    if (path.empty())
        return;
    if (m_scan)
        m_scan->abandon();
    m_scan = std::make_shared<Scan>(*this);
    m_scan->start(path);
    Q_EMIT scanStarted();
}

const MRVMedia* MRVMediaList::mediaAtIndex(std::int64_t index) const
{
    return index >= 0 && index < count() ? &m_medias[static_cast<std::size_t>(index)] : nullptr;
}

void MRVMediaList::publish(Scan& scan, MediaScan& result)
{
    m_medias = std::move(result.medias);
    m_folderError = result.folderError;
    scan.abandon();
    m_scan.reset();
    Q_EMIT mediaListChanged();
}

} // namespace marvo
