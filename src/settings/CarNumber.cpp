// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/CarNumber.h"

namespace marvo {

QString keptCarNumber(QStringView typed)
{
    const auto isKept = [](QChar c) {
        return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
    };
    QString kept;
    for (const QChar c : typed) {
        if (kept.size() == carNumberLength)
            break;
        if (isKept(c))
            kept.append(c);
    }
    return kept;
}

} // namespace marvo
