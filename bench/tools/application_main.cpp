// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The application at work, to be measured:
//   bench_application starts FOLDER COUNT     prints, a line each, the milliseconds from a double click to
//   the first
//                                             picture, for the folder's recordings by turns
//   bench_application play FOLDER list|map    plays the first recording, prints the picture's size in pixels
//   once it
//                                             plays, and goes on until it is ended
#include "map/MapView.h"
#include "playback/VideoView.h"
#include "tools/Application.h"
#include "viewer/MainViews.h"
#include "viewer/MainWindowCommands.h"

#include <QAction>
#include <QElapsedTimer>

#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace marvo;

namespace {

constexpr int betweenStartsMs = 400;
constexpr int mapPatienceMs = 10'000;

int complain(const char* what)
{
    std::fprintf(stderr, "bench_application: %s\n", what);
    return 1;
}

int measureStarts(bench::Application& application, int count)
{
    const std::int64_t recordings = application.delegate().mediaList().count();
    for (int i = 0; i < count; ++i) {
        QElapsedTimer clock;
        clock.start();
        if (!application.play(i % recordings))
            return complain("a recording did not start");
        std::printf("%.1f\n", static_cast<double>(clock.nsecsElapsed()) / 1e6);
        bench::waitFor(betweenStartsMs);
    }
    return 0;
}

int playOn(bench::Application& application, bool withMap)
{
    if (!application.play(0))
        return complain("the recording did not start");
    const MainViews& views = application.delegate().views();
    if (withMap) {
        application.delegate().commands().action(Command::ClickMapViewButton)->trigger();
        if (!bench::waitUntil([&] { return views.mapWebView->isReady(); }, mapPatienceMs))
            return complain("the map did not come");
    }
    const QSize picture = views.video1View->size() * views.video1View->devicePixelRatioF();
    std::printf("%dx%d\n", picture.width(), picture.height());
    std::fflush(stdout);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    bench::Application application(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: bench_application starts FOLDER COUNT | play FOLDER list|map\n");
        return 2;
    }
    if (!application.open(argv[2]) || application.delegate().mediaList().count() == 0)
        return complain("the folder has no recordings");
    if (std::string_view(argv[1]) == "starts")
        return measureStarts(application, std::atoi(argv[3]));
    return playOn(application, std::string_view(argv[3]) == "map");
}
