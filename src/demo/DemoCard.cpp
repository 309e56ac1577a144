// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/DemoCard.h"

#include "card/CardLayout.h"
#include "demo/AviWriter.h"
#include "demo/DemoClock.h"
#include "demo/DriveData.h"
#include "demo/DriveSound.h"
#include "demo/GpsReceiver.h"
#include "demo/OutputFile.h"
#include "demo/Recording.h"
#include "demo/Scene.h"
#include "demo/Text.h"
#include "media/RecordingKinds.h"
#include "settings/FileData.h"
#include "support/AtomicFile.h"
#include "support/FileSource.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <new>
#include <thread>

namespace marvo::demo {

namespace {

namespace fs = std::filesystem;

enum class Channels { Both, Single };

/// One clip of the card: some seconds of the drive.
struct Clip
{
    const RecordingKind& kind;
    int begin;  ///< second of the drive
    int length; ///< seconds
    Channels channels;
    unsigned char marker; ///< KM: decides the trailer of the GPS records
    DataAreaPlace place;
    DataAreaEnd end;
};

constexpr const RecordingKind& always = recordingKinds[0];
constexpr const RecordingKind& motion = recordingKinds[1];
constexpr const RecordingKind& event = recordingKinds[2];
constexpr auto inFront = DataAreaPlace::BeforeMovie;
constexpr auto behind = DataAreaPlace::AfterIndex;
constexpr auto toTheEnd = DataAreaEnd::EndOfFile;
constexpr auto toZero = DataAreaEnd::BudgetZero;

// The drive without a gap, then the parked car. A motion or event name with a channel suffix is too long to
// be listed, so those clips have one file and no suffix. All that a data area can look like occurs.
constexpr Clip clips[] = {
    {always, 0, 40, Channels::Both, '9', behind, toTheEnd},
    {always, 40, 46, Channels::Both, 'K', behind, toZero}, // Geumhwa tunnel
    {event, 86, 24, Channels::Single, '9', inFront, toZero},
    {always, 110, 40, Channels::Both, '9', inFront, toTheEnd}, // Sajik tunnel
    {always, 150, 40, Channels::Both, 'K', inFront, toZero},
    {always, 190, 40, Channels::Both, '9', behind, toZero}, // the traffic light
    {always, 230, 41, Channels::Both, 'K', behind, toTheEnd},
    {motion, 665, 20, Channels::Single, '9', inFront, toZero},
};

constexpr std::string_view demoSoftware = "MARVO demo card";
constexpr int soundRateHz = 16'000;

/// A file to be written: a clip's channel.
struct Film
{
    const Clip* clip;
    Look look;
    std::string name; ///< relative to the card
};

std::vector<Film> films()
{
    std::vector<Film> out;
    for (const Clip& clip : clips) {
        const CalendarTime t = localTime(clip.begin);
        const std::string base =
            std::string(clip.kind.folder) + "/" + std::string(clip.kind.prefix) +
            printed("%04d%02d%02d_%02d%02d%02d", t.year, t.month, t.day, t.hour, t.minute, t.second);
        if (clip.channels == Channels::Single) {
            out.push_back({&clip, Look::Ahead, base + ".avi"});
            continue;
        }
        out.push_back({&clip, Look::Ahead, base + "_F.avi"});
        out.push_back({&clip, Look::Back, base + "_R.avi"});
    }
    return out;
}

/// What the camera burns into the picture: its clock, and what it knows from the fix of that second.
std::string stampAt(const GpsReceiver& receiver, int second)
{
    const CalendarTime t = localTime(second);
    const Fix fix = receiver.fixAt(second);
    const std::string time =
        printed("%04d/%02d/%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute, t.second);
    if (!fix.valid)
        return time + "  ---km/h";
    return time + printed("  %3dkm/h  N%.5f E%.5f", static_cast<int>(fix.speedKmh), fix.position.latitude,
                          fix.position.longitude);
}

struct SmallFile
{
    std::string name; ///< relative to the card
    std::string bytes;
};

/// The log comes last: when it is there the others are as well.
std::vector<SmallFile> smallFiles(const Drive& drive)
{
    _FILEDATA settings{};
    fillDefaultFileDataForLanguage(settings, InterfaceLanguage::English);
    sealFileData(settings);
    const FileDataBytes record = encodeFileData(settings);
    const CalendarTime t = localTime(0);
    const Bytes log = drivingLog(drive);
    return {
        {settingsFileName, {reinterpret_cast<const char*>(record.data()), record.size()}},
        {clockFileName,
         printed("%04d/%02d/%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute, t.second)},
        {drivingLogName, {log.begin(), log.end()}},
    };
}

/// The bytes of a small file; empty text for one that is there but cannot be read or is no small file, none
/// where there is nothing.
std::optional<std::string> contentsOf(const std::string& path)
{
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    if (!fs::exists(fs::symlink_status(path, ignored)))
        return std::nullopt;
    constexpr std::uintmax_t most = 1 << 20;
    if (!fs::is_regular_file(status) || fs::file_size(path, ignored) > most)
        return std::string();
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

bool isLink(const std::string& path)
{
    std::error_code ignored;
    return fs::is_symlink(path, ignored);
}

/// True for a film that a demo wrote: its software list follows the header at once.
bool isDemoFilm(const std::string& path)
{
    constexpr std::size_t enoughBytes = 1024;
    FileSource file(path);
    std::string beginning(enoughBytes, '\0');
    beginning.resize(file.readAt(0, std::as_writable_bytes(std::span(beginning))));
    const Bytes mark = softwareList(demoSoftware);
    return beginning.find({reinterpret_cast<const char*>(mark.data()), mark.size()}) != std::string::npos;
}

/// A thread more, if the system has one to give; the work gets done without it as well.
template <typename Work>
void addHelper(std::vector<std::jthread>& helpers, Work& work)
{
    try {
        helpers.emplace_back([&work] { work(); });
    } catch (const std::system_error&) {
    }
}

class CardWriter
{
public:
    CardWriter(const std::string& folder, const DemoCardOptions& options, const DemoCardProgress& progress)
        : m_folder(folder.empty() ? "." : folder),
          m_options(options),
          m_progress(progress),
          m_frontWidth(std::clamp(options.frontWidth / 4 * 4, 64, 3840)),
          m_fps(std::clamp(options.framesPerSecond, 1, 60)),
          m_receiver(m_drive),
          m_sound(m_drive, soundRateHz),
          m_front(m_drive, Look::Ahead, m_frontWidth, m_frontWidth * 9 / 16),
          m_rear(m_drive, Look::Back, m_frontWidth / 2, m_frontWidth * 9 / 32)
    {}

    DemoCardResult write(const std::stop_token& stop)
    {
        const std::stop_callback forward(stop, [this] { m_stop.request_stop(); });
        if (auto error = makeFolders())
            return {std::move(error), {}, {}};
        const std::vector<SmallFile> small = smallFiles(m_drive);
        std::vector<Film> all = films();
        for (const Film& film : all)
            refuseLink(film.name);
        for (const SmallFile& file : small)
            refuseLink(file.name);
        if (m_result.error)
            return std::move(m_result);
        std::erase_if(all, [this](const Film& film) {
            std::error_code ignored;
            const bool isForeign = fs::exists(at(film.name), ignored) && !isDemoFilm(at(film.name));
            if (isForeign)
                m_result.kept.push_back(film.name);
            return isForeign;
        });
        writeFilms(all);
        if (!m_result.error && stop.stop_requested())
            m_result.error = "stopped";
        if (m_result.error)
            return std::move(m_result);
        for (const Film& film : all)
            m_result.written.push_back(film.name);

        writeSmallFiles(small);
        return std::move(m_result);
    }

private:
    std::string at(const std::string& name) const { return m_folder + "/" + name; }

    std::optional<std::string> makeFolders() const
    {
        std::vector<std::string> paths{m_folder, at(logFolderName)};
        for (const RecordingKind& kind : recordingKinds)
            paths.push_back(at(kind.folder));
        for (const std::string& path : paths) {
            std::error_code error;
            fs::create_directories(path, error);
            if (error)
                return "cannot make the folder '" + path + "': " + error.message();
            if (path != m_folder && isLink(path))
                return linkError(path);
        }
        return std::nullopt;
    }

    /// A link on a card could lead to a file of the user's.
    static std::string linkError(const std::string& path) { return "'" + path + "' is a link"; }

    void refuseLink(const std::string& name)
    {
        if (isLink(at(name)))
            m_result.error = linkError(at(name));
    }

    void writeFilms(const std::vector<Film>& all)
    {
        for (const Film& film : all)
            m_frames += film.clip->length * m_fps;
        // The long ones first, so that no thread is left with one when the others are done.
        std::vector<const Film*> order;
        for (const Film& film : all)
            order.push_back(&film);
        std::ranges::stable_sort(order, std::greater{}, [](const Film* film) {
            return film->clip->length * (film->look == Look::Ahead ? 2 : 1);
        });

        std::atomic<std::size_t> next{0};
        const auto work = [&] {
            for (std::size_t i = next++; i < order.size() && !m_stop.stop_requested(); i = next++) {
                std::optional<std::string> error;
                try {
                    error = writeFilm(*order[i]);
                } catch (const std::bad_alloc&) {
                    error = "there is not enough memory";
                }
                if (error)
                    fail(*std::move(error));
            }
        };
        const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
        const unsigned wanted = m_options.threads > 0 ? static_cast<unsigned>(m_options.threads) : cores;
        std::vector<std::jthread> helpers;
        for (unsigned i = 1; i < std::min<std::size_t>(wanted, order.size()); ++i)
            addHelper(helpers, work);
        work();
    }

    std::optional<std::string> writeFilm(const Film& film)
    {
        const Clip& clip = *film.clip;
        const Scene& scene = film.look == Look::Ahead ? m_front : m_rear;
        RecordingOptions recording;
        recording.width = film.look == Look::Ahead ? m_frontWidth : m_frontWidth / 2;
        recording.height = recording.width * 9 / 16;
        recording.framesPerSecond = m_fps;
        recording.frameCount = clip.length * m_fps;
        recording.soundRateHz = soundRateHz;
        recording.quality = m_options.quality;
        recording.software = demoSoftware;
        recording.dataChunks =
            dataAreaChunks(driveRecords(m_drive, clip.begin, clip.length, clip.marker), clip.end);
        recording.dataPlace = clip.place;
        std::string stamp;
        recording.paint = [&, this](Canvas& picture, int frame) {
            if (frame % m_fps == 0)
                stamp = stampAt(m_receiver, clip.begin + frame / m_fps);
            scene.draw(picture, clip.begin + static_cast<double>(frame) / m_fps, stamp);
            return true;
        };
        recording.sound = [&, this](std::span<std::int16_t> samples, std::int64_t first) {
            m_sound.fill(samples, std::int64_t{clip.begin} * soundRateHz + first);
        };
        recording.progress = [this](int) { countFrame(); };
        return writeRecording(at(film.name), recording, m_stop.get_token());
    }

    void countFrame()
    {
        if (!m_progress)
            return;
        const std::lock_guard lock(m_mutex);
        m_progress(static_cast<double>(++m_framesDone) / m_frames);
    }

    void fail(std::string error)
    {
        const std::lock_guard lock(m_mutex);
        // What stopped the others comes first; that they were stopped says nothing.
        if (!m_result.error)
            m_result.error = std::move(error);
        m_stop.request_stop();
    }

    /// Settings, clock and log go together: on a card that is somebody's own none of them is written. A card
    /// with a demo's log is ours.
    void writeSmallFiles(const std::vector<SmallFile>& files)
    {
        const std::size_t keptFilms = m_result.kept.size();
        const bool ours = contentsOf(at(drivingLogName)).value_or("").substr(0, 12).ends_with(demoLogMark);
        for (const SmallFile& file : files) {
            const std::optional<std::string> present = contentsOf(at(file.name));
            if (!ours && present && *present != file.bytes)
                m_result.kept.push_back(file.name);
        }
        if (m_result.kept.size() > keptFilms)
            return;
        for (const SmallFile& file : files) {
            if (const std::error_code error = writeFileAtomically(at(file.name), file.bytes)) {
                m_result.error = writeError(at(file.name), error);
                return;
            }
            m_result.written.push_back(file.name);
        }
    }

    std::string m_folder;
    DemoCardOptions m_options;
    const DemoCardProgress& m_progress;
    int m_frontWidth;
    int m_fps;
    Drive m_drive;
    GpsReceiver m_receiver;
    DriveSound m_sound;
    Scene m_front;
    Scene m_rear;
    std::stop_source m_stop;
    std::mutex m_mutex; ///< guards what follows
    DemoCardResult m_result;
    int m_frames = 0;
    int m_framesDone = 0;
};

} // namespace

DemoCardResult writeDemoCard(const std::string& folder, const DemoCardOptions& options,
                             const DemoCardProgress& progress, const std::stop_token& stop)
{
    return CardWriter(folder, options, progress).write(stop);
}

} // namespace marvo::demo
