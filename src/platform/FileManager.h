// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

class QObject;

namespace marvo {

/// Opens the desktop's file manager on the folder of a file (an absolute path as bytes), with the file
/// selected where the file manager can do that. Returns at once; when nothing can show it, failed is called
/// later on the same thread, unless the context is gone by then.
void showInFileManager(const std::string& path, QObject* context, std::function<void()> failed);

} // namespace marvo
