// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/LongWork.h"
#include "demo/DemoCard.h"
#include "support/PrintableText.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

} // namespace

const Command demoCommand{
    "demo", "write a demo card with recordings of a drive",
    "Usage: marvo-cli demo FOLDER\n\n"
    "Writes the content of a camera's memory card into FOLDER, which is created if missing: recordings of\n"
    "one drive, front and rear, with picture, sound, G-sensor and GPS; the settings config.bin, the clock\n"
    "file timeset.cfg and the driving log DrvInfo/marvo_000.drv. The files are the same every time.\n\n"
    "An earlier demo card in FOLDER is replaced; other files there are left alone.\n\n"
    "Exit code: 0 done, 1 the card could not be written, 2 wrong usage.\n",
    run};

namespace {

std::string sizeText(std::uintmax_t bytes)
{
    char text[64];
    if (bytes < 1'000'000)
        std::snprintf(text, sizeof text, "%10ju B ", bytes);
    else
        std::snprintf(text, sizeof text, "%10.1f MB", static_cast<double>(bytes) / 1e6);
    return text;
}

ExitCode run(const Arguments& arguments)
{
    Arguments folders;
    bool optionsEnded = false;
    for (const std::string_view argument : arguments) {
        if (!optionsEnded && argument == "--")
            optionsEnded = true;
        else if (!optionsEnded && argument.starts_with('-'))
            return wrongUsage(demoCommand, "no option '" + printableText(argument) + "'");
        else
            folders.push_back(argument);
    }
    if (folders.size() != 1 || folders[0].empty())
        return wrongUsage(demoCommand, folders.size() > 1 ? "takes one FOLDER" : "FOLDER is missing");

    const std::string folder(folders[0]);
    const StopOnInterrupt interrupt;
    ProgressLine line("Writing the demo card");
    const demo::DemoCardResult result = demo::writeDemoCard(
        folder, {}, [&](double fraction) { line.show(fraction); }, interrupt.token());
    line.clear();
    if (result.error)
        return failed(demoCommand, printableText(*result.error));

    std::string text;
    std::uintmax_t total = 0;
    for (const std::string& name : result.written) {
        std::error_code error;
        const std::uintmax_t bytes = std::filesystem::file_size(folder + "/" + name, error);
        if (!error)
            total += bytes;
        text.append(sizeText(error ? 0 : bytes)).append("  ").append(name).append("\n");
    }
    for (const std::string& name : result.kept)
        text.append("      kept    ").append(name).append(" (was there already)\n");
    text += sizeText(total) + "  in " + std::to_string(result.written.size()) + " files in " +
            printableText(folder) + "\n";
    return writeOut(text) ? Done : Failed;
}

} // namespace

} // namespace marvo::cli
