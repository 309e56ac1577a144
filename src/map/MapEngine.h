// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QtPlugin>
#include <QUrl>
#include <QVariant>

#include <functional>
#include <memory>

class QWidget;

namespace marvo {

/// One map page in a web engine. All on the window's thread.
class MapEngine
{
public:
    virtual ~MapEngine() = default;

    /// Where the page is drawn; a child of the widget that the engine was made for, and gone with the engine.
    virtual QWidget* view() const = 0;
    /// Loads the page, also again after its process has died.
    virtual void load() = 0;
    /// Runs a statement in the page and gives its value, invalid where the page could not run it. Of a page
    /// that has not loaded the value may never come.
    virtual void run(const QString& statement, std::function<void(const QVariant& value)> done) = 0;
    /// The process that draws the page; 0 while there is none.
    virtual qint64 processId() const = 0;
};

/// What a map page is made from.
struct MapEngineSetup
{
    QUrl address;
    QColor background;
    /// Whether the page may fetch a picture from an address of the network; called on the engine's threads.
    std::function<bool(const QUrl&)> mayFetch;
    std::function<void(bool ok)> loaded;
    std::function<void()> died;
};

/// Makes map engines. The web engine is a library of over a hundred megabytes, which would take longer to
/// load than all the rest of the application; so it stands behind this, in a module that is loaded when the
/// first map is shown.
class MapEngineMaker
{
public:
    virtual ~MapEngineMaker() = default;
    /// Once, before anything is made: has pages drawn without OpenGL.
    virtual void drawWithoutOpenGl() = 0;
    virtual std::unique_ptr<MapEngine> make(const MapEngineSetup& setup, QWidget* parent) = 0;
};

/// A map engine of the module; null, with a line in the log, where the module is missing or does not load.
std::unique_ptr<MapEngine> makeMapEngine(const MapEngineSetup& setup, QWidget* parent);

} // namespace marvo

#define MARVO_MAP_ENGINE_MAKER "org.marvo.MapEngineMaker/1"
Q_DECLARE_INTERFACE(marvo::MapEngineMaker, MARVO_MAP_ENGINE_MAKER)
