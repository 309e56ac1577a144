// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/preview/PictureDecoder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPluginLoader>

namespace marvo {
namespace {

Q_LOGGING_CATEGORY(logPreview, "marvo.preview")

/// From the program's own folder: as installed, and as built.
constexpr const char* moduleFolders[] = {MARVO_MODULE_FOLDER, "../../modules", "../../../modules"};
/// Of this version alone: another may mean something else by the interface.
constexpr char moduleName[] = "marvo-codec-" MARVO_VERSION ".so";

const PictureDecoder* loadedDecoder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char* folder : moduleFolders) {
        const QFileInfo module(program.filePath(QLatin1String(folder)), QLatin1String(moduleName));
        if (!module.exists())
            continue;
        QPluginLoader loader(module.canonicalFilePath());
        if (auto* decoder = qobject_cast<PictureDecoder*>(loader.instance()))
            return decoder;
        qCWarning(logPreview) << "no previews:" << module.filePath() << loader.errorString();
        return nullptr;
    }
    qCWarning(logPreview) << "no previews:" << moduleName << "is not installed";
    return nullptr;
}

} // namespace

const PictureDecoder* pictureDecoder()
{
    static const PictureDecoder* const decoder = loadedDecoder();
    return decoder;
}

} // namespace marvo
