// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "texts/InterfaceLanguage.h"

#include <QString>

#include <optional>
#include <string>

namespace marvo {

/// What the command line asks for.
struct StartOptions
{
    std::string folder; ///< absolute, as bytes; empty when none was given
    std::string card; ///< a folder that stands for the camera's card, absolute; empty to look for a real one
    std::optional<InterfaceLanguage> language; ///< for this start only
    QString demoReport;   ///< where to save the screenshot of the self-report; empty for an ordinary start
    QString message;      ///< help, version or the fault, to be printed instead of a start
    int messageExit = -1; ///< the exit code after the message; -1 when there is none
};

/// Reads "[options] [FOLDER]". Options of the windowing toolkit ("-platform xcb") must be gone already.
StartOptions readStartOptions(int argc, char** argv);

} // namespace marvo
