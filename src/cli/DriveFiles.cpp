// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/DriveFiles.h"

#include "media/MediaScan.h"

#include <filesystem>

namespace marvo::cli {

DriveFiles readDriveFiles(const std::string& fileOrFolder, const ReadingRequest& request)
{
    DriveFiles files;
    std::vector<std::string> paths;
    std::error_code ignored;
    if (std::filesystem::is_regular_file(fileOrFolder, ignored)) {
        paths.push_back(absoluteFilePath(fileOrFolder));
    } else {
        const MediaScan scan = scanFolder(fileOrFolder, isDriveRecording);
        files.error = scan.folderError;
        for (const MRVMedia& media : scan.medias)
            paths.push_back(media.path());
    }
    files.readings = readRecordings(paths, request);
    for (std::size_t i = 0; i < paths.size(); ++i)
        files.recordings.push_back({paths[i], nameFacts(paths[i]), files.readings[i].durationMs});
    return files;
}

} // namespace marvo::cli
