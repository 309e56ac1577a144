// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/RadioMatrix.h"

#include "ActiveWindow.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>
#include <QVBoxLayout>

using namespace marvo;

class RadioMatrixTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void keysMove()
    {
        // 0 1 2 3
        // 4 5 6 7    without 6
        const struct
        {
            int from;
            Qt::Key key;
            int to;
        } rows[] = {{0, Qt::Key_Right, 1}, {3, Qt::Key_Right, 4}, {4, Qt::Key_Left, 3}, {1, Qt::Key_Down, 5},
                    {7, Qt::Key_Up, 3},    {5, Qt::Key_Right, 7}, {2, Qt::Key_Down, 2}, {2, Qt::Key_Up, 2},
                    {0, Qt::Key_End, 7},   {-1, Qt::Key_Space, 0}};
        for (const auto& [from, key, to] : rows) {
            RadioMatrix matrix(2, 4);
            matrix.setCellEnabled(6, false);
            matrix.setSelectedCell(from);
            QVERIFY(marvo::testing::showActive(matrix));
            QSignalSpy clicks(&matrix, &RadioMatrix::cellClicked);
            matrix.setFocus();
            QTest::keyClick(QApplication::focusWidget(), key);
            QCOMPARE(matrix.selectedCell(), to);
            QCOMPARE(clicks.count(), from == to ? 0 : 1);
        }
    }

    void selectionCanBeTakenBack()
    {
        // A radio button beside the grid, as for a choice that is not of it.
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* matrix = new RadioMatrix(2, 4);
        auto* other = new QRadioButton;
        layout->addWidget(matrix);
        layout->addWidget(other);
        QVERIFY(marvo::testing::showActive(window));
        QSignalSpy clicks(matrix, &RadioMatrix::cellClicked);

        QTest::mouseClick(matrix->cell(5), Qt::LeftButton, {}, QPoint(5, matrix->cell(5)->height() / 2));
        QCOMPARE(clicks.takeFirst().first().toInt(), 5);
        matrix->deselectAllCells();
        QCOMPARE(matrix->selectedCell(), -1);
        QVERIFY(!matrix->cell(5)->isChecked());
        QCOMPARE(clicks.count(), 0);
        // The same cell again is a new choice.
        QTest::mouseClick(matrix->cell(5), Qt::LeftButton, {}, QPoint(5, matrix->cell(5)->height() / 2));
        QCOMPARE(clicks.count(), 1);
        other->click();
        QCOMPARE(matrix->selectedCell(), 5);
        matrix->setSelectedCell(8);
        QCOMPARE(matrix->selectedCell(), -1);
    }

    void cellsAreInRowMajorOrder()
    {
        RadioMatrix matrix(2, 4);
        matrix.setObjectName(QStringLiteral("voiceLangRadio"));
        for (int i = 0; i < matrix.cellCount(); ++i)
            matrix.setTitle(i, QString::number(i));
        matrix.show();
        QVERIFY(QTest::qWaitForWindowExposed(&matrix));
        QVERIFY(matrix.cell(3)->x() > matrix.cell(2)->x());
        QCOMPARE(matrix.cell(3)->y(), matrix.cell(0)->y());
        QCOMPARE(matrix.cell(4)->x(), matrix.cell(0)->x());
        QVERIFY(matrix.cell(4)->y() > matrix.cell(0)->y());
        QCOMPARE(matrix.cell(6)->objectName(), QStringLiteral("voiceLangRadio.6"));
        QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&matrix);
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->child(6)->role(), QAccessible::RadioButton);
        QCOMPARE(list->child(6)->text(QAccessible::Name), QStringLiteral("6"));
    }
};

QTEST_MAIN(RadioMatrixTest)
#include "RadioMatrixTest.moc"
