// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "map/MapEngine.h"

#include "map/MapSurface.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPluginLoader>

namespace marvo {
namespace {

Q_LOGGING_CATEGORY(logMap, "marvo.map")

/// From the program's own folder: as installed, and as built.
constexpr const char* moduleFolders[] = {MARVO_MODULE_FOLDER, "../../modules"};
/// Of this version alone: another, such as an upgrade puts there while the program runs, may mean something
/// else by the interface.
constexpr char moduleName[] = "marvo-webmap-" MARVO_VERSION ".so";

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
        qCWarning(logMap) << "no map:" << path << loader.errorString();
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
        usualMessages = qInstallMessageHandler(nullptr); // known before another thread may need it
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& message) {
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
    static std::unique_ptr<QuietStart> quiet =
        areMapsDrawnByOpenGl() ? nullptr : std::make_unique<QuietStart>();
    static MapEngineMaker* const maker = loadedMaker();
    std::unique_ptr<MapEngine> engine = maker != nullptr ? maker->make(setup, parent) : nullptr;
    quiet.reset(); // only its first start says so
    return engine;
}

} // namespace marvo
