// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/player/CameraPlayer.h"

#include "playback/VideoView.h"

#include <algorithm>
#include <utility>

namespace marvo {

namespace {
/// A player stands ready so long before its film begins; opening one takes some 0.3 s.
constexpr double preparationMs = 2500;
/// A film that was to run so long ago joins anew instead of being late.
constexpr double latestStartMs = 80;
/// A seek and its picture take so long.
constexpr double joinDelayMs = 350;
/// The last picture of a film stays for so long, if none follows.
constexpr double longestHoldMs = 1000;
} // namespace

CameraPlayer::CameraPlayer(DetachedWorkers& workers, QObject* parent) : QObject(parent), m_workers(workers) {}

CameraPlayer::~CameraPlayer() = default;

void CameraPlayer::setView(VideoView* view) { m_view = view; }

void CameraPlayer::setFilms(Films films, double speed, FilmSession::Sound sound, Former former)
{
    Aside aside;
    if (former == Former::PutAside && m_current && m_current->state() != FilmSession::State::Broken) {
        m_current->disconnect(this);
        m_current->show(static_cast<std::int64_t>(m_current->filmMs()));
        aside = {std::move(m_films), m_speed, std::move(m_current)};
    }
    std::swap(aside, m_aside);
    m_current.reset();
    m_next.reset();
    m_joinAtMs.reset();
    m_films = std::move(films);
    m_speed = speed;
    m_sound = sound;
    if (aside.session && aside.films == m_films && aside.speed == speed)
        begin(std::move(aside.session));
}

std::unique_ptr<FilmSession> CameraPlayer::open(std::shared_ptr<const VirtualFilm> film, std::int64_t driveMs)
{
    const std::int64_t filmMs = film->toFilmMs(driveMs);
    auto session = std::make_unique<FilmSession>(std::move(film), filmMs, m_speed, m_sound, m_workers);
    session->setVolume(m_volume, m_isMuted);
    listenForFaults(*session);
    return session;
}

void CameraPlayer::listenForFaults(FilmSession& session)
{
    connect(&session, &FilmSession::broke, this,
            [this, opened = &session](const std::optional<FilmFault>& fault) {
                const VirtualFilm& broken = opened->film();
                const auto atMs = static_cast<std::int64_t>(opened->filmMs());
                const VirtualFilm::Clip& clip = broken.clips()[fault ? fault->clip : broken.clipAt(atMs)];
                Q_EMIT broke(clip.path, fault ? fault->errorNumber : 0);
            });
}

void CameraPlayer::begin(std::unique_ptr<FilmSession> session)
{
    m_current = std::move(session);
    m_current->disconnect(this);
    listenForFaults(*m_current);
    connect(m_current.get(), &FilmSession::pictureCame, this, &CameraPlayer::showPicture);
    connect(m_current.get(), &FilmSession::resting, this, &CameraPlayer::settled);
}

void CameraPlayer::showPicture()
{
    // The shown picture is returned before the next is fetched, so none is ever copied.
    if (m_view)
        m_view->setFrame(m_current->exchange(m_view->takeFrame()));
    else
        m_current->exchange({});
}

void CameraPlayer::clearView()
{
    if (m_view)
        m_view->setFrame({});
}

// At rest

void CameraPlayer::show(std::int64_t driveMs)
{
    m_joinAtMs.reset();
    const auto film = std::ranges::find_if(m_films, [driveMs](const auto& candidate) {
        return candidate->startMs() <= driveMs && driveMs < candidate->endMs();
    });
    if (film == m_films.end()) {
        m_current.reset();
        m_next.reset();
        clearView();
        QMetaObject::invokeMethod(this, &CameraPlayer::settled, Qt::QueuedConnection);
        return;
    }
    const auto isOf = [&](const std::unique_ptr<FilmSession>& session) {
        return session && &session->film() == film->get() && session->state() != FilmSession::State::Broken;
    };
    if (!isOf(m_current) && isOf(m_next))
        begin(std::move(m_next));
    m_next.reset();
    if (isOf(m_current))
        m_current->show((*film)->toFilmMs(driveMs));
    else
        begin(open(*film, driveMs));
}

bool CameraPlayer::isSettled() const { return !m_current || m_current->isShown(); }

void CameraPlayer::confirm()
{
    if (m_current)
        m_current->confirm();
}

// Running

void CameraPlayer::run()
{
    if (m_current)
        m_current->run();
}

void CameraPlayer::setFactor(double factor)
{
    if (m_current)
        m_current->setFactor(factor);
}

void CameraPlayer::setVolume(int percent, bool isMuted)
{
    m_volume = percent;
    m_isMuted = isMuted;
    for (const auto& session : {m_current.get(), m_next.get()}) {
        if (session != nullptr)
            session->setVolume(percent, isMuted);
    }
}

void CameraPlayer::prepareNext(double driveMs)
{
    const std::int64_t afterMs =
        m_current ? m_current->film().startMs() : static_cast<std::int64_t>(driveMs) - 1;
    const auto next =
        std::ranges::find_if(m_films, [&](const auto& film) { return film->startMs() > afterMs; });
    if (next != m_films.end() && static_cast<double>((*next)->startMs()) - driveMs < preparationMs * m_speed)
        m_next = open(*next, (*next)->startMs());
}

void CameraPlayer::tick(double driveMs)
{
    if (m_current)
        m_current->tick();
    if (!m_next)
        prepareNext(driveMs);
    const bool isBusy = m_current && m_current->state() != FilmSession::State::Ended &&
                        m_current->state() != FilmSession::State::Broken;
    if (m_next && !isBusy && m_next->isShown() && driveMs >= static_cast<double>(m_next->film().startMs())) {
        m_joinAtMs = m_next->film().startMs();
        begin(std::move(m_next));
        showPicture();
    } else if (m_current && !isBusy &&
               driveMs > static_cast<double>(m_current->film().endMs()) + longestHoldMs) {
        m_current.reset();
        clearView();
    }
    if (m_joinAtMs && m_current->isShown() && driveMs >= static_cast<double>(*m_joinAtMs)) {
        const double lateMs = driveMs - static_cast<double>(*m_joinAtMs);
        if (lateMs > latestStartMs * m_speed)
            return rejoin(driveMs);
        m_joinAtMs.reset();
        m_current->run();
    }
}

void CameraPlayer::rejoin(double driveMs)
{
    if (!m_current)
        return;
    const VirtualFilm& film = m_current->film();
    const auto atMs = static_cast<std::int64_t>(driveMs + joinDelayMs * m_speed);
    if (atMs >= film.endMs())
        return;
    m_joinAtMs = film.toDriveMs(film.pictureAt(film.toFilmMs(atMs)));
    m_current->show(film.toFilmMs(*m_joinAtMs));
}

bool CameraPlayer::isRunning() const
{
    return m_current && m_current->state() == FilmSession::State::Running;
}

double CameraPlayer::driveMs() const
{
    if (!m_current)
        return 0;
    return static_cast<double>(m_current->film().startMs()) + m_current->filmMs();
}

std::int64_t CameraPlayer::pictureMs() const
{
    return m_current ? m_current->film().toDriveMs(m_current->pictureMs()) : 0;
}

std::optional<std::int64_t> CameraPlayer::pictureAfter(std::int64_t driveMs) const
{
    for (const auto& film : m_films) {
        if (film->startMs() > driveMs)
            return film->toDriveMs(film->pictureAt(0));
        if (driveMs < film->endMs()) {
            if (const auto picture = film->pictureAfter(film->toFilmMs(driveMs)))
                return film->toDriveMs(*picture);
        }
    }
    return {};
}

std::optional<std::int64_t> CameraPlayer::pictureBefore(std::int64_t driveMs) const
{
    for (auto film = m_films.rbegin(); film != m_films.rend(); ++film) {
        if ((*film)->endMs() <= driveMs)
            return (*film)->toDriveMs((*film)->pictureAt((*film)->lengthMs()));
        if ((*film)->startMs() <= driveMs) {
            if (const auto picture = (*film)->pictureBefore((*film)->toFilmMs(driveMs)))
                return (*film)->toDriveMs(*picture);
        }
    }
    return {};
}

} // namespace marvo
