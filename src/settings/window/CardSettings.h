// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/TKUSBDiskEntity.h"
#include "settings/FileData.h"

#include <QString>

#include <optional>
#include <string>

namespace marvo {

class Disks;
class SettingsBackups;

/// The folder of driving logs on a card.

/// The card whose settings are edited. Both are none when there is no card with a settings file.
struct SelectedCard
{
    std::optional<TKUSBDiskEntity> selectedUSBDisk;
    std::optional<std::string> m_SettingFilePath; ///< of "config.bin" on it
    bool holdsObdLog = false;                     ///< its driving logs are those of an OBD adapter
    std::optional<std::string> drivingLogPath;    ///< of its driving log, when it holds one
};

/// Whether finding a card may rename it.
enum class CardNaming { Keep, RenameToCardName };

/// Finds the card that holds a whole settings file, and names its volume "MARVO" if asked to. With no
/// removable volume at all the card found earlier stays. Asks the system, and renaming takes seconds: not for
/// the main thread.
SelectedCard findUSBVolume(Disks& disks, CardNaming naming, SelectedCard earlier);

/// The card and its settings; the defaults of the language where nothing could be read.
struct LoadedSettings
{
    SelectedCard card;
    _FILEDATA record{};
    bool wasRead = false;
};
LoadedSettings loadSettingFile(Disks& disks, CardNaming naming, InterfaceLanguage language,
                               SelectedCard earlier);

/// True when the card is still mounted where it was found.
bool isStillThere(const Disks& disks, const SelectedCard& card);

/// Where a save goes without asking the user: the selected card's settings file if it is still there, else
/// the settings file of whatever card the lookup finds; none when there is no card.
std::optional<std::string> saveDestination(const Disks& disks, const SelectedCard& card);

/// The record of a settings file, which must have exactly the record's length; none for any other.
std::optional<_FILEDATA> readWholeFile(const std::string& path);

/// Where the target of a save comes from.
enum class SaveTarget {
    FoundCard, ///< the card's own files: a link among them is refused
    Chosen     ///< the user, whose link is written through
};

/// Writes a sealed record over the file, whole or not at all, after a dated copy of the present one has been
/// kept, and reads it back: a difference is a failure. None on success, else what went wrong, for the log.
std::optional<QString> saveToFile(const _FILEDATA& record, const std::string& path, SaveTarget target,
                                  SettingsBackups& backups);

} // namespace marvo
