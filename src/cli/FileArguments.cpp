// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/FileArguments.h"

#include "support/PrintableText.h"

namespace marvo::cli {

std::optional<FileArguments> FileArguments::parse(const Command& command, const Arguments& arguments)
{
    const auto refused = [&](std::string_view message, std::string_view word = {}) {
        const std::string quoted = word.empty() ? std::string() : " '" + printableText(word) + "'";
        wrongUsage(command, std::string(message) + quoted);
        return std::nullopt;
    };

    FileArguments result;
    std::optional<std::string_view> file;
    bool optionsEnded = false;
    for (const std::string_view word : arguments) {
        const bool isOption = !optionsEnded && word.size() > 1 && word.front() == '-';
        if (isOption && word == "--")
            optionsEnded = true;
        else if (isOption && word == "--json")
            result.format = OutputFormat::Json;
        else if (isOption && word == "--dialect")
            result.sentences = Sentences::Dialect;
        else if (isOption)
            return refused("unknown option", word);
        else if (file)
            return refused("one FILE only, not also", word);
        else
            file = word;
    }
    if (!file)
        return refused("FILE is missing");
    result.file = *file;
    return result;
}

} // namespace marvo::cli
