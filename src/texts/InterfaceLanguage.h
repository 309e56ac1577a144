// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace marvo {

/// A language that the interface speaks.
struct LanguageRow
{
    std::string_view
        code;            ///< ISO 639-1, and the ending of its string tables (resources/strings/AREA_CODE.ts)
    const char* ownName; ///< as its speakers write it, UTF-8
    const char* mapPage; ///< of resources/map/page, without ".htm"
};

/// Every interface language. Another one is one more row, its string tables and its map page.
inline constexpr std::array languageRows{
    LanguageRow{"en", "English", "map2_eng"},
    LanguageRow{"ko", "한국어", "map2"},
};

/// One of the interface languages.
class InterfaceLanguage
{
public:
    constexpr InterfaceLanguage() = default; ///< English
    /// None for a code that no row has.
    static constexpr std::optional<InterfaceLanguage> ofCode(std::string_view code)
    {
        for (std::size_t row = 0; row < languageRows.size(); ++row) {
            if (languageRows[row].code == code)
                return InterfaceLanguage(row);
        }
        return std::nullopt;
    }

    constexpr const LanguageRow& row() const { return languageRows[m_row]; }
    constexpr bool operator==(const InterfaceLanguage&) const = default;

    static const InterfaceLanguage English;
    static const InterfaceLanguage Korean;

private:
    constexpr explicit InterfaceLanguage(std::size_t row) : m_row(row) {}

    std::size_t m_row = 0;
};

inline constexpr InterfaceLanguage InterfaceLanguage::English = *ofCode("en");
inline constexpr InterfaceLanguage InterfaceLanguage::Korean = *ofCode("ko");

} // namespace marvo
