// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/PrintRequest.h"

#include "capture/CaptureFile.h"
#include "support/Log.h"

#include <QPrintEngine>
#include <QPrinter>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace marvo {

namespace {

const std::string PictureType = "image/jpeg";
const std::string Title = "marvo_capture.jpg";

/// The property in which the print engine keeps the printer's own options: names and values in turn. Some
/// engines do not have it.
constexpr auto printerOptionsKey = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xFE00);

const char* sidesOf(QPrinter::DuplexMode mode)
{
    switch (mode) {
    case QPrinter::DuplexLongSide:
        return "two-sided-long-edge";
    case QPrinter::DuplexShortSide:
        return "two-sided-short-edge";
    default:
        return "one-sided";
    }
}

} // namespace

PrintRequest printRequestOf(const QPrinter& printInfo)
{
    PrintRequest request;
    request.printer = printInfo.printerName().toStdString();
    if (printInfo.outputFormat() != QPrinter::NativeFormat || request.printer.empty())
        request.destination = PrintRequest::Destination::File;

    PrintSettings& settings = request.settings;
    const QStringList options = printInfo.printEngine()->property(printerOptionsKey).toStringList();
    for (qsizetype i = 0; i + 1 < options.size(); i += 2)
        settings.setValue(options[i].toStdString(), options[i + 1].toStdString());

    const QPageLayout layout = printInfo.pageLayout();
    const bool isLandscape = layout.orientation() == QPageLayout::Landscape;
    settings.setValue("copies", std::to_string(printInfo.copyCount()));
    settings.setValue("media", layout.pageSize().key().toStdString());
    settings.setValue("orientation-requested", isLandscape ? "4" : "3");
    settings.setValue("print-color-mode", printInfo.colorMode() == QPrinter::Color ? "color" : "monochrome");
    settings.setValue("sides", sidesOf(printInfo.duplex()));
    return request;
}

void printPicture(Printing& printing, const PrintRequest& request, const CaptureFile& picture)
{
    PrintSettings settings = request.settings;
    settings.setValue("fit-to-page", "true");
    settings.setValue("print-scaling", "fit"); // the same, as printers of today know it

    if (request.destination != PrintRequest::Destination::Printer) {
        logLine("Either got an error from PMSessionGetDestinationType or the print destination wasn't "
                "kPMDestinationPrinter");
        return;
    }
    const Printing::Found found = printing.printerNamed(request.printer);
    if (!found.printer) {
        logLine("Got an error from PMSessionGetCurrentPrinter (" + std::to_string(found.error) + ")");
        return;
    }
    const std::vector<std::string> types = found.printer->mimeTypes();
    if (types.empty())
        return;
    if (std::ranges::find(types, PictureType) == types.end()) {
        logLine("MIME type " + PictureType + " isn't supported by the printer");
        return;
    }
    const int error = found.printer->printWithFile(picture.descriptor(), Title, PictureType, settings);
    if (error != 0)
        logLine("PMPrinterPrintWithFile returned error " + std::to_string(error));
}

} // namespace marvo
