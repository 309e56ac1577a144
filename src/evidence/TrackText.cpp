// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "evidence/TrackText.h"

#include "support/JsonWriter.h"
#include "support/PrintableText.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

namespace marvo {

namespace {

constexpr double kmhPerMetreASecond = 3.6;
constexpr int degreeDecimals = 7;

std::string decimal(double value, int decimals)
{
    char text[400];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
    return {text, end};
}

/// XML wants longitudes below 180.
std::string longitudeText(double longitude)
{
    return decimal(longitude >= 180 ? longitude - 360 : longitude, degreeDecimals);
}

std::string latitudeText(double latitude) { return decimal(latitude, degreeDecimals); }

/// What rounds up to the full circle points north.
double northAtFullCircle(double course) { return course < 359.995 ? course : 0; }

std::string xmlText(std::string_view text)
{
    std::string result;
    for (const char c : printableText(text)) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else if (c == '"')
            result += "&quot;";
        else
            result += c;
    }
    return result;
}

/// RFC 4180: in quotes where it must be.
std::string csvText(std::string_view text)
{
    const std::string plain = printableText(text);
    if (plain.find_first_of(",\"") == std::string::npos)
        return plain;
    std::string quoted = "\"";
    for (const char c : plain)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

std::string gpxPoint(const TrackFix& fix)
{
    std::string text = "<trkpt lat=\"" + latitudeText(fix.place->latitude) + "\" lon=\"" +
                       longitudeText(fix.place->longitude) + "\">";
    if (fix.utcMs)
        text += "<time>" + utcText(*fix.utcMs) + "</time>";
    if (fix.satellites)
        text += "<sat>" + std::to_string(*fix.satellites) + "</sat>";
    if (fix.hdop)
        text += "<hdop>" + decimal(*fix.hdop, 2) + "</hdop>";
    if (fix.speedKmh || fix.course) {
        text += "<extensions><gpxtpx:TrackPointExtension>";
        if (fix.speedKmh)
            text += "<gpxtpx:speed>" + decimal(*fix.speedKmh / kmhPerMetreASecond, 3) + "</gpxtpx:speed>";
        if (fix.course)
            text += "<gpxtpx:course>" + decimal(northAtFullCircle(*fix.course), 2) + "</gpxtpx:course>";
        text += "</gpxtpx:TrackPointExtension></extensions>";
    }
    return text + "</trkpt>\n";
}

std::string gpx(const std::vector<TrackSegment>& segments, std::string_view title)
{
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<gpx version=\"1.1\" creator=\"MARVO " MARVO_VERSION
        "\" xmlns=\"http://www.topografix.com/GPX/1/1\"\n"
        "  xmlns:gpxtpx=\"http://www.garmin.com/xmlschemas/TrackPointExtension/v2\"\n"
        "  xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\n"
        "  xsi:schemaLocation=\"http://www.topografix.com/GPX/1/1 http://www.topografix.com/GPX/1/1/gpx.xsd\n"
        "  http://www.garmin.com/xmlschemas/TrackPointExtension/v2\n"
        "  https://www8.garmin.com/xmlschemas/TrackPointExtensionv2.xsd\">\n"
        "<trk><name>" +
        xmlText(title) + "</name>\n";
    for (const TrackSegment& segment : segments) {
        text += "<trkseg>\n";
        for (const TrackFix* const fix : segment)
            text += gpxPoint(*fix);
        text += "</trkseg>\n";
    }
    return text + "</trk>\n</gpx>\n";
}

void writePosition(JsonWriter& json, const TrackFix& fix)
{
    json.rendered("[" + decimal(fix.place->longitude, degreeDecimals) + "," +
                  latitudeText(fix.place->latitude) + "]");
}

void writeTime(JsonWriter& json, const TrackFix& fix)
{
    if (fix.utcMs)
        json.value(utcText(*fix.utcMs));
    else
        json.null();
}

/// Up to its coordinates.
void beginFeature(JsonWriter& json, std::string_view geometry)
{
    json.beginObject();
    json.member("type", "Feature");
    json.key("geometry");
    json.beginObject();
    json.member("type", geometry);
    json.key("coordinates");
}

std::string geoJson(const std::vector<TrackSegment>& segments, std::string_view title)
{
    const std::string name = printableText(title);
    std::vector<const TrackSegment*> lines;
    for (const TrackSegment& segment : segments) {
        if (segment.size() > 1)
            lines.push_back(&segment);
    }
    JsonWriter json;
    json.beginObject();
    json.member("type", "FeatureCollection");
    json.key("features");
    json.beginArray();
    if (!lines.empty()) {
        beginFeature(json, "MultiLineString");
        json.beginArray();
        for (const TrackSegment* const line : lines) {
            json.beginArray();
            for (const TrackFix* const fix : *line)
                writePosition(json, *fix);
            json.endArray();
        }
        json.endArray();
        json.endObject();
        json.key("properties");
        json.beginObject();
        json.member("name", name);
        json.key("times");
        json.beginArray();
        for (const TrackSegment* const line : lines) {
            json.beginArray();
            for (const TrackFix* const fix : *line)
                writeTime(json, *fix);
            json.endArray();
        }
        json.endArray();
        json.endObject();
        json.endObject();
    }
    for (const TrackSegment& segment : segments) {
        if (segment.size() != 1)
            continue;
        beginFeature(json, "Point");
        writePosition(json, *segment[0]);
        json.endObject();
        json.key("properties");
        json.beginObject();
        json.member("name", name);
        json.key("time");
        writeTime(json, *segment[0]);
        json.endObject();
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.take() + "\n";
}

std::string kmlSegment(const TrackSegment& segment)
{
    bool hasTimes = true;
    for (const TrackFix* const fix : segment)
        hasTimes = hasTimes && fix->utcMs.has_value();
    std::string text;
    if (hasTimes) {
        text = "<gx:Track>\n";
        for (const TrackFix* const fix : segment)
            text += "<when>" + utcText(*fix->utcMs) + "</when>\n";
        for (const TrackFix* const fix : segment)
            text += "<gx:coord>" + longitudeText(fix->place->longitude) + " " +
                    latitudeText(fix->place->latitude) + " 0</gx:coord>\n";
        return text + "</gx:Track>\n";
    }
    const char* const kind = segment.size() > 1 ? "LineString" : "Point";
    text = "<" + std::string(kind) + "><coordinates>\n";
    for (const TrackFix* const fix : segment)
        text += longitudeText(fix->place->longitude) + "," + latitudeText(fix->place->latitude) + "\n";
    return text + "</coordinates></" + kind + ">\n";
}

std::string kml(const std::vector<TrackSegment>& segments, std::string_view title)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<kml xmlns=\"http://www.opengis.net/kml/2.2\" "
                       "xmlns:gx=\"http://www.google.com/kml/ext/2.2\">\n<Document><name>" +
                       xmlText(title) + "</name>\n";
    for (std::size_t i = 0; i < segments.size(); ++i)
        text += "<Placemark><name>" + std::to_string(i + 1) + "</name>\n" + kmlSegment(segments[i]) +
                "</Placemark>\n";
    return text + "</Document>\n</kml>\n";
}

std::string csv(const std::vector<RecordingTrack>& tracks)
{
    std::string text =
        "file,reading,camera_timestamp_ms,gps_time_utc,latitude,longitude,speed_over_ground_kmh,"
        "course_degrees,camera_speed,camera_speed_marker,hdop,satellites,x_g,y_g,z_g\r\n";
    for (const RecordingTrack& track : tracks) {
        const std::string name = csvText(track.name);
        for (std::size_t i = 0; i < track.readings.size(); ++i) {
            const TrackReading& reading = track.readings[i];
            const TrackFix none;
            const TrackFix& fix = reading.fix ? track.fixes[*reading.fix] : none;
            const auto optional = [&](const std::optional<double>& value, int decimals) {
                text += ',';
                if (value)
                    text += decimal(*value, decimals);
            };
            text += name + "," + std::to_string(i) + "," + std::to_string(reading.timestampMs) + ",";
            if (fix.utcMs)
                text += utcText(*fix.utcMs);
            optional(fix.place ? std::optional(fix.place->latitude) : std::nullopt, degreeDecimals);
            optional(fix.place ? std::optional(fix.place->longitude) : std::nullopt, degreeDecimals);
            optional(fix.speedKmh, 2);
            optional(fix.course ? std::optional(northAtFullCircle(*fix.course)) : std::nullopt, 2);
            optional(reading.fix ? std::optional(fix.cameraSpeed) : std::nullopt, 2);
            text += ',';
            if (reading.fix)
                text += std::to_string(unsigned{fix.marker});
            optional(fix.hdop, 2);
            text += ',';
            if (fix.satellites)
                text += std::to_string(*fix.satellites);
            for (const float axis : {reading.axes.x, reading.axes.y, reading.axes.z})
                optional(static_cast<double>(axis), 8); // a raw reading is a multiple of 1/256
            text += "\r\n";
        }
    }
    return text;
}

} // namespace

std::string utcText(std::int64_t utcMs)
{
    using namespace std::chrono;
    const sys_time<milliseconds> moment{milliseconds(utcMs)};
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    std::string result = text;
    if (const auto rest = static_cast<int>(time.subseconds().count()); rest != 0) {
        std::snprintf(text, sizeof text, ".%03d", rest);
        result += text;
    }
    return result + "Z";
}

std::optional<TrackFormat> trackFormatNamed(std::string_view name)
{
    constexpr std::array<std::string_view, 4> names{"gpx", "geojson", "kml", "csv"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (name == names[i])
            return static_cast<TrackFormat>(i);
    }
    return std::nullopt;
}

std::string trackText(const std::vector<RecordingTrack>& tracks, TrackFormat format, std::string_view title)
{
    if (format == TrackFormat::Csv)
        return csv(tracks);
    const std::vector<TrackSegment> segments = segmentsOf(tracks);
    if (format == TrackFormat::Gpx)
        return gpx(segments, title);
    return format == TrackFormat::Kml ? kml(segments, title) : geoJson(segments, title);
}

} // namespace marvo
