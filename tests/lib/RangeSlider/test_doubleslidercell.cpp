// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "lib/RangeSlider/EcoSliderAxisView.h"
#include "lib/RangeSlider/SMDoubleSliderCell.h"

#include <functional>
#include <limits>
#include <QPainter>
#include <QtTest>

using namespace marvo;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct View final : SMDoubleSliderCellView
{
    void redraw(const QRectF&) override { ++redraws; }
    void cellValuesChanged() override {}
    void updateBoundControllerLoValue(double value) override
    {
        reports.append(QStringLiteral("lo %1").arg(value));
    }
    void updateBoundControllerHiValue(double value) override
    {
        reports.append(QStringLiteral("hi %1").arg(value));
    }
    int redraws = 0;
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
    void setting_data();
    void setting();
    void forms();
    void objectForms_data();
    void objectForms();
    void untypedAccessorsMeanTheActiveKnob();
    void knobChosen_data();
    void knobChosen();
    void dragStopsAtTheOtherKnob();
    void dragReports();
    void valuesHoldDuringADrag();
    void lockedKnobsMoveAsOne();
    void archive_data();
    void archive();
    void knobImageGoesWhereTheFormulaSays();
    void barIsAllOfOneImage();
    void scale();
};

using Change = std::function<void(SMDoubleSliderCell&)>;
Q_DECLARE_METATYPE(Change)

void DoubleSliderCellTest::setting_data()
{
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("values");
    QTest::addColumn<QString>("range");
    const auto row = [](const char* name, double lo, double hi, Change change, const char* values,
                        const char* range = "0 100") {
        QTest::newRow(name) << lo << hi << change << QString::fromLatin1(values)
                            << QString::fromLatin1(range);
    };
    using Cell = SMDoubleSliderCell;
    row(
        "low above high", 30, 70, [](Cell& c) { c.setDoubleLoValue(80); }, "70 70");
    row(
        "high below low", 30, 70, [](Cell& c) { c.setDoubleHiValue(10); }, "30 30");
    row(
        "high above maximum", 30, 70, [](Cell& c) { c.setDoubleHiValue(150); }, "30 100");
    row(
        "low below minimum", 30, 70, [](Cell& c) { c.setDoubleLoValue(-5); }, "0 70");
    row(
        "low no number", 30, 70, [](Cell& c) { c.setDoubleLoValue(kNan); }, "0 70");
    row(
        "high no number", 30, 70, [](Cell& c) { c.setDoubleHiValue(kNan); }, "30 30");
    row(
        "high infinite", 30, 70, [](Cell& c) { c.setDoubleHiValue(kInfinity); }, "30 100");
    row(
        "maximum below both", 60, 80, [](Cell& c) { c.setMaxValue(50); }, "50 50", "0 50");
    row(
        "maximum between", 30, 70, [](Cell& c) { c.setMaxValue(50); }, "30 50", "0 50");
    row(
        "minimum above both", 20, 40, [](Cell& c) { c.setMinValue(60); }, "60 60", "60 100");
    row(
        "minimum between", 20, 40, [](Cell& c) { c.setMinValue(30); }, "30 40", "30 100");
    row(
        "minimum above maximum", 20, 40, [](Cell& c) { c.setMinValue(150); }, "150 150", "150 150");
    row(
        "maximum below minimum", 20, 40, [](Cell& c) { c.setMaxValue(-10); }, "-10 -10", "-10 -10");
    row(
        "range of no number", 20, 40, [](Cell& c) { c.setMinValue(kNan), c.setMaxValue(kInfinity); },
        "20 40");
    row(
        "locking", 20, 60, [](Cell& c) { c.setLockedSliders(true); }, "60 60");
    row(
        "unlocking", 20, 60, [](Cell& c) { c.setLockedSliders(true), c.setLockedSliders(false); }, "60 60");
    row(
        "text", 20, 60, [](Cell& c) { c.setStringLoValue(QStringLiteral(" 33.5%")); }, "33.5 60");
    row(
        "text without number", 20, 60, [](Cell& c) { c.setStringLoValue(QStringLiteral("nan")); }, "0 60");
    row(
        "integer", 20, 60, [](Cell& c) { c.setIntegerHiValue(std::numeric_limits<qint64>::max()); },
        "20 100");
}

void DoubleSliderCellTest::setting()
{
    QFETCH(double, lo);
    QFETCH(double, hi);
    QFETCH(Change, change);
    Slider slider(lo, hi);
    View view;
    slider.setView(&view);
    change(slider);
    QTEST(slider.values(), "values");
    QTEST(QStringLiteral("%1 %2").arg(slider.minValue()).arg(slider.maxValue()), "range");
    QCOMPARE(view.reports, QStringList()); // what the program sets is reported to nobody
}

void DoubleSliderCellTest::forms()
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
                {100, "100", 100, 100},
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
        QCOMPARE(slider.objectHiValue(), QVariant(row.value));
        QCOMPARE(slider.floatLoValue(), static_cast<float>(row.value));
    }
}

void DoubleSliderCellTest::objectForms_data()
{
    QTest::addColumn<QVariant>("object");
    QTest::addColumn<double>("value");
    const auto offering = [this](std::initializer_list<std::pair<const char*, QVariant>> properties) {
        auto* object = new QObject(this);
        for (const auto& [name, value] : properties)
            object->setProperty(name, value);
        return QVariant::fromValue(object);
    };
    QTest::newRow("double") << QVariant(12.5) << 12.5;
    QTest::newRow("int") << QVariant(7) << 7.0;
    QTest::newRow("float") << QVariant(2.5F) << 2.5;
    QTest::newRow("bool") << QVariant(true) << 1.0;
    QTest::newRow("text") << QVariant(QStringLiteral("3e1x")) << 30.0;
    QTest::newRow("text of no number") << QVariant(QStringLiteral("x3")) << 0.0;
    QTest::newRow("list") << QVariant(QVariantList{1}) << 0.0;
    QTest::newRow("offers all") << offering({{"stringValue", QStringLiteral("1")},
                                             {"intValue", 2},
                                             {"floatValue", 3.0F},
                                             {"doubleValue", 4.0},
                                             {"doubleLoValue", 5.0}})
                                << 5.0;
    QTest::newRow("offers a double") << offering({{"floatValue", 3.0F}, {"doubleValue", 4.0}}) << 4.0;
    QTest::newRow("offers a float") << offering({{"intValue", 2}, {"floatValue", 3.0F}}) << 3.0;
    QTest::newRow("offers an int") << offering({{"stringValue", QStringLiteral("1")}, {"intValue", 2}})
                                   << 2.0;
    QTest::newRow("offers a text") << offering({{"stringValue", QStringLiteral("1.5")}}) << 1.5;
    QTest::newRow("offers the high value") << offering({{"doubleHiValue", 9.0}}) << 0.0;
}

void DoubleSliderCellTest::objectForms()
{
    QFETCH(QVariant, object);
    Slider slider(50, 100);
    slider.setObjectLoValue(object);
    QTEST(slider.doubleLoValue(), "value");
}

void DoubleSliderCellTest::untypedAccessorsMeanTheActiveKnob()
{
    Slider slider(20, 60);
    QVERIFY(slider.trackingLoKnob());
    slider.setIntValue(30);
    slider.setTrackingLoKnob(false);
    QCOMPARE(slider.stringValue(), QStringLiteral("60"));
    slider.setStringValue(QStringLiteral("70"));
    QCOMPARE(slider.values(), QStringLiteral("30 70"));
    SliderCell& base = slider;
    base.setDoubleValue(10);
    QCOMPARE(slider.values(), QStringLiteral("30 30"));
}

void DoubleSliderCellTest::knobChosen_data()
{
    QTest::addColumn<double>("lo");
    QTest::addColumn<double>("hi");
    QTest::addColumn<double>("point"); // along the bar from the minimum's centre
    QTest::addColumn<bool>("low");
    QTest::newRow("left of the low knob") << 30.0 << 70.0 << 5.0 << true;
    QTest::newRow("left half of the low knob") << 30.0 << 70.0 << 29.0 << true;
    QTest::newRow("the low knob's centre") << 30.0 << 70.0 << 30.0 << false;
    QTest::newRow("between") << 30.0 << 70.0 << 40.0 << false;
    QTest::newRow("stacked at the minimum, left") << 0.0 << 0.0 << -5.0 << false;
    QTest::newRow("stacked at the minimum, right") << 0.0 << 0.0 << 5.0 << false;
    QTest::newRow("stacked above it, left") << 50.0 << 50.0 << 49.0 << true;
    QTest::newRow("stacked above it, right") << 50.0 << 50.0 << 51.0 << false;
    QTest::newRow("stacked at the maximum, left") << 100.0 << 100.0 << 99.0 << true;
}

void DoubleSliderCellTest::knobChosen()
{
    QFETCH(double, lo);
    QFETCH(double, hi);
    QFETCH(double, point);
    QFETCH(bool, low);
    Slider slider(lo, hi);
    slider.setTrackingLoKnob(!low);
    slider.startTracking(at(point), Flip::Flipped);
    QCOMPARE(slider.trackingLoKnob(), low);
    slider.cancelTracking();

    // Standing upright, the low knob's edge toward the maximum divides.
    // side.
    for (const Flip flip : {Flip::Flipped, Flip::Unflipped}) {
        Slider upright(lo, hi);
        upright.setOrientation(Qt::Vertical);
        upright.setFrame(QRectF(0, 0, 24, 116));
        const double edge = lo + 16;
        const bool stackedAtMinimum = lo == hi && lo == 0;
        for (const double offset : {-1.0, 1.0}) {
            const double along = edge + offset;
            upright.startTracking({12, flip == Flip::Flipped ? 116 - along : along}, flip);
            QCOMPARE(upright.trackingLoKnob(), offset < 0 && !stackedAtMinimum);
            upright.cancelTracking();
            upright.setDoubleLoValue(lo);
            upright.setDoubleHiValue(hi);
        }
    }
}

void DoubleSliderCellTest::dragStopsAtTheOtherKnob()
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

void DoubleSliderCellTest::dragReports()
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

void DoubleSliderCellTest::valuesHoldDuringADrag()
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

void DoubleSliderCellTest::lockedKnobsMoveAsOne()
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

void DoubleSliderCellTest::archive_data()
{
    QTest::addColumn<QVariantMap>("change");
    QTest::addColumn<QString>("values");
    const auto key = [](const char* name) { return QString::fromLatin1(name); };
    QTest::newRow("unchanged") << QVariantMap() << key("25 80");
    QTest::newRow("low above maximum") << QVariantMap{{key("loValue"), 500.0}} << key("80 80");
    QTest::newRow("low below minimum") << QVariantMap{{key("loValue"), -500.0}} << key("10 80");
    QTest::newRow("low above high") << QVariantMap{{key("loValue"), 85.0}} << key("80 80");
    QTest::newRow("no numbers") << QVariantMap{{key("loValue"), kNan}, {key("value"), kNan}} << key("10 10");
    QTest::newRow("range reversed") << QVariantMap{{key("maxValue"), -3.0}} << key("10 10");
    QTest::newRow("other types") << QVariantMap{{key("loValue"), QVariantList()}, {key("value"), key("70")}}
                                 << key("10 70");
    QTest::newRow("locked") << QVariantMap{{key("lockedSliders"), true}} << key("80 80");
}

void DoubleSliderCellTest::archive()
{
    QFETCH(QVariantMap, change);
    Slider slider(25, 80);
    slider.setMinValue(10);
    slider.setMaxValue(90);
    slider.setTrackingLoKnob(false);
    slider.setAltIncrementValue(2);
    QVariantMap archive = slider.encode();
    QCOMPARE(archive.value(QStringLiteral("loValue")), QVariant(25.0));
    QCOMPARE(archive.value(QStringLiteral("lockedSliders")), QVariant(false));
    archive.insert(change);
    SMDoubleSliderCell decoded;
    decoded.setTrackingLoKnob(false);
    decoded.decode(archive);
    QVERIFY(decoded.trackingLoKnob());
    QCOMPARE(decoded.altIncrementValue(), 2.0);
    const QString values = decoded.stringLoValue() + QLatin1Char(' ') + decoded.stringHiValue();
    QTEST(values, "values");
    QVERIFY(decoded.minValue() <= decoded.doubleLoValue() && decoded.doubleHiValue() <= decoded.maxValue());
}

void DoubleSliderCellTest::knobImageGoesWhereTheFormulaSays()
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
        const QPointF origin = slider.knobImageOrigin(slider.knobRect(value, Flip::Flipped), QSizeF(26, 20));
        QCOMPARE(qRound(origin.x()), left);
        QCOMPARE(origin.y(), 20.0 + 8.0);
        const QColor expected = value < 100 ? Qt::red : Qt::blue; // the high knob lies above
        QCOMPARE(surface.pixelColor(left, 8), expected);
        QCOMPARE(surface.pixelColor(std::min(left + 25, 115), 27), expected);
        QVERIFY(surface.pixelColor(left, 7) != expected);
        QVERIFY(surface.pixelColor(left, 28) != expected);
    }
}

void DoubleSliderCellTest::barIsAllOfOneImage()
{
    QPixmap stripes(4, 8);
    stripes.fill(Qt::green);
    QPainter(&stripes).fillRect(0, 0, 4, 1, Qt::white); // the image's top
    const auto drawn = [&](double lo, double hi, Flip flip) {
        Slider slider(lo, hi);
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
        return surface;
    };
    for (const Flip flip : {Flip::Flipped, Flip::Unflipped}) {
        const QImage wide = drawn(0, 100, flip);
        for (int x = 16; x < 102; ++x) { // between the knobs
            QCOMPARE(wide.pixelColor(x, 15).alpha(), 0);
            QCOMPARE(wide.pixelColor(x, 16), QColor(Qt::white));
            QCOMPARE(wide.pixelColor(x, 23), QColor(Qt::green));
            QCOMPARE(wide.pixelColor(x, 24).alpha(), 0);
        }
    }
    const QImage narrow = drawn(40, 50, Flip::Flipped);
    for (const int x : {0, 30, 70, 117})
        QCOMPARE(narrow.pixelColor(x, 20), QColor(Qt::green));
}

void DoubleSliderCellTest::scale()
{
    const QList<QRectF> ticks = EcoSliderAxisView::ticks(496);
    QCOMPARE(ticks.size(), 22);
    for (int i = 0; i < 22; ++i)
        QCOMPARE(ticks.at(i), i % 10 == 0 ? QRectF(8 + 24 * i, 3, 1, 8) : QRectF(8 + 24 * i, 5, 1, 5));
    // At the slider's natural width the ticks stand at the knobs' centres.
    SMDoubleSliderCell cell;
    cell.setFrame(QRectF(0, 0, 496, 28));
    for (int i = 0; i <= 20; ++i)
        QCOMPARE(cell.knobRect(5 * i, Flip::Flipped).center().x(), ticks.at(i).x());
}

QTEST_MAIN(DoubleSliderCellTest)
#include "test_doubleslidercell.moc"
