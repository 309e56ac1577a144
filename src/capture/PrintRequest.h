// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printing.h"

#include <string>

class QPrinter;

namespace marvo {

class CaptureFile;

/// Where a picture is to be printed, and how.
struct PrintRequest
{
    enum class Destination { Printer, File };

    Destination destination = Destination::Printer;
    std::string printer;
    PrintSettings settings;
};

/// What has been chosen in the print dialog; the main thread only.
PrintRequest printRequestOf(const QPrinter& printInfo);

/// Prints a JPEG file, fitted to the page. Errors are lines in the log, except for a printer that does not
/// say which types it takes. Waits for the printer: not for the main thread.
void printPicture(Printing& printing, const PrintRequest& request, const CaptureFile& picture);

} // namespace marvo
