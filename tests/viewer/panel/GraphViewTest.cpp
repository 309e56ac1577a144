// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/panel/GraphView.h"
#include "viewer/panel/GraphTrace.h"

#include "texts/Localisation.h"

#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <random>
#include <utility>
#include <vector>

using namespace marvo;

namespace {

using Samples = std::vector<MRVGSensor>;

constexpr QSize viewSize(340, 116); // an area of 300 x 100 points: one g is 25 points

/// What a person sees: the view on a black box.
QImage picture(GraphView& view)
{
    QImage image(view.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    view.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

bool isNearSegment(QPointF p, QPointF a, QPointF b, double reach)
{
    const double low = std::min(a.y(), b.y());
    const double high = std::max(a.y(), b.y());
    if (p.y() < low - reach || p.y() > high + reach)
        return false;
    const QPointF along = b - a;
    const double t =
        std::clamp(QPointF::dotProduct(p - a, along) / QPointF::dotProduct(along, along), 0.0, 1.0);
    const QPointF apart = p - (a + t * along);
    return QPointF::dotProduct(apart, apart) <= reach * reach;
}

/// The traces by their definition alone: a point is on a line when it is within half a point of any segment
/// between two plot points. Each pixel asks this for a grid of points inside it. (QPainter's own stroke is no
/// measure: where short segments overlap it adds up their soft edges to a jagged, thicker line.)
void strokeTraces(QImage& image, const Samples& samples)
{
    constexpr int columns = 10;
    constexpr int rows = 4;
    const double ratio = image.devicePixelRatio();
    const double width = image.width() / ratio - 40;
    const double height = image.height() / ratio - 16;
    const int plotPoints = static_cast<int>(std::ceil(width * 10 + 1));
    const auto stroke = [&](float MRVGSensor::*axis, QColor color) {
        std::vector<QPointF> points;
        for (int j = 0; j < plotPoints; ++j) {
            const auto index =
                static_cast<std::size_t>(j * static_cast<double>(samples.size()) / (width * 10 + 1));
            points.emplace_back(21 + j * 0.1, 8 + height / 2 - samples[index].*axis * height / 4);
        }
        const auto isOnLine = [&](QPointF p) {
            const int near = static_cast<int>((p.x() - 21) * 10);
            for (int j = std::max(near - 6, 0); j <= std::min(near + 6, plotPoints - 2); ++j) {
                if (isNearSegment(p, points[j], points[j + 1], 0.5))
                    return true;
            }
            return false;
        };
        QPainter painter(&image);
        painter.scale(1 / ratio, 1 / ratio);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = static_cast<int>(21 * ratio); x < (21 + width) * ratio; ++x) {
                int inside = 0;
                for (int i = 0; i < columns * rows; ++i) {
                    const QPointF p(x + (i % columns + 0.5) / columns, y + (i / columns + 0.5) / rows);
                    inside += p.x() > 21 * ratio && p.x() < (21 + width) * ratio && isOnLine(p / ratio);
                }
                color.setAlphaF(static_cast<float>(inside) / (columns * rows));
                painter.fillRect(x, y, 1, 1, color);
            }
        }
    };
    stroke(&MRVGSensor::x, Qt::red);
    stroke(&MRVGSensor::y, Qt::green);
    stroke(&MRVGSensor::z, Qt::blue);
}

/// Between the traces as drawn and as defined.
int worstDifference(const Samples& samples, double ratio)
{
    const QSize size(160, 116);
    QImage expected(size * ratio, QImage::Format_ARGB32_Premultiplied);
    expected.setDevicePixelRatio(ratio);
    expected.fill(Qt::black);
    QImage drawn = expected;
    strokeTraces(expected, samples);
    drawTraces(drawn, GraphGeometry(QSizeF(size)), samples);
    int worst = 0;
    for (qsizetype i = 0; i < expected.sizeInBytes(); ++i)
        worst = std::max(worst, std::abs(expected.constBits()[i] - drawn.constBits()[i]));
    return worst;
}

QRgb rgb(const QImage& image, double x, double y)
{
    return image.pixel(static_cast<int>(x), static_cast<int>(y)) & 0xffffff;
}

Samples drive(std::size_t n, double roughness)
{
    std::mt19937 random(7);
    std::normal_distribution<double> bell(0, 1);
    const auto noise = [&](std::mt19937& from) { return roughness * bell(from); };
    Samples samples(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double t = 12.0 * static_cast<double>(i) / static_cast<double>(n);
        samples[i] = {.x = static_cast<float>(0.6 * std::sin(t) + noise(random)),
                      .y = static_cast<float>(-0.4 * std::cos(3 * t) + noise(random)),
                      .z = static_cast<float>(1 + noise(random))};
    }
    return samples;
}

} // namespace

class GraphTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(installLanguage(InterfaceLanguage::English)); }

    void emptyListDrawsOnlyTheGrid()
    {
        GraphView view;
        view.resize(viewSize);
        view.updateTimePosition(0.5);
        const QImage image = picture(view);
        const QRgb grid = qRgb(204, 204, 204) & 0xffffff;
        for (int x = 20; x < 320; ++x) {
            for (int y = 8; y < 108; ++y) {
                const bool onLine = y == 32 || y == 57 || y == 82 || y == 107 || x == 20;
                QCOMPARE(rgb(image, x, y), onLine ? grid : 0U);
            }
            QCOMPARE(rgb(image, x, 7), grid); // +2 g, its thickness above the area
        }
        QCOMPARE(rgb(image, 320, 57), 0U);
        // The labels end two points left of the grid.
        for (const int line : {7, 32, 57, 82, 107}) {
            int bright = 0;
            for (int x = 2; x < 18; ++x)
                bright += qGray(image.pixel(x, std::max(line - 2, 0))) > 128;
            QVERIFY2(bright > 0, qPrintable(QString::number(line)));
        }
    }

    void cursor()
    {
        const Samples samples(10, {.x = 1, .y = -1, .z = 0});
        GraphView view;
        view.resize(viewSize);
        view.setGraphData(samples);
        const std::vector<std::pair<double, int>> firstColumns{
            {0, 20}, {0.5, 170}, {1, 320}, {7, 320}, {-1, 20}, {0.25, 95}, {std::nan(""), 95}};
        for (const auto& [position, column] : firstColumns) {
            view.updateTimePosition(position);
            const QImage image = picture(view);
            for (int x = 20; x < 330; ++x) {
                const bool inCursor = x == column || x == column + 1;
                for (const int y : {8, 20, 106})
                    QCOMPARE(rgb(image, x, y) == 0xffffff, inCursor);
            }
        }
    }

    /// On the screen, a moved cursor leaves nothing behind although only its strips are repainted.
    void cursorMoveLeavesNoTrail()
    {
        const Samples samples = drive(500, 0.3);
        GraphView view;
        view.resize(viewSize);
        view.setGraphData(samples);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        for (int i = 0; i <= 40; ++i) {
            view.updateTimePosition(i / 40.0);
            QCoreApplication::processEvents();
        }
        const QImage moved = view.screen()->grabWindow(view.winId()).toImage();
        view.repaint();
        QCoreApplication::processEvents();
        QCOMPARE(moved, view.screen()->grabWindow(view.winId()).toImage());
        QVERIFY(!moved.isNull());
    }

    void looksLikeStrokingEveryPoint()
    {
        const std::tuple<const char*, Samples, double> rows[] = {
            {"one sample", Samples(1, {.x = 0.31F, .y = -0.7F, .z = 1.93F}), 1.0},
            {"two samples, a step", {{-1.3F, 0, 1}, {1.7F, 0.2F, -1}}, 1.0},
            {"smooth drive", drive(300, 0), 1.0},
            {"smooth drive, sharp screen", drive(300, 0), 2.0},
            {"rough drive, as many samples as points", drive(3000, 0.1), 1.0},
            {"rough drive, odd scale", drive(700, 0.2), 1.25},
            {"more samples than plot points", drive(36000, 0.3), 1.5},
            {"past the grid", drive(200, 3), 1.0},
        };
        for (const auto& [name, samples, ratio] : rows)
            QVERIFY2(worstDifference(samples, ratio) < 64, name);
    }

    void extremesAreCutAtTheEdges()
    {
        constexpr float huge = 8388608; // the largest raw reading in g
        for (const Samples& samples : {Samples{{huge, -huge, huge}, {-huge, huge, -huge}, {0, 0, 0}},
                                       Samples{{INFINITY, -INFINITY, 0}, {0, NAN, 0}}}) {
            GraphView view;
            view.resize(viewSize);
            view.setGraphData(samples);
            QVERIFY(qBlue(picture(view).pixel(318, 57)) > 100); // the last sample is seen at 0 g
            for (const QSize size : {QSize(1, 1), QSize(40, 16), QSize(41, 17), QSize(400, 10)}) {
                view.resize(size);
                QCOMPARE(picture(view).size(), size);
            }
        }
    }

    void clearedDataIsNotReadAgain()
    {
        auto samples = std::make_unique<Samples>(drive(100, 1));
        GraphView view;
        view.resize(viewSize);
        const QImage grid = picture(view);
        view.setGraphData(*samples);
        QVERIFY(picture(view) != grid);
        view.clearGraphData();
        samples.reset();
        view.resize(500, 200);
        view.resize(viewSize);
        QCOMPARE(picture(view), grid);
    }

    void pointingSeeks()
    {
        const Samples samples(3);
        GraphView view;
        view.resize(viewSize);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QSignalSpy seeks(&view, &GraphView::seekRequested);
        QTest::mouseClick(&view, Qt::LeftButton, {}, {170, 50});
        QVERIFY(seeks.isEmpty()); // nothing to seek in
        view.setGraphData(samples);
        QTest::mouseClick(&view, Qt::LeftButton, {}, {10, 50});   // left of the area
        QTest::mouseClick(&view, Qt::RightButton, {}, {170, 50}); // not the left button
        QVERIFY(seeks.isEmpty());
        QTest::mousePress(&view, Qt::LeftButton, {}, {170, 50});
        QTest::mouseMove(&view, {95, 50});
        QTest::mouseMove(&view, {5, 200}); // a drag goes on outside and stays at the end
        QTest::mouseRelease(&view, Qt::LeftButton, {}, {5, 50});
        QTest::mouseMove(&view, {200, 50});
        QList<double> fractions;
        for (const auto& arguments : seeks)
            fractions << arguments.at(0).toDouble();
        QCOMPARE(fractions, (QList<double>{0.5, 0.25, 0}));
        QCOMPARE(view.timePosition(), 0.0); // playback answers, the view does not run ahead
        seeks.clear();
        QTest::keyClick(&view, Qt::Key_End);
        QCOMPARE(seeks.value(0).value(0).toDouble(), 1.0);
    }

    void isReadOut()
    {
        const Samples samples(3);
        GraphView view;
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&view);
        QVERIFY(accessible && accessible->valueInterface());
        QCOMPARE(accessible->text(QAccessible::Value), QStringLiteral("No G-sensor readings"));
        view.setGraphData(samples);
        view.updateTimePosition(0.254);
        QCOMPARE(accessible->text(QAccessible::Value), QStringLiteral("25 % of the recording"));
    }
};

QTEST_MAIN(GraphTest)
#include "GraphViewTest.moc"
