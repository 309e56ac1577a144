// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Gives a fuzz target every file of the folders named, and each of them cut at every byte.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    std::size_t files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
            ++files;
            for (std::size_t size = 0; size <= bytes.size(); ++size) {
                // A copy of just that size, so that a look behind its end is seen.
                const std::vector<std::uint8_t> cut(bytes.begin(),
                                                    bytes.begin() + static_cast<std::ptrdiff_t>(size));
                LLVMFuzzerTestOneInput(cut.data(), cut.size());
            }
        }
    }
    std::printf("%zu files\n", files);
    return files == 0 ? 1 : 0;
}
