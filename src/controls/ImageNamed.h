// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace marvo {

/// A drawing of the program by its name, at its own size in device-independent pixels, drawn for a screen of
/// the given pixel ratio. The drawings are vectors; a name may carry an ending ("record_p.png"), which does
/// not count. A null pixmap when there is no such drawing.
QPixmap imageNamed(const QString& name, qreal devicePixelRatio = 1.0);

/// The same drawing as an icon, sharp on ordinary screens and on those of twice their density.
QIcon iconNamed(const QString& name);

} // namespace marvo
