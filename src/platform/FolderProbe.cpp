// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/FolderProbe.h"

#include "workers/DetachedWorkers.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <system_error>

namespace marvo {

bool folderAnswers(const std::string& folder, std::chrono::milliseconds atMost)
{
    if (folder.empty())
        return false;
    const auto isThere = std::make_shared<std::atomic<bool>>(false);
    DetachedWorkers workers;
    workers.start([isThere, folder] {
        std::error_code failed;
        *isThere = std::filesystem::is_directory(folder, failed);
    });
    return workers.waitForAll(atMost) && *isThere;
}

} // namespace marvo
