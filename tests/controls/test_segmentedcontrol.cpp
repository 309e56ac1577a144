// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/SegmentedControl.h"

#include "ActiveWindow.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>
#include <QVBoxLayout>

using namespace marvo;

class SegmentedControlTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        m_before = new QLineEdit;
        m_control = new SegmentedControl;
        m_after = new QLineEdit;
        for (QWidget* widget : {static_cast<QWidget*>(m_before), static_cast<QWidget*>(m_control),
                                static_cast<QWidget*>(m_after)})
            layout->addWidget(widget);
        m_control->setLabels(
            {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")});
        QVERIFY(marvo::testing::showActive(*m_window));
    }

    void onlyAPersonsChoiceIsAClick()
    {
        QSignalSpy clicks(m_control, &SegmentedControl::segmentClicked);
        QSignalSpy changes(m_control, &SegmentedControl::selectedSegmentChanged);
        m_control->setSelectedSegment(1);
        QCOMPARE(clicks.count(), 0);
        QCOMPARE(changes.count(), 1);
        QTest::mouseClick(m_control->segment(2), Qt::LeftButton);
        QCOMPARE(clicks.takeFirst().first().toInt(), 2);
        QCOMPARE(m_control->selectedSegment(), 2);
        QVERIFY(!m_control->segment(1)->isChecked());

        // A second click on the selected segment neither tells nor lets go of it.
        QTest::mouseClick(m_control->segment(2), Qt::LeftButton);
        QCOMPARE(clicks.count(), 0);
        QVERIFY(m_control->segment(2)->isChecked());

        m_control->setSegmentEnabled(3, false);
        QTest::mouseClick(m_control->segment(3), Qt::LeftButton);
        QCOMPARE(m_control->selectedSegment(), 2);
        m_control->setSelectedSegment(3); // the program may
        QVERIFY(m_control->segment(3)->isChecked());
    }

    void selectionCanBeNone()
    {
        for (const int none : {-1, 4, 1000, -7}) {
            m_control->setSelectedSegment(2);
            m_control->setSelectedSegment(none);
            QCOMPARE(m_control->selectedSegment(), -1);
            for (int i = 0; i < m_control->segmentCount(); ++i)
                QVERIFY(!m_control->segment(i)->isChecked());
        }
    }

    void keysSelect_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("to");
        QTest::newRow("right over a disabled one") << 1 << int(Qt::Key_Right) << 3;
        QTest::newRow("left over a disabled one") << 3 << int(Qt::Key_Left) << 1;
        QTest::newRow("left to the first") << 1 << int(Qt::Key_Left) << 0;
        QTest::newRow("not beyond the first") << 0 << int(Qt::Key_Left) << 0;
        QTest::newRow("not beyond the last") << 3 << int(Qt::Key_Right) << 3;
        QTest::newRow("down goes right") << 0 << int(Qt::Key_Down) << 1;
        QTest::newRow("home") << 3 << int(Qt::Key_Home) << 0;
        QTest::newRow("end") << 0 << int(Qt::Key_End) << 3;
        QTest::newRow("space without selection") << -1 << int(Qt::Key_Space) << 0;
        QTest::newRow("arrow without selection") << -1 << int(Qt::Key_Right) << 1;
    }

    void keysSelect()
    {
        QFETCH(int, from);
        QFETCH(int, key);
        QFETCH(int, to);
        m_control->setSegmentEnabled(2, false);
        m_control->setSelectedSegment(from);
        QSignalSpy clicks(m_control, &SegmentedControl::segmentClicked);
        m_control->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
        QCOMPARE(m_control->selectedSegment(), to);
        QCOMPARE(clicks.count(), from == to ? 0 : 1);
        QVERIFY(m_control->segment(to)->hasFocus());
    }

    void isOneTabStop()
    {
        const auto stopAfter = [this](QWidget* from, Qt::Key key) {
            from->setFocus();
            QTest::keyClick(from, key);
            return QApplication::focusWidget();
        };
        QCOMPARE(stopAfter(m_before, Qt::Key_Tab), m_control->segment(0));
        m_control->setSelectedSegment(2);
        QCOMPARE(stopAfter(m_before, Qt::Key_Tab), m_control->segment(2));
        QCOMPARE(stopAfter(m_control->segment(2), Qt::Key_Tab), m_after);
        QCOMPARE(stopAfter(m_after, Qt::Key_Backtab), m_control->segment(2));
        QCOMPARE(stopAfter(m_control->segment(2), Qt::Key_Backtab), m_before);

        m_control->setSegmentEnabled(2, false);
        QCOMPARE(stopAfter(m_before, Qt::Key_Tab), m_control->segment(0));
        m_control->setEnabled(false);
        QCOMPARE(stopAfter(m_before, Qt::Key_Tab), m_after);
        m_control->setEnabled(true);
        QCOMPARE(stopAfter(m_before, Qt::Key_Tab), m_control->segment(0));

        // The focused segment goes with its label.
        m_control->setLabels({});
        QCOMPARE(stopAfter(m_before, Qt::Key_Tab), m_after);
    }

    void labelsAreNeverCut_data()
    {
        QTest::addColumn<QStringList>("labels");
        QTest::addColumn<QString>("styleSheet");
        const QStringList english{QStringLiteral("Speed, time and date"), QStringLiteral("Speed & time"),
                                  QStringLiteral("5 (Sensitive)"), QStringLiteral("2")};
        const QStringList korean{QString::fromUtf8("속도 시간 날짜 표시"), QString::fromUtf8("사용자 설정"),
                                 QStringLiteral("4"), QString::fromUtf8("예민")};
        const QString sheet =
            QStringLiteral("QPushButton { padding: 5px 14px; border: 1px solid #567; font-weight: bold }");
        QTest::newRow("english") << english << QString();
        QTest::newRow("korean") << korean << QString();
        QTest::newRow("english, padded") << english << sheet;
        QTest::newRow("korean, padded") << korean << sheet;
    }

    void labelsAreNeverCut()
    {
        QFETCH(QStringList, labels);
        QFETCH(QString, styleSheet);
        m_window->setStyleSheet(styleSheet);
        m_control->setLabels(labels);
        const int least = m_control->minimumSizeHint().width();
        const int natural = m_control->sizeHint().width();
        QVERIFY(least < natural);
        for (const int width : {least, (least + natural) / 2, natural, natural + 101}) {
            // A window too low for it grows.
            m_window->resize(10, 10);
            m_control->setFixedWidth(width);
            QTRY_COMPARE(m_control->width(), width);
            QTRY_VERIFY(m_control->height() >= m_control->heightForWidth(width));
            int right = 0;
            for (int i = 0; i < labels.size(); ++i) {
                const QAbstractButton* const segment = m_control->segment(i);
                QCOMPARE(segment->x(), right);
                right += segment->width();
                QString shown = segment->text();
                const QSize needed = segment->fontMetrics().size(Qt::TextShowMnemonic, shown);
                QVERIFY2(needed.width() <= segment->width() && needed.height() <= segment->height(),
                         qPrintable(shown));
                QCOMPARE(shown.replace(QLatin1Char('\n'), QLatin1Char(' '))
                             .replace(QStringLiteral("&&"), QStringLiteral("&")),
                         labels.at(i));
            }
            QCOMPARE(right, width);
        }
    }

    void isAListOfRadioButtons()
    {
        m_control->setObjectName(QStringLiteral("recordingmodeSeg"));
        QCOMPARE(m_control->segment(3)->objectName(), QStringLiteral("recordingmodeSeg.3"));
        QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(m_control);
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->childCount(), 4);
        QAccessibleInterface* const third = list->child(2);
        QCOMPARE(third->role(), QAccessible::RadioButton);
        QCOMPARE(third->text(QAccessible::Name), QStringLiteral("c"));
        QVERIFY(!third->state().checked);
        QSignalSpy clicks(m_control, &SegmentedControl::segmentClicked);
        third->actionInterface()->doAction(third->actionInterface()->actionNames().first());
        QVERIFY(third->state().checked);
        QCOMPARE(clicks.count(), 1);
    }

private:
    std::unique_ptr<QWidget> m_window;
    SegmentedControl* m_control = nullptr;
    QLineEdit* m_before = nullptr;
    QLineEdit* m_after = nullptr;
};

QTEST_MAIN(SegmentedControlTest)
#include "test_segmentedcontrol.moc"
