// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Every window as people meet it: in both languages, with larger letters, without a mouse, without sight.
#include "accessibility/WindowAudit.h"
#include "accessibility/WindowGallery.h"
#include "controls/InterfaceScale.h"
#include "logs/LogBytes.h"
#include "map/MapSurface.h"
#include "TemporaryFolder.h"
#include "viewer/WindowStage.h"

#include <QRegularExpression>
#include <QtTest>

using namespace marvo;

namespace {

enum class Thoroughness { Texts, All };

} // namespace

Q_DECLARE_METATYPE(Thoroughness)

class PeopleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        test::prepareWindows("marvo-people-test");
        for (const char* name :
             {"AlwaysMovie/alwa_20240517_080000_F.avi", "EventMovie/event_20240517_081530_F.avi",
              "MotionMovie/motion_20240517_083000_R.avi"}) {
            m_card.write(name); // and the folder around it
            QVERIFY(test::writeRecording(m_card.path(name)));
        }
        m_card.write("DrvInfo/marvo_000.drv", test::drivingLog(20, 20));
    }

    void everyWindow_data()
    {
        QTest::addColumn<InterfaceLanguage>("language");
        QTest::addColumn<double>("desktopPoints");
        QTest::addColumn<Thoroughness>("looked");
        QTest::newRow("English") << InterfaceLanguage::English << 9.0 << Thoroughness::All;
        QTest::newRow("Korean") << InterfaceLanguage::Korean << 11.0 << Thoroughness::Texts;
        QTest::newRow("English, large") << InterfaceLanguage::English << 14.0 << Thoroughness::Texts;
        QTest::newRow("Korean, large") << InterfaceLanguage::Korean << 14.0 << Thoroughness::Texts;
    }

    void everyWindow()
    {
        QFETCH(InterfaceLanguage, language);
        QFETCH(double, desktopPoints);
        QFETCH(Thoroughness, looked);
        QVERIFY(installLanguage(language));
        QFont desktopFont = QApplication::font();
        desktopFont.setPointSizeF(desktopPoints);
        QApplication::setFont(desktopFont);
        applyAppearance(*qApp);
        QTest::failOnWarning(QRegularExpression(QStringLiteral("no image named")));
        QCOMPARE(QApplication::font().pointSizeF(), interfacePointSize(desktopPoints));

        qsizetype faults = 0;
        int windows = 0;
        people::showEveryWindow(
            m_card.path(), language, people::Maps::AsTheyCome, [&](const QString& name, QWidget& window) {
                ++windows;
                QStringList found = people::cutTexts(window);
                if (language == InterfaceLanguage::Korean)
                    found += people::untranslatedTexts(window);
                if (looked == Thoroughness::All)
                    found +=
                        people::paleTexts(window) + people::namelessControls(window) +
                        (window.windowType() == Qt::Popup ? QStringList() : people::faultsOfTabbing(window));
                for (const QString& fault : found)
                    qWarning("%s: %s", qUtf8Printable(name), qUtf8Printable(fault));
                faults += found.size();
            });
        QVERIFY(windows >= 20);
        QCOMPARE(faults, 0); // each is told above
    }

private:
    test::TemporaryFolder m_card;
};

int main(int argc, char** argv)
{
    prepareForMaps();
    QApplication application(argc, argv);
    PeopleTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "WindowsTest.moc"
