// A project with a folder of styles, for tests.
#pragma once

#include <gtest/gtest.h>

#include "base/File.h"
#include "platform/vmrd/VMRDEnv/StyleFolder.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "tests/support/ProblemList.h"
#include "tests/support/TemporaryFolder.h"

namespace designspec {

class FolderOfStyles : public testing::Test {
protected:
    FolderOfStyles() { std::filesystem::create_directory(m_folder.Native("规范")); }

    // A document with a style of each name; `ids` are their identities.
    static CXTPPropExchangeXMLNode Document(const CStringArray& names, std::vector<GUID>& ids)
    {
        CXTPPropExchangeXMLNode root;
        CXTPPropExchange styles;
        CreateStylesNode({}, L"标志", L"标志", root, styles);
        for (CString name : names) {
            ids.push_back(CoCreateGuid());
            CString id = VMRDPub::GUIDToStr(ids.back());
            CXTPPropExchange style = styles.AppendSection(L"Style");
            style.EnableCompactMode(true);
            PX_String(&style, L"Name", name);
            PX_String(&style, L"ID", id);
        }
        return root;
    }
    // Makes a file of the folder that holds a style of each name; returns their identities.
    std::vector<GUID> FileOf(const CString& file, const CStringArray& names)
    {
        std::vector<GUID> ids;
        const CXTPPropExchangeXMLNode root = Document(names, ids);
        EXPECT_TRUE(root.SaveToFile(m_styles.PathOf(file).c_str()));
        return ids;
    }
    // What stands in the folder of the deleted ones, sorted.
    CStringArray AsideFiles() { return FindFiles(m_styles.DeletedPath(), L"", m_problems); }
    CStringArray NamesIn(std::wstring_view file)
    {
        CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
        EXPECT_TRUE(root.LoadFromFile(m_folder.Path(file).c_str()));
        CStringArray names;
        for (const StyleEntry& entry : StyleEntries(root, L"标志"))
            names.push_back(entry.name);
        return names;
    }

    TemporaryFolder m_folder;
    ProblemList m_problems;
    StyleFolder m_styles{m_folder.Path() + L"\\规范", L"标志"};
};

} // namespace designspec
