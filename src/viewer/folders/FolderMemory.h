// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QSettings;

namespace marvo {

/// A place in a recording; the path as bytes.
struct PlaceInRecording
{
    std::string recording;
    std::int64_t timeMs = 0;

    bool operator==(const PlaceInRecording&) const = default;
};

/// The folders that were opened last, newest first, each with the place where watching it was left. Kept in
/// the user's preferences; what does not make sense there is passed over.
class FolderMemory
{
public:
    static constexpr std::size_t limit = 8;

    struct Folder
    {
        std::string path; ///< absolute, as bytes
        std::optional<PlaceInRecording> place;
    };

    /// The preferences are not owned and must outlive the memory.
    explicit FolderMemory(QSettings& preferences);

    const std::vector<Folder>& folders() const { return m_folders; }
    std::optional<PlaceInRecording> placeIn(const std::string& folder) const;

    /// Puts a folder first; its place is kept, and the oldest folder beyond the limit goes.
    void opened(const std::string& folder);
    /// Nothing happens for a folder that is not among them.
    void setPlace(const std::string& folder, const std::optional<PlaceInRecording>& place);
    void clear();

private:
    void load();
    void save();

    QSettings& m_preferences;
    std::vector<Folder> m_folders;
};

} // namespace marvo
