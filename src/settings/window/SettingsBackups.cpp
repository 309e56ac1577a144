// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/SettingsBackups.h"

#include "support/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace marvo {

namespace {

// The name sorts by time and is unique to the millisecond.
QString nameFormat() { return QStringLiteral("'config-'yyyyMMdd-HHmmss-zzz'.bin'"); }

/// The bytes of a settings file. A much larger file is rejected without reading it.
std::optional<QByteArray> settingsBytes(const QString& path)
{
    QFile file(path);
    constexpr qint64 sizeLimit = 64 * 1024;
    if (!file.open(QIODevice::ReadOnly) || file.size() > sizeLimit)
        return std::nullopt;
    return file.read(sizeLimit);
}

} // namespace

SettingsBackups::SettingsBackups(QString folder) : m_folder(std::move(folder)) {}

QString SettingsBackups::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/settings-copies");
}

std::optional<QString> SettingsBackups::keep(const std::string& settingFilePath)
{
    const auto bytes = settingsBytes(QFile::decodeName(settingFilePath.c_str()));
    if (!bytes)
        return QStringLiteral("the present settings file cannot be read");
    if (!QDir().mkpath(m_folder))
        return QStringLiteral("cannot make the folder ") + m_folder;

    const auto earlier = copies();
    if (!earlier.empty() && settingsBytes(QFile::decodeName(earlier.front().path.c_str())) == bytes)
        return std::nullopt;
    const QString path = m_folder + QLatin1Char('/') + QDateTime::currentDateTime().toString(nameFormat());
    const std::string_view content(bytes->constData(), static_cast<std::size_t>(bytes->size()));
    if (const std::error_code error = writeFileAtomically(QFile::encodeName(path).toStdString(), content))
        return QString::fromStdString(error.message());
    for (std::size_t i = maximumCount - 1; i < earlier.size(); ++i)
        QFile::remove(QFile::decodeName(earlier[i].path.c_str()));
    return std::nullopt;
}

std::vector<SettingsBackups::Copy> SettingsBackups::copies() const
{
    std::vector<Copy> result;
    const QDir folder(m_folder);
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name | QDir::Reversed)) {
        const QDateTime takenAt = QDateTime::fromString(name, nameFormat());
        if (takenAt.isValid())
            result.push_back({QFile::encodeName(folder.filePath(name)).toStdString(), takenAt});
    }
    return result;
}

} // namespace marvo
