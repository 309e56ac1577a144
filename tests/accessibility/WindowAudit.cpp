// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "accessibility/WindowAudit.h"

#include "controls/ElidedLabel.h"
#include "controls/ImageButton.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace marvo::people {

namespace {

template <typename Wanted>
const Wanted* as(const QWidget& widget)
{
    return qobject_cast<const Wanted*>(&widget);
}

QList<QWidget*> visibleWidgets(const QWidget& window)
{
    QList<QWidget*> found;
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == &window)
            found << widget;
    return found;
}

QRect placeIn(const QWidget& window, const QWidget& widget)
{
    return {widget.mapTo(&window, QPoint(0, 0)), widget.size()};
}

QString described(const QWidget& widget, const QString& text = {})
{
    QString line = QLatin1StringView(widget.metaObject()->className());
    if (!widget.objectName().isEmpty())
        line += QLatin1Char(' ') + widget.objectName();
    if (!text.isEmpty())
        line += QStringLiteral(" \"%1\"").arg(text.left(60));
    return line;
}

/// The text that a widget shows and a person should be able to read.
QString textOf(const QWidget& widget)
{
    if (const auto* label = as<QLabel>(widget))
        return label->text();
    if (const auto* button = as<QAbstractButton>(widget))
        return button->text();
    if (const auto* box = as<QGroupBox>(widget))
        return box->title();
    if (const auto* combo = as<QComboBox>(widget))
        return combo->currentText();
    if (const auto* edit = as<QLineEdit>(widget))
        return edit->text().isEmpty() ? edit->placeholderText() : edit->text();
    return {};
}

/// What a widget's text takes, and what it has; a label that breaks its lines takes more height instead.
struct Room
{
    QSize taken;
    QSize given;
    bool isEnough() const { return taken.width() <= given.width() && taken.height() <= given.height(); }
};

Room roomOf(const QWidget& widget)
{
    const QFontMetrics metrics = widget.fontMetrics();
    const QString text = textOf(widget);
    if (const auto* label = as<QLabel>(widget)) {
        if (label->wordWrap())
            return {{label->minimumSizeHint().width(), label->heightForWidth(label->width())}, label->size()};
        // A line has air above and below its letters, too, in some fonts a great deal.
        const int ink = metrics.tightBoundingRect(text).height() + 2;
        return {{label->sizeHint().width(), std::min(ink, metrics.height())}, label->size()};
    }
    if (const auto* button = as<QPushButton>(widget)) {
        QStyleOptionButton option;
        option.initFrom(button);
        const QRect inside = button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
        QSize taken = metrics.size(Qt::TextShowMnemonic, text);
        if (!button->icon().isNull())
            taken.rwidth() += button->iconSize().width() + 4;
        // The style's own margins above and below are air, which a letter may touch.
        return {taken, {inside.width(), button->height() - 2}};
    }
    if (as<QCheckBox>(widget) || as<QRadioButton>(widget) || as<QAbstractButton>(widget))
        return {{widget.sizeHint().width(), metrics.height()}, widget.size()};
    if (const auto* combo = as<QComboBox>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        option.editable = combo->isEditable();
        const QRect field =
            combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo);
        int widest = 0;
        for (int i = 0; i < combo->count(); ++i)
            widest = std::max(widest, metrics.horizontalAdvance(combo->itemText(i)));
        return {{widest, metrics.height()}, {field.width(), combo->height()}};
    }
    if (const auto* edit = as<QLineEdit>(widget)) {
        // What is typed can be scrolled; what is offered to be typed cannot.
        const auto buttons = static_cast<int>(edit->findChildren<QAbstractButton*>().size());
        const int icons = 2 + buttons * (metrics.height() + 4);
        const int offered = edit->text().isEmpty() ? metrics.horizontalAdvance(text) + icons : 0;
        return {{offered, metrics.height()}, edit->size()};
    }
    return {metrics.size(0, text), widget.size()};
}

bool isShortenedOnPurpose(const QWidget& widget)
{
    const auto* label = as<ElidedLabel>(widget);
    return label && (label->text() == label->fullText() || !label->toolTip().isEmpty());
}

/// A widget that its parents do not show whole; what is in a scroll area can be scrolled to.
bool isCutByParents(const QWidget& window, const QWidget& widget)
{
    const QRect place = placeIn(window, widget);
    for (const QWidget* parent = widget.parentWidget(); parent && parent != window.parentWidget();
         parent = parent->parentWidget()) {
        if (parent->parentWidget() && parent->parentWidget()->inherits("QAbstractScrollArea"))
            return false;
        if (!placeIn(window, *parent).contains(place))
            return true;
        if (parent == &window)
            break;
    }
    return false;
}

QStringList cutHeaders(const QHeaderView& header)
{
    QStringList faults;
    for (int i = 0; header.isVisible() && i < header.count(); ++i) {
        const QString title = header.model()->headerData(i, header.orientation()).toString();
        const QSize taken = header.fontMetrics().size(0, title);
        const bool fits = header.orientation() == Qt::Horizontal
                              ? taken.width() <= header.sectionSize(i) && taken.height() <= header.height()
                              : taken.width() <= header.width();
        if (!header.isSectionHidden(i) && !fits)
            faults << QStringLiteral("title \"%1\" is cut").arg(title);
    }
    return faults;
}

double luminance(QRgb pixel)
{
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) + 0.0722 * linear(qBlue(pixel));
}

double contrast(QRgb one, QRgb other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

constexpr int magnification = 3; ///< so that the strokes of the letters have pixels of their full colour

QImage pictureOf(QWidget& window, int scale)
{
    QImage picture(window.size() * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(window.palette().color(QPalette::Window));
    window.render(&picture);
    return picture;
}

/// The ground is what most pixels are, the text what differs most from it.
double textContrast(const QImage& picture, const QRect& place)
{
    const QRect pixels =
        QRect(place.topLeft() * magnification, place.size() * magnification).intersected(picture.rect());
    QHash<QRgb, int> counts;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            ++counts[picture.pixel(x, y)];
    QRgb ground = 0;
    int most = 0;
    for (auto one = counts.cbegin(); one != counts.cend(); ++one)
        if (one.value() > most)
            std::tie(ground, most) = std::pair(one.key(), one.value());
    double strongest = 1;
    for (auto one = counts.cbegin(); one != counts.cend(); ++one)
        if (one.value() >= 6) // not a stray pixel
            strongest = std::max(strongest, contrast(ground, one.key()));
    return strongest;
}

/// Where the text stands, without frames and pictures beside it.
QRect textPlace(const QWidget& widget)
{
    QRect place = widget.rect().adjusted(4, 3, -4, -3);
    if (as<QCheckBox>(widget) || as<QRadioButton>(widget))
        place.setLeft(24);
    else if (const auto* button = as<QAbstractButton>(widget); button && !button->icon().isNull())
        place.setLeft((place.width() - widget.fontMetrics().horizontalAdvance(button->text())) / 2 + 14);
    else if (as<QGroupBox>(widget))
        place.setHeight(widget.fontMetrics().height());
    return place;
}

bool isTabStop(const QWidget& window, const QWidget& widget)
{
    if (!widget.isVisible() || !widget.isEnabled() || !(widget.focusPolicy() & Qt::TabFocus) ||
        widget.focusProxy() || widget.window() != &window)
        return false;
    // A field that is part of a control is reached with it, and the web page has an order of its own.
    const QWidget* parent = widget.parentWidget();
    return !(parent && (parent->focusProxy() == &widget || as<QAbstractSpinBox>(*parent) ||
                        parent->inherits("QWebEngineView") || parent->inherits("QtWebEngineCore")));
}

/// The groups around two controls that part them: the children of what has both.
std::pair<const QWidget*, const QWidget*> partedGroups(const QWidget& one, const QWidget& other)
{
    const QWidget* common = &one;
    while (!common->isAncestorOf(&other) && common != &other)
        common = common->parentWidget();
    const auto groupIn = [common](const QWidget* widget) {
        while (widget != common && widget->parentWidget() != common)
            widget = widget->parentWidget();
        return widget;
    };
    return {groupIn(&one), groupIn(&other)};
}

bool isAgainstReading(const QRect& from, const QRect& to)
{
    const int overlap = std::min(from.bottom(), to.bottom()) - std::max(from.top(), to.top());
    const bool sameRow = overlap > std::min(from.height(), to.height()) / 2;
    if (sameRow)
        return to.center().x() < from.center().x();
    return to.bottom() <= from.top() && to.left() < from.right(); // up, but not into the next column
}

bool looksFocused(const QImage& without, const QImage& with, const QRect& place)
{
    const QRect around = place.adjusted(-4, -4, 4, 4).intersected(without.rect());
    int changed = 0;
    for (int y = around.top(); y <= around.bottom(); ++y)
        for (int x = around.left(); x <= around.right(); ++x)
            changed += contrast(without.pixel(x, y), with.pixel(x, y)) >= 1.5;
    return changed >= 12;
}

} // namespace

QStringList cutTexts(const QWidget& window)
{
    QStringList faults;
    for (const QWidget* widget : visibleWidgets(window)) {
        // The columns of Qt's own file dialog are a person's to drag.
        if (const auto* header = as<QHeaderView>(*widget); header && !window.inherits("QFileDialog"))
            faults += cutHeaders(*header);
        const QString text = textOf(*widget);
        const auto* label = as<QLabel>(*widget);
        if (text.isEmpty() || (label && isShortenedOnPurpose(*label)))
            continue;
        if (const Room room = roomOf(*widget); !room.isEnough())
            faults << QStringLiteral("%1 takes %2 x %3, has %4 x %5")
                          .arg(described(*widget, text))
                          .arg(room.taken.width())
                          .arg(room.taken.height())
                          .arg(room.given.width())
                          .arg(room.given.height());
        else if (isCutByParents(window, *widget))
            faults << described(*widget, text) + QStringLiteral(" is cut by what is around it");
    }
    return faults;
}

QStringList untranslatedTexts(const QWidget& window)
{
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{3,}"));
    static const QRegularExpression international(
        QStringLiteral("\\b(MARVO|GPS|OBD|HDOP|fps|\\d+fps|FAT32|NTSC|PAL|Full HD)\\b"));
    // The camera's own words, and dates, which are the desktop's.
    static const QRegularExpression notOurs(
        QStringLiteral("CPL$|Tinting$|Normal Drive|^marvo-|Card Reader|\\b20\\d\\d\\b"));
    static const QRegularExpression hangul(QStringLiteral("[\\x{AC00}-\\x{D7A3}]"));
    QStringList faults;
    const auto check = [&](const QString& text, const QString& where) {
        const bool isPath = text.contains(QLatin1Char('/'));
        QString rest = text;
        rest.remove(international);
        if (rest.contains(word) && !text.contains(hangul) && !isPath && !text.trimmed().contains(notOurs))
            faults << where;
    };
    for (const QWidget* widget : visibleWidgets(window)) {
        const bool isCalendar =
            widget->parent() && widget->parent()->objectName().startsWith(QLatin1StringView("qt_calendar"));
        if (!as<QLineEdit>(*widget) && !isCalendar) // what is in a field is somebody's own
            check(textOf(*widget), described(*widget, textOf(*widget)));
        check(widget->toolTip(), described(*widget, widget->toolTip()));
    }
    if (const auto* menu = as<QMenu>(window))
        for (const QAction* action : menu->actions())
            check(action->text(), action->text());
    return faults;
}

QStringList paleTexts(QWidget& window)
{
    const QImage picture = pictureOf(window, magnification);
    QStringList faults;
    const auto check = [&](const QRect& place, const QString& what) {
        const double measured = textContrast(picture, place);
        if (measured < 4.5)
            faults << QStringLiteral("%1 has a contrast of %2").arg(what).arg(measured, 0, 'f', 2);
    };
    for (const QWidget* widget : visibleWidgets(window)) {
        const QString text = textOf(*widget);
        const bool isPicture = as<QLabel>(*widget) && !as<QLabel>(*widget)->pixmap().isNull();
        if (!text.trimmed().isEmpty() && widget->isEnabled() && !isPicture)
            check(textPlace(*widget).translated(placeIn(window, *widget).topLeft()),
                  described(*widget, text));
        const auto* view = as<QAbstractItemView>(*widget);
        if (!view || !view->model() || as<QHeaderView>(*widget))
            continue;
        const QPoint origin = placeIn(window, *view->viewport()).topLeft();
        for (int row = 0; row < std::min(3, view->model()->rowCount(view->rootIndex())); ++row) {
            for (int column = 0; column < view->model()->columnCount(view->rootIndex()); ++column) {
                const QModelIndex cell = view->model()->index(row, column, view->rootIndex());
                const QRect place = view->visualRect(cell) & view->viewport()->rect();
                if (!cell.data().toString().isEmpty() && place.width() > 8 &&
                    cell.flags() & Qt::ItemIsEnabled)
                    check(place.translated(origin), described(*view, cell.data().toString()));
            }
        }
    }
    return faults;
}

QStringList namelessControls(const QWidget& window)
{
    QStringList faults;
    for (QWidget* widget : visibleWidgets(window)) {
        if (!isTabStop(window, *widget))
            continue;
        const QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(widget);
        const QAccessible::Role role = seen ? seen->role() : QAccessible::NoRole;
        if (role == QAccessible::NoRole || role == QAccessible::Client || role == QAccessible::Window)
            faults << described(*widget) + QStringLiteral(" has no role");
        if (!seen || seen->text(QAccessible::Name).trimmed().isEmpty())
            faults << described(*widget) + QStringLiteral(" has no name");
    }
    return faults;
}

QStringList faultsOfTabbing(QWidget& window)
{
    QStringList faults;
    QList<QWidget*> reached;
    window.setFocus();
    for (int step = 0; step < 200; ++step) {
        const QImage before = pictureOf(window, 1);
        QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Tab);
        QWidget* now = window.focusWidget();
        if (now == &window || (!reached.isEmpty() && now == reached.constLast()))
            continue; // some go on inside: the knobs of a slider, hours and minutes
        if (!now || reached.contains(now))
            break;
        // The map's page draws its own mark, and later.
        if (!now->inherits("QQuickWidget") &&
            !looksFocused(before, pictureOf(window, 1), placeIn(window, *now)))
            faults << described(*now) + QStringLiteral(" looks the same with the focus");
        if (!reached.isEmpty()) {
            const auto [from, to] = partedGroups(*reached.constLast(), *now);
            if (isAgainstReading(placeIn(window, *from), placeIn(window, *to)))
                faults << QStringLiteral("%1 comes after %2")
                              .arg(described(*now), described(*reached.constLast()));
        }
        reached << now;
    }
    for (const QWidget* widget : visibleWidgets(window))
        if (isTabStop(window, *widget) && !reached.contains(widget))
            faults << described(*widget) + QStringLiteral(" is not reached by the Tab key");
    return faults;
}

} // namespace marvo::people
