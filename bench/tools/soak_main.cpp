// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// bench_soak SECONDS SEED FOLDER FOLDER: plays the folders' recordings back to back at double speed, gives
// random commands all the while, and prints "SECOND RSS-KB THREADS DESCRIPTORS" once a second. Threads and
// descriptors at rest, with the player stopped, are printed before and after as "rest THREADS DESCRIPTORS",
// what is open only afterwards as "more NUMBER TARGET".
#include "playback/MRVPlayInfo.h"
#include "playback/PlaybackController.h"
#include "tools/Application.h"
#include "viewer/MainWindowCommands.h"

#include <QAction>
#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>

using namespace marvo;

namespace {

constexpr int commandMs = 700;
constexpr int settleMs = 12'000;

using Descriptors = std::map<std::string, std::string>; ///< number: what it is of

std::int64_t threads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

/// The web engine opens the journals of its history and icons for each entry and closes them when it likes.
bool isJournalOfTheWebEngine(const std::string& target)
{
    return target.find("/QtWebEngine/") != std::string::npos && target.ends_with("-journal");
}

Descriptors descriptors()
{
    Descriptors found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the one that lists them
        const std::filesystem::path target = std::filesystem::read_symlink(entry.path(), gone);
        if (!gone && !target.native().ends_with("/fd") && !isJournalOfTheWebEngine(target))
            found[entry.path().filename()] = target;
    }
    return found;
}

long residentKilobytes()
{
    std::ifstream facts("/proc/self/status");
    for (std::string line; std::getline(facts, line);) {
        if (line.starts_with("VmRSS:"))
            return std::stol(line.substr(6));
    }
    return 0;
}

/// What a user might do next, at random; which recording, where to, and which folder as well.
class RandomUser
{
public:
    RandomUser(bench::Application& application, unsigned seed, std::vector<std::string> folders)
        : m_application(application), m_folders(std::move(folders)), m_random(seed)
    {}

    void act()
    {
        PlaybackController& playback = m_application.delegate().playback();
        MRVAppDelegate& delegate = m_application.delegate();
        ++m_actions;
        switch (below(16)) {
        case 0:
            return playback.videoPositionSliderMoved(below(1000) / 1000.0);
        case 1:
            return trigger(Command::JumpForward);
        case 2:
            return trigger(Command::JumpBackward);
        case 3:
            return trigger(Command::SizeUp);
        case 4:
            return trigger(Command::SizeDown);
        case 5:
            return trigger(Command::ClickMapViewButton);
        case 6:
            return trigger(Command::ClickMediaListViewButton);
        case 7:
            return trigger(Command::DecreaseSpeed);
        case 8:
            return playback.volumeSliderMoved(below(200));
        case 9:
            return below(4) == 0 ? changeFolder() : keepPlaying();
        case 10:
            return trigger(Command::ToggleFullScreen);
        case 11:
            return static_cast<void>(playback.playNext());
        case 12:
            return trigger(Command::ClickPlayButton);
        case 13:
            return playback.changeAndPlay(below(static_cast<int>(delegate.mediaList().count())));
        default:
            return keepPlaying();
        }
    }
    int actions() const { return m_actions; }

private:
    /// Up to 2x again, and playing: the other commands are only the disturbance.
    void keepPlaying()
    {
        PlaybackController& playback = m_application.delegate().playback();
        if (m_application.delegate().mediaList().count() == 0)
            return;
        if (playback.mediaIndex() < 0)
            playback.changeAndPlay(0);
        else if (!m_application.delegate().playInfo().isPlaying() && !playback.waitingForPlayStart())
            playback.clickPlayButton();
        trigger(Command::IncreaseSpeed);
    }
    void changeFolder()
    {
        m_folder = (m_folder + 1) % m_folders.size();
        m_application.delegate().openDirectory(m_folders[m_folder]);
    }
    void trigger(Command command) { m_application.delegate().commands().action(command)->trigger(); }
    int below(int limit)
    {
        return limit < 1 ? 0 : static_cast<int>(m_random() % static_cast<unsigned>(limit));
    }

    bench::Application& m_application;
    std::vector<std::string> m_folders;
    std::size_t m_folder = 0;
    std::mt19937 m_random;
    int m_actions = 0;
};

void say(const char* word, std::initializer_list<long> numbers)
{
    std::fputs(word, stdout);
    for (const long number : numbers)
        std::printf(" %ld", number);
    std::putchar('\n');
    std::fflush(stdout);
}

/// Stopped, and whatever was under way has come to its end.
Descriptors rest(bench::Application& application)
{
    application.delegate().playback().stop();
    bench::waitFor(settleMs);
    Descriptors open = descriptors();
    say("rest", {threads(), std::ssize(open)});
    return open;
}

} // namespace

int main(int argc, char** argv)
{
    bench::Application application(argc, argv);
    if (argc != 5) {
        std::fprintf(stderr, "usage: bench_soak SECONDS SEED FOLDER FOLDER\n");
        return 2;
    }
    const int seconds = std::atoi(argv[1]);
    // Once all that is made at first use only: player, map, both sorts of film.
    for (const char* folder : {argv[4], argv[3]}) {
        if (!application.open(folder) || !application.play(0)) {
            std::fprintf(stderr, "bench_soak: the first recording of %s does not play\n", folder);
            return 1;
        }
        application.delegate().commands().action(Command::ClickMapViewButton)->trigger();
        bench::waitFor(2'000);
        application.play(1);
        bench::waitFor(2'000);
    }
    const Descriptors before = rest(application);

    RandomUser user(application, static_cast<unsigned>(std::atoi(argv[2])), {argv[3], argv[4]});
    int played = 0;
    QObject::connect(&application.delegate().playback(), &PlaybackController::mediaIndexChanged,
                     [&](std::int64_t index) { played += index >= 0; });
    QTimer commands;
    QObject::connect(&commands, &QTimer::timeout, [&] { user.act(); });
    commands.start(commandMs);
    for (int second = 1; second <= seconds; ++second) {
        bench::waitFor(1'000);
        say("second", {second, residentKilobytes(), threads(), std::ssize(descriptors())});
    }
    commands.stop();
    for (const auto& [number, target] : rest(application)) {
        if (!before.contains(number))
            std::printf("more %s %s\n", number.c_str(), target.c_str());
    }
    say("played", {played, user.actions()});
    return 0;
}
