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
        for (const int none : {-1, 4, 1000}) {
            m_control->setSelectedSegment(2);
            m_control->setSelectedSegment(none);
            QCOMPARE(m_control->selectedSegment(), -1);
            QVERIFY(!m_control->segment(2)->isChecked());
        }
        m_control->setSelectedSegment(2);
        m_control->setLabels({QStringLiteral("on"), QStringLiteral("off")});
        QCOMPARE(m_control->selectedSegment(), -1);
    }

    void keysSelect()
    {
        const struct
        {
            int from;
            Qt::Key key;
            int to;
        } rows[] = {{1, Qt::Key_Right, 3}, // over a disabled one
                    {3, Qt::Key_Left, 1},  {1, Qt::Key_Left, 0},   {0, Qt::Key_Left, 0},
                    {3, Qt::Key_Right, 3}, {0, Qt::Key_Down, 1},   {3, Qt::Key_Home, 0},
                    {0, Qt::Key_End, 3},   {-1, Qt::Key_Space, 0}, {-1, Qt::Key_Right, 1}};
        m_control->setSegmentEnabled(2, false);
        for (const auto& [from, key, to] : rows) {
            m_before->setFocus();
            m_control->setSelectedSegment(from);
            QSignalSpy clicks(m_control, &SegmentedControl::segmentClicked);
            m_control->setFocus();
            QTest::keyClick(QApplication::focusWidget(), key);
            QCOMPARE(m_control->selectedSegment(), to);
            QCOMPARE(clicks.count(), from == to ? 0 : 1);
            QVERIFY(m_control->segment(to)->hasFocus());
        }
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
        QTest::addColumn<QString>("styleSheet");
        QTest::newRow("plain") << QString();
        QTest::newRow("padded") << QStringLiteral(
            "QPushButton { padding: 5px 14px; border: 1px solid #567; font-weight: bold }");
    }

    void labelsAreNeverCut()
    {
        QFETCH(QString, styleSheet);
        const QStringList labels{QStringLiteral("Speed, time and date"), QStringLiteral("Speed & time"),
                                 QString::fromUtf8("속도 시간 날짜 표시"), QStringLiteral("2")};
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
#include "SegmentedControlTest.moc"
