// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/WindowSurface.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>

#include <algorithm>
#include <array>

namespace marvo {

namespace {

/// Whether there is a graphics processor to compose a window; drivers that do without name themselves.
bool openGlIsFast()
{
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface))
        return false;
    const auto* bytes = reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER));
    const QString renderer = QString::fromLatin1(bytes);
    return !renderer.isEmpty() &&
           std::ranges::none_of(
               std::array{"llvmpipe", "softpipe", "swrast", "SwiftShader"}, [&](const char* software) {
                   return renderer.contains(QLatin1StringView(software), Qt::CaseInsensitive);
               });
}

} // namespace

void prepareWindowForWebView(QWidget& window)
{
    if (!openGlIsFast())
        return;
    // It is never shown: that it is there decides what the window is made for.
    auto* sign = new QOpenGLWidget(&window);
    sign->setFixedSize(0, 0);
    sign->hide();
}

} // namespace marvo
