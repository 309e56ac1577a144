// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "settings/FileDataFields.h"
#include "settings/SettingFile.h"
#include "support/JsonWriter.h"
#include "support/PrintableText.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

} // namespace

const Command settingsCommand{
    "settings", "show, change or reset a camera's settings (config.bin)",
    "Usage: marvo-cli settings FILE [--json]\n"
    "       marvo-cli settings FILE --set NAME=VALUE... [--json]\n"
    "       marvo-cli settings FILE --defaults en|ko|base [--json]\n"
    "\n"
    "Shows the settings record in FILE, a camera's config.bin, or changes it. A file is written whole or\n"
    "not at all. Only the first 272 bytes count; a shorter file is refused.\n"
    "\n"
    "  --json              one object with every field under its name, carNumber as text, and\n"
    "                      computedChecksum, which checksum should be; after a change, the new record\n"
    "  --set NAME=VALUE... changes fields, then seals the record: checksum and carNumberSet are always\n"
    "                      set by the seal. Numbers are decimal and must fit the field (16 or 32 bits,\n"
    "                      negative only for signed ones); carNumber is UTF-8 text of 8 bytes at most\n"
    "  --defaults LANGUAGE writes FILE anew: en or ko, sealed, or base, as a formatted card has it\n"
    "  --                  ends the options; FILE may then begin with a dash\n"
    "\n"
    "Exit code: 0 done; 1 failed, with nothing written, also for an unknown field or a value that the\n"
    "field cannot hold; 2 wrong usage.\n",
    run};

namespace {

enum class Format { Table, Json };
enum class Defaults { English, Korean, Base };

struct Assignment
{
    std::string_view name;
    std::string_view value;
};

struct Request
{
    std::optional<std::string_view> file;
    std::optional<Defaults> defaults;
    std::vector<Assignment> assignments;
    Format format = Format::Table;
};

std::optional<Defaults> defaultsOf(std::string_view name)
{
    if (name == "en")
        return Defaults::English;
    if (name == "ko")
        return Defaults::Korean;
    return name == "base" ? std::optional(Defaults::Base) : std::nullopt;
}

/// Fills the request from the command line; returns what is wrong with it, or nothing.
std::optional<std::string> parse(const Arguments& arguments, Request& request)
{
    enum class Expected { Anything, FirstAssignment, Assignments, Language, FileOnly };
    Expected expected = Expected::Anything;

    for (const std::string_view word : arguments) {
        const bool isOption = expected != Expected::FileOnly && word.starts_with('-') && word != "-";
        const std::size_t equals = word.find('=');
        if (expected == Expected::Language) {
            request.defaults = defaultsOf(word);
            if (!request.defaults)
                return "--defaults takes en, ko or base";
            expected = Expected::Anything;
        } else if (expected == Expected::FirstAssignment && (isOption || equals == std::string_view::npos)) {
            return "--set takes NAME=VALUE";
        } else if (isOption) {
            expected = Expected::Anything;
            if (word == "--")
                expected = Expected::FileOnly;
            else if (word == "--json")
                request.format = Format::Json;
            else if (word == "--set")
                expected = Expected::FirstAssignment;
            else if (word == "--defaults" && !request.defaults)
                expected = Expected::Language;
            else
                return (word == "--defaults" ? "only one " : "no option ") + printableText(word);
        } else if ((expected == Expected::FirstAssignment || expected == Expected::Assignments) &&
                   equals != std::string_view::npos) {
            request.assignments.push_back({word.substr(0, equals), word.substr(equals + 1)});
            expected = Expected::Assignments;
        } else if (!request.file) {
            request.file = word;
        } else {
            return "unexpected word '" + printableText(word) + "'";
        }
    }
    if (expected == Expected::FirstAssignment)
        return "--set takes NAME=VALUE";
    if (expected == Expected::Language)
        return "--defaults takes en, ko or base";
    if (!request.file)
        return "FILE is missing";
    if (request.defaults && !request.assignments.empty())
        return "either --set or --defaults";
    return std::nullopt;
}

/// Changes one field; returns why it cannot, or nothing.
std::optional<std::string> assign(_FILEDATA& record, const Assignment& assignment)
{
    const FileDataField* field = findFileDataField(assignment.name);
    if (field == nullptr)
        return "no field '" + printableText(assignment.name) + "'";
    const std::string refusal = std::string(field->name) + ": ";
    if (field->isText()) {
        if (field->setText(record, assignment.value))
            return std::nullopt;
        return refusal + "UTF-8 text of " + std::to_string(field->size()) + " bytes at most";
    }

    std::int64_t number = 0;
    const char* end = assignment.value.data() + assignment.value.size();
    const auto [rest, error] = std::from_chars(assignment.value.data(), end, number);
    if (error == std::errc::invalid_argument || rest != end)
        return refusal + "'" + printableText(assignment.value) + "' is not a number";
    if (error != std::errc() || !field->setNumber(record, number)) {
        return refusal + "from " + std::to_string(field->lowest()) + " to " +
               std::to_string(field->highest());
    }
    return std::nullopt;
}

std::string asJson(const _FILEDATA& record)
{
    JsonWriter json;
    json.beginObject();
    for (const FileDataField& field : fileDataFields()) {
        if (field.isText())
            json.member(field.name, field.text(record));
        else
            json.member(field.name, field.number(record));
    }
    json.member("computedChecksum", fileDataChecksum(record));
    json.endObject();
    return json.take() + '\n';
}

std::string asTable(const _FILEDATA& record)
{
    std::string table;
    const auto row = [&](std::string_view name, const std::string& value) {
        static constexpr std::size_t nameWidth = 22;
        table.append(name).append(nameWidth - std::min(name.size(), nameWidth - 1), ' ');
        table.append(value).append("\n");
    };
    row("Field", "Value");
    for (const FileDataField& field : fileDataFields())
        row(field.name,
            field.isText() ? printableText(field.text(record)) : std::to_string(field.number(record)));
    row("computedChecksum", std::to_string(fileDataChecksum(record)));
    return table;
}

void fillDefaults(_FILEDATA& record, Defaults defaults)
{
    if (defaults == Defaults::Base)
        return fillDefaultFileData(record);
    fillDefaultFileDataForLanguage(record, defaults == Defaults::Korean ? InterfaceLanguage::Korean
                                                                        : InterfaceLanguage::English);
    sealFileData(record);
}

ExitCode run(const Arguments& arguments)
{
    Request request;
    if (const auto mistake = parse(arguments, request))
        return wrongUsage(settingsCommand, *mistake);
    const std::string path(*request.file);
    const bool changes = request.defaults || !request.assignments.empty();

    _FILEDATA record{};
    if (request.defaults) {
        fillDefaults(record, *request.defaults);
    } else if (const SettingFileRead read = readSettingFile(path, record); !read) {
        return failed(settingsCommand, printableText(path) + ": " + read.error);
    }
    for (const Assignment& assignment : request.assignments) {
        if (const auto refusal = assign(record, assignment))
            return failed(settingsCommand, *refusal);
    }
    if (!request.assignments.empty())
        sealFileData(record);
    if (changes) {
        if (const std::error_code error = saveSettingFile(record, path))
            return failed(settingsCommand, printableText(path) + ": " + error.message());
    }
    if (changes && request.format == Format::Table)
        return Done;
    if (!writeOut(request.format == Format::Json ? asJson(record) : asTable(record)))
        return failed(settingsCommand, "the record could not be written out");
    return Done;
}

} // namespace

} // namespace marvo::cli
