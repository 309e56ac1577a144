// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "evidence/BagCheck.h"

#include "archive/FileTree.h"
#include "archive/MediumReading.h"
#include "archive/SumsList.h"
#include "archive/WorkControl.h"
#include "evidence/BagManifest.h"
#include "support/System.h"

#include <algorithm>
#include <cerrno>
#include <set>

namespace marvo {

namespace {

constexpr const char* payloadList = "manifest-sha256.txt";
constexpr const char* tagList = "tagmanifest-sha256.txt";
constexpr const char* declaration = "bagit.txt";
constexpr const char* information = "bag-info.txt";
/// Lists of hundreds of thousands of files; a larger one is no list of ours.
constexpr std::int64_t largestList = std::int64_t{64} * 1024 * 1024;

bool isPayload(std::string_view path) { return path.starts_with("data/"); }

/// No list has a sum of the lists of tag files themselves.
bool isTagList(std::string_view path)
{
    return path.starts_with("tagmanifest-") && path.ends_with(".txt") &&
           path.find('/') == std::string_view::npos;
}

class BagCheck
{
public:
    BagCheck(int folder, WorkControl& control, const std::function<void(const BagCheckProgress&)>& onProgress)
        : m_folder(folder), m_control(control), m_onProgress(onProgress)
    {}

    BagCheckResult run(const std::optional<Sha256Sum>& expectedFingerprint)
    {
        const FileTree tree = listTree(m_folder, {}, [this] { return m_control.mayGoOn(); });
        m_result.error = tree.error;
        for (const TreeFile& file : tree.files) {
            m_there.insert(file.path);
            m_progress.totalBytes += file.size;
            m_payloadBytes += isPayload(file.path) ? file.size : 0;
            m_payloadFiles += isPayload(file.path) ? 1 : 0;
        }
        readLists(expectedFingerprint);
        for (const TreeFile& file : tree.files) {
            if (!m_control.mayGoOn())
                break;
            compare(file);
        }
        m_result.isCancelled = m_control.isCancelled();
        for (const TreeOddity& oddity : tree.oddities)
            take(oddity);
        for (const BagManifest* const list : {&m_payload, &m_tags}) {
            for (const auto& [path, sum] : list->files) {
                if (!m_there.contains(path))
                    find(BagFinding::What::Missing, path);
            }
        }
        std::ranges::stable_sort(m_result.findings, {}, &BagFinding::path);
        return std::move(m_result);
    }

private:
    void find(BagFinding::What what, std::string path, std::error_code error = {})
    {
        m_result.findings.push_back({.what = what, .path = std::move(path), .error = error});
    }

    std::string readText(const char* name)
    {
        std::string text;
        if (const std::error_code error = readTextAt(m_folder, name, text, largestList))
            find(BagFinding::What::CannotBeRead, name, error);
        return text;
    }

    BagManifest readList(const char* name, const std::string& text, bool isOfPayload)
    {
        BagManifest list = BagManifest::read(text);
        const std::size_t misplaced =
            std::erase_if(list.files, [&](const auto& file) { return isPayload(file.first) != isOfPayload; });
        if (list.badLines + misplaced > 0)
            find(BagFinding::What::Malformed, name);
        return list;
    }

    void readLists(const std::optional<Sha256Sum>& expectedFingerprint)
    {
        if (!isBagDeclaration(readText(declaration)))
            find(BagFinding::What::Malformed, declaration);
        if (!m_there.contains(payloadList))
            find(BagFinding::What::Missing, payloadList);
        m_payload = readList(payloadList, readText(payloadList), true);
        const std::string tags = readText(tagList);
        m_hasTagList = m_there.contains(tagList);
        if (m_hasTagList) {
            m_tags = readList(tagList, tags, false);
            Sha256 sum;
            sum.add(tags);
            m_result.fingerprint = sum.finish();
        }
        if (expectedFingerprint && m_result.fingerprint != expectedFingerprint)
            find(BagFinding::What::OtherFingerprint, tagList);
        const std::string oxum = payloadOxumOf(readText(information));
        if (!oxum.empty() && oxum != std::to_string(m_payloadBytes) + "." + std::to_string(m_payloadFiles))
            find(BagFinding::What::Malformed, information);
    }

    void compare(const TreeFile& file)
    {
        const BagManifest& list = isPayload(file.path) ? m_payload : m_tags;
        const auto listed = list.files.find(file.path);
        if (listed == list.files.end()) {
            m_progress.bytes += file.size;
            const bool isFree = isTagList(file.path) || (!isPayload(file.path) && !m_hasTagList);
            if (!isFree)
                find(BagFinding::What::Added, file.path);
            return;
        }
        const Descriptor content = openFileWithin(m_folder, file.path);
        if (!content) {
            find(BagFinding::What::CannotBeRead, file.path, systemError());
            return;
        }
        const MediumReading reading = readMedium(*content, [&](std::uint64_t count) {
            m_progress.bytes += count;
            if (m_onProgress)
                m_onProgress(m_progress);
            return m_control.mayGoOn();
        });
        if (reading.cancelled)
            return;
        if (reading.error != 0) {
            find(BagFinding::What::CannotBeRead, file.path, {reading.error, std::generic_category()});
        } else if (!reading.isWhole || reading.sum != listed->second) {
            find(BagFinding::What::Changed, file.path);
        } else {
            ++m_result.asPacked;
            m_result.bytes += reading.bytes;
        }
    }

    void take(const TreeOddity& oddity)
    {
        m_there.insert(oddity.path);
        const bool isNoFile =
            oddity.kind == TreeOddity::Kind::Link || oddity.kind == TreeOddity::Kind::Special;
        if (!isNoFile)
            find(BagFinding::What::CannotBeRead, oddity.path, oddity.error);
        else if (m_payload.files.contains(oddity.path) || m_tags.files.contains(oddity.path))
            find(BagFinding::What::Changed, oddity.path);
        else
            find(BagFinding::What::Added, oddity.path);
    }

    int m_folder;
    WorkControl& m_control;
    const std::function<void(const BagCheckProgress&)>& m_onProgress;
    std::set<std::string, std::less<>> m_there;
    BagManifest m_payload;
    BagManifest m_tags;
    bool m_hasTagList = false;
    std::uint64_t m_payloadBytes = 0;
    std::size_t m_payloadFiles = 0;
    BagCheckProgress m_progress;
    BagCheckResult m_result;
};

} // namespace

BagCheckResult checkBag(const std::string& folder, const std::optional<Sha256Sum>& expectedFingerprint,
                        WorkControl& control, const std::function<void(const BagCheckProgress&)>& onProgress)
{
    BagCheckResult result;
    if (!Sha256::isAvailable()) {
        result.error = std::make_error_code(std::errc::not_supported);
        return result;
    }
    const Descriptor opened = openFolder(folder);
    if (!opened) {
        result.error = systemError();
        return result;
    }
    return BagCheck(*opened, control, onProgress).run(expectedFingerprint);
}

} // namespace marvo
