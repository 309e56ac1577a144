// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "lib/RangeSlider/SMDoubleSlider.h"

#include "ActiveWindow.h"

#include <QAccessible>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>
#include <QVBoxLayout>

using namespace marvo;
using Binding = SMDoubleSlider::Binding;

/// What a slider is bound to: whole numbers that tell of each change, and one that may be nothing.
class Shares : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int lo READ lo WRITE setLo NOTIFY loChanged)
    Q_PROPERTY(int hi READ hi WRITE setHi NOTIFY hiChanged)
    Q_PROPERTY(QVariant object READ object WRITE setObject NOTIFY objectChanged)
public:
    int lo() const { return m_lo; }
    int hi() const { return m_hi; }
    QVariant object() const { return m_object; }
    void setLo(int value)
    {
        ++m_writes;
        if (std::exchange(m_lo, value) != value)
            Q_EMIT loChanged();
    }
    void setHi(int value)
    {
        ++m_writes;
        if (std::exchange(m_hi, value) != value)
            Q_EMIT hiChanged();
    }
    void setObject(const QVariant& object)
    {
        m_object = object;
        Q_EMIT objectChanged(object);
    }
    int takeWrites() { return std::exchange(m_writes, 0); }

Q_SIGNALS:
    void loChanged();
    void hiChanged();
    void objectChanged(const QVariant& object);

private:
    int m_lo = 30;
    int m_hi = 70;
    QVariant m_object = 5.5;
    int m_writes = 0;
};

class DoubleSliderTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        m_before = new QLineEdit;
        m_slider = new SMDoubleSlider;
        m_after = new QLineEdit;
        layout->addWidget(m_before);
        layout->addWidget(m_slider);
        layout->addWidget(m_after);
        m_slider->setAltIncrementValue(1);
        m_slider->setDoubleHiValue(70);
        m_slider->setDoubleLoValue(30);
        QVERIFY(marvo::testing::showActive(*m_window));
    }

    void anotherCellIsReplaced()
    {
        SMDoubleSlider plain(nullptr, std::make_unique<SliderCell>());
        plain.setIntegerHiValue(20);
        QCOMPARE(plain.cell().doubleHiValue(), 20.0);
    }

    void withoutImagesItIsDrawnPlainly()
    {
        QVERIFY(m_slider->knobLeftImage().toImage() != m_slider->knobRightImage().toImage());
        QVERIFY(!m_slider->barFillImage().isNull());
        m_slider->setKnobLeftImage(QPixmap());
        m_slider->setBarFillImage(QPixmap());
        const QImage plain = m_slider->grab().toImage();
        QVERIFY(plain.pixelColor(at(30)) != plain.pixelColor(at(50)));
    }

    void mouseDrags()
    {
        const int perTen = at(40).x() - at(30).x();
        QTest::mousePress(m_slider, Qt::LeftButton, {}, at(30) - QPoint(3, 0));
        QTest::mouseMove(m_slider, at(30) + QPoint(perTen - 3, 0));
        QTest::mouseRelease(m_slider, Qt::LeftButton, {}, at(30) + QPoint(perTen - 3, 0));
        QCOMPARE(m_slider->intLoValue(), 40);
        QVERIFY(m_slider->trackingLoKnob());
        QTest::mouseClick(m_slider, Qt::LeftButton, {}, at(90));
        QCOMPARE(values(), QStringLiteral("40 90"));
        QTest::mouseClick(m_slider, Qt::RightButton, {}, at(60));
        QCOMPARE(values(), QStringLiteral("40 90"));
    }

    void disablingEndsADrag()
    {
        QTest::mousePress(m_slider, Qt::LeftButton, {}, at(30) - QPoint(3, 0));
        QTest::mouseMove(m_slider, at(20));
        m_slider->setEnabled(false);
        QVERIFY(!m_slider->cell().isTracking());
        m_slider->setEnabled(true);
        QTest::mouseMove(m_slider, at(60));
        QCOMPARE(m_slider->stringHiValue(), QStringLiteral("70"));
        QVERIFY(m_slider->doubleLoValue() < 30);
    }

    void keysStepTheActiveKnob()
    {
        const struct
        {
            Qt::Key key;
            const char* low;
            const char* high;
        } rows[] = {{Qt::Key_Right, "31 70", "30 71"},  {Qt::Key_Up, "31 70", "30 71"},
                    {Qt::Key_Left, "29 70", "30 69"},   {Qt::Key_Down, "29 70", "30 69"},
                    {Qt::Key_PageUp, "40 70", "30 80"}, {Qt::Key_PageDown, "20 70", "30 60"},
                    {Qt::Key_Home, "0 70", "30 30"},    {Qt::Key_End, "70 70", "30 100"}};
        Shares shares;
        m_slider->bind(Binding::ObjectLoValue, &shares, "lo");
        m_slider->bind(Binding::ObjectHiValue, &shares, "hi");
        for (const auto& row : rows) {
            for (const bool low : {true, false}) {
                shares.setLo(30);
                shares.setHi(70);
                m_slider->setTrackingLoKnob(low);
                QTest::keyClick(m_slider, row.key);
                QCOMPARE(values(), QLatin1String(low ? row.low : row.high));
                QCOMPARE(QStringLiteral("%1 %2").arg(shares.lo()).arg(shares.hi()), values());
            }
        }
    }

    void tabGoesThroughTheKnobs()
    {
        m_before->setFocus();
        m_slider->setTrackingLoKnob(false);
        const struct
        {
            Qt::Key key;
            QWidget* on;
            bool low;
        } steps[] = {{Qt::Key_Tab, m_slider, true},     {Qt::Key_Tab, m_slider, false},
                     {Qt::Key_Tab, m_after, true},      {Qt::Key_Backtab, m_slider, false},
                     {Qt::Key_Backtab, m_slider, true}, {Qt::Key_Backtab, m_before, true}};
        for (const auto& step : steps) {
            QTest::keyClick(QApplication::focusWidget(), step.key);
            QVERIFY(step.on->hasFocus());
            QCOMPARE(m_slider->trackingLoKnob(), step.low);
        }
        for (const bool low : {true, false}) { // otherwise than by Tab
            m_before->setFocus();
            m_slider->setTrackingLoKnob(low);
            m_slider->setFocus(Qt::OtherFocusReason);
            QCOMPARE(m_slider->trackingLoKnob(), low);
        }
    }

    void bindingWorksBothWays()
    {
        Shares shares;
        QVERIFY(!m_slider->bind(Binding::ObjectLoValue, &shares, "none"));
        QVERIFY(!m_slider->bind(Binding::ObjectLoValue, nullptr, "lo"));
        QVERIFY(shares.dynamicPropertyNames().isEmpty());
        shares.setLo(10);
        QVERIFY(m_slider->bind(Binding::ObjectLoValue, &shares, "lo"));
        QVERIFY(m_slider->bind(Binding::ObjectHiValue, &shares, "hi"));
        QCOMPARE(values(), QStringLiteral("10 70"));
        shares.takeWrites();

        shares.setHi(80);
        shares.setLo(95); // shown as far as it can be, and not written back
        QCOMPARE(values(), QStringLiteral("80 80"));
        QCOMPARE(shares.lo(), 95);
        QCOMPARE(shares.takeWrites(), 2);

        shares.setLo(20);
        m_slider->updateBoundControllerLoValue(33.9);
        QCOMPARE(shares.lo(), 33);
        QCOMPARE(values(), QStringLiteral("33 80"));
        QCOMPARE(shares.takeWrites(), 2);
        // What the object keeps is shown even where it has nothing to tell.
        m_slider->setDoubleLoValue(33.4);
        m_slider->updateBoundControllerLoValue(33.4);
        QCOMPARE(values(), QStringLiteral("33 80"));
    }

    void observersMayMoveTheSlider()
    {
        // As a tab does: each change sets both knobs anew.
        Shares shares;
        const auto showBoth = [&] {
            m_slider->setIntegerHiValue(shares.hi());
            m_slider->setIntegerLoValue(shares.lo());
        };
        m_slider->bind(Binding::ObjectLoValue, &shares, "lo");
        m_slider->bind(Binding::ObjectHiValue, &shares, "hi");
        connect(&shares, &Shares::loChanged, this, showBoth);
        connect(&shares, &Shares::hiChanged, this, showBoth);
        shares.setLo(0);
        shares.setHi(0);
        shares.setLo(85); // above the high value until that comes
        shares.setHi(95);
        QCOMPARE(values(), QStringLiteral("85 95"));

        QTest::mousePress(m_slider, Qt::LeftButton, {}, at(85) - QPoint(2, 0));
        for (double value = 84; value >= 10; value -= 3.7) {
            QTest::mouseMove(m_slider, at(value));
            QCOMPARE(m_slider->intLoValue(), shares.lo());
        }
        QTest::mouseMove(m_slider, at(100));
        QCOMPARE(values(), QStringLiteral("95 95"));
        QTest::mouseRelease(m_slider, Qt::LeftButton, {}, at(100));
        QCOMPARE(shares.lo(), 95);
        QCOMPARE(shares.hi(), 95);
    }

    void nothingDisables()
    {
        Shares shares;
        m_slider->bind(Binding::ObjectLoValue, &shares, "object");
        QCOMPARE(values(), QStringLiteral("5.5 70"));
        shares.setObject(QVariant());
        QVERIFY(!m_slider->isEnabled());
        QCOMPARE(values(), QStringLiteral("0 70"));
        shares.setObject(QStringLiteral("12"));
        QVERIFY(m_slider->isEnabled());
        QCOMPARE(values(), QStringLiteral("12 70"));
        m_slider->setObjectHiValue(QVariant::fromValue<QObject*>(nullptr));
        QVERIFY(!m_slider->isEnabled());
        QCOMPARE(values(), QStringLiteral("12 12"));

        SMDoubleSlider other;
        other.setDoubleHiValue(44);
        m_slider->setObjectHiValue(QVariant::fromValue(&other));
        QVERIFY(m_slider->isEnabled());
        QCOMPARE(values(), QStringLiteral("12 44"));
        m_slider->setProperty("doubleLoValue", QVariant());
        QVERIFY(m_slider->isEnabled());
        QCOMPARE(values(), QStringLiteral("0 44"));
    }

    void unbindingEnds()
    {
        auto shares = std::make_unique<Shares>();
        m_slider->bind(Binding::ObjectLoValue, shares.get(), "lo");
        m_slider->bind(Binding::ObjectHiValue, shares.get(), "hi");
        m_slider->unbind(Binding::ObjectLoValue);
        shares->setLo(1);
        shares->setHi(71);
        m_slider->updateBoundControllerLoValue(2);
        QCOMPARE(values(), QStringLiteral("30 71"));
        QCOMPARE(shares->lo(), 1);

        Shares others;
        m_slider->bind(Binding::ObjectHiValue, &others, "hi"); // in place of the first
        shares->setHi(5);
        QCOMPARE(values(), QStringLiteral("30 70"));
        shares.reset();
        m_slider->bind(Binding::ObjectLoValue, &others, "lo");
        m_slider->setParent(m_window.get());
        QVERIFY(m_slider->isBound(Binding::ObjectLoValue));
        m_slider->setParent(nullptr);
        QVERIFY(!m_slider->isBound(Binding::ObjectLoValue) && !m_slider->isBound(Binding::ObjectHiValue));
        const std::unique_ptr<SMDoubleSlider> owned(m_slider);
        others.setLo(3);
        QCOMPARE(values(), QStringLiteral("30 70"));

        auto shortLived = std::make_unique<Shares>();
        m_slider->bind(Binding::ObjectLoValue, shortLived.get(), "lo");
        shortLived.reset();
        m_slider->updateBoundControllerLoValue(9);
        QVERIFY(!m_slider->isBound(Binding::ObjectLoValue));
    }

    void isAccessible()
    {
        m_slider->setAccessibleName(QStringLiteral("Card shares"));
        Shares shares;
        m_slider->bind(Binding::ObjectHiValue, &shares, "hi");
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(m_slider);
        QCOMPARE(accessible->role(), QAccessible::Slider);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Card shares"));
        QCOMPARE(accessible->text(QAccessible::Value), QString::fromUtf8("30 – 70"));
        QAccessibleValueInterface* const value = accessible->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue().toDouble(), 30.0);
        m_slider->setTrackingLoKnob(false);
        value->setCurrentValue(90);
        QCOMPARE(values(), QStringLiteral("30 90"));
        QCOMPARE(shares.hi(), 90); // a person's doing
    }

private:
    QPoint at(double value) const
    {
        return m_slider->cell().knobRect(value, Flip::Flipped).center().toPoint();
    }
    QString values() const
    {
        return m_slider->stringLoValue() + QLatin1Char(' ') + m_slider->stringHiValue();
    }

    std::unique_ptr<QWidget> m_window;
    QLineEdit* m_before = nullptr;
    SMDoubleSlider* m_slider = nullptr;
    QLineEdit* m_after = nullptr;
};

QTEST_MAIN(DoubleSliderTest)
#include "SMDoubleSliderTest.moc"
