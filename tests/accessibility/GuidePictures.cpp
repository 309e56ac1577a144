// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// guide_pictures CARD FOLDER en|ko NAME...: the user guide's pictures, of the windows as they are, into a
// folder.
#include "accessibility/WindowGallery.h"
#include "map/MapSurface.h"
#include "playback/VlcSession.h"
#include "texts/Localisation.h"
#include "viewer/Appearance.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTextStream>
#include <QWidget>

#include <string>

int main(int argc, char** argv)
{
    using namespace marvo;
    prepareForMaps();
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO"));
    QCoreApplication::setApplicationName(QStringLiteral("marvo-guide"));
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 5) {
        QTextStream(stderr) << "guide_pictures CARD FOLDER en|ko NAME...\n";
        return 2;
    }
    QStandardPaths::setTestModeEnabled(true);
    VlcInstance::setExtraOptions({"--aout=alsa", "--alsa-audio-device=null"});
    const auto language =
        arguments[3] == QLatin1StringView("ko") ? InterfaceLanguage::Korean : InterfaceLanguage::English;
    installLanguage(language);
    applyAppearance(application);
    QStringList missing = arguments.mid(4);
    bool written = true;
    people::showEveryWindow(
        argv[1], language, people::Maps::Drawn, [&](const QString& name, QWidget& window) {
            if (missing.removeAll(name) > 0)
                written &= window.grab()
                               .toImage()
                               .convertToFormat(QImage::Format_RGB888)
                               .save(QDir(arguments[2]).filePath(name + QStringLiteral(".png")), "PNG", 0);
        });
    for (const QString& name : missing)
        QTextStream(stderr) << "there is no window \"" << name << "\"\n";
    return written && missing.isEmpty() ? 0 : 1;
}
