// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/list/ListEmptyState.h"

#include "controls/ImageNamed.h"
#include "controls/PlainToolTip.h"
#include "texts/Localisation.h"

#include <QLabel>
#include <QPushButton>
#include <QStyle>
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

/// Steps to take, below each other, each with its number before it.
QString numbered(const QStringList& steps)
{
    QString rows;
    for (int i = 0; i < steps.size(); ++i)
        rows += QStringLiteral("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>")
                    .arg(QString::number(i + 1), steps[i].toHtmlEscaped());
    return QStringLiteral("<table cellspacing=\"0\" cellpadding=\"3\">%1</table>").arg(rows);
}

} // namespace

ListEmptyState::ListEmptyState(QWidget* parent)
    : QWidget(parent),
      m_title(new QLabel(this)),
      m_text(new QLabel(this)),
      m_cardButton(button("listCardButton", "folders.openCard", this)),
      m_openButton(button("listOpenButton", "viewer.command.openMediaDirectoryDialog", this)),
      m_showAllButton(button("listShowAllButton", "folders.showAll", this)),
      m_recentTitle(new QLabel(localised("folders.recentFolders"), this)),
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
    m_cardButton->setProperty("primary", true);
    connect(m_cardButton, &QPushButton::clicked, this, &ListEmptyState::cardRequested);
    connect(m_openButton, &QPushButton::clicked, this, &ListEmptyState::openRequested);
    connect(m_showAllButton, &QPushButton::clicked, this, &ListEmptyState::showAllRequested);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 0, 20, 0);
    column->setSpacing(10);
    column->addStretch();
    column->addWidget(m_title);
    column->addWidget(m_text);
    column->addSpacing(8);
    column->addWidget(m_cardButton, 0, Qt::AlignHCenter);
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
    const QStringList steps = text.split(QLatin1Char('\n'));
    m_text->setTextFormat(steps.size() > 1 ? Qt::RichText : Qt::PlainText);
    m_text->setText(steps.size() > 1 ? numbered(steps) : text);
    showOffers();
}

void ListEmptyState::setCard(const QString& name)
{
    m_hasCard = !name.isEmpty();
    QString shown = m_cardButton->fontMetrics().elidedText(name, Qt::ElideMiddle, widestRecent / 2);
    m_cardButton->setText(
        localised("folders.openCard").arg(shown.replace(QLatin1Char('&'), QStringLiteral("&&"))));
    showOffers();
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
        recent->setText(QLatin1Char(' ') + shown.replace(QLatin1Char('&'), QStringLiteral("&&")));
        recent->setToolTip(plainToolTip(folders[i].path));
        recent->setAccessibleName(folders[i].path);
        connect(recent, &QPushButton::clicked, this, [this, i] { Q_EMIT recentRequested(i); });
        m_recents->addWidget(recent, 0, Qt::AlignHCenter);
        m_recentButtons << recent;
    }
    showOffers();
}

void ListEmptyState::showOffers()
{
    const bool open = m_offer == Offer::OpenFolder;
    m_cardButton->setVisible(open && m_hasCard);
    m_openButton->setVisible(open);
    m_openButton->setProperty("primary", !m_hasCard);
    m_openButton->style()->unpolish(m_openButton);
    m_openButton->style()->polish(m_openButton);
    m_showAllButton->setVisible(!open);
    const bool shown = open && !m_recentButtons.isEmpty();
    m_recentTitle->setVisible(shown);
    for (QPushButton* recent : m_recentButtons)
        recent->setVisible(shown);
}

QString ListEmptyState::title() const { return m_title->text(); }

} // namespace marvo
