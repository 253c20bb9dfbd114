// A folder of its own for each test; it goes with what it holds when the test ends.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "platform/mfc/String.h"
#include "tests/support/Utf8Path.h"

using namespace designspec;

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::random_device random;
        do
            m_path =
                std::filesystem::temp_directory_path() / ("designspec-" + std::to_string(random()));
        while (!std::filesystem::create_directory(m_path));
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // The folder, or something below it, as the operating system and as the module name it.
    const std::filesystem::path& Native() const { return m_path; }
    std::filesystem::path Native(std::string_view below) const { return m_path / Utf8Path(below); }
    CString Path() const { return PathOf(m_path); }
    CString Path(std::wstring_view below) const { return Path().append(L"/").append(below); }

    // Makes a file, with the folders above it; returns its path.
    CString Write(std::string_view below, std::string_view bytes) const
    {
        const std::filesystem::path file = Native(below);
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::binary);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!stream.flush()) throw std::runtime_error("not written: " + file.string());
        return PathOf(file);
    }

    // A file's bytes; a test that reads what is not there fails with the exception.
    std::string Read(std::string_view below) const
    {
        std::ifstream stream(Native(below), std::ios::binary);
        if (!stream) throw std::runtime_error("not there: " + Native(below).string());
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    bool Has(std::string_view below) const
    {
        return std::filesystem::exists(std::filesystem::symlink_status(Native(below)));
    }

    // How many entries stand directly in the folder: shows temporary files left behind.
    int Count() const
    {
        return static_cast<int>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

private:
    static CString PathOf(const std::filesystem::path& native) { return ToWide(Utf8(native)); }

    std::filesystem::path m_path;
};
