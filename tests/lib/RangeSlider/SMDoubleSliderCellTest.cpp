// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "lib/RangeSlider/SMDoubleSliderCell.h"
#include "lib/RangeSlider/EcoSliderAxisView.h"

#include <limits>
#include <QPainter>
#include <QtTest>

using namespace marvo;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

struct View final : SMDoubleSliderCellView
{
    void redraw(const QRectF&) override {}
    void cellValuesChanged() override {}
    void updateBoundControllerLoValue(double value) override
    {
        reports.append(QStringLiteral("lo %1").arg(value));
    }
    void updateBoundControllerHiValue(double value) override
    {
        reports.append(QStringLiteral("hi %1").arg(value));
    }
    QStringList reports;
};

/// 0 to 100 over a travel of 100, so that a value's knob has its centre at the value plus 8.
struct Slider : SMDoubleSliderCell
{
    Slider(double lo, double hi)
    {
        setFrame(QRectF(0, 0, 116, 24));
        setDoubleHiValue(hi);
        setDoubleLoValue(lo);
    }
    QString values() const { return stringLoValue() + QLatin1Char(' ') + stringHiValue(); }
};

QPointF at(double value) { return {value + 8, 12}; }

} // namespace

class DoubleSliderCellTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void setting()
    {
        using Cell = SMDoubleSliderCell;
        const struct
        {
            double lo, hi;
            void (*change)(Cell& cell);
            const char* values;
            const char* range = "0 100";
        } rows[] = {
            {30, 70, [](Cell& c) { c.setDoubleLoValue(80); }, "70 70"},
            {30, 70, [](Cell& c) { c.setDoubleHiValue(10); }, "30 30"},
            {30, 70, [](Cell& c) { c.setDoubleLoValue(-5); }, "0 70"},
            {30, 70, [](Cell& c) { c.setDoubleLoValue(notANumber); }, "0 70"},
            {30, 70, [](Cell& c) { c.setDoubleHiValue(notANumber); }, "30 30"},
            {30, 70, [](Cell& c) { c.setDoubleHiValue(infinity); }, "30 100"},
            {60, 80, [](Cell& c) { c.setMaxValue(50); }, "50 50", "0 50"},
            {30, 70, [](Cell& c) { c.setMaxValue(50); }, "30 50", "0 50"},
            {20, 40, [](Cell& c) { c.setMinValue(60); }, "60 60", "60 100"},
            {20, 40, [](Cell& c) { c.setMinValue(30); }, "30 40", "30 100"},
            {20, 40, [](Cell& c) { c.setMinValue(150); }, "150 150", "150 150"},
            {20, 40, [](Cell& c) { c.setMaxValue(-10); }, "-10 -10", "-10 -10"},
            {20, 40, [](Cell& c) { c.setMinValue(notANumber); }, "20 40"},
            {20, 40, [](Cell& c) { c.setMaxValue(infinity); }, "20 40"},
            {20, 60, [](Cell& c) { c.setLockedSliders(true); }, "60 60"},
            {20, 60, [](Cell& c) { c.setStringLoValue(QStringLiteral(" 33.5%")); }, "33.5 60"},
            {20, 60, [](Cell& c) { c.setStringLoValue(QStringLiteral("nan")); }, "0 60"},
            {20, 60, [](Cell& c) { c.setIntegerHiValue(std::numeric_limits<qint64>::max()); }, "20 100"}};
        for (const auto& row : rows) {
            Slider slider(row.lo, row.hi);
            View view;
            slider.setView(&view);
            row.change(slider);
            QCOMPARE(slider.values(), QLatin1String(row.values));
            QCOMPARE(QStringLiteral("%1 %2").arg(slider.minValue()).arg(slider.maxValue()),
                     QLatin1String(row.range));
            QCOMPARE(view.reports, QStringList()); // what the program sets is reported to nobody
        }
    }

    void forms()
    {
        Slider slider(0, 100);
        slider.setMaxValue(1e20);
        slider.setMinValue(-1e20);
        const struct
        {
            double value;
            const char* text;
            qint64 integer;
            int smallInteger;
        } rows[] = {{12.5, "12.5", 12, 12},
                    {-0.9, "-0.9", 0, 0},
                    {-7.9, "-7.9", -7, -7},
                    {1234567, "1.23457e+06", 1234567, 1234567},
                    {100000.5, "100000", 100000, 100000},
                    {3e9, "3e+09", 3000000000, 2147483647},
                    {1e20, "1e+20", std::numeric_limits<qint64>::max(), 2147483647}};
        for (const auto& row : rows) {
            slider.setDoubleLoValue(-1e20);
            slider.setDoubleHiValue(row.value);
            slider.setDoubleLoValue(row.value);
            for (const QString& text : {slider.stringLoValue(), slider.stringHiValue()})
                QCOMPARE(text, QString::fromLatin1(row.text));
            QCOMPARE(slider.integerLoValue(), row.integer);
            QCOMPARE(slider.intHiValue(), row.smallInteger);
        }
    }

    void objectForms()
    {
        const auto offering = [](const QVariantMap& properties) {
            auto* object = new QObject(qApp);
            for (const auto& [name, value] : properties.asKeyValueRange())
                object->setProperty(name.toLatin1().constData(), value);
            return QVariant::fromValue(object);
        };
        QVariantMap forms{{QStringLiteral("stringValue"), QStringLiteral("1.5")}};
        std::vector<std::pair<QVariant, double>> rows{{12.5, 12.5},
                                                      {true, 1},
                                                      {QStringLiteral("3e1x"), 30},
                                                      {QStringLiteral("x3"), 0},
                                                      {QVariantList{1}, 0},
                                                      {offering(forms), 1.5}};
        // Each form that an object offers besides counts before the ones above it.
        for (const auto& [name, value] : {std::pair{"intValue", QVariant(2)},
                                          {"floatValue", QVariant(3.0F)},
                                          {"doubleValue", QVariant(4.0)},
                                          {"doubleLoValue", QVariant(5.0)}}) {
            forms.insert(QLatin1String(name), value);
            rows.emplace_back(offering(forms), value.toDouble());
        }
        rows.emplace_back(offering({{QStringLiteral("doubleHiValue"), 9.0}}), 0);
        for (const auto& [object, value] : rows) {
            Slider slider(50, 100);
            slider.setObjectLoValue(object);
            QCOMPARE(slider.doubleLoValue(), value);
        }
    }

    void untypedAccessorsMeanTheActiveKnob()
    {
        Slider slider(20, 60);
        slider.setIntValue(30);
        slider.setTrackingLoKnob(false);
        QCOMPARE(slider.stringValue(), QStringLiteral("60"));
        SliderCell& base = slider;
        base.setDoubleValue(10);
        QCOMPARE(slider.values(), QStringLiteral("30 30"));
    }

    void knobChosen()
    {
        const struct
        {
            double lo, hi;
            double point; ///< along the bar from the minimum's centre
            bool low;
        } rows[] = {{30, 70, 5, true},   {30, 70, 29, true},  {30, 70, 30, false},
                    {30, 70, 40, false}, {0, 0, -5, false},   {0, 0, 5, false},
                    {50, 50, 49, true},  {50, 50, 51, false}, {100, 100, 99, true}};
        for (const auto& row : rows) {
            Slider slider(row.lo, row.hi);
            slider.setTrackingLoKnob(!row.low);
            slider.startTracking(at(row.point), Flip::Flipped);
            QCOMPARE(slider.trackingLoKnob(), row.low);
        }
        // Standing upright, the low knob's edge toward the maximum divides.
        for (const Flip flip : {Flip::Flipped, Flip::Unflipped}) {
            for (const double lo : {0.0, 30.0}) {
                for (const double offset : {-1.0, 1.0}) {
                    Slider upright(lo, lo == 0 ? 0 : 70);
                    upright.setOrientation(Qt::Vertical);
                    upright.setFrame(QRectF(0, 0, 24, 116));
                    const double along = lo + 16 + offset;
                    upright.startTracking({12, flip == Flip::Flipped ? 116 - along : along}, flip);
                    QCOMPARE(upright.trackingLoKnob(), offset < 0 && lo > 0);
                }
            }
        }
    }

    void dragStopsAtTheOtherKnob()
    {
        Slider slider(30, 70);
        slider.startTracking(at(28), Flip::Flipped);
        QCOMPARE(slider.values(), QStringLiteral("30 70")); // held where it was taken
        slider.continueTracking(at(38));
        QCOMPARE(slider.values(), QStringLiteral("40 70"));
        slider.continueTracking(at(95));
        QCOMPARE(slider.values(), QStringLiteral("70 70"));
        slider.continueTracking(at(-50));
        QCOMPARE(slider.values(), QStringLiteral("0 70"));
        slider.stopTracking();
        slider.startTracking(at(50), Flip::Flipped); // beside the knobs: it comes
        QCOMPARE(slider.values(), QStringLiteral("0 50"));
        slider.continueTracking(at(-5));
        QCOMPARE(slider.values(), QStringLiteral("0 0"));
        slider.continueTracking(at(1000));
        slider.stopTracking();
        QCOMPARE(slider.values(), QStringLiteral("0 100"));
    }

    void dragReports()
    {
        for (const bool continuous : {true, false}) {
            Slider slider(30, 70);
            View view;
            slider.setView(&view);
            slider.setContinuous(continuous);
            slider.startTracking(at(29), Flip::Flipped);
            slider.continueTracking(at(34));
            slider.stopTracking();
            slider.stopTracking();
            slider.continueTracking(at(3)); // after the end: of no effect
            slider.startTracking(at(71), Flip::Flipped);
            slider.continueTracking(at(81));
            slider.stopTracking();
            const QStringList all{QStringLiteral("lo 35"), QStringLiteral("lo 35"), QStringLiteral("hi 80"),
                                  QStringLiteral("hi 80")};
            QCOMPARE(view.reports, continuous ? all : QStringList({all.at(0), all.at(2)}));
            slider.startTracking(at(71), Flip::Flipped);
            slider.cancelTracking();
            QCOMPARE(view.reports.size(), continuous ? 4 + 1 : 2); // the knob at 80 was not under the point
        }
    }

    void valuesHoldDuringADrag()
    {
        Slider slider(30, 70);
        slider.startTracking(at(29), Flip::Flipped);
        slider.continueTracking(at(49));
        QCOMPARE(slider.values(), QStringLiteral("50 70"));
        QCOMPARE(slider.doubleValue(), 50.0);
        slider.setDoubleHiValue(60);
        QCOMPARE(slider.values(), QStringLiteral("50 60"));
        slider.continueTracking(at(99));
        QCOMPARE(slider.values(), QStringLiteral("60 60"));
        slider.setTrackingLoKnob(false); // the knob in hand stays in hand
        slider.continueTracking(at(19));
        QCOMPARE(slider.values(), QStringLiteral("20 60"));
        slider.setMinValue(40);
        QCOMPARE(slider.values(), QStringLiteral("40 60"));
        QCOMPARE(slider.encode().value(QStringLiteral("value")).toDouble(), 60.0);
        slider.stopTracking();
        QCOMPARE(slider.values(), QStringLiteral("40 60"));
    }

    void lockedKnobsMoveAsOne()
    {
        Slider slider(20, 60);
        View view;
        slider.setView(&view);
        slider.setLockedSliders(true);
        slider.setDoubleHiValue(10);
        QCOMPARE(slider.values(), QStringLiteral("10 10"));
        slider.setDoubleLoValue(90);
        QCOMPARE(slider.values(), QStringLiteral("90 90"));
        for (const double side : {-1.0, 1.0}) { // by the low knob, by the high one
            slider.setDoubleLoValue(50);
            view.reports.clear();
            slider.startTracking(at(50 + side), Flip::Flipped);
            slider.continueTracking(at(80 + side));
            QCOMPARE(slider.values(), QStringLiteral("80 80"));
            slider.continueTracking(at(30 + side));
            slider.stopTracking();
            QCOMPARE(slider.values(), QStringLiteral("30 30"));
            QCOMPARE(view.reports.mid(view.reports.size() - 2),
                     QStringList({QStringLiteral("lo 30"), QStringLiteral("hi 30")}));
        }
    }

    void archive()
    {
        const auto key = [](const char* name) { return QString::fromLatin1(name); };
        const std::pair<QVariantMap, const char*> rows[] = {
            {{}, "25 80"},
            {{{key("loValue"), 500.0}}, "80 80"},
            {{{key("loValue"), -500.0}}, "10 80"},
            {{{key("loValue"), 85.0}}, "80 80"},
            {{{key("loValue"), notANumber}, {key("value"), notANumber}}, "10 10"},
            {{{key("maxValue"), -3.0}}, "10 10"},
            {{{key("loValue"), QVariantList()}, {key("value"), key("70")}}, "10 70"},
            {{{key("lockedSliders"), true}}, "80 80"}};
        Slider slider(25, 80);
        slider.setMinValue(10);
        slider.setMaxValue(90);
        slider.setTrackingLoKnob(false);
        slider.setAltIncrementValue(2);
        for (const auto& [change, values] : rows) {
            QVariantMap archive = slider.encode();
            archive.insert(change);
            SMDoubleSliderCell decoded;
            decoded.setTrackingLoKnob(false);
            decoded.decode(archive);
            QVERIFY(decoded.trackingLoKnob());
            QCOMPARE(decoded.altIncrementValue(), 2.0);
            QCOMPARE(decoded.stringLoValue() + QLatin1Char(' ') + decoded.stringHiValue(),
                     QLatin1String(values));
            QVERIFY(decoded.minValue() <= decoded.doubleLoValue() &&
                    decoded.doubleHiValue() <= decoded.maxValue());
        }
    }

    void knobImageGoesWhereTheFormulaSays()
    {
        Slider slider(0, 100);
        QImage surface(116, 40, QImage::Format_ARGB32_Premultiplied);
        slider.setFrame(QRectF(0, 0, 116, 40));
        QPixmap red(26, 20);
        red.fill(Qt::red);
        QPixmap blue(26, 20);
        blue.fill(Qt::blue);
        slider.setKnobLeftImage(red);
        slider.setKnobRightImage(blue);
        for (const double value : {0.0, 25.0, 100.0}) {
            slider.setDoubleHiValue(100);
            slider.setDoubleLoValue(value);
            surface.fill(Qt::transparent);
            QPainter painter(&surface);
            slider.draw(painter, QPalette(), Flip::Flipped);
            painter.end();
            // (116 - (26 - 16)) * x / 116, with the knob's x equal to the value; the top is the knob's own.
            const int left = qRound(106 * value / 116);
            const QColor expected = value < 100 ? Qt::red : Qt::blue; // the high knob lies above
            QCOMPARE(surface.pixelColor(left, 8), expected);
            QCOMPARE(surface.pixelColor(std::min(left + 25, 115), 27), expected);
            QVERIFY(surface.pixelColor(left, 7) != expected);
            QVERIFY(surface.pixelColor(left, 28) != expected);
        }
    }

    void barIsAllOfOneImage()
    {
        QPixmap stripes(4, 8);
        stripes.fill(Qt::green);
        QPainter(&stripes).fillRect(0, 0, 4, 1, Qt::white); // the image's top
        for (const Flip flip : {Flip::Flipped, Flip::Unflipped}) {
            Slider slider(40, 50);
            slider.setFrame(QRectF(0, 0, 118, 40)); // no whole number of images
            slider.setBarFillImage(stripes);
            QImage surface(118, 40, QImage::Format_ARGB32_Premultiplied);
            surface.fill(Qt::transparent);
            QPainter painter(&surface);
            if (flip == Flip::Unflipped) { // a surface with its y axis up
                painter.translate(0, 40);
                painter.scale(1, -1);
            }
            slider.draw(painter, QPalette(), flip);
            for (const int x : {0, 1, 2, 15, 16, 29, 30, 70, 71, 102, 115, 116, 117}) { // beside the knobs
                QCOMPARE(surface.pixelColor(x, 15).alpha(), 0);
                QCOMPARE(surface.pixelColor(x, 16), QColor(Qt::white));
                QCOMPARE(surface.pixelColor(x, 23), QColor(Qt::green));
                QCOMPARE(surface.pixelColor(x, 24).alpha(), 0);
            }
        }
    }

    /// At the slider's natural width the ticks stand at the knobs' centres.
    void scale()
    {
        const QList<QRectF> ticks = EcoSliderAxisView::ticks(496);
        QCOMPARE(ticks.size(), 22);
        SMDoubleSliderCell cell;
        cell.setFrame(QRectF(0, 0, 496, 28));
        for (int i = 0; i <= 20; ++i) {
            QCOMPARE(cell.knobRect(5 * i, Flip::Flipped).center().x(), ticks.at(i).x());
            QCOMPARE(ticks.at(i).height(), i % 10 == 0 ? 8.0 : 5.0);
        }
    }
};

QTEST_MAIN(DoubleSliderCellTest)
#include "SMDoubleSliderCellTest.moc"
