// A folder of spreadsheets, written and read.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/File.h"
#include "base/Text.h"
#include "model/Arrangement.h"
#include "model/Differences.h"
#include "sheets/SpreadsheetReading.h"
#include "sheets/WorkbookWriting.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

class SheetTest : public testing::Test {
protected:
    CString PathOf(const std::string& file) const { return m_folder.Path(ToWide(file)); }

    void Write(const std::string& file, const std::vector<const CDesignSpecification*>& of) const
    {
        Problems problems;
        EXPECT_TRUE(WriteWorkbook(PathOf(file), of, {L"2026-11-22", L"designspec 1"}, problems));
        EXPECT_EQ(TextsOf(problems), std::vector<std::string>());
    }

    // The built-in limits with what the file has.
    CDesignSpecification Read(const std::string& file) const
    {
        return ReadBytes(m_folder.Read(file));
    }
    static CDesignSpecification ReadBytes(const std::string& bytes)
    {
        CDesignSpecification specification;
        SpreadsheetReading reading(bytes, L"a");
        reading.ApplyTo(specification);
        EXPECT_EQ(TextsOf(reading.Problems()), std::vector<std::string>());
        return specification;
    }
    // What is wrong with it, each behind the name of the file.
    static std::vector<std::string> Wrong(const std::string& bytes)
    {
        CDesignSpecification specification;
        SpreadsheetReading reading(bytes, L"a");
        reading.ApplyTo(specification);
        return TextsOf(reading.Problems());
    }
    static std::vector<std::string> TextsOf(const Problems& problems)
    {
        std::vector<std::string> texts;
        for (const Problem& problem : problems)
            texts.push_back(ToUtf8(problem.Text()));
        return texts;
    }

    // Expects the same criteria, whatever name and identity.
    static void ExpectSame(const CDesignSpecification& read, const CDesignSpecification& wanted)
    {
        CDesignSpecification same(read);
        same.CopyCriteria(wanted);
        EXPECT_EQ(read == same, true);
        same.SetName(read.Name().c_str());
        for (const Difference& one : Differences(read, same))
            ADD_FAILURE() << ToUtf8(one.path) << ": " << ToUtf8(one.left.value_or(L"-")) << " for "
                          << ToUtf8(one.right.value_or(L"-"));
    }

    TemporaryFolder m_folder;
};
