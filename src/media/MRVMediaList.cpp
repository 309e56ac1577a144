// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MRVMediaList.h"

#include <QMetaObject>

#include <chrono>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <utility>

namespace marvo {

/// One scan on its worker. The worker shares the ownership, so that a list can go, or begin another scan,
/// without waiting for a medium that does not answer; the abandoned worker ends when it can and is not heard.
///
/// What the worker has to tell is laid down here, and the list is only woken to fetch it. So a late wake-up
/// of an abandoned scan brings nothing with it.
class MRVMediaList::Scan : public std::enable_shared_from_this<Scan>
{
public:
    struct News
    {
        std::size_t found = 0;
        std::optional<MediaScan> result; ///< once, at the end
    };

    explicit Scan(MRVMediaList& list) : m_list(&list) {}

    void start(const std::string& folder)
    {
        try {
            std::thread([self = shared_from_this(), folder] { self->run(folder); }).detach();
        } catch (const std::system_error& error) {
            deliver({.medias = {}, .folderError = error.code()});
        }
    }

    /// Behind it the list is not touched any more.
    void abandon()
    {
        m_stop.request_stop();
        const std::lock_guard lock(m_mutex);
        m_list = nullptr;
    }

    /// What came up since it was last asked.
    News takeNews()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_news, {});
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
            const std::lock_guard lock(m_mutex);
            m_news.found = found;
            wakeList();
        };
        deliver(scanFolder(folder, m_stop.get_token(), onFound));
    }

    void deliver(MediaScan result)
    {
        const std::lock_guard lock(m_mutex);
        m_news.result = std::move(result);
        wakeList();
    }

    void wakeList()
    {
        if (m_list != nullptr)
            QMetaObject::invokeMethod(m_list, "takeNews", Qt::QueuedConnection);
    }

    std::stop_source m_stop;
    std::mutex m_mutex;   ///< of what follows
    MRVMediaList* m_list; ///< null once the scan is abandoned
    News m_news;
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

void MRVMediaList::takeNews()
{
    Scan::News news = m_scan ? m_scan->takeNews() : Scan::News();
    if (news.result) {
        m_medias = std::move(news.result->medias);
        m_folderError = news.result->folderError;
        m_scan.reset();
        Q_EMIT mediaListChanged();
    } else if (news.found > 0) {
        Q_EMIT scanProgress(static_cast<qint64>(news.found));
    }
}

} // namespace marvo
