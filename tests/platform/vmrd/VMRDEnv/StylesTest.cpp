#include "platform/vmrd/VMRDEnv/Styles.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/platform/vmrd/VMRDEnv/SignStyles.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceCapture.h"

using namespace designspec;

namespace {

class Styles : public testing::Test {
protected:
    // A file of the named signs, with new identities, which it returns.
    std::vector<GUID> FileOf(const char* file, const CStringArray& names)
    {
        std::vector<GUID> ids;
        m_signs.Clear();
        for (const CString& name : names) {
            ids.push_back(CoCreateGuid());
            m_signs.Add(name, ids.back());
        }
        EXPECT_TRUE(m_signs.Export(m_folder.Path(ToWide(file)).c_str(), {}, nullptr));
        return ids;
    }
    CStringArray NamesIn(const char* file)
    {
        CStringArray names;
        CArray<GUID> ids;
        EXPECT_TRUE(m_signs.StyleNames(m_folder.Path(ToWide(file)).c_str(), names, ids));
        return names;
    }

    TemporaryFolder m_folder;
    TraceCapture m_trace;
    CSigns m_signs;
};

} // namespace

TEST_F(Styles, HaveNoDefaultAtFirst)
{
    m_signs.Add(L"甲", CoCreateGuid());
    EXPECT_EQ(m_signs.GetDefaultItem(), -1);
    EXPECT_EQ(m_signs.DefaultItem(), nullptr);
    EXPECT_TRUE(m_signs.IsKindOf(RUNTIME_CLASS(CStyles)));
}

TEST_F(Styles, TheDefaultIsSetByIdentity)
{
    const GUID first = CoCreateGuid();
    const GUID second = CoCreateGuid();
    m_signs.Add(L"甲", first);
    m_signs.Add(L"乙", second);
    EXPECT_TRUE(m_signs.SetDefaultItem(second));
    EXPECT_EQ(m_signs.GetDefaultItem(), 1);
    EXPECT_EQ(m_signs.DefaultItem(), m_signs.Item(1));
    EXPECT_FALSE(m_signs.SetDefaultItem(CoCreateGuid()));
    EXPECT_EQ(m_signs.GetDefaultItem(), 1);
}

TEST_F(Styles, ADefaultThatIsGoneIsNull)
{
    m_signs.Add(L"甲", CoCreateGuid());
    m_signs.SetDefaultItem(0);
    EXPECT_NE(m_signs.DefaultItem(), nullptr);
    m_signs.Clear();
    EXPECT_EQ(m_signs.GetDefaultItem(), 0);
    EXPECT_EQ(m_signs.DefaultItem(), nullptr);
    m_signs.SetDefaultItem(-7);
    EXPECT_EQ(m_signs.DefaultItem(), nullptr);
}

TEST_F(Styles, RefurbishTellsTheOneListener)
{
    std::vector<CStyles*> told;
    m_signs.Refurbish(); // nobody listens
    CStyles::SetRefurbishListener([&](CStyles& styles) { told.push_back(&styles); });
    CSigns others;
    m_signs.Refurbish();
    others.Refurbish();
    EXPECT_EQ(told, (std::vector<CStyles*>{&m_signs, &others}));
    const auto before = CStyles::SetRefurbishListener({});
    m_signs.Refurbish();
    EXPECT_EQ(told.size(), 2U);
    before(m_signs);
    EXPECT_EQ(told.size(), 3U);
}

TEST_F(Styles, AListenerMayBowOutWhileItIsTold)
{
    int told = 0;
    CStyles::SetRefurbishListener([&](CStyles&) {
        CStyles::SetRefurbishListener({});
        ++told;
    });
    m_signs.Refurbish();
    m_signs.Refurbish();
    EXPECT_EQ(told, 1);
}

TEST_F(Styles, AGroupsNameIsSplitAtBothSeparators)
{
    EXPECT_EQ(CSigns::GroupPath(L"标志"), L"Group[@Name=\"标志\"]");
    EXPECT_EQ(CSigns::GroupPath(L"道路/平面\\标志"),
              L"Group[@Name=\"道路\"]/Group[@Name=\"平面\"]/Group[@Name=\"标志\"]");
    EXPECT_EQ(CSigns::GroupPath(L"/标志\\"), L"Group[@Name=\"标志\"]");
    EXPECT_EQ(CSigns::GroupPath(L""), L"");
}

TEST_F(Styles, ANewFileBeginsWithTheWayDownToTheStyles)
{
    const CString path = m_folder.Path(L"a.hds");
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    EXPECT_TRUE(m_signs.CreateStylesNode(path.c_str(), L"道路\\平面", root, styles));
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

TEST_F(Styles, WithoutAGroupTheStylesStandInTheRoot)
{
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    EXPECT_TRUE(m_signs.CreateStylesNode(m_folder.Path(L"a").c_str(), L"", root, styles));
    EXPECT_NE(root.SaveToBytes().find("<StyleLibrary>\n  <Styles Name=\"标志\" />"),
              std::string::npos);
}

TEST_F(Styles, AnExistingFileIsOpenedAndKept)
{
    const CString path =
        m_folder.Write("a.hds", "<StyleLibrary><!-- c --><Group Name='标志'><Styles Name='别'/>"
                                "<Styles Name='标志' v='1'/></Group></StyleLibrary>");
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    EXPECT_TRUE(m_signs.CreateStylesNode(path.c_str(), L"标志", root, styles));
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

TEST_F(Styles, AFileThatCannotBeReadIsNotBegunAnew)
{
    const CString path = m_folder.Write("a.hds", "<StyleLibrary>\n<Group");
    CXTPPropExchangeXMLNode root;
    CXTPPropExchange styles;
    EXPECT_FALSE(m_signs.CreateStylesNode(path.c_str(), L"标志", root, styles));
    EXPECT_FALSE(styles.IsSectionExists());
    ASSERT_EQ(m_trace.Lines().size(), 1U);
    EXPECT_EQ(m_trace.Lines()[0].file, path);
    EXPECT_EQ(m_trace.Lines()[0].line, 2);
    EXPECT_FALSE(m_signs.Export(path.c_str(), {}, nullptr));
    EXPECT_EQ(m_folder.Read("a.hds"), "<StyleLibrary>\n<Group");
}

TEST_F(Styles, AnIdentityIsKnownInWhateverFormItIsWritten)
{
    const GUID id = VMRDPub::StrToGUID(L"01234567-89AB-CDEF-0123-456789ABCDEF");
    CXTPPropExchangeXMLNode root(false, kStyleLibraryRoot);
    root.EnableCompactMode(true);
    for (CString text :
         {L"01234567-89AB-CDEF-0123-456789ABCDEF", L"{01234567-89ab-cdef-0123-456789abcdef}"}) {
        root.ExchangeText(L"ID", text);
        EXPECT_TRUE(CSigns::HasID(root, id));
        EXPECT_FALSE(CSigns::HasID(root, CoCreateGuid()));
    }
    CString malformed = L"01234567";
    root.ExchangeText(L"ID", malformed);
    EXPECT_FALSE(CSigns::HasID(root, id));
    EXPECT_FALSE(CSigns::HasID(root.FindSection(L"None"), GUID()));
}

TEST_F(Styles, AStyleIsTakenOutOfAFileAndTheOthersStay)
{
    const auto ids = FileOf("a.hds", {L"甲", L"乙", L"丙"});
    EXPECT_TRUE(m_signs.RemoveFromFile(m_folder.Path(L"a.hds").c_str(), ids[1]));
    EXPECT_EQ(NamesIn("a.hds"), (CStringArray{L"甲", L"丙"}));
    EXPECT_EQ(m_trace.Text(), L"");
}

TEST_F(Styles, EveryStyleOfThatIdentityIsTakenOut)
{
    const GUID id = CoCreateGuid();
    for (const wchar_t* name : {L"甲", L"乙", L"丙"})
        m_signs.Add(name, name == CString(L"乙") ? CoCreateGuid() : id);
    const CString path = m_folder.Path(L"a.hds");
    ASSERT_TRUE(m_signs.Export(path.c_str(), {}, nullptr));
    EXPECT_TRUE(m_signs.RemoveFromFile(path.c_str(), id));
    EXPECT_EQ(NamesIn("a.hds"), (CStringArray{L"乙"}));
}

TEST_F(Styles, NothingIsTakenOutOfAFileThatCannotBeReadOrIsNotThere)
{
    EXPECT_FALSE(m_signs.RemoveFromFile(m_folder.Path(L"none.hds").c_str(), CoCreateGuid()));
    EXPECT_FALSE(m_folder.Has("none.hds"));
    EXPECT_EQ(m_trace.Lines().size(), 1U);
    const CString path = m_folder.Write("a.hds", "<StyleLibrary>");
    EXPECT_FALSE(m_signs.RemoveFromFile(path.c_str(), CoCreateGuid()));
    EXPECT_EQ(m_folder.Read("a.hds"), "<StyleLibrary>");
    EXPECT_EQ(m_trace.Lines().size(), 2U);
}

TEST_F(Styles, ALibraryWithoutFilesOfItsOwnSavesNothing)
{
    m_signs.Add(L"甲", CoCreateGuid());
    EXPECT_FALSE(m_signs.SaveItem(0));
}
