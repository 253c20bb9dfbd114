// Files in a folder of their own, and what went wrong with them.
#pragma once

#include <gtest/gtest.h>

#include "base/File.h"
#include "base/Text.h"
#include "tests/support/ProblemList.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

class File : public testing::Test {
protected:
    // The one problem that names `path` as told and gives the cause.
    void ExpectProblem(const CString& path, const CString& text)
    {
        ASSERT_EQ(m_problems.Lines().size(), 1U) << ToUtf8(m_problems.Text());
        EXPECT_EQ(m_problems.Lines()[0].severity, Severity::Error);
        EXPECT_EQ(m_problems.Lines()[0].file, ToWide(NativePath(path)));
        EXPECT_EQ(ToUtf8(m_problems.Lines()[0].text), ToUtf8(text));
        m_problems.Clear();
    }
    void ExpectSilence() { EXPECT_EQ(ToUtf8(m_problems.Text()), ""); }

    TemporaryFolder m_folder;
    ProblemList m_problems;
};
