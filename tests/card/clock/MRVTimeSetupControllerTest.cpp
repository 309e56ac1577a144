// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/clock/MRVTimeSetupController.h"
#include "ActiveWindow.h"
#include "card/clock/ClockFace.h"
#include "card/clock/DateTexts.h"
#include "card/disks/FolderDisks.h"
#include "TemporaryFolder.h"
#include "texts/Localisation.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimeEdit>

#include <atomic>
#include <cmath>
#include <memory>
#include <numbers>
#include <semaphore>

using namespace marvo;
using marvo::test::TemporaryFolder;

namespace {

/// A folder that stands for the card, and whose first look-up does not return before it is let go.
class HangingDisks : public FolderDisks
{
public:
    using FolderDisks::FolderDisks;

    std::vector<MountedVolume> mountedVolumes() const override
    {
        if (m_looks++ != 0)
            return FolderDisks::mountedVolumes();
        answer.acquire();
        return {};
    }
    mutable std::binary_semaphore answer{0};

private:
    mutable std::atomic<int> m_looks = 0;
};

} // namespace

/// The clock dialog as a person drives it, on a folder that stands for the card.
class TestTimeSetup : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TemporaryFolder> m_card;
    std::unique_ptr<FolderDisks> m_disks;
    QPointer<MRVTimeSetupController> m_dialog;

    template <typename Control>
    Control& control(const char* objectName) const
    {
        auto* found = m_dialog->findChild<Control*>(QLatin1String(objectName));
        if (!found)
            qFatal("no control %s", objectName);
        return *found;
    }
    QTimeEdit& timePicker() const { return control<QTimeEdit>("timePicker"); }
    ClockFace& face() const { return control<ClockFace>("clockTimePicker"); }
    QCalendarWidget& datePicker() const { return control<QCalendarWidget>("datePicker"); }
    QMessageBox* message() const { return m_dialog->findChild<QMessageBox*>(QStringLiteral("messageSheet")); }
    QFileDialog* panel() const { return m_dialog->findChild<QFileDialog*>(QStringLiteral("saveDialog")); }
    void press(const char* button) const { QTest::mouseClick(&control<QPushButton>(button), Qt::LeftButton); }

    void openDialog()
    {
        m_dialog = new MRVTimeSetupController(*m_disks);
        QSignalSpy lookedUp(m_dialog, &MRVTimeSetupController::cardLookedUp);
        QVERIFY(marvo::testing::showActive(*m_dialog));
        QVERIFY(lookedUp.count() > 0 || lookedUp.wait());
    }

    void chooseMoment() const
    {
        datePicker().setSelectedDate(QDate(2013, 5, 26));
        timePicker().setTime(QTime(13, 45, 2));
    }

    void typeIntoPanel(const std::string& path) const
    {
        auto* field = panel()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        field->setText(QString::fromStdString(path));
        QTest::keyClick(field, Qt::Key_Return);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QVERIFY(installLanguage(InterfaceLanguage::English));
    }
    void init()
    {
        m_card = std::make_unique<TemporaryFolder>();
        m_disks = std::make_unique<FolderDisks>(m_card->path());
    }
    void cleanup() { delete m_dialog; }

    void textsOfTheLocale()
    {
        const struct
        {
            const char* locale;
            const char* full;
            const char* medium;
            const char* time;
        } rows[] = {{"en_US", "Sunday, May 26, 2013", "May 26, 2013", "1:45:02 PM"},
                    {"ko_KR", "2013년 5월 26일 일요일", "2013년 5월 26일", "오후 1시 45분 2초"},
                    {"de_DE", "Sonntag, 26. Mai 2013", "26. Mai 2013", "13:45:02"},
                    {"da_DK", "søndag den 26. maj 2013", "26. maj 2013", "13.45.02"},
                    {"ja_JP", "2013年5月26日日曜日", "2013年5月26日", "13時45分02秒"},
                    {"ar_EG", "الأحد، ٢٦ مايو ٢٠١٣", "٢٦ مايو ٢٠١٣", ""},
                    {"th_TH", "วันอาทิตย์ที่ 26 พฤษภาคม 2013", "26 พ.ค. 2013", ""},
                    {"C", "Sunday, 26 May 2013", "26 May 2013", "13:45:02"}};
        for (const auto& row : rows) {
            const QLocale locale(QString::fromLatin1(row.locale));
            const QDate day(2013, 5, 26);
            QCOMPARE(fullDateText(day, locale), QString::fromUtf8(row.full));
            QCOMPARE(mediumDateText(day, locale), QString::fromUtf8(row.medium));
            if (*row.time)
                QCOMPARE(locale.toString(QTime(13, 45, 2), timeFormat(locale)), QString::fromUtf8(row.time));
        }
    }

    void handsTurnAsOnAClock()
    {
        using enum ClockHand;
        const struct
        {
            ClockHand hand;
            double angle;
            QTime before, after;
        } rows[] = {{Hour, 100, {1, 20, 5}, {3, 20, 5}},
                    {Hour, 45, {1, 50, 0}, {1, 50, 0}},   // half an hour is still this hour
                    {Hour, 10, {11, 10, 0}, {12, 10, 0}}, // over noon comes the afternoon
                    {Hour, 330, {12, 0, 0}, {11, 0, 0}},
                    {Hour, 30, {23, 0, 0}, {1, 0, 0}}, // over midnight the day begins again
                    {Minute, 12, {9, 58, 30}, {10, 2, 30}},
                    {Minute, 354, {10, 2, 0}, {9, 59, 0}},
                    {Second, 6, {23, 59, 59}, {0, 0, 1}}};
        for (const auto& row : rows)
            QCOMPARE(withClockHandAt(row.hand, row.angle, row.before), row.after);
    }

    void pickersFollowEachOther()
    {
        openDialog();
        QCOMPARE(face().time(), timePicker().time());
        QCOMPARE(m_dialog->selectedTime().msec(), 0);

        timePicker().setTime(QTime(13, 45, 2));
        timePicker().setFocus();
        timePicker().setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClick(&timePicker(), Qt::Key_Up);
        QCOMPARE(face().time(), QTime(14, 45, 2));
        timePicker().setTime(QTime(13, 45, 2));
        QCOMPARE(m_dialog->selectedTime(), QTime(13, 45, 2));

        // The minute hand from nine back to six, and then on over twelve to one.
        const auto at = [&](double minute) {
            const double radians = minute * std::numbers::pi / 30;
            return (QRectF(face().rect()).center() + QPointF(std::sin(radians), -std::cos(radians)) * 60)
                .toPoint();
        };
        QTest::mousePress(&face(), Qt::LeftButton, {}, face().handTip(ClockHand::Minute).toPoint());
        for (const double minute : {38.0, 30.0, 40.0, 52.0, 64.0, 65.0})
            QTest::mouseMove(&face(), at(minute));
        QTest::mouseRelease(&face(), Qt::LeftButton, {}, at(65));
        QCOMPARE(timePicker().time(), QTime(14, 5, 2));
        QTest::mouseClick(&face(), Qt::LeftButton, {}, face().dayHalfRect().center().toPoint());
        QCOMPARE(timePicker().time(), QTime(2, 5, 2));

        face().setFocus();
        QTest::keyClick(&face(), Qt::Key_PageDown); // of the minute hand, which was dragged last
        QTest::keyClick(&face(), Qt::Key_Right);
        QTest::keyClick(&face(), Qt::Key_Up);
        QCOMPARE(timePicker().time(), QTime(1, 55, 3));
        QCOMPARE(m_dialog->selectedTime(), QTime(1, 55, 3));
    }

    void todayIsAMomentaryButton()
    {
        openDialog();
        auto& today = control<QCheckBox>("nowDaySettingChk");
        const QString title =
            QStringLiteral("Today(%1)").arg(mediumDateText(QDate::currentDate(), QLocale()));
        QCOMPARE(today.text(), title);
        datePicker().setSelectedDate(QDate(2013, 5, 26));
        QCOMPARE(control<QLabel>("dateField").text(), QStringLiteral("Sunday, May 26, 2013"));
        QTest::mouseClick(&today, Qt::LeftButton, {}, QPoint(8, today.height() / 2));
        QVERIFY(today.isChecked());
        QCOMPARE(datePicker().selectedDate(), QDate::currentDate());
        QCOMPARE(m_dialog->selectedDate(), QDate::currentDate());
        QTRY_VERIFY_WITH_TIMEOUT(!today.isChecked(), 1000);
        QCOMPARE(today.text(), title);
    }

    void aCardsFileIsReplacedAtOnce()
    {
        m_card->write(clockFileName, std::string(60, 'x'));
        openDialog();
        chooseMoment();
        auto& days = control<QAbstractItemView>("qt_calendar_calendarview");
        days.setFocus();
        for (const Qt::Key key : {Qt::Key_2, Qt::Key_7, Qt::Key_Return}) // a date typed, and put in
            QTest::keyClick(&days, key);
        QVERIFY(!message());
        datePicker().setSelectedDate(QDate(2013, 5, 26));
        QTest::keyClick(&days, Qt::Key_Return);
        QTRY_VERIFY(message());
        QVERIFY(!panel());
        QCOMPARE(message()->text(), QStringLiteral("MARVO"));
        QCOMPARE(message()->informativeText(), QStringLiteral("저장되었습니다"));
        QCOMPARE(m_card->read(clockFileName), std::string("2013/05/26 13:45:02"));
        message()->accept();
        QTRY_VERIFY(!m_dialog);
    }

    void withoutAFileTheUserSaysWhere()
    {
        openDialog();
        chooseMoment();
        press("saveButton");
        QTRY_VERIFY(panel());
        QCOMPARE(panel()->selectedFiles().value(0), QString::fromStdString(m_card->path("timeset.cfg")));
        panel()->reject();
        QTRY_VERIFY(!panel());
        QVERIFY(!message());
        QVERIFY2(std::filesystem::is_empty(m_card->path()), "a cancelled save leaves nothing behind");

        // The camera takes no other type; the file that this makes of the name is asked about first.
        m_card->write("other.txt.cfg", "kept");
        press("saveButton");
        QTRY_VERIFY(panel());
        typeIntoPanel(m_card->path("other.txt"));
        QTRY_VERIFY(panel() && panel()->selectedFiles().value(0).endsWith(QLatin1String("other.txt.cfg")));
        QCOMPARE(m_card->read("other.txt.cfg"), std::string("kept"));
        typeIntoPanel(m_card->path("mine"));
        QTRY_VERIFY(message());
        QCOMPARE(m_card->read("mine.cfg"), std::string("2013/05/26 13:45:02"));
    }

    void aLookUpThatHangsHoldsUpNothing()
    {
        m_card->write(clockFileName);
        // Its worker still has it when the test is over.
        static auto* const disks = new HangingDisks(m_card->path());
        m_dialog = new MRVTimeSetupController(*disks);
        QVERIFY(marvo::testing::showActive(*m_dialog));
        chooseMoment();
        press("saveButton");
        QTest::qWait(100);
        QVERIFY(m_card->read(clockFileName).empty() && !panel());
        Q_EMIT disks->volumesChanged(); // the card is put in again
        QTRY_VERIFY(message());
        QCOMPARE(m_card->read(clockFileName), std::string("2013/05/26 13:45:02"));
        disks->answer.release(); // an answer of long ago, that of an empty reader
        QTest::qWait(100);
        QCOMPARE(m_dialog->m_SettingFilePath(), std::optional(m_card->path(clockFileName)));
    }

    void aFailureKeepsTheDialog()
    {
        m_card->write(clockFileName);
        openDialog();
        chooseMoment();
        std::filesystem::remove(m_card->path(clockFileName)); // as of a card that has been pulled out
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("was not written: No such file")));
        press("saveButton");
        QTRY_VERIFY(message());
        QCOMPARE(message()->text(), QStringLiteral("Warn"));
        QCOMPARE(message()->informativeText(), localised("msg.write_protected_disk"));
        QVERIFY(std::filesystem::is_empty(m_card->path()));
        message()->accept();
        QTRY_VERIFY(!message());
        QVERIFY(m_dialog->isVisible() && control<QPushButton>("saveButton").isEnabled());
        QCOMPARE(m_dialog->selectedTime(), QTime(13, 45, 2));

        m_card->write(clockFileName); // put in again
        Q_EMIT m_disks->volumesChanged();
        press("saveButton");
        QTRY_VERIFY(message());
        QCOMPARE(m_card->read(clockFileName), std::string("2013/05/26 13:45:02"));
    }
};

QTEST_MAIN(TestTimeSetup)
#include "MRVTimeSetupControllerTest.moc"
