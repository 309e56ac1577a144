// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>
#include <QThreadPool>

#include <utility>

namespace marvo {

/// Runs `work` on a worker thread and hands its result to `done` on the main thread, unless `context` is gone
/// by then. `work` must own all it touches: nothing waits for it, not even the end of `context`.
template <typename Work, typename Done>
void runInBackground(QObject* context, Work work, Done done)
{
    QThreadPool::globalInstance()->start(
        [guard = QPointer<QObject>(context), work = std::move(work), done = std::move(done)]() mutable {
            auto deliver = [guard, done = std::move(done), result = work()]() mutable {
                if (guard)
                    done(std::move(result));
            };
            // The application outlives its windows; after it there is nobody left to tell.
            if (QCoreApplication* application = QCoreApplication::instance())
                QMetaObject::invokeMethod(application, std::move(deliver), Qt::QueuedConnection);
        });
}

} // namespace marvo
