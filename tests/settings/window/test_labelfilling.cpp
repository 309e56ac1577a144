// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/LabelFilling.h"

#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"
#include "settings/window/MRVCarNumberTextField.h"

#include "ActiveWindow.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QtTest>
#include <QVBoxLayout>

using namespace marvo;

class LabelFillingTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void titlesBeyondTheListStay()
    {
        RadioMatrix matrix(2, 2);
        const auto titles = [&matrix] {
            QStringList all;
            for (int i = 0; i < matrix.cellCount(); ++i)
                all.append(matrix.title(i));
            return all;
        };
        fillMatrixTitles(
            matrix, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")});
        fillMatrixTitles(matrix, {QStringLiteral("1"), QStringLiteral("R&B"), QStringLiteral("3")});
        const QStringList expected{QStringLiteral("1"), QStringLiteral("R&B"), QStringLiteral("3"),
                                   QStringLiteral("d")};
        QCOMPARE(titles(), expected);
        fillMatrixTitles(matrix, expected + QStringList{QStringLiteral("one too many")});
        QCOMPARE(titles(), expected);
    }

    void comboBoxIsFilledAnewWithoutSelection()
    {
        QComboBox comboBox;
        comboBox.addItems({QStringLiteral("old"), QStringLiteral("older")});
        comboBox.setCurrentIndex(1);
        QSignalSpy selections(&comboBox, &QComboBox::currentIndexChanged);
        fillComboBox(comboBox, {QStringLiteral("x"), QStringLiteral("y")});
        QCOMPARE(comboBox.count(), 2);
        QCOMPARE(comboBox.itemText(1), QStringLiteral("y"));
        QCOMPARE(comboBox.currentIndex(), -1);
        for (const QList<QVariant>& selection : selections)
            QCOMPARE(selection.first().toInt(), -1);
    }

    void segmentsFollowTheLabels()
    {
        SegmentedControl control;
        fillSegmentedControl(control,
                             {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        control.setSelectedSegment(2);
        fillSegmentedControl(control, {QStringLiteral("on"), QStringLiteral("off")});
        QCOMPARE(control.segmentCount(), 2);
        QCOMPARE(control.labels().last(), QStringLiteral("off"));
        QCOMPARE(control.selectedSegment(), -1);
    }

    void carNumberIsFilteredBeforeOthersHearOfIt_data()
    {
        QTest::addColumn<bool>("byReturn");
        QTest::newRow("Return") << true;
        QTest::newRow("focus leaves") << false;
    }

    void carNumberIsFilteredBeforeOthersHearOfIt()
    {
        QFETCH(bool, byReturn);
        QStringList heard;
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* field = new MRVCarNumberTextField;
        layout->addWidget(field);
        layout->addWidget(new QLineEdit);
        connect(field, &QLineEdit::editingFinished, this, [&] { heard.append(field->text()); });
        connect(field, &QLineEdit::returnPressed, this, [&] { heard.append(field->text()); });
        QVERIFY(marvo::testing::showActive(window));
        field->setFocus();

        field->insert(QString::fromUtf8("12 가 34-5Z"));
        QCOMPARE(field->text(), QString::fromUtf8("12 가 34-5Z")); // only when editing ends
        QTest::keyClick(field, byReturn ? Qt::Key_Return : Qt::Key_Tab);
        QCOMPARE(field->text(), QStringLiteral("12345Z"));
        QCOMPARE(heard, QStringList(byReturn ? 2 : 1, QStringLiteral("12345Z")));
    }
};

QTEST_MAIN(LabelFillingTest)
#include "test_labelfilling.moc"
