// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/IconProgress.h"
#include "controls/PMProgressIndicator.h"
#include "controls/PMProgressIndicatorController.h"
#include "texts/Localisation.h"

#include <QApplication>
#include <QtTest>

#include <memory>

using namespace marvo;

namespace {

PMProgressIndicatorController& controller() { return PMProgressIndicatorController::sharedInstance(); }

QImage applicationIcon() { return QApplication::windowIcon().pixmap(QSize(128, 128), 1.0).toImage(); }

} // namespace

class IconProgressTest : public QObject
{
    Q_OBJECT

private:
    std::vector<std::optional<double>> m_told;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(installLanguage(InterfaceLanguage::English));
        QPixmap plain(256, 256);
        plain.fill(Qt::white);
        QApplication::setWindowIcon(plain);
        controller().setAnnouncer([this](std::optional<double> fraction) { m_told.push_back(fraction); });
    }

    void indicatorsListThemselves()
    {
        PMProgressIndicator bar;
        QVERIFY(bar.drawDockProgress());
        QCOMPARE(controller().numProgressIndicators(), std::size_t{0});
        const auto listedAt = [&](double value) {
            bar.setDoubleValue(value);
            return controller().numProgressIndicators();
        };
        QCOMPARE(listedAt(99), std::size_t{1});
        QCOMPARE(listedAt(100), std::size_t{0});
        QCOMPARE(listedAt(40), std::size_t{1});
        QCOMPARE(listedAt(0), std::size_t{0});
        bar.setDrawDockProgress(false);
        QCOMPARE(listedAt(40), std::size_t{0});
        bar.setDrawDockProgress(true);
        QCOMPARE(controller().numProgressIndicators(), std::size_t{1});
        {
            PMProgressIndicator other;
            other.setMinValue(-100);
            other.setDoubleValue(50);
            QCOMPARE(controller().numProgressIndicators(), std::size_t{2});
        }
        QCOMPARE(controller().numProgressIndicators(), std::size_t{1});
    }

    void barsAreCutToTheFraction()
    {
        QPixmap icon(256, 256);
        icon.fill(Qt::white);
        const IconBarImages none; // plain colours, which can be told apart
        const QImage drawn = iconWithBars(icon, {{0.25}, {std::nullopt}, {1.5}}, none, 0).toImage();
        const auto at = [&](int x, int row) { return drawn.pixelColor(2 * x, 255 - 2 * (16 * row + 7)); };
        const QColor blue = at(10, 0);
        const QColor grey = at(100, 0);
        QVERIFY(blue != QColor(Qt::white) && grey != QColor(Qt::white) && blue != grey);
        QCOMPARE(at(31, 0), blue);
        QCOMPARE(at(33, 0), grey);
        QCOMPARE(at(127, 1), blue);
        QCOMPARE(at(127, 2), blue);
        QCOMPARE(drawn.pixelColor(20, 255 - 2 * 15), QColor(Qt::white)); // between two bars
        QCOMPARE(at(64, 3), QColor(Qt::white));
        QVERIFY2(icon.toImage().pixelColor(20, 241) == QColor(Qt::white), "the saved icon stays plain");
    }

    void stripesGlideWithTime()
    {
        const auto at = [](double seconds) {
            return BarberPole::TimePoint{} + std::chrono::milliseconds(std::llround(seconds * 1000));
        };
        BarberPole pole;
        const std::pair<double, double> rows[] = {{10, 32},    {10.25, 20}, {10.5, 8},
                                                  {10.75, 28}, {13, 16},    {13.9375, 3}};
        for (const auto& [seconds, offset] : rows)
            QVERIFY2(std::abs(pole.spin(at(seconds)) - offset) < 0.05, qPrintable(QString::number(seconds)));

        const IconBarImages images = IconBarImages::load();
        QVERIFY(!images.barberBar.isNull() && !images.blueBar.isNull() && !images.greyBar.isNull());
        QPixmap icon(128, 128);
        const auto drawn = [&](double offset) {
            return iconWithBars(icon, {{std::nullopt}}, images, offset).toImage().copy(0, 112, 128, 16);
        };
        icon.fill(Qt::white);
        QCOMPARE(drawn(0), drawn(32));
        QVERIFY(drawn(0) != drawn(12));
    }

    void theApplicationsIconShowsThemAndComesBack()
    {
        QTRY_COMPARE_WITH_TIMEOUT(applicationIcon().pixelColor(2, 120), QColor(Qt::white), 1000);
        const QImage plain = applicationIcon();
        m_told.clear();

        PMProgressIndicator busy;
        busy.setIndeterminate(true);
        busy.setDrawDockProgress(true);
        QVERIFY2(applicationIcon() == plain, "what is over at once never reaches the icon");
        QTRY_VERIFY_WITH_TIMEOUT(applicationIcon() != plain, 1000);
        const QImage first = applicationIcon();
        QTRY_VERIFY_WITH_TIMEOUT(applicationIcon() != first, 1000); // it moves
        QVERIFY(m_told.empty());

        auto known = std::make_unique<PMProgressIndicator>();
        known->setDoubleValue(50);
        QTRY_COMPARE_WITH_TIMEOUT(m_told, (std::vector<std::optional<double>>{0.5}), 1000);
        busy.setDrawDockProgress(false);
        QTest::qWait(250);       // the stripes have come to rest
        known->setMaxValue(200); // no new value, but another part done
        QTRY_COMPARE_WITH_TIMEOUT(m_told.back(), 0.25, 1000);
        known->setIndeterminate(true);
        QTRY_COMPARE_WITH_TIMEOUT(m_told.back(), std::nullopt, 1000);
        known.reset();
        QTRY_COMPARE_WITH_TIMEOUT(applicationIcon(), plain, 1000);
        QCOMPARE(m_told.back(), std::nullopt);
        QTest::qWait(250);
        QCOMPARE(applicationIcon(), plain);
    }
};

QTEST_MAIN(IconProgressTest)
#include "IconProgressTest.moc"
