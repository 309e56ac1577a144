// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/MapSurface.h"

#include "platform/Graphics.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>

#include <algorithm>
#include <array>

namespace marvo {

namespace {

/// Drivers that do without a graphics processor name themselves.
bool isOpenGlFast()
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

void prepareForMaps()
{
    // The engine's sandbox refuses to work for the administrator, and then it would not start at all.
    if (isAdministrator() && qEnvironmentVariableIsEmpty("QTWEBENGINE_DISABLE_SANDBOX"))
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    // It would log its whole set-up at each start. QT_LOGGING_RULES can still enable that.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
    if (mayHaveGraphicsProcessor())
        QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

bool areMapsDrawnByOpenGl()
{
    static const bool drawn = QOpenGLContext::globalShareContext() != nullptr && isOpenGlFast();
    return drawn;
}

void prepareWindowForMap(QWidget& window)
{
    if (!areMapsDrawnByOpenGl())
        return;
    // Never shown: its presence makes the window an OpenGL window.
    auto* sign = new QOpenGLWidget(&window);
    sign->setFixedSize(0, 0);
    sign->hide();
}

} // namespace marvo
