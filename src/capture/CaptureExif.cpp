// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/CaptureExif.h"

#include "capture/CaptureFacts.h"

#include <libexif/exif-data.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>

namespace marvo {

namespace {

constexpr ExifByteOrder byteOrder = EXIF_BYTE_ORDER_INTEL;

struct Deleter
{
    void operator()(ExifData* data) const { exif_data_unref(data); }
};

/// Adds entries to the directories of one EXIF block.
class Entries
{
public:
    Entries() : m_data(exif_data_new())
    {
        if (!m_data)
            return;
        exif_data_set_byte_order(m_data.get(), byteOrder);
        exif_data_set_data_type(m_data.get(), EXIF_DATA_TYPE_COMPRESSED);
        exif_data_fix(m_data.get()); // puts in what must be there
    }

    void addText(ExifIfd directory, int tag, const std::string& text)
    {
        if (unsigned char* data = add(directory, tag, EXIF_FORMAT_ASCII, text.size() + 1, text.size() + 1))
            std::memcpy(data, text.c_str(), text.size() + 1);
    }

    void addBytes(ExifIfd directory, int tag, std::span<const unsigned char> bytes)
    {
        if (unsigned char* data = add(directory, tag, EXIF_FORMAT_BYTE, bytes.size(), bytes.size()))
            std::memcpy(data, bytes.data(), bytes.size());
    }

    void addShort(ExifIfd directory, int tag, std::uint16_t value)
    {
        if (unsigned char* data = add(directory, tag, EXIF_FORMAT_SHORT, 1, 2))
            exif_set_short(data, byteOrder, value);
    }

    void addLong(ExifIfd directory, int tag, std::uint32_t value)
    {
        if (unsigned char* data = add(directory, tag, EXIF_FORMAT_LONG, 1, 4))
            exif_set_long(data, byteOrder, value);
    }

    void addRationals(ExifIfd directory, int tag, std::span<const ExifRational> values)
    {
        unsigned char* data = add(directory, tag, EXIF_FORMAT_RATIONAL, values.size(), values.size() * 8);
        for (std::size_t i = 0; data && i < values.size(); ++i)
            exif_set_rational(data + i * 8, byteOrder, values[i]);
    }

    /// "Exif", two zero bytes, and the block; empty without memory.
    std::string bytes() const
    {
        unsigned char* data = nullptr;
        unsigned int size = 0;
        if (m_data)
            exif_data_save_data(m_data.get(), &data, &size);
        std::string result;
        if (data)
            result.assign(reinterpret_cast<const char*>(data), size);
        std::free(data);
        return result;
    }

private:
    /// Where the value of a new entry goes, which takes the place of an older one; null without memory.
    unsigned char* add(ExifIfd directory, int number, ExifFormat format, std::size_t count, std::size_t size)
    {
        const auto tag = static_cast<ExifTag>(number);
        if (!m_data)
            return nullptr;
        ExifContent* content = m_data->ifd[directory];
        if (ExifEntry* old = exif_content_get_entry(content, tag))
            exif_content_remove_entry(content, old);
        ExifMem* memory = exif_mem_new_default();
        ExifEntry* entry = memory ? exif_entry_new_mem(memory) : nullptr;
        unsigned char* data = nullptr;
        if (entry) {
            data = static_cast<unsigned char*>(exif_mem_alloc(memory, static_cast<ExifLong>(size)));
            if (data) {
                entry->tag = tag;
                entry->format = format;
                entry->components = count;
                entry->size = static_cast<unsigned int>(size);
                entry->data = data;
                exif_content_add_entry(content, entry);
            }
            exif_entry_unref(entry);
        }
        if (memory)
            exif_mem_unref(memory);
        return data;
    }

    std::unique_ptr<ExifData, Deleter> m_data;
};

template <typename... Values>
std::string format(const char* pattern, Values... values)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), pattern, values...);
    return text.data();
}

ExifRational hundredths(double value) { return {static_cast<ExifLong>(std::lround(value * 100)), 100}; }

/// Degrees, minutes and seconds; a ten thousandth of a second is 3 mm.
std::array<ExifRational, 3> angle(double degrees)
{
    constexpr std::int64_t perSecond = 10'000;
    const std::int64_t total = std::llround(std::abs(degrees) * 3600 * perSecond);
    const std::int64_t seconds = total / perSecond;
    return {ExifRational{static_cast<ExifLong>(seconds / 3600), 1},
            ExifRational{static_cast<ExifLong>(seconds / 60 % 60), 1},
            ExifRational{static_cast<ExifLong>(total % (60 * perSecond)), perSecond}};
}

std::string exifOf(const CaptureFacts& facts, int width, int height)
{
    Entries entries;
    entries.addText(EXIF_IFD_0, EXIF_TAG_SOFTWARE, "MARVO " MARVO_VERSION);
    if (!facts.recording.empty())
        entries.addText(EXIF_IFD_0, EXIF_TAG_IMAGE_DESCRIPTION, facts.recording);
    entries.addShort(EXIF_IFD_EXIF, EXIF_TAG_COLOR_SPACE, 1); // sRGB
    entries.addLong(EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION, static_cast<std::uint32_t>(width));
    entries.addLong(EXIF_IFD_EXIF, EXIF_TAG_PIXEL_Y_DIMENSION, static_cast<std::uint32_t>(height));
    if (const auto& t = facts.taken) {
        const std::string time = format("%04u:%02u:%02u %02u:%02u:%02u", t->wYear, t->wMonth, t->wDay,
                                        t->wHour, t->wMinute, t->wSecond);
        entries.addText(EXIF_IFD_0, EXIF_TAG_DATE_TIME, time);
        entries.addText(EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL, time);
        entries.addText(EXIF_IFD_EXIF, EXIF_TAG_SUB_SEC_TIME_ORIGINAL, format("%03u", t->wMilliseconds));
    }
    if (facts.utc || facts.place || facts.speed)
        entries.addBytes(EXIF_IFD_GPS, EXIF_TAG_GPS_VERSION_ID, std::array<unsigned char, 4>{2, 3, 0, 0});
    if (const auto& t = facts.utc) {
        entries.addText(EXIF_IFD_GPS, EXIF_TAG_GPS_DATE_STAMP,
                        format("%04u:%02u:%02u", t->wYear, t->wMonth, t->wDay));
        entries.addRationals(
            EXIF_IFD_GPS, EXIF_TAG_GPS_TIME_STAMP,
            std::array<ExifRational, 3>{ExifRational{t->wHour, 1}, {t->wMinute, 1}, {t->wSecond, 1}});
    }
    if (facts.place) {
        entries.addText(EXIF_IFD_GPS, EXIF_TAG_GPS_LATITUDE_REF, facts.place->latitude < 0 ? "S" : "N");
        entries.addRationals(EXIF_IFD_GPS, EXIF_TAG_GPS_LATITUDE, angle(facts.place->latitude));
        entries.addText(EXIF_IFD_GPS, EXIF_TAG_GPS_LONGITUDE_REF, facts.place->longitude < 0 ? "W" : "E");
        entries.addRationals(EXIF_IFD_GPS, EXIF_TAG_GPS_LONGITUDE, angle(facts.place->longitude));
        entries.addText(EXIF_IFD_GPS, EXIF_TAG_GPS_MAP_DATUM, "WGS-84");
    }
    if (facts.speed) {
        entries.addText(EXIF_IFD_GPS, EXIF_TAG_GPS_SPEED_REF,
                        facts.speedUnit == SpeedUnit::Miles ? "M" : "K");
        entries.addRationals(EXIF_IFD_GPS, EXIF_TAG_GPS_SPEED, std::array{hundredths(*facts.speed)});
    }
    return entries.bytes();
}

} // namespace

bool addExif(std::string& jpeg, int width, int height, const CaptureFacts& facts)
{
    const auto byteAt = [&jpeg](std::size_t at) { return static_cast<unsigned char>(jpeg[at]); };
    if (jpeg.size() < 6 || !jpeg.starts_with("\xFF\xD8\xFF"))
        return false;
    const std::string exif = exifOf(facts, width, height);
    const std::size_t length = exif.size() + 2;
    if (exif.empty() || length > 0xFFFF)
        return false;
    // Behind the JFIF header, where readers of either kind of file look for it.
    std::size_t place = 2;
    if (byteAt(3) == 0xE0)
        place = std::min(jpeg.size(), place + 2 + byteAt(4) * 256u + byteAt(5));
    std::string segment = "\xFF\xE1";
    segment += static_cast<char>(length >> 8);
    segment += static_cast<char>(length & 0xFF);
    jpeg.insert(place, segment + exif);
    return true;
}

} // namespace marvo
