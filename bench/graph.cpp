// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// What following playback costs in the G-sensor graph: a cursor move against drawing the whole view anew. Run
// it with QT_QPA_PLATFORM=offscreen, or under any display.
#include "viewer/panel/GraphTrace.h"
#include "viewer/panel/GraphView.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <vector>

namespace {

using namespace marvo;

constexpr int viewWidth = 1920;
constexpr int viewHeight = 130;

/// Readings with the shake of a road.
std::vector<MRVGSensor> readingsOfARoad(std::size_t count)
{
    std::vector<MRVGSensor> list(count);
    unsigned noise = 1;
    for (std::size_t i = 0; i < list.size(); ++i) {
        noise = noise * 1664525 + 1013904223;
        const auto shake = static_cast<float>(noise >> 16) / 65536 * 0.4F - 0.2F;
        const float t = static_cast<float>(i) / 500;
        list[i] = {.x = std::sin(t) + shake, .y = std::cos(t) - shake, .z = 1 + shake};
    }
    return list;
}

/// Ten a second for an hour.
const std::vector<MRVGSensor>& readings()
{
    static const std::vector<MRVGSensor> samples = readingsOfARoad(36000);
    return samples;
}

void showOnScreen(GraphView& view)
{
    view.resize(viewWidth, viewHeight);
    view.setGraphData(readings());
    view.show();
    QApplication::processEvents();
}

/// Delivers what update() has asked for.
void paintNow() { QApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest); }

void cursorMove(benchmark::State& state)
{
    GraphView view;
    showOnScreen(view);
    int step = 0;
    for (auto _ : state) {
        view.updateTimePosition((step++ % 1000) / 1000.0);
        QApplication::processEvents();
        paintNow();
    }
}
BENCHMARK(cursorMove)->Unit(benchmark::kMicrosecond);

void fullRedraw(benchmark::State& state)
{
    GraphView view;
    showOnScreen(view);
    for (auto _ : state) {
        view.setGraphData(readings());
        QApplication::processEvents();
        paintNow();
    }
}
BENCHMARK(fullRedraw)->Unit(benchmark::kMicrosecond);

/// The same of so many readings, to see how the cost grows.
void redrawOf(benchmark::State& state)
{
    const std::vector<MRVGSensor> samples = readingsOfARoad(static_cast<std::size_t>(state.range(0)));
    GraphView view;
    showOnScreen(view);
    for (auto _ : state) {
        view.setGraphData(samples);
        QApplication::processEvents();
        paintNow();
    }
}
BENCHMARK(redrawOf)->Arg(3600)->Arg(36000)->Arg(360000)->Unit(benchmark::kMicrosecond);

void tracesAlone(benchmark::State& state)
{
    QImage image(viewWidth, viewHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (auto _ : state)
        drawTraces(image, GraphGeometry(QSizeF(viewWidth, viewHeight)), readings());
}
BENCHMARK(tracesAlone)->Unit(benchmark::kMicrosecond);

/// What drawTraces() replaces: QPainter stroking the line through every plot point.
void strokingEveryPoint(benchmark::State& state)
{
    QImage image(viewWidth, viewHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const GraphGeometry geometry(QSizeF(viewWidth, viewHeight));
    const int plotPoints = (viewWidth - 40) * 10 + 1;
    for (auto _ : state) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        for (const auto axis : {&MRVGSensor::x, &MRVGSensor::y, &MRVGSensor::z}) {
            QPainterPath path;
            for (int j = 0; j < plotPoints; ++j) {
                const auto index = readings().size() * static_cast<std::size_t>(j) / plotPoints;
                const QPointF point(21 + j * 0.1, geometry.yOf(static_cast<double>(readings()[index].*axis)));
                j == 0 ? path.moveTo(point) : path.lineTo(point);
            }
            painter.strokePath(path, QPen(Qt::red, 1, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
        }
    }
}
BENCHMARK(strokingEveryPoint)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
