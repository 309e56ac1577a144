// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/Appearance.h"

#include "controls/FocusMarkStyle.h"
#include "controls/ImageNamed.h"
#include "controls/InterfaceScale.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QPalette>
#include <QRegularExpression>

namespace marvo {

namespace {

QPalette darkPalette()
{
    const QColor ground(0x14, 0x18, 0x1e);
    const QColor panel(0x1a, 0x1f, 0x27);
    const QColor raised(0x26, 0x2d, 0x37);
    const QColor text(0xe8, 0xed, 0xf3);
    const QColor quietText(0x9e, 0xab, 0xbb);
    const QColor disabledText(0x7c, 0x87, 0x97);
    const QColor accent(0x56, 0xb8, 0xe6);
    const QColor onAccent(0x0e, 0x13, 0x18);

    QPalette palette;
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, panel);
    palette.setColor(QPalette::AlternateBase, QColor(0x1d, 0x23, 0x2c));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::PlaceholderText, quietText);
    palette.setColor(QPalette::Button, raised);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0x2b, 0x33, 0x3e));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, onAccent);
    palette.setColor(QPalette::Light, QColor(0x36, 0x40, 0x4d));
    palette.setColor(QPalette::Midlight, QColor(0x3b, 0x45, 0x53));
    palette.setColor(QPalette::Mid, QColor(0x20, 0x26, 0x2e));
    palette.setColor(QPalette::Dark, QColor(0x07, 0x09, 0x0c));
    palette.setColor(QPalette::Shadow, QColor(0, 0, 0));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabledText);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, raised);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, disabledText);
    return palette;
}

/// One font family for both languages keeps weights and heights alike. Without it the desktop's font is
/// used.
QFont interfaceFont()
{
    const QString wanted = QStringLiteral("Noto Sans CJK KR");
    QFont font = QApplication::font();
    if (QFontDatabase::hasFamily(wanted))
        font.setFamily(wanted);
    font.setPointSizeF(interfacePointSize(font.pointSizeF()));
    return font;
}

/// The style sheet's text sizes are for the usual font; they grow with a larger one.
QString scaledSheet(const QString& sheet)
{
    static const QRegularExpression size(QStringLiteral("font-size: ([0-9]+)pt"));
    QString scaled;
    qsizetype copied = 0;
    for (auto sizes = size.globalMatch(sheet); sizes.hasNext();) {
        const QRegularExpressionMatch one = sizes.next();
        scaled += QStringView(sheet).mid(copied, one.capturedStart(1) - copied);
        scaled += QString::number(scaledPoints(one.captured(1).toInt()));
        copied = one.capturedEnd(1);
    }
    scaled += QStringView(sheet).mid(copied);
    return scaled;
}

} // namespace

void applyAppearance(QApplication& application)
{
    QApplication::setStyle(new FocusMarkStyle);
    QApplication::setPalette(darkPalette());
    QApplication::setFont(interfaceFont());
    QApplication::setWindowIcon(iconNamed(QStringLiteral("marvo")));
    QFile sheet(QStringLiteral(":/style/marvo.qss"));
    if (sheet.open(QIODevice::ReadOnly))
        application.setStyleSheet(scaledSheet(QString::fromUtf8(sheet.readAll())));
}

} // namespace marvo
