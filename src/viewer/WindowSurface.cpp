// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/WindowSurface.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLWidget>

namespace marvo {

namespace {

bool openGlWorks()
{
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    return context.create() && context.makeCurrent(&surface);
}

} // namespace

void prepareWindowForWebView(QWidget& window)
{
    if (!openGlWorks())
        return;
    // It is never shown: that it is there decides what the window is made for.
    auto* sign = new QOpenGLWidget(&window);
    sign->setFixedSize(0, 0);
    sign->hide();
}

} // namespace marvo
