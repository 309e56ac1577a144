// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MapEngine.h"

#include "viewer/MapSurface.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPluginLoader>

namespace marvo {
namespace {

Q_LOGGING_CATEGORY(logMap, "marvo.map")

/// From the program's own folder: as installed, and as built.
constexpr const char* moduleFolders[] = {"../" MARVO_MODULE_FOLDER, "../../" MARVO_MODULE_FOLDER};
constexpr char moduleName[] = "marvo-webmap.so";

QString modulePath()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char* folder : moduleFolders) {
        const QFileInfo module(program.filePath(QLatin1String(folder)), QLatin1String(moduleName));
        if (module.exists())
            return module.canonicalFilePath();
    }
    return {};
}

MapEngineMaker* loadedMaker()
{
    const QString path = modulePath();
    if (path.isEmpty()) {
        qCWarning(logMap) << "no map:" << moduleName << "is not installed";
        return nullptr;
    }
    QPluginLoader loader(path);
    auto* maker = qobject_cast<MapEngineMaker*>(loader.instance());
    if (maker == nullptr)
        qCWarning(logMap) << "no map:" << loader.errorString();
    else if (!areMapsDrawnByOpenGl())
        maker->drawWithoutOpenGl();
    return maker;
}

QtMessageHandler usualMessages = nullptr;

/// Without OpenGL the web engine starts with warnings for its programmer, which tell the user nothing.
class QuietStart
{
public:
    QuietStart()
    {
        usualMessages = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
                if (type != QtWarningMsg || qstrcmp(context.category, "default") != 0)
                    usualMessages(type, context, message);
            });
    }
    QuietStart(const QuietStart&) = delete;
    QuietStart& operator=(const QuietStart&) = delete;
    ~QuietStart() { qInstallMessageHandler(usualMessages); }
};

} // namespace

std::unique_ptr<MapEngine> makeMapEngine(const MapEngineSetup& setup, QWidget* parent)
{
    const QuietStart quiet;
    static MapEngineMaker* const maker = loadedMaker();
    return maker != nullptr ? maker->make(setup, parent) : nullptr;
}

} // namespace marvo
