// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace marvo {

/// What stands in the recording list's place while there is no row to show: why, and what can be done now.
class ListEmptyState : public QWidget
{
    Q_OBJECT
public:
    /// Which way out is offered: a folder to open (and the recent ones), or an end of the search.
    enum class Offer { OpenFolder, ShowAll };

    struct RecentFolder
    {
        QString name;
        QString path; ///< whole, as a tool tip
    };

    explicit ListEmptyState(QWidget* parent = nullptr);

    void tell(const QString& title, const QString& text, Offer offer);
    /// The folders offered beside the button that opens one; the first few of them.
    void setRecentFolders(const QList<RecentFolder>& folders);
    /// The card that can be opened by one click; an empty name offers none.
    void setCard(const QString& name);
    QString title() const;

Q_SIGNALS:
    void openRequested();
    void cardRequested();
    void showAllRequested();
    /// Index into the folders given.
    void recentRequested(int index);

private:
    void showOffers();

    QLabel* m_title;
    QLabel* m_text;
    QPushButton* m_cardButton;
    QPushButton* m_openButton;
    QPushButton* m_showAllButton;
    QLabel* m_recentTitle;
    QVBoxLayout* m_recents;
    QList<QPushButton*> m_recentButtons;
    Offer m_offer = Offer::OpenFolder;
    bool m_hasCard = false;
};

} // namespace marvo
