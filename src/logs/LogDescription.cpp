// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/LogDescription.h"

#include "logs/CellText.h"
#include "logs/LogRecords.h"

#include <algorithm>
#include <array>
#include <utility>

namespace marvo {

namespace {

using Flash = _FLASH_SAVE_VALUE_STRUCT;
using Obd = _OBD_SAVE_VALUE_STRUCT;

constexpr std::int16_t notAvailable = 9999;

void index(CellText& out) { out.number(static_cast<std::int64_t>(out.row()) + 1); }

template <typename Record>
void date(const Record& r, CellText& out)
{
    out.zeroPadded<4>(r.year + 1900U);
    out.put('/');
    out.zeroPadded<2>(r.month);
    out.put('/');
    out.zeroPadded<2>(r.day);
}

template <typename Record>
void timeOfDay(const Record& r, CellText& out)
{
    out.zeroPadded<2>(r.hour);
    out.put(':');
    out.zeroPadded<2>(r.minute);
    out.put(':');
    out.zeroPadded<2>(r.second);
}

void weekday(std::uint8_t yoil, CellText& out)
{
    static constexpr std::string_view days[] = {"SUN", "MON", "TUE", "WED", "THU", "FRI", "SAT"};
    out.put(yoil < std::size(days) ? days[yoil] : "-");
}

template <int wholeDigits>
void degreesAndMinutes(std::uint16_t whole, std::uint16_t decimals, CellText& out)
{
    out.zeroPadded<wholeDigits>(whole);
    out.put('.');
    out.zeroPadded<4>(decimals);
}

/// "%2d.%1d" of a value and its remainder, both cut toward zero: below zero each carries its sign.
void volts(std::int16_t tenths, CellText& out)
{
    const int whole = tenths / 10;
    if (whole >= 0 && whole < 10)
        out.put(' ');
    out.number(whole);
    out.put('.');
    out.number(tenths % 10);
}

void numberFrom(int least, std::int16_t value, CellText& out)
{
    if (value < least)
        out.put('-');
    else
        out.number(value);
}

void onOff(std::int16_t value, CellText& out)
{
    out.put(value < 0 ? std::string_view("-") : value == 0 ? "OFF" : "ON");
}

void tenthsFromZero(std::int32_t value, std::int32_t divisor, CellText& out)
{
    if (value < 0)
        out.put('-');
    else
        out.tenths(value, divisor);
}

template <typename Record>
struct Column
{
    LogColumn heading;
    void (*text)(const Record& record, CellText& out);
};

constexpr auto literal = LogColumn::Title::Literal;

// clang-format off
constexpr std::array flashColumns{
    Column<Flash>{{"setting.flashdata.index", 38}, [](const Flash&, CellText& out) { index(out); }},
    Column<Flash>{{"setting.flashdata.seq", 38}, [](const Flash& r, CellText& out) { out.number(r.seq); }},
    Column<Flash>{{"setting.flashdata.date", 86}, [](const Flash& r, CellText& out) { date(r, out); }},
    Column<Flash>{{"setting.flashdata.time", 72}, [](const Flash& r, CellText& out) { timeOfDay(r, out); }},
    Column<Flash>{{"setting.flashdata.yoil", 70}, [](const Flash& r, CellText& out) { weekday(r.yoil, out); }},
    Column<Flash>{{"setting.flashdata.lat", 64}, [](const Flash& r, CellText& out) { degreesAndMinutes<4>(r.lat, r.latDecimals, out); }},
    Column<Flash>{{"setting.flashdata.lon", 72}, [](const Flash& r, CellText& out) { degreesAndMinutes<5>(r.lon, r.lonDecimals, out); }},
    Column<Flash>{{"setting.flashdata.driving_distance", 60}, [](const Flash& r, CellText& out) { out.tenths(r.driving_distance, 10); }},
    Column<Flash>{{"setting.flashdata.cur_speed", 60}, [](const Flash& r, CellText& out) { out.number(r.cur_speed); }},
    Column<Flash>{{"setting.flashdata.max_speed", 60}, [](const Flash& r, CellText& out) { out.number(r.max_speed); }},
    Column<Flash>{{"setting.flashdata.value", 48}, [](const Flash& r, CellText& out) { out.put(r.value == 1 ? 'A' : 'V'); }},
    Column<Flash>{{"X", 48, literal}, [](const Flash& r, CellText& out) { out.signedHundredthsOf256th(r.X); }},
    Column<Flash>{{"Y", 48, literal}, [](const Flash& r, CellText& out) { out.signedHundredthsOf256th(r.Y); }},
    Column<Flash>{{"Z", 48, literal}, [](const Flash& r, CellText& out) { out.signedHundredthsOf256th(r.Z); }},
    Column<Flash>{{"setting.flashdata.battery", 60}, [](const Flash& r, CellText& out) { volts(r.battery, out); }},
};

constexpr std::array obdColumns{
    Column<Obd>{{"setting.obdata.index", 38}, [](const Obd&, CellText& out) { index(out); }},
    // As "%d": negative from 2^31 on.
    Column<Obd>{{"setting.obdata.seq", 38}, [](const Obd& r, CellText& out) { out.number(static_cast<std::int32_t>(r.seq)); }},
    Column<Obd>{{"setting.obdata.date", 86}, [](const Obd& r, CellText& out) { date(r, out); }},
    Column<Obd>{{"setting.obdata.time", 72}, [](const Obd& r, CellText& out) { timeOfDay(r, out); }},
    Column<Obd>{{"setting.obdata.yoil", 70}, [](const Obd& r, CellText& out) { weekday(r.yoil, out); }},
    Column<Obd>{{"setting.obdata.lat", 64}, [](const Obd& r, CellText& out) { degreesAndMinutes<4>(r.lat, r.latDecimals, out); }},
    Column<Obd>{{"setting.obdata.lon", 72}, [](const Obd& r, CellText& out) { degreesAndMinutes<5>(r.lon, r.lonDecimals, out); }},
    Column<Obd>{{"setting.obdata.cur_speed", 60}, [](const Obd& r, CellText& out) { numberFrom(0, r.cur_speed, out); }},
    Column<Obd>{{"setting.obdata.gps_speed", 60}, [](const Obd& r, CellText& out) { numberFrom(0, r.gps_speed, out); }},
    Column<Obd>{{"setting.obdata.rpm", 60}, [](const Obd& r, CellText& out) { numberFrom(0, r.rpm, out); }},
    Column<Obd>{{"setting.obdata.driving_distance", 68}, [](const Obd& r, CellText& out) { tenthsFromZero(r.driving_distance, 1000, out); }},
    Column<Obd>{{"setting.obdata.battery", 60}, [](const Obd& r, CellText& out) { tenthsFromZero(r.battery, 1000, out); }},
    Column<Obd>{{"setting.obdata.acp", 50}, [](const Obd& r, CellText& out) { numberFrom(0, r.acp, out); }},
    Column<Obd>{{"setting.obdata.fbk", 66}, [](const Obd& r, CellText& out) { onOff(r.fbk, out); }},
    Column<Obd>{{"setting.obdata.rll", 66}, [](const Obd& r, CellText& out) { onOff(r.rll, out); }},
    Column<Obd>{{"setting.obdata.lll", 66}, [](const Obd& r, CellText& out) { onOff(r.lll, out); }},
    Column<Obd>{{"setting.obdata.swa", 66}, [](const Obd& r, CellText& out) {
        if (r.swa == notAvailable)
            out.put('-');
        else
            out.number(r.swa);
    }},
    Column<Obd>{{"setting.obdata.sbt", 70}, [](const Obd& r, CellText& out) { onOff(r.sbt, out); }},
    Column<Obd>{{"setting.obdata.gel", 70}, [](const Obd& r, CellText& out) { numberFrom(1, r.gel, out); }},
    Column<Obd>{{"setting.obdata.gep", 70}, [](const Obd& r, CellText& out) {
        out.put(r.gep >= 1 && r.gep <= 4 ? "PRND"[r.gep - 1] : '-');
    }},
    Column<Obd>{{"setting.obdata.sbk", 70}, [](const Obd& r, CellText& out) {
        onOff(r.sbk > 1 ? std::int16_t{-1} : r.sbk, out);
    }},
    Column<Obd>{{"setting.obdata.tpa", 70}, [](const Obd& r, CellText& out) { numberFrom(0, r.tpa, out); }},
    Column<Obd>{{"setting.obdata.abt", 60}, [](const Obd& r, CellText& out) {
        if (r.abt == notAvailable)
            out.put('-');
        else
            out.tenths(r.abt, 100);
    }},
    Column<Obd>{{"X", 60, literal}, [](const Obd& r, CellText& out) { out.signedHundredthsOf256th(r.X); }},
    Column<Obd>{{"Y", 60, literal}, [](const Obd& r, CellText& out) { out.signedHundredthsOf256th(r.Y); }},
    Column<Obd>{{"Z", 60, literal}, [](const Obd& r, CellText& out) { out.signedHundredthsOf256th(r.Z); }},
};
// clang-format on

/// The description that a table of columns makes. The table is a constant, so that the compiler inlines the
/// cells of a line.
template <typename Record, const auto& table>
struct Described
{
    static constexpr std::size_t count = std::tuple_size_v<std::remove_cvref_t<decltype(table)>>;

    static constexpr std::array<LogColumn, count> headings = [] {
        std::array<LogColumn, count> result{};
        for (std::size_t i = 0; i < count; ++i)
            result[i] = table[i].heading;
        return result;
    }();

    static Record decoded(const std::byte* bytes)
    {
        Record record;
        decodeRecord({bytes, Record::fileSize}, record);
        return record;
    }

    static char* writeCell(const std::byte* bytes, std::uint64_t row, std::size_t column, char* into)
    {
        CellText out(into, row);
        table[column].text(decoded(bytes), out);
        return out.end();
    }

    static char* writeLine(const std::byte* bytes, std::uint64_t row, char* into)
    {
        const Record record = decoded(bytes);
        CellText out(into, row);
        [&]<std::size_t... column>(std::index_sequence<column...>)
        {
            ((table[column].text(record, out), out.put(column + 1 < count ? ',' : '\n')), ...);
        }
        (std::make_index_sequence<count>());
        return out.end();
    }
};

constexpr std::size_t latitudeColumn = 5; // of both logs
constexpr std::size_t longitudeColumn = 6;

char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

} // namespace

const LogDescription& flashDataLog()
{
    using Log = Described<Flash, flashColumns>;
    static constexpr LogDescription description{
        .fileType = "drv",
        .exportName = "marvo_000",
        .recordSize = Flash::fileSize,
        .columns = Log::headings,
        .latitudeColumn = latitudeColumn,
        .longitudeColumn = longitudeColumn,
        .writeCell = Log::writeCell,
        .writeLine = Log::writeLine,
    };
    return description;
}

const LogDescription& obdDriveInfoLog()
{
    using Log = Described<Obd, obdColumns>;
    static constexpr LogDescription description{
        .fileType = "obd",
        .exportName = "marvo_obd",
        .recordSize = Obd::fileSize,
        .columns = Log::headings,
        .latitudeColumn = latitudeColumn,
        .longitudeColumn = longitudeColumn,
        .writeCell = Log::writeCell,
        .writeLine = Log::writeLine,
    };
    return description;
}

const LogDescription* logOfFile(std::string_view path)
{
    for (const LogDescription* log : {&flashDataLog(), &obdDriveInfoLog()}) {
        const std::size_t length = log->fileType.size();
        if (path.size() > length && path[path.size() - length - 1] == '.' &&
            std::ranges::equal(path.substr(path.size() - length), log->fileType, {}, lowerCase))
            return log;
    }
    return nullptr;
}

} // namespace marvo
