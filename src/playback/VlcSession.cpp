// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/VlcSession.h"

#include "platform/SoundOutput.h"

#include <vlc/vlc.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstring>
#include <mutex>
#include <string_view>
#include <utility>
#include <vector>

namespace marvo {

namespace {

/// Decoders work on whole blocks, and add some.
constexpr unsigned largestPadding = 64;

constexpr std::array playerEvents = {
    libvlc_MediaPlayerPlaying,          libvlc_MediaPlayerPaused,      libvlc_MediaPlayerEndReached,
    libvlc_MediaPlayerEncounteredError, libvlc_MediaPlayerTimeChanged, libvlc_MediaPlayerLengthChanged,
    libvlc_MediaPlayerAudioDevice,      libvlc_MediaPlayerBuffering,
};

struct SharedInstance
{
    std::mutex mutex;
    std::weak_ptr<VlcInstance> instance;
    QByteArrayList extraOptions;
};

SharedInstance& sharedInstance()
{
    static SharedInstance shared;
    return shared;
}

bool isSoundOutputChosen()
{
    SharedInstance& shared = sharedInstance();
    const std::scoped_lock lock(shared.mutex);
    return std::any_of(shared.extraOptions.cbegin(), shared.extraOptions.cend(),
                       [](const QByteArray& option) { return option.startsWith("--aout="); });
}

/// The layout to have pictures in, and libVLC's name for it: the decoder's own, which saves turning them into
/// another, or the most usual one.
std::pair<PixelLayout, std::string_view> layoutFor(std::string_view chroma)
{
    using enum PixelLayout;
    constexpr std::array<std::pair<PixelLayout, std::string_view>, 6> layouts = {
        {{I420, "I420"}, {I422, "I422"}, {I444, "I444"}, {J420, "J420"}, {J422, "J422"}, {J444, "J444"}}};
    const auto known = std::ranges::find(layouts, chroma, &decltype(layouts)::value_type::second);
    return known != layouts.end() ? *known : layouts.front();
}

} // namespace

// VlcInstance

std::shared_ptr<VlcInstance> VlcInstance::shared()
{
    SharedInstance& shared = sharedInstance();
    const std::scoped_lock lock(shared.mutex);
    if (auto instance = shared.instance.lock())
        return instance;
    // No window of libVLC's own, no text over the picture, no scripts, and no search for subtitles, which
    // would list the card's folder at every start. Without the prefetch limits libVLC would read 16 MiB
    // ahead after each seek, even when the card is gone.
    QByteArrayList options = {"--no-xlib",
                              "--quiet",
                              "--no-video-title-show",
                              "--no-osd",
                              "--no-sub-autodetect-file",
                              "--no-lua",
                              "--file-caching=150",
                              "--prefetch-buffer-size=1024",
                              "--prefetch-read-size=65536"};
    options += shared.extraOptions;
    std::vector<const char*> arguments;
    for (const QByteArray& option : std::as_const(options))
        arguments.push_back(option.constData());
    libvlc_instance_t* made = libvlc_new(static_cast<int>(arguments.size()), arguments.data());
    if (made == nullptr)
        return nullptr;
    auto instance = std::make_shared<VlcInstance>(made);
    shared.instance = instance;
    return instance;
}

void VlcInstance::setExtraOptions(const QByteArrayList& options)
{
    SharedInstance& shared = sharedInstance();
    const std::scoped_lock lock(shared.mutex);
    shared.extraOptions = options;
}

VlcInstance::VlcInstance(libvlc_instance_t* instance) : m_instance(instance)
{
    // No event tells of a sound output that cannot be opened, only a line of the log does.
    const auto log = [](void* self, int level, const libvlc_log_t*, const char* format, va_list) {
        if (level >= LIBVLC_ERROR && std::strstr(format, "failed to create audio output") != nullptr)
            ++static_cast<VlcInstance*>(self)->m_soundFailures;
    };
    libvlc_log_set(m_instance, log, this);
}

VlcInstance::~VlcInstance()
{
    libvlc_log_unset(m_instance);
    libvlc_release(m_instance);
}

// What libVLC calls, on threads of its own.

struct VlcSession::Callbacks
{
    static VlcSession& session(void* opaque) { return *static_cast<VlcSession*>(opaque); }

    static unsigned setUp(void** opaque, char* chroma, unsigned* width, unsigned* height, unsigned* pitches,
                          unsigned* lines)
    {
        VlcSession& self = session(*opaque);
        if (*width > FrameExchange::largestWidth || *height > FrameExchange::largestHeight)
            return 0; // of the picture itself, whatever the header tells
        // The sizes given are padded to whole blocks; the picture's own are asked for, or it would be
        // stretched. Of a film that changes its size those of the header are no longer its own.
        const auto isPadded = [](unsigned size, unsigned padded) {
            return size > 0 && size <= padded && padded - size < largestPadding;
        };
        unsigned trueWidth = 0;
        unsigned trueHeight = 0;
        if (libvlc_video_get_size(self.m_player.get(), 0, &trueWidth, &trueHeight) == 0 &&
            isPadded(trueWidth, *width) && isPadded(trueHeight, *height)) {
            *width = trueWidth;
            *height = trueHeight;
        }
        const auto [layout, name] = layoutFor(std::string_view(chroma, 4));
        if (!self.m_frames.setFormat({static_cast<int>(*width), static_cast<int>(*height)}, layout,
                                     self.m_matrix))
            return 0;
        name.copy(chroma, 4);
        std::size_t i = 0;
        for (const VideoFrame::Plane& plane : self.m_frames.beginWriting().planes()) {
            pitches[i] = static_cast<unsigned>(plane.pitch);
            lines[i++] = static_cast<unsigned>(plane.lines);
        }
        return 1;
    }

    static void* lock(void* opaque, void** planes)
    {
        VlcSession& self = session(opaque);
        for (const VideoFrame::Plane& plane : self.m_frames.beginWriting().planes())
            *planes++ = plane.pixels;
        return nullptr;
    }

    static void display(void* opaque, void* /*picture*/)
    {
        VlcSession& self = session(opaque);
        const VlcDisplay display{std::chrono::steady_clock::now(),
                                 self.m_tellsPicturesApart ? fingerprint(self.m_frames.beginWriting()) : 0};
        const bool isNews = self.m_frames.publish();
        {
            const std::scoped_lock lock(self.m_displayMutex);
            self.m_lastDisplay = display;
        }
        if (isNews)
            self.m_report({VlcEvent::Kind::Frame, 0});
    }

    /// Of every eighth line's brightness.
    static std::uint64_t fingerprint(const VideoFrame& frame)
    {
        const VideoFrame::Plane& plane = frame.planes().front();
        std::uint64_t sum = 14'695'981'039'346'656'037U; // FNV-1a, eight bytes at a time
        for (int line = 0; line < frame.size().height(); line += 8) {
            const uchar* pixels = plane.pixels + static_cast<std::ptrdiff_t>(line) * plane.pitch;
            for (int x = 0; x + 8 <= frame.size().width(); x += 8) {
                std::uint64_t eight = 0;
                std::memcpy(&eight, pixels + x, sizeof eight);
                sum = (sum ^ eight) * 1'099'511'628'211U;
            }
        }
        return sum;
    }

    static int openBytes(void* opaque, void** data, std::uint64_t* size)
    {
        VlcSession& self = session(opaque);
        *data = opaque;
        *size = self.m_bytes.sizeBytes;
        self.m_readAt = 0;
        return 0;
    }

    static ssize_t readBytes(void* opaque, unsigned char* into, std::size_t size)
    {
        VlcSession& self = session(opaque);
        const std::size_t count =
            self.m_bytes.source->readAt(self.m_readAt, std::as_writable_bytes(std::span(into, size)));
        if (count == 0 && size > 0 && self.m_readAt < self.m_bytes.sizeBytes)
            return -1;
        self.m_readAt += count;
        return static_cast<ssize_t>(count);
    }

    static int seekBytes(void* opaque, std::uint64_t offset)
    {
        session(opaque).m_readAt = offset;
        return 0;
    }

    static void event(const libvlc_event_t* event, void* opaque)
    {
        VlcSession& self = session(opaque);
        switch (event->type) {
        case libvlc_MediaPlayerPlaying:
            return self.m_report({VlcEvent::Kind::Playing, 0});
        case libvlc_MediaPlayerPaused:
            return self.m_report({VlcEvent::Kind::Paused, 0});
        case libvlc_MediaPlayerEndReached:
            return self.m_report({VlcEvent::Kind::EndReached, 0});
        case libvlc_MediaPlayerEncounteredError:
            return self.m_report({VlcEvent::Kind::Error, 0});
        case libvlc_MediaPlayerTimeChanged:
            return self.m_report({VlcEvent::Kind::TimeChanged, event->u.media_player_time_changed.new_time});
        case libvlc_MediaPlayerLengthChanged:
            return self.m_report(
                {VlcEvent::Kind::LengthChanged, event->u.media_player_length_changed.new_length});
        case libvlc_MediaPlayerBuffering:
            if (event->u.media_player_buffering.new_cache >= 100)
                self.m_report({VlcEvent::Kind::Buffered, 0});
            return;
        case libvlc_MediaPlayerAudioDevice:
            return self.m_report({VlcEvent::Kind::AudioDevice, 0});
        default:
            return;
        }
    }
};

// VlcSession

void VlcSession::MediaRelease::operator()(libvlc_media_t* media) const { libvlc_media_release(media); }

void VlcSession::PlayerRelease::operator()(libvlc_media_player_t* player) const
{
    libvlc_media_player_release(player);
}

VlcSession::VlcSession(std::shared_ptr<VlcInstance> instance, ColourMatrix matrix, Report report)
    : m_instance(std::move(instance)), m_matrix(matrix), m_report(std::move(report))
{}

std::unique_ptr<VlcSession> VlcSession::create(std::shared_ptr<VlcInstance> instance,
                                               std::variant<Descriptor, VlcBytes> film,
                                               const QByteArrayList& mediaOptions, ColourMatrix matrix,
                                               Report report)
{
    std::unique_ptr<VlcSession> session(new VlcSession(std::move(instance), matrix, std::move(report)));
    libvlc_instance_t* library = session->m_instance->get();
    if (const VlcBytes* bytes = std::get_if<VlcBytes>(&film)) {
        session->m_bytes = *bytes;
        session->m_media.reset(libvlc_media_new_callbacks(library, &Callbacks::openBytes,
                                                          &Callbacks::readBytes, &Callbacks::seekBytes,
                                                          nullptr, session.get()));
    } else {
        session->m_file = std::get<Descriptor>(std::move(film));
        session->m_media.reset(libvlc_media_new_fd(library, *session->m_file));
    }
    if (!session->m_media)
        return nullptr;
    for (const QByteArray& option : mediaOptions)
        libvlc_media_add_option(session->m_media.get(), option.constData());
    session->m_player.reset(libvlc_media_player_new_from_media(session->m_media.get()));
    if (!session->m_player)
        return nullptr;
    session->m_soundFailuresBefore = session->m_instance->soundFailures();
    if (!isSoundOutputChosen() && !mayHaveSoundOutput())
        libvlc_audio_output_set(session->m_player.get(), "adummy");
    session->attach();
    return session;
}

void VlcSession::attach()
{
    libvlc_video_set_callbacks(m_player.get(), &Callbacks::lock, nullptr, &Callbacks::display, this);
    libvlc_video_set_format_callbacks(m_player.get(), &Callbacks::setUp, nullptr);
    libvlc_event_manager_t* events = libvlc_media_player_event_manager(m_player.get());
    for (const libvlc_event_e type : playerEvents)
        libvlc_event_attach(events, type, &Callbacks::event, this);
}

VlcSession::~VlcSession()
{
    if (!m_player)
        return;
    libvlc_event_manager_t* events = libvlc_media_player_event_manager(m_player.get());
    for (const libvlc_event_e type : playerEvents)
        libvlc_event_detach(events, type, &Callbacks::event, this);
    libvlc_media_player_stop(m_player.get());
}

bool VlcSession::play() { return libvlc_media_player_play(m_player.get()) == 0; }

void VlcSession::setPaused(bool paused) { libvlc_media_player_set_pause(m_player.get(), paused ? 1 : 0); }

bool VlcSession::isPaused() const { return libvlc_media_player_get_state(m_player.get()) == libvlc_Paused; }

void VlcSession::setTimeMs(std::int64_t timeMs) { libvlc_media_player_set_time(m_player.get(), timeMs); }

void VlcSession::setRate(float rate) { libvlc_media_player_set_rate(m_player.get(), rate); }

void VlcSession::setVolume(int percent, bool muted)
{
    libvlc_audio_set_mute(m_player.get(), muted ? 1 : 0);
    libvlc_audio_set_volume(m_player.get(), percent);
}

VlcDisplay VlcSession::lastDisplay() const
{
    const std::scoped_lock lock(m_displayMutex);
    return m_lastDisplay;
}

int VlcSession::audioTrackCount() const
{
    libvlc_media_track_t** tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(m_media.get(), &tracks);
    int audio = 0;
    for (unsigned i = 0; i < count; ++i)
        audio += tracks[i]->i_type == libvlc_track_audio ? 1 : 0;
    if (count > 0)
        libvlc_media_tracks_release(tracks, count);
    return audio;
}

void VlcSession::dropSoundIfFailed()
{
    const int failures = m_instance->soundFailures();
    if (std::exchange(m_soundFailuresBefore, failures) != failures)
        libvlc_audio_set_track(m_player.get(), -1);
}

} // namespace marvo
