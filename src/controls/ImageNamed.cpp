// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/ImageNamed.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(lcImages, "marvo.images")

} // namespace

QPixmap imageNamed(const QString& name, qreal devicePixelRatio)
{
    const QString base = QFileInfo(name).completeBaseName();
    const QString key = QStringLiteral("marvo/%1@%2").arg(base).arg(devicePixelRatio);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;

    const QString file = QStringLiteral(":/images/%1.svg").arg(base);
    QSvgRenderer drawing;
    if (!QFileInfo::exists(file) || !drawing.load(file)) {
        qCWarning(lcImages, "no image named \"%s\"", qPrintable(name));
        return {};
    }
    pixmap = QPixmap((QSizeF(drawing.defaultSize()) * devicePixelRatio).toSize());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawing.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QIcon iconNamed(const QString& name)
{
    QIcon icon;
    // One pixmap for each scale that desktops offer: any other would be blurred.
    for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        const QPixmap pixmap = imageNamed(name, ratio);
        icon.addPixmap(pixmap);
        icon.addPixmap(pixmap, QIcon::Selected); // a selected row would tint it
    }
    return icon;
}

} // namespace marvo
