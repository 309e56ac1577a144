// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/ListEmptyState.h"

#include "controls/ImageNamed.h"
#include "texts/Localisation.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace marvo {

namespace {

constexpr int mostRecents = 4;
constexpr int widestRecent = 250;

QPushButton* button(const char* name, const char* titleKey, QWidget* parent)
{
    auto* made = new QPushButton(localised(titleKey), parent);
    made->setObjectName(QLatin1StringView(name));
    made->setAutoDefault(false);
    return made;
}

} // namespace

ListEmptyState::ListEmptyState(QWidget* parent)
    : QWidget(parent),
      m_title(new QLabel(this)),
      m_text(new QLabel(this)),
      m_openButton(button("listOpenButton", "viewer.command.openMediaDirectoryDialog", this)),
      m_showAllButton(button("listShowAllButton", "hands.showAll", this)),
      m_recentTitle(new QLabel(localised("hands.recentFolders"), this)),
      m_recents(new QVBoxLayout)
{
    setObjectName(QStringLiteral("listEmptyState"));
    m_title->setObjectName(QStringLiteral("listEmptyTitle"));
    m_text->setObjectName(QStringLiteral("listEmptyText"));
    m_recentTitle->setProperty("caption", true);
    for (QLabel* label : {m_title, m_text, m_recentTitle})
        label->setAlignment(Qt::AlignCenter);
    m_title->setWordWrap(true);
    m_text->setWordWrap(true);
    m_recents->setSpacing(2);
    connect(m_openButton, &QPushButton::clicked, this, &ListEmptyState::openRequested);
    connect(m_showAllButton, &QPushButton::clicked, this, &ListEmptyState::showAllRequested);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 0, 24, 0);
    column->setSpacing(10);
    column->addStretch();
    column->addWidget(m_title);
    column->addWidget(m_text);
    column->addSpacing(8);
    column->addWidget(m_openButton, 0, Qt::AlignHCenter);
    column->addWidget(m_showAllButton, 0, Qt::AlignHCenter);
    column->addSpacing(14);
    column->addWidget(m_recentTitle);
    column->addLayout(m_recents);
    column->addStretch();
}

void ListEmptyState::tell(const QString& title, const QString& text, Offer offer)
{
    m_offer = offer;
    m_title->setText(title);
    m_text->setText(text);
    m_openButton->setVisible(offer == Offer::OpenFolder);
    m_showAllButton->setVisible(offer == Offer::ShowAll);
    showRecents();
}

void ListEmptyState::setRecentFolders(const QList<RecentFolder>& folders)
{
    qDeleteAll(m_recentButtons);
    m_recentButtons.clear();
    for (int i = 0; i < std::min<int>(mostRecents, static_cast<int>(folders.size())); ++i) {
        auto* recent = new QPushButton(iconNamed(QStringLiteral("icon_folder")), {}, this);
        recent->setObjectName(QStringLiteral("recentFolder%1").arg(i));
        recent->setProperty("recentFolder", true);
        recent->setAutoDefault(false);
        QString shown = recent->fontMetrics().elidedText(folders[i].name, Qt::ElideMiddle, widestRecent);
        recent->setText(shown.replace(QLatin1Char('&'), QStringLiteral("&&")));
        recent->setToolTip(folders[i].path);
        recent->setAccessibleName(folders[i].path);
        connect(recent, &QPushButton::clicked, this, [this, i] { Q_EMIT recentRequested(i); });
        m_recents->addWidget(recent, 0, Qt::AlignHCenter);
        m_recentButtons << recent;
    }
    showRecents();
}

void ListEmptyState::showRecents()
{
    const bool shown = m_offer == Offer::OpenFolder && !m_recentButtons.isEmpty();
    m_recentTitle->setVisible(shown);
    for (QPushButton* recent : m_recentButtons)
        recent->setVisible(shown);
}

QString ListEmptyState::title() const { return m_title->text(); }

} // namespace marvo
