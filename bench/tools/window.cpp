// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// From starting a program to its first window on the screen: bench_window COMMAND [ARGUMENT...] prints the
// milliseconds until the X server has mapped a window of the program's, and ends the program. Run it where
// nothing else opens windows and no window manager is.
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

struct Freer
{
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Freer>;

/// Splash screens, tray icons and helper windows are not what a user waits for.
bool isMainWindow(xcb_connection_t* server, const xcb_map_notify_event_t& event)
{
    constexpr int smallest = 200;
    const Owned<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(server, xcb_get_geometry(server, event.window), nullptr));
    return geometry && !event.override_redirect && geometry->width >= smallest &&
           geometry->height >= smallest;
}

/// Until a main window is there; false when none comes in time.
bool waitForWindow(xcb_connection_t* server, Clock::time_point limit)
{
    while (Clock::now() < limit) {
        while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(server)}) {
            if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY &&
                isMainWindow(server, *reinterpret_cast<const xcb_map_notify_event_t*>(event.get())))
                return true;
        }
        pollfd wait{xcb_get_file_descriptor(server), POLLIN, 0};
        ::poll(&wait, 1, 100);
    }
    return false;
}

pid_t start(char** command)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::setpgid(0, 0);
        const int nowhere = ::open("/dev/null", O_RDWR);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::dup2(nowhere, stream);
        ::execvp(command[0], command);
        ::_exit(127);
    }
    return child;
}

void end(pid_t child)
{
    ::kill(-child, SIGTERM);
    for (int i = 0; i < 30 && ::waitpid(child, nullptr, WNOHANG) == 0; ++i)
        ::usleep(100'000);
    ::kill(-child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench_window COMMAND [ARGUMENT...]\n");
        return 2;
    }
    xcb_connection_t* server = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(server)) {
        std::fprintf(stderr, "bench_window: no display\n");
        return 1;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(server, root, XCB_CW_EVENT_MASK, &events);
    // A round trip: from here on the server tells.
    const Owned<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));

    const Clock::time_point started = Clock::now();
    const pid_t child = start(argv + 1);
    const bool isShown = waitForWindow(server, started + std::chrono::seconds(30));
    const std::chrono::duration<double, std::milli> taken = Clock::now() - started;
    end(child);
    xcb_disconnect(server);
    if (!isShown) {
        std::fprintf(stderr, "bench_window: no window within 30 s\n");
        return 1;
    }
    std::printf("%.1f\n", taken.count());
    return 0;
}
