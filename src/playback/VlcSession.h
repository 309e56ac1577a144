// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "playback/FrameExchange.h"
#include "support/ByteSource.h"
#include "support/Descriptor.h"

#include <QByteArrayList>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <variant>

struct libvlc_instance_t;
struct libvlc_media_player_t;
struct libvlc_media_t;

namespace marvo {

/// The libVLC library with its plug-ins. All players share it; the last one unloads it.
class VlcInstance
{
public:
    /// The one instance; null when the library finds no plug-ins. Any thread; takes up to 0.3 s the first
    /// time.
    static std::shared_ptr<VlcInstance> shared();
    /// Options that later instances are made with besides the product's own, such as "--aout=dummy".
    static void setExtraOptions(const QByteArrayList& options);

    explicit VlcInstance(libvlc_instance_t* instance);
    VlcInstance(const VlcInstance&) = delete;
    VlcInstance& operator=(const VlcInstance&) = delete;
    ~VlcInstance();
    libvlc_instance_t* get() const { return m_instance; }
    /// How often a player failed to open the sound output. It tries again with each block of sound.
    int soundFailures() const { return m_soundFailures; }

private:
    libvlc_instance_t* m_instance;
    std::atomic<int> m_soundFailures = 0;
};

/// What happened in a session: plain values, to be passed on to another thread.
struct VlcEvent
{
    enum class Kind {
        Playing,
        Paused,
        EndReached,
        Error,
        TimeChanged,
        LengthChanged,
        AudioDevice,
        Frame,
        Buffered ///< enough has been read after a start or a seek for pictures to come
    };
    Kind kind = Kind::Frame;
    std::int64_t valueMs = 0; ///< of TimeChanged and LengthChanged
    std::chrono::steady_clock::time_point at = std::chrono::steady_clock::now();
};

/// Bytes that libVLC reads as it would a file, on threads of its own, one read at a time. Where fewer come
/// than the size promises it takes the medium for broken.
struct VlcBytes
{
    std::shared_ptr<ByteSource> source;
    std::uint64_t sizeBytes = 0;
};

/// The picture that was shown last.
struct VlcDisplay
{
    std::chrono::steady_clock::time_point at{};
    std::uint64_t fingerprint = 0; ///< differs between pictures that do; 0 where nobody asked
};

/// One start of one file in a libVLC player of its own.
///
/// libVLC waits for its threads when a player ends, and a slow card may delay them. So a session is created
/// and destroyed on a worker; all other calls return quickly.
class VlcSession
{
public:
    /// Called on libVLC's threads, until the destructor has returned. It must return at once and must not
    /// call the session.
    using Report = std::function<void(const VlcEvent&)>;

    /// Of an open file, whatever its name leads to by now, or of bytes. Null when libVLC refuses. Media
    /// options are written as ":demux=avi".
    static std::unique_ptr<VlcSession> create(std::shared_ptr<VlcInstance> instance,
                                              std::variant<Descriptor, VlcBytes> film,
                                              const QByteArrayList& mediaOptions, ColourMatrix matrix,
                                              Report report);
    ~VlcSession();
    VlcSession(const VlcSession&) = delete;
    VlcSession& operator=(const VlcSession&) = delete;

    /// Has lastDisplay() tell pictures apart, which takes a look at each of them. Before play().
    void setTellsPicturesApart() { m_tellsPicturesApart = true; }
    bool play();
    void setPaused(bool paused);
    /// libVLC's own idea of the state: whether it rests in pause.
    bool isPaused() const;
    void setTimeMs(std::int64_t timeMs);
    void setRate(float rate);
    void setVolume(int percent, bool muted);
    int audioTrackCount() const;
    /// Drops the sound if its output could not be opened.
    void dropSoundIfFailed();
    FrameExchange& frames() { return m_frames; }
    /// From any thread. libVLC shows a picture again and again while it rests in pause.
    VlcDisplay lastDisplay() const;

private:
    VlcSession(std::shared_ptr<VlcInstance> instance, ColourMatrix matrix, Report report);
    void attach();

    struct Callbacks;
    struct MediaRelease
    {
        void operator()(libvlc_media_t* media) const;
    };
    struct PlayerRelease
    {
        void operator()(libvlc_media_player_t* player) const;
    };

    std::shared_ptr<VlcInstance> m_instance;
    ColourMatrix m_matrix;
    Report m_report;
    FrameExchange m_frames;
    mutable std::mutex m_displayMutex;
    VlcDisplay m_lastDisplay;
    bool m_tellsPicturesApart = false;
    VlcBytes m_bytes;
    Descriptor m_file;
    std::uint64_t m_readAt = 0; ///< in the bytes
    int m_soundFailuresBefore = 0;
    std::unique_ptr<libvlc_media_t, MediaRelease> m_media;
    std::unique_ptr<libvlc_media_player_t, PlayerRelease> m_player;
};

} // namespace marvo
