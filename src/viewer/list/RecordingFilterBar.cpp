// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/list/RecordingFilterBar.h"

#include "controls/ImageButton.h"
#include "controls/ImageNamed.h"
#include "texts/Localisation.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

namespace marvo {

namespace {

/// "filterEvent" for the kind "event".
QString buttonName(const RecordingKind& kind)
{
    QString name = QString::fromLatin1(kind.name.data(), static_cast<qsizetype>(kind.name.size()));
    name[0] = name[0].toUpper();
    return QStringLiteral("filter") + name;
}

} // namespace

RecordingFilterBar::RecordingFilterBar(QWidget* parent) : QWidget(parent), m_search(new QLineEdit(this))
{
    setObjectName(QStringLiteral("listFilterBar"));
    m_search->setObjectName(QStringLiteral("listSearchField"));
    m_search->setPlaceholderText(localised("folders.search"));
    m_search->setAccessibleName(localised("folders.search"));
    m_search->setToolTip(localised("folders.searchTip"));
    m_search->setClearButtonEnabled(true);
    m_search->addAction(iconNamed(QStringLiteral("icon_search")), QLineEdit::LeadingPosition);
    m_search->setAcceptDrops(false); // a folder dropped here is for the window
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &RecordingFilterBar::searchChanged);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 6, 8, 6);
    row->setSpacing(4);
    row->addWidget(m_search, 1);
    for (std::size_t i = 0; i < recordingKinds.size(); ++i) {
        const RecordingKind& kind = recordingKinds[i];
        const QString title = localised("folders.onlyKind").arg(localised(kind.labelKey));
        auto* button = new ImageButton(QLatin1StringView(kind.icon), title, this);
        button->setObjectName(buttonName(kind));
        button->setProperty("kindFilter", true);
        button->setToolTip(title);
        button->setCheckable(true);
        button->setFixedSize(36, 28);
        connect(button, &ImageButton::toggled, this, [this] { Q_EMIT kindsChanged(kinds()); });
        row->addWidget(button);
        m_kinds[i] = button;
    }
}

unsigned RecordingFilterBar::kinds() const
{
    unsigned kinds = 0;
    for (std::size_t i = 0; i < m_kinds.size(); ++i)
        if (m_kinds[i]->isChecked())
            kinds |= 1U << i;
    return kinds;
}

void RecordingFilterBar::beginSearch(const QString& text)
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    if (text.isEmpty())
        m_search->selectAll();
    else
        m_search->setText(text);
}

void RecordingFilterBar::clear()
{
    m_search->clear();
    for (ImageButton* button : m_kinds)
        button->setChecked(false);
}

bool RecordingFilterBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QWidget::eventFilter(watched, event);
    const auto step = [&](auto go) {
        event->accept(); // before the window's shortcuts have it
        if (event->type() == QEvent::KeyPress)
            go();
        return true;
    };
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
        return step([this] { Q_EMIT rowStepped(-1); });
    case Qt::Key_Down:
        return step([this] { Q_EMIT rowStepped(1); });
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return step([this] { Q_EMIT playRequested(); });
    case Qt::Key_Escape:
        return step([this] {
            m_search->clear();
            Q_EMIT left();
        });
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace marvo
