#include "platform/vmrd/VMRDEnv/StyleFile.h"

#include <gtest/gtest.h>

#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "tests/support/TemporaryFolder.h"

using namespace designspec;

namespace {

class StyleFile : public testing::Test {
protected:
    TemporaryFolder m_folder;
};

} // namespace

TEST_F(StyleFile, AGroupsNameIsSplitAtBothSeparators)
{
    EXPECT_EQ(GroupPath(L"标志"), L"Group[@Name=\"标志\"]");
    EXPECT_EQ(GroupPath(L"道路/平面\\标志"),
              L"Group[@Name=\"道路\"]/Group[@Name=\"平面\"]/Group[@Name=\"标志\"]");
    EXPECT_EQ(GroupPath(L"/标志\\"), L"Group[@Name=\"标志\"]");
    EXPECT_EQ(GroupPath(L""), L"");
}

TEST_F(StyleFile, ANewFileBeginsWithTheWayDownToTheStyles)
{
    const CString path = m_folder.Path(L"a.hds");
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    EXPECT_TRUE(CreateStylesNode(path, L"道路\\平面", L"标志", root, styles));
    EXPECT_TRUE(styles.IsSectionExists());
    EXPECT_TRUE(styles.IsStoring());
    EXPECT_FALSE(m_folder.Has("a.hds"));
    EXPECT_EQ(root.SaveToBytes(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<StyleLibrary>\n"
                                  "  <Group Name=\"道路\">\n"
                                  "    <Group Name=\"平面\">\n"
                                  "      <Styles Name=\"标志\" />\n"
                                  "    </Group>\n"
                                  "  </Group>\n"
                                  "</StyleLibrary>\n");
}

TEST_F(StyleFile, WithoutAGroupTheStylesStandInTheRoot)
{
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    EXPECT_TRUE(CreateStylesNode(m_folder.Path(L"a"), L"", L"标志", root, styles));
    EXPECT_NE(root.SaveToBytes().find("<StyleLibrary>\n  <Styles Name=\"标志\" />"),
              std::string::npos);
}

TEST_F(StyleFile, AnExistingFileIsOpenedAndKept)
{
    const CString path =
        m_folder.Write("a.hds", "<StyleLibrary><!-- c --><Group Name='标志'><Styles Name='别'/>"
                                "<Styles Name='标志' v='1'/></Group></StyleLibrary>");
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    EXPECT_TRUE(CreateStylesNode(path, L"标志", L"标志", root, styles));
    EXPECT_EQ(styles.Attribute(L"v"), L"1");
    EXPECT_EQ(root.SaveToBytes(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<StyleLibrary>\n"
                                  "  <!-- c -->\n"
                                  "  <Group Name=\"标志\">\n"
                                  "    <Styles Name=\"别\" />\n"
                                  "    <Styles Name=\"标志\" v=\"1\" />\n"
                                  "  </Group>\n"
                                  "</StyleLibrary>\n");
}

TEST_F(StyleFile, AFileThatCannotBeReadIsNotBegunAnew)
{
    const CString path = m_folder.Write("a.hds", "<StyleLibrary>\n<Group");
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    EXPECT_FALSE(CreateStylesNode(path, L"标志", L"标志", root, styles));
    EXPECT_FALSE(styles.IsSectionExists());
    const Problems problems = root.TakeProblems();
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].file, path);
    EXPECT_EQ(problems[0].line, 2);
}

TEST_F(StyleFile, AnIdentityIsKnownInWhateverFormItIsWritten)
{
    const GUID id = VMRDPub::StrToGUID(L"01234567-89AB-CDEF-0123-456789ABCDEF");
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    root.EnableCompactMode(true);
    for (CString text :
         {L"01234567-89AB-CDEF-0123-456789ABCDEF", L"{01234567-89ab-cdef-0123-456789abcdef}"}) {
        root.ExchangeText(L"ID", text);
        EXPECT_TRUE(HasID(root, id));
        EXPECT_FALSE(HasID(root, CoCreateGuid()));
    }
    CString malformed = L"01234567";
    root.ExchangeText(L"ID", malformed);
    EXPECT_FALSE(HasID(root, id));
    EXPECT_FALSE(HasID(root.FindSection(L"None"), GUID()));
}

TEST_F(StyleFile, GivesTheStylesOfTheLibraryInTheirOrder)
{
    CXTPPropExchangeXMLNode root(true, kStyleLibraryRoot);
    ASSERT_TRUE(
        root.LoadFromBytes("<StyleLibrary><Group Name='标志'><Styles Name='别'><Style Name='x'/>"
                           "</Styles><Styles Name='标志'><Style Name='乙' "
                           "ID='01234567-89AB-CDEF-0123-456789ABCDEF'/><Style Name='甲'/>"
                           "</Styles></Group></StyleLibrary>",
                           L"a.hds"));
    const auto entries = StyleEntries(root, L"标志");
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].name, L"乙");
    EXPECT_EQ(entries[0].id, VMRDPub::StrToGUID(L"01234567-89AB-CDEF-0123-456789ABCDEF"));
    EXPECT_EQ(entries[1].name, L"甲");
    EXPECT_FALSE(entries[1].id == GUID());
    EXPECT_TRUE(StyleEntries(root, L"无").empty());
}
