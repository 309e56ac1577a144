// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <cstdint>

namespace marvo {

class MRVAppDelegate;

/// A self-test for machines without a display: waits for the folder's list, plays the first recording for
/// some seconds by the user's commands, saves what the window shows, and prints what it did.
class Tour : public QObject
{
    Q_OBJECT
public:
    /// The delegate is not owned. The picture of the list goes to the path, that of the map beside it with
    /// "-map" before the ending.
    Tour(MRVAppDelegate& delegate, const QString& screenshotPath);

    /// Before the folder is opened.
    void start();

Q_SIGNALS:
    /// 0 when everything was reached, 1 otherwise; the reason has been printed.
    void finished(int exitCode);

private:
    void recordingsListed();
    void look();
    void saveListPicture();
    void saveMapPicture();
    void fail(const QString& reason);
    bool savePicture(const QString& path);

    enum class Step { List, Play, Map, Done };

    MRVAppDelegate& m_delegate;
    QString m_screenshotPath;
    QTimer m_look;
    QElapsedTimer m_running;
    Step m_step = Step::List;
    std::int64_t m_mapShownMs = 0;
};

} // namespace marvo
