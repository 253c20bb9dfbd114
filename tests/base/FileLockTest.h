// The lock of a folder.
#pragma once

#include <thread>

#include <gtest/gtest.h>

#include "base/FileLock.h"
#include "base/Text.h"
#include "tests/support/ProblemList.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;
using namespace std::chrono_literals;

class FileLockTest : public testing::Test {
protected:
    bool Take(FileLock& lock, std::chrono::milliseconds patience = 0ms)
    {
        const auto notice = [&](const std::wstring& holder) { m_notices.push_back(holder); };
        return lock.Take(m_path, patience, notice, m_problems);
    }

    TemporaryFolder m_folder;
    CString m_path = m_folder.Path(L".lock");
    std::filesystem::path m_native = m_folder.Native(".lock");
    ProblemList m_problems;
    std::vector<std::wstring> m_notices;
};
