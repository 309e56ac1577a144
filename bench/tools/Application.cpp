// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "tools/Application.h"

#include "map/MapSurface.h"
#include "platform/Allocation.h"
#include "playback/PlaybackController.h"
#include "playback/VlcPlayer.h"
#include "playback/VlcSession.h"
#include "viewer/Appearance.h"
#include "viewer/CustomWindow.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace marvo::bench {

namespace {

constexpr int patienceMs = 15'000;

/// What must be settled before the one application object is made.
int& prepared(int& argc)
{
    returnFreedMemory();
    prepareForMaps();
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO"));
    QCoreApplication::setApplicationName(QStringLiteral("marvo-bench"));
    VlcInstance::setExtraOptions({"--aout=dummy"});
    return argc;
}

} // namespace

Application::Application(int& argc, char** argv) : m_application(prepared(argc), argv)
{
    installLanguage(interfaceLanguage());
    applyAppearance(m_application);
    m_delegate = std::make_unique<MRVAppDelegate>();
    m_delegate->awakeFromNib();
    m_delegate->applicationDidFinishLaunching();
    waitUntil([this] { return m_delegate->window().isVisible(); }, patienceMs);
}

bool Application::open(const std::string& folder)
{
    bool isListed = false;
    const auto listed = QObject::connect(m_delegate.get(), &MRVAppDelegate::recordingsListed,
                                         m_delegate.get(), [&] { isListed = true; });
    m_delegate->openDirectory(folder);
    waitUntil([&] { return isListed; }, patienceMs);
    QObject::disconnect(listed);
    return isListed;
}

bool Application::play(std::int64_t row)
{
    const MRVMedia* media = m_delegate->mediaList().mediaAtIndex(row);
    if (!media)
        return false;
    m_delegate->playback().changeAndPlay(row);
    const VlcPlayer& player = *m_delegate->player1();
    return waitUntil([&] { return player.isPlaying() && player.mediaPath() == media->path(); }, patienceMs);
}

bool waitUntil(const std::function<bool()>& condition, int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    QTimer wake; // the loop below sleeps while nothing happens
    wake.start(100);
    while (!condition()) {
        if (clock.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void waitFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace marvo::bench
