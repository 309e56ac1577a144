// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/folders/FolderMemory.h"

#include "media/MediaName.h"

#include <QByteArray>
#include <QSettings>
#include <QString>

#include <algorithm>

namespace marvo {

namespace {

/// Of a list that claims to be longer no more is looked at.
constexpr int mostEntries = 64;

const QString listKey = QStringLiteral("recentFolders");
const QString pathKey = QStringLiteral("path");
const QString recordingKey = QStringLiteral("recording");
const QString timeKey = QStringLiteral("timeMs");

/// Paths are bytes and need not be UTF-8; in the preferences stands what a text file can hold.
QString written(const std::string& path)
{
    return QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/ "));
}

std::string read(const QSettings& preferences, const QString& key)
{
    const std::string path =
        QByteArray::fromPercentEncoding(preferences.value(key).toString().toLatin1()).toStdString();
    const bool usable = path.starts_with('/') && path.find('\0') == std::string::npos;
    return usable ? path : std::string();
}

} // namespace

FolderMemory::FolderMemory(QSettings& preferences) : m_preferences(preferences) { load(); }

void FolderMemory::load()
{
    const int count = std::min(m_preferences.beginReadArray(listKey), mostEntries);
    for (int i = 0; i < count && m_folders.size() < limit; ++i) {
        m_preferences.setArrayIndex(i);
        Folder folder{read(m_preferences, pathKey), {}};
        const auto isIt = [&folder](const Folder& other) { return other.path == folder.path; };
        if (folder.path.empty() || std::ranges::any_of(m_folders, isIt))
            continue;
        const std::string recording = read(m_preferences, recordingKey);
        bool isNumber = false;
        const qint64 timeMs = m_preferences.value(timeKey).toLongLong(&isNumber);
        if (!recording.empty() && isNumber && timeMs >= 0)
            folder.place = PlaceInRecording{recording, timeMs};
        m_folders.push_back(std::move(folder));
    }
    m_preferences.endArray();
}

void FolderMemory::save()
{
    m_preferences.remove(listKey); // or places of folders that are gone would stay
    m_preferences.beginWriteArray(listKey, static_cast<int>(m_folders.size()));
    for (std::size_t i = 0; i < m_folders.size(); ++i) {
        m_preferences.setArrayIndex(static_cast<int>(i));
        m_preferences.setValue(pathKey, written(m_folders[i].path));
        if (const auto& place = m_folders[i].place) {
            m_preferences.setValue(recordingKey, written(place->recording));
            m_preferences.setValue(timeKey, qint64(place->timeMs));
        }
    }
    m_preferences.endArray();
}

std::optional<PlaceInRecording> FolderMemory::placeIn(const std::string& folder) const
{
    const auto found = std::ranges::find(m_folders, absoluteFilePath(folder), &Folder::path);
    return found == m_folders.end() ? std::nullopt : found->place;
}

void FolderMemory::opened(const std::string& folder)
{
    const std::string path = absoluteFilePath(folder);
    const auto found = std::ranges::find(m_folders, path, &Folder::path);
    if (found != m_folders.end()) {
        std::rotate(m_folders.begin(), found, found + 1);
    } else {
        m_folders.insert(m_folders.begin(), Folder{path, {}});
        m_folders.resize(std::min(m_folders.size(), limit));
    }
    save();
}

void FolderMemory::setPlace(const std::string& folder, const std::optional<PlaceInRecording>& place)
{
    const auto found = std::ranges::find(m_folders, absoluteFilePath(folder), &Folder::path);
    if (found == m_folders.end() || found->place == place)
        return;
    found->place = place;
    save();
}

void FolderMemory::clear()
{
    m_folders.clear();
    save();
}

} // namespace marvo
