// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/PMProgressIndicator.h"

#include "texts/Localisation.h"

#include <QLabel>
#include <QTest>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

using namespace marvo;

namespace {

/// An indicator with a label beside it and a clock that the test turns.
struct Bench
{
    Bench() : bar(nullptr, [this] { return now; }) { bar.setProgressText(&label); }

    QString textAt(double seconds, double value)
    {
        now =
            std::chrono::steady_clock::time_point{} + std::chrono::microseconds(std::llround(seconds * 1e6));
        bar.setDoubleValue(value);
        return label.text();
    }

    std::chrono::steady_clock::time_point now;
    QLabel label;
    PMProgressIndicator bar;
};

/// How many columns of the bar show the part done.
int filledColumns(PMProgressIndicator& bar)
{
    QPalette palette;
    palette.setColor(QPalette::Highlight, Qt::blue);
    bar.setPalette(palette);
    QImage image(bar.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    bar.render(&image, {}, {}, QWidget::DrawChildren);
    int filled = 0;
    for (int x = 0; x < image.width(); ++x)
        filled += qBlue(image.pixel(x, image.height() / 2)) > 200;
    return filled;
}

} // namespace

class ProgressTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { QVERIFY(installLanguage(InterfaceLanguage::English)); }

    void phrases()
    {
        const std::vector<std::pair<double, const char*>> rows{
            {std::numeric_limits<double>::infinity(), "About 2147483647 minutes remaining"},
            {700, "About 12 minutes remaining"},
            {674.9, "About 11 minutes remaining"},
            {615.01, "About 11 minutes remaining"},
            {615, "About ten minutes remaining"},
            {315, "About five minutes remaining"},
            {135, "About two minutes remaining"},
            {75.01, "About two minutes remaining"},
            {75, "About one minute remaining"},
            {50, "Less than a minute remaining"},
            {10.01, "Less than a minute remaining"},
            {10, "About ten seconds remaining"},
            {5, "About five seconds remaining"},
            {-3, "About five seconds remaining"},
        };
        for (const auto& [seconds, phrase] : rows)
            QCOMPARE(ProgressEstimate::phrase(seconds), QString::fromLatin1(phrase));
        QVERIFY(installLanguage(InterfaceLanguage::Korean));
        for (const auto& [seconds, phrase] : rows) {
            const QString korean = ProgressEstimate::phrase(seconds);
            QVERIFY2(korean.endsWith(QStringLiteral("남음")) && !korean.contains(u'%'), phrase);
        }
    }

    void barMovesWithTheIntegerPart()
    {
        Bench bench;
        PMProgressIndicator& bar = bench.bar;
        const auto shown = [&](double value) {
            bar.setDoubleValue(value);
            return bar.doubleValue();
        };
        QCOMPARE(shown(0.9), 0.0); // its integer part is the one shown at the start
        QCOMPARE(shown(10.2), 10.2);
        QCOMPARE(shown(10.7), 10.2);
        QCOMPARE(shown(11.1), 11.1);
        QCOMPARE(shown(std::nan("")), 11.1);
        QCOMPARE(shown(1e300), 100.0);
        QCOMPARE(shown(-1e300), 0.0);
        bar.setMinValue(-5);
        QCOMPARE(shown(-1.5), -1.5);
        QCOMPARE(shown(-0.5), -0.5); // truncated toward zero: 0, not -1
        QCOMPARE(shown(0.5), -0.5);
    }

    void steadyWork()
    {
        Bench bench;
        bench.bar.setDisplayPercentage(true);
        QCOMPARE(bench.textAt(0, 0.5), QString());
        QCOMPARE(bench.textAt(0.5, 1), QStringLiteral("1 % completed")); // too early for a phrase
        for (int second = 1; second < 50; ++second)
            bench.textAt(second, second);
        QCOMPARE(bench.textAt(50, 50), QStringLiteral("50 % completed - Less than a minute remaining"));
        bench.bar.setDisplayPercentage(false);
        QCOMPARE(bench.textAt(90, 90), QStringLiteral("About ten seconds remaining"));
        bench.bar.setDisplayPercentage(true);
        bench.bar.setDisplayTimeRemaining(false);
        QCOMPARE(bench.textAt(91, 91), QStringLiteral("91 % completed"));
        bench.bar.setIndeterminate(true);
        QCOMPARE(bench.textAt(92, 92), QString());
    }

    /// Slow at first, then fast: once the windows have moved on, the slow start is forgotten.
    void estimateFollowsTheLastSeconds()
    {
        Bench bench;
        bench.textAt(0, 1);
        QCOMPARE(bench.textAt(3.5, 2), QStringLiteral("About six minutes remaining")); // 98 % at 1 % in 3.5 s
        bench.textAt(3.6, 3); // the next window opens
        QCOMPARE(bench.textAt(7.1, 38), QStringLiteral("Less than a minute remaining")); // 37 % in 7.1 s
        // The next window, 10 % a second since 3.6 s, has taken over; the first would still give 13.6 s.
        QCOMPARE(bench.textAt(7.2, 39), QStringLiteral("About ten seconds remaining"));
    }

    void noProgressMakesNoPhrase()
    {
        Bench bench;
        bench.bar.setDisplayPercentage(true);
        bench.textAt(0, 40);
        bench.textAt(1, 41);
        QCOMPARE(bench.textAt(2, 30), QStringLiteral("30 % completed")); // fell back behind the start
        bench.bar.setDisplayPercentage(false);
        QCOMPARE(bench.textAt(3, 20), QStringLiteral("30 % completed")); // nothing to say: left as it was
        bench.bar.setDisplayPercentage(true);
        bench.textAt(3.1, 40);
        QCOMPARE(bench.textAt(3.2, 40.5), QStringLiteral("40 % completed")); // exactly where it began
    }

    void minimumStartsTheEstimateAnew()
    {
        Bench bench;
        bench.textAt(0, 10);
        bench.textAt(10, 20);
        QCOMPARE(bench.textAt(11, 0), QString());
        // Half in one second; measured from the first start it would be "Less than a minute".
        QCOMPARE(bench.textAt(12, 50), QStringLiteral("About five seconds remaining"));
    }

    void drawsThePartDone()
    {
        struct Row
        {
            double minimum, maximum, value;
            int columns;
        };
        for (const Row& row : {Row{0, 100, 0, 0}, Row{0, 100, 25, 50}, Row{0, 100, 100, 200},
                               Row{-50, 50, 1, 102}, Row{5, 5, 5, 0}}) {
            PMProgressIndicator bar;
            bar.resize(200, 6);
            bar.setMinValue(row.minimum);
            bar.setMaxValue(row.maximum);
            bar.setDoubleValue(row.value);
            const int filled = filledColumns(bar);
            QVERIFY2(std::abs(filled - row.columns) <= 3, qPrintable(QString::number(filled)));
        }
    }

    /// Paint requests come from ticks alone here: none may come while the bar is hidden or at rest.
    void ticksOnlyWhileSeen()
    {
        struct Counting : PMProgressIndicator
        {
            void timerEvent(QTimerEvent* event) override
            {
                ++ticks;
                PMProgressIndicator::timerEvent(event);
            }
            int ticks = 0;
        } bar;
        const auto ticksIn = [&bar](int milliseconds) {
            bar.ticks = 0;
            QTest::qWait(milliseconds);
            return bar.ticks;
        };
        bar.setIndeterminate(true);
        bar.startAnimation();
        for (int turn = 0; turn < 2; ++turn) {
            QCOMPARE(ticksIn(120), 0);
            bar.show();
            QTRY_VERIFY(ticksIn(120) > 0);
            bar.hide();
        }
        bar.show();
        bar.stopAnimation();
        QCOMPARE(ticksIn(120), 0);
        bar.startAnimation();
        bar.setIndeterminate(false);
        QCOMPARE(ticksIn(120), 0);
    }
};

QTEST_MAIN(ProgressTest)
#include "PMProgressIndicatorTest.moc"
