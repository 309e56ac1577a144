// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/list/ReturnStrip.h"

#include "controls/ImageButton.h"
#include "controls/ImageNamed.h"
#include "controls/PlainToolTip.h"
#include "media/MRVMedia.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"
#include "texts/PlayTimeText.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace marvo {

namespace {

constexpr int widestName = 150;

} // namespace

ReturnStrip::ReturnStrip(QWidget* parent)
    : QWidget(parent), m_return(new QPushButton(iconNamed(QStringLiteral("icon_play_bar")), {}, this))
{
    setObjectName(QStringLiteral("returnStrip"));
    setAttribute(Qt::WA_StyledBackground);
    m_return->setObjectName(QStringLiteral("returnButton"));
    m_return->setAutoDefault(false);
    auto* close = new ImageButton(QStringLiteral("icon_close"), localised("folders.returnNot"), this);
    close->setObjectName(QStringLiteral("returnCloseButton"));
    close->setFixedSize(26, 26);
    connect(m_return, &QPushButton::clicked, this, [this] {
        Q_EMIT left();
        Q_EMIT accepted();
    });
    connect(close, &ImageButton::clicked, this, [this] {
        Q_EMIT left();
        hide();
    });

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->setSpacing(2);
    row->addWidget(m_return, 1);
    row->addWidget(close);
    hide();
}

void ReturnStrip::offer(const MRVMedia& media, std::int64_t timeMs)
{
    QString name = media.year() >= 1
                       ? QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d", media.year(), media.month(),
                                           media.day(), media.hour(), media.minute(), media.second())
                       : fontMetrics().elidedText(displayText(media.fileName()), Qt::ElideMiddle, widestName);
    m_return->setText(localised("folders.return")
                          .arg(name.replace(QLatin1Char('&'), QStringLiteral("&&")), playTimeText(timeMs)));
    m_return->setToolTip(plainToolTip(displayText(media.path())));
    show();
}

} // namespace marvo
