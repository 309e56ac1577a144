// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

namespace marvo {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

/// Key to translation, of all files of a language; a key that stands twice is a failure.
std::map<std::string, std::string> tableOf(const std::string& language)
{
    static const std::regex message(
        R"re(<message id="([^"]*)">[\s\S]*?<translation[^>]*>([\s\S]*?)</translation>)re");
    std::map<std::string, std::string> table;
    for (const auto& entry : fs::directory_iterator(MARVO_SOURCE_DIR "/resources/strings")) {
        if (!entry.path().filename().string().ends_with("_" + language + ".ts"))
            continue;
        const std::string text = contentOf(entry.path());
        for (std::sregex_iterator found(text.begin(), text.end(), message), end; found != end; ++found)
            EXPECT_TRUE(table.emplace((*found)[1], (*found)[2]).second)
                << (*found)[1] << " twice, also in " << entry.path();
    }
    return table;
}

/// Every string literal of the sources.
std::set<std::string> literals()
{
    std::set<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(MARVO_SOURCE_DIR "/src")) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h")
            continue;
        const std::string text = contentOf(entry.path());
        for (std::size_t at = text.find('"'); at != std::string::npos; at = text.find('"', at)) {
            const std::size_t start = ++at;
            while (at < text.size() && text[at] != '"' && text[at] != '\n')
                at += text[at] == '\\' ? 2 : 1;
            if (at >= text.size())
                break;
            found.insert(text.substr(start, at++ - start));
        }
    }
    return found;
}

std::multiset<std::string> placeholders(const std::string& text)
{
    static const std::regex placeholder("%[0-9]+|%@|%[a-z]");
    std::multiset<std::string> found;
    for (std::sregex_iterator one(text.begin(), text.end(), placeholder), end; one != end; ++one)
        found.insert(one->str());
    return found;
}

// A placeholder that one language lacks leaves a number out of a sentence, and nobody sees it in the other.
TEST(StringTables, haveTheSameKeysAndPlaceholdersInBothLanguages)
{
    const auto english = tableOf("en");
    const auto korean = tableOf("ko");
    ASSERT_GT(english.size(), 100u);
    for (const auto& [key, text] : english) {
        const auto other = korean.find(key);
        if (other == korean.end()) {
            ADD_FAILURE() << key << " is not in the Korean table";
            continue;
        }
        EXPECT_FALSE(text.empty() != other->second.empty()) << key;
        EXPECT_EQ(placeholders(text), placeholders(other->second)) << key;
    }
    for (const auto& [key, text] : korean)
        EXPECT_TRUE(english.contains(key)) << key << " is not in the English table";
}

TEST(StringTables, areUsedAndHaveWhatIsAskedOfThem)
{
    const auto table = tableOf("en");
    const std::set<std::string> known = literals();
    // A key may be put together from the name of an area and that of a command, both of them literals.
    const auto isUsed = [&](const std::string& key) {
        if (known.contains(key))
            return true;
        for (std::size_t dot = key.find('.'); dot != std::string::npos; dot = key.find('.', dot + 1))
            if (known.contains(key.substr(0, dot + 1)) && known.contains(key.substr(dot + 1)))
                return true;
        return false;
    };
    for (const auto& [key, text] : table)
        EXPECT_TRUE(isUsed(key)) << key << " is never asked for";

    for (const auto& entry : fs::recursive_directory_iterator(MARVO_SOURCE_DIR "/src")) {
        if (entry.path().extension() != ".cpp")
            continue;
        static const std::regex asked(R"re((?:localised|englishText)\(\s*"([^"]+)"\s*\))re");
        const std::string source = contentOf(entry.path());
        for (std::sregex_iterator one(source.begin(), source.end(), asked), end; one != end; ++one)
            EXPECT_TRUE(table.contains((*one)[1])) << (*one)[1] << " in " << entry.path();
    }
}

} // namespace

} // namespace marvo
