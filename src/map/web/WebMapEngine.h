// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "map/MapEngine.h"

#include <QObject>

class QWebEngineProfile;
class QWebEngineView;

namespace marvo {

class MapPage;

/// A map page in Qt's web engine.
class WebMapEngine : public MapEngine
{
public:
    WebMapEngine(const MapEngineSetup& setup, QWidget* parent);
    ~WebMapEngine() override;

    QWidget* view() const override;
    void load() override;
    void run(const QString& statement, std::function<void(const QVariant& value)> done) override;
    qint64 processId() const override;

private:
    std::shared_ptr<QWebEngineProfile> m_profile;
    std::unique_ptr<QWebEngineView> m_view;
    MapPage* m_page;
};

/// What the application finds in the module.
class WebMapEngineMaker : public QObject, public MapEngineMaker
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID MARVO_MAP_ENGINE_MAKER)
    Q_INTERFACES(marvo::MapEngineMaker)

public:
    void drawWithoutOpenGl() override;
    std::unique_ptr<MapEngine> make(const MapEngineSetup& setup, QWidget* parent) override;
};

} // namespace marvo
