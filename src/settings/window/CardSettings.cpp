// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/CardSettings.h"

#include "card/CardLayout.h"
#include "card/disks/Disks.h"
#include "settings/SettingFile.h"
#include "settings/SettingFileWriting.h"
#include "settings/window/ObdPreference.h"
#include "settings/window/SettingsBackups.h"
#include "texts/Localisation.h"

#include <QLoggingCategory>

#include <algorithm>
#include <sys/stat.h>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logSettings, "marvo.settings")

/// The size of a regular file; none for anything else.
std::optional<std::uint64_t> fileSize(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

/// A link on a card may point to a file of the user's, so it is not followed.
bool isLink(const std::string& path)
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

std::optional<TKUSBDiskEntity> named(Disks& disks, const TKUSBDiskEntity& card, CardNaming naming)
{
    if (naming == CardNaming::Keep || card.volumeName() == cardVolumeName())
        return card;
    if (const auto error = disks.renameVolume(card, cardVolumeName()))
        qCWarning(logSettings, "error=%s", qUtf8Printable(*error));
    // Even after a failed rename, the mount point may be another.
    const auto again = findCardDiskEntity(disks.usbDiskEntities());
    return again ? again : card;
}

} // namespace

SelectedCard findUSBVolume(Disks& disks, CardNaming naming, SelectedCard earlier)
{
    const auto entities = disks.usbDiskEntities();
    if (entities.empty()) {
        qCInfo(logSettings, "no removable devices");
        return earlier;
    }
    const auto card = findCardDiskEntity(entities);
    if (!card || fileSize(card->rootFile(settingsFileName)) != fileDataSize)
        return {};
    const auto used = named(disks, *card, naming);
    SelectedCard selected{used, used->rootFile(settingsFileName), holdsObdLog(used->mountedURL()), {}};
    const std::string log = used->rootFile(drivingLogName);
    if (fileSize(log))
        selected.drivingLogPath = log;
    return selected;
}

LoadedSettings loadSettingFile(Disks& disks, CardNaming naming, InterfaceLanguage language,
                               SelectedCard earlier)
{
    LoadedSettings loaded;
    fillDefaultFileDataForLanguage(loaded.record, language);
    loaded.card = findUSBVolume(disks, naming, std::move(earlier));
    if (loaded.card.m_SettingFilePath && fileSize(*loaded.card.m_SettingFilePath))
        loaded.wasRead = bool(readSettingFile(*loaded.card.m_SettingFilePath, loaded.record));
    return loaded;
}

bool isStillThere(const Disks& disks, const SelectedCard& card)
{
    const auto entities = disks.usbDiskEntities();
    return card.selectedUSBDisk &&
           std::any_of(entities.begin(), entities.end(), [&](const TKUSBDiskEntity& entity) {
               return entity.key() == card.selectedUSBDisk->key() &&
                      entity.mountedURL() == card.selectedUSBDisk->mountedURL();
           });
}

std::optional<std::string> saveDestination(const Disks& disks, const SelectedCard& card)
{
    if (card.m_SettingFilePath && fileSize(*card.m_SettingFilePath))
        return card.m_SettingFilePath;
    if (const auto found = findCardDiskEntity(disks.usbDiskEntities()))
        return found->rootFile(settingsFileName);
    return std::nullopt;
}

std::optional<_FILEDATA> readWholeFile(const std::string& path)
{
    _FILEDATA record{};
    if (fileSize(path) != fileDataSize || !readSettingFile(path, record))
        return std::nullopt;
    return record;
}

std::optional<QString> saveToFile(const _FILEDATA& record, const std::string& path, SaveTarget target,
                                  SettingsBackups& backups)
{
    if (target == SaveTarget::FoundCard && isLink(path)) {
        qCWarning(logSettings, "%s is a link", path.c_str());
        return localised("msg.file_open_fail");
    }
    if (fileSize(path)) {
        // A full home folder must not prevent a save to the card.
        if (const auto error = backups.keep(path))
            qCWarning(logSettings, "no copy of the present settings kept: %s", qUtf8Printable(*error));
    }
    if (const auto error = writeSettingFile(record, path))
        return error;
    _FILEDATA readBack{};
    if (!readSettingFile(path, readBack) || readBack != record)
        return QStringLiteral("what was written reads back differently");
    return std::nullopt;
}

} // namespace marvo
