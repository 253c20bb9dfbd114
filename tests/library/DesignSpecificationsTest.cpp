#include "library/DesignSpecifications.h"

#include <memory>

#include "base/Encoding.h"
#include "base/Format.h"
#include "base/Text.h"
#include "tests/support/Exchanged.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/RandomSpecification.h"

using namespace designspec;

namespace fs = std::filesystem;

namespace {

class DesignSpecifications : public LibraryTest {
protected:
    std::string Setting() const { return m_project.Read("规范/setting.ini"); }

    static size_t FilesThere()
    {
        Problems unheard;
        return Library().Files().Files(unheard).size();
    }

    static std::string SettingText(const std::string& value)
    {
        std::string bytes;
        EncodeText("[设置]\r\n默认样式=" + value + "\r\n", TextEncoding::Utf16LE, bytes);
        return "\xFF\xFE" + bytes;
    }
};

} // namespace

TEST_F(DesignSpecifications, IsOneForTheProcessUntilDestroyed)
{
    CDesignSpecifications* const one = CDesignSpecifications::GetInstance();
    EXPECT_EQ(CDesignSpecifications::GetInstance(), one);
    Add(Make(L"a"));
    CDesignSpecifications::Destroy();
    CDesignSpecifications::Destroy(); // does nothing the second time
    EXPECT_EQ(Library().Count(), 0);
}

TEST_F(DesignSpecifications, LivesUntilTheLastShareIsGivenBack)
{
    CDesignSpecifications::TakeShare();
    CDesignSpecifications::TakeShare();
    Add(Make(L"a"));
    CDesignSpecifications::Destroy();
    EXPECT_EQ(Names(), L"a");
    CDesignSpecifications::Destroy();
    EXPECT_EQ(Library().Count(), 0);
    Add(Make(L"b"));
    CDesignSpecifications::Destroy(); // without a share it is deleted at once
    EXPECT_EQ(Library().Count(), 0);
}

TEST_F(DesignSpecifications, ReadsNothingWhenMade)
{
    m_project.Write("规范/a.hds", Envelope(Style("a", kIdA)));
    EXPECT_EQ(Library().Count(), 0);
    EXPECT_EQ(Library().Name(), L"设计规范");
    EXPECT_EQ(Library().GetDefaultItem(), -1);
    EXPECT_EQ(Library().DefaultItem(), nullptr);
}

TEST_F(DesignSpecifications, HasARunTimeClass)
{
    const CRuntimeClass* const runtimeClass = Library().GetRuntimeClass();
    EXPECT_STREQ(runtimeClass->m_lpszClassName, "CDesignSpecifications");
    EXPECT_EQ(runtimeClass->m_pBaseClass, RUNTIME_CLASS(CStyles));
    EXPECT_EQ(runtimeClass->m_pBaseClass->m_pBaseClass, RUNTIME_CLASS(CObject));
}

TEST_F(DesignSpecifications, ItemByIndexIsNullOutsideTheList)
{
    Add(Make(L"a"));
    EXPECT_NE(Library().Item(0), nullptr);
    EXPECT_EQ(Library().Item(-1), nullptr);
    EXPECT_EQ(Library().Item(1), nullptr);
}

TEST_F(DesignSpecifications, ItemByIdentityOrName)
{
    const CDesignSpecification& one = Add(Make(L"Straße", 1, kIdA));
    EXPECT_EQ(Library().Item(one.ID()), &one);
    EXPECT_EQ(Library().Item(GUID{}), nullptr);
    EXPECT_EQ(Library().Item(L"STRASSE"), &one);
    EXPECT_EQ(Library().Item(L"Strasse "), nullptr);
    CDesignSpecification& second = Add(Make(L"b", 2, kIdA));
    second.SetName(L"straße");
    EXPECT_EQ(Library().Item(one.ID()), &one); // the first of equal ones
    EXPECT_EQ(Library().Item(L"straße"), &one);
}

TEST_F(DesignSpecifications, AddMakesTheNameUnique)
{
    EXPECT_EQ(Library().Add(new CDesignSpecification(Make(L"a"))), 0);
    EXPECT_EQ(Library().Add(new CDesignSpecification(Make(L"A"))), 1);
    EXPECT_EQ(Library().Add(new CDesignSpecification(Make(L"a"))), 2);
    EXPECT_EQ(Names(), L"a A(1) a(2)");
    Add(Make(L"a(1)"));
    EXPECT_EQ(Names(), L"a A(1) a(2) a(1)(1)");
    Add(Make(L"%s"));
    Add(Make(L"%s"));
    EXPECT_EQ(Names(), L"a A(1) a(2) a(1)(1) %s %s(1)");
}

TEST_F(DesignSpecifications, AddTakesTheFirstFreeNumber)
{
    Add(Make(L"X"));
    Add(Make(L"X(1)"));
    EXPECT_EQ(Add(Make(L"x")).Name(), L"x(2)");
}

TEST_F(DesignSpecifications, RemoveClosesTheGapAndKeepsTheDefaultIndex)
{
    for (const wchar_t* name : {L"a", L"b", L"c"})
        Add(Make(name));
    Library().SetDefaultItem(1);
    Library().Remove(0, true);
    EXPECT_EQ(Names(), L"b c");
    EXPECT_EQ(Library().GetDefaultItem(), 1);
    EXPECT_EQ(Library().DefaultItem()->Name(), L"c");
    Library().Remove(1, true);
    EXPECT_EQ(Library().GetDefaultItem(), 1);
    EXPECT_EQ(Library().DefaultItem(), nullptr);
    Library().Remove(-1, true);
    Library().Remove(1, true);
    EXPECT_EQ(Names(), L"b");
}

TEST_F(DesignSpecifications, RemoveLeavesTheObjectWhenAskedTo)
{
    Add(Make(L"a"));
    const std::unique_ptr<CDesignSpecification> kept(&At(0));
    Library().Remove(0, false);
    EXPECT_EQ(Library().Count(), 0);
    EXPECT_EQ(kept->Name(), L"a");
}

TEST_F(DesignSpecifications, RemoveSetsTheBracedFileAsideAlone)
{
    const CDesignSpecification& one = AddSaved(Make(L"a", 1, kIdA));
    const std::string plain = FileOf(one);
    const std::string braced = std::string("规范/a{") + kIdA + "}.hds";
    m_project.Write(braced, "x");
    Library().Remove(0, true);
    EXPECT_TRUE(m_project.Has(plain));
    EXPECT_FALSE(m_project.Has(braced));
    EXPECT_EQ(m_project.Read("规范/已删除" + braced.substr(6)), "x");
}

TEST_F(DesignSpecifications, RemoveGivesTheOthersInTheBracedFileTheirOwn)
{
    const std::string braced = std::string("规范/a{") + kIdA + "}.hds";
    m_project.Write(braced, Envelope(Style("b", kIdB, 5) + Style("a", kIdA, 1)));
    Reload();
    Library().Remove(1, true);
    EXPECT_FALSE(m_project.Has(braced));
    Reload();
    EXPECT_EQ(Names(), L"b");
    EXPECT_EQ(MarkOf(L"b"), 5);
    Problems problems;
    const auto deleted = Library().Files().Deleted(problems);
    ASSERT_EQ(deleted.size(), 1U);
    EXPECT_EQ(deleted[0].name, L"a");
    EXPECT_TRUE(Library().Files().BringBack(deleted[0].file, problems));
    m_trace.Clear();
    Reload();
    EXPECT_EQ(Names(), L"a b");
    EXPECT_TRUE(m_trace.Lines().empty()) << ToUtf8(m_trace.Text());
}

// The library need not have read the file for that.
TEST_F(DesignSpecifications, RemoveKeepsWhatTheLibraryDoesNotKnow)
{
    const std::string braced = std::string("规范/a{") + kIdA + "}.hds";
    Add(Make(L"a", 1, kIdA));
    m_project.Write(braced, Envelope(Style("b", kIdB, 5) + Style("a", kIdA, 1)));
    Library().Remove(0, true);
    EXPECT_FALSE(m_project.Has(braced));
    Reload();
    EXPECT_EQ(Names(), L"b");
    EXPECT_EQ(MarkOf(L"b"), 5);
}

TEST_F(DesignSpecifications, SetDefaultItemWritesTheIdentity)
{
    Add(Make(L"a", 1, kIdA));
    Add(Make(L"b", 1, kIdB));
    fs::create_directory(m_project.Native("规范"));
    Library().SetDefaultItem(1);
    EXPECT_EQ(Library().GetDefaultItem(), 1);
    EXPECT_EQ(Library().DefaultItem(), Library().Item(1));
    EXPECT_EQ(Setting(), SettingText(kIdB));
    Library().SetDefaultItem(&At(0));
    EXPECT_EQ(Library().GetDefaultItem(), 0);
    EXPECT_EQ(Setting(), SettingText(kIdA));
    EXPECT_TRUE(Library().SetDefaultItem(At(1).ID()));
    EXPECT_EQ(Setting(), SettingText(kIdB));
}

TEST_F(DesignSpecifications, SetDefaultItemWithAStrangerDoesNothing)
{
    Add(Make(L"a"));
    fs::create_directory(m_project.Native("规范"));
    const CDesignSpecification stranger(At(0)); // even of the same identity
    Library().SetDefaultItem(&stranger);
    EXPECT_EQ(Library().GetDefaultItem(), -1);
    EXPECT_FALSE(Library().SetDefaultItem(GUID{}));
    EXPECT_FALSE(m_project.Has("规范/setting.ini"));
}

TEST_F(DesignSpecifications, SetDefaultItemKeepsTheRestOfTheSettings)
{
    Add(Make(L"a", 1, kIdA));
    m_project.Write("规范/setting.ini", "; 说明\n[其它]\nx=1\n[设置]\n默认样式=旧\ny=2\n");
    Library().SetDefaultItem(0);
    EXPECT_EQ(Setting(), std::string("; 说明\n[其它]\nx=1\n[设置]\n默认样式=") + kIdA + "\ny=2\n");
}

TEST_F(DesignSpecifications, SaveMakesTheFolderAndAFileOfOneStyle)
{
    const CDesignSpecification& one = AddSaved(Make(L"城市 道路", 7, kIdA));
    EXPECT_EQ(FileOf(one), std::string("规范/城市 道路") + kIdA + ".hds");
    const std::string xml = m_project.Read(FileOf(one));
    const std::string start =
        std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<StyleLibrary>\n"
                    "  <Group Name=\"设计规范\">\n    <Styles Name=\"设计规范\">\n"
                    "      <Style Name=\"城市 道路\" ID=\"") +
        kIdA + "\">\n        <BeelineLen MaxLen=\"7\" ";
    EXPECT_EQ(xml.substr(0, start.size()), start);
    EXPECT_TRUE(Reload().Count() == 1 && At(0) == Make(L"城市 道路", 7, kIdA));
    EXPECT_TRUE(m_trace.Lines().empty());
}

TEST_F(DesignSpecifications, SaveReplacesWhateverStoodInTheFile)
{
    CDesignSpecification& one = Add(Make(L"a", 7, kIdA));
    for (const std::string& before :
         {std::string("not XML"), Envelope(Style("x", kIdB) + Style("y", kIdC))}) {
        m_project.Write(FileOf(one), before);
        EXPECT_TRUE(Library().Save(&one));
        EXPECT_EQ(m_project.Read(FileOf(one)).find(kIdB), std::string::npos);
        EXPECT_NE(m_project.Read(FileOf(one)).find(kIdA), std::string::npos);
    }
    EXPECT_TRUE(m_project.Has("规范/已删除" + FileOf(one).substr(6))); // what was no XML
    Reload();
    EXPECT_EQ(Library().Count(), 3);
    EXPECT_EQ(MarkOf(L"a"), 7);
}

TEST_F(DesignSpecifications, SaveWritesTheSpecificationThatIsGiven)
{
    Add(Make(L"a", 1, kIdA));
    const CDesignSpecification edited = Make(L"a", 2, kIdA);
    EXPECT_TRUE(Library().Save(&edited));
    Reload();
    EXPECT_EQ(MarkOf(L"a"), 2);
}

TEST_F(DesignSpecifications, SaveSetsAFileOfAnotherNameAside)
{
    for (const char* file : {"规范/aaa.hds", "规范/zzz.hds"}) {
        m_project.Write(file, Envelope(Style("m", kIdA, 1)));
        Reload();
        At(0).BeelineLen.MaxLen = 2;
        EXPECT_TRUE(Library().Save(&At(0)));
        EXPECT_FALSE(m_project.Has(file));
        EXPECT_TRUE(m_project.Has("规范/已删除" + std::string(file).substr(6))) << file;
        Reload();
        EXPECT_EQ(Names(), L"m");
        EXPECT_EQ(MarkOf(L"m"), 2);
    }
}

TEST_F(DesignSpecifications, SaveOutOfAFileOfSeveralKeepsTheOthersThere)
{
    m_project.Write("规范/foo.hds", Envelope(Style("a", kIdA, 1) + Style("b", kIdB, 5)));
    Reload();
    At(0).BeelineLen.MaxLen = 2;
    EXPECT_TRUE(Library().Save(&At(0)));
    const std::string aside = m_project.Read("规范/已删除/foo(1).hds");
    EXPECT_NE(aside.find(kIdA), std::string::npos);
    EXPECT_EQ(aside.find(kIdB), std::string::npos);
    Reload();
    EXPECT_EQ(Library().Count(), 2);
    EXPECT_EQ(MarkOf(L"a"), 2);
    EXPECT_EQ(MarkOf(L"b"), 5);
    EXPECT_TRUE(Library().Save(Library().Item(L"b")));
    EXPECT_FALSE(m_project.Has("规范/foo.hds"));
    EXPECT_EQ(Reload().Count(), 2);
}

TEST_F(DesignSpecifications, SaveOverAFileOfSeveralGivesTheOthersTheirOwn)
{
    const std::string file = std::string("规范/a") + kIdA + ".hds";
    m_project.Write(file, Envelope(Style("a", kIdA, 1) + Style("b", kIdB, 5)));
    Reload();
    At(0).BeelineLen.MaxLen = 2;
    EXPECT_TRUE(Library().Save(&At(0)));
    EXPECT_EQ(m_project.Read(file).find(kIdB), std::string::npos);
    EXPECT_TRUE(Library().Save(&At(1)));
    EXPECT_TRUE(Library().Save(&At(0)));
    Reload();
    EXPECT_EQ(Names(), L"a b");
    EXPECT_EQ(MarkOf(L"a"), 2);
    EXPECT_EQ(MarkOf(L"b"), 5);
    EXPECT_FALSE(m_project.Has("规范/已删除"));
}

TEST_F(DesignSpecifications, SaveOfTwoInEachOthersFilesLosesNeither)
{
    m_project.Write(std::string("规范/a") + kIdA + ".hds", Envelope(Style("b", kIdB, 5)));
    m_project.Write(std::string("规范/b") + kIdB + ".hds", Envelope(Style("a", kIdA, 1)));
    Reload();
    for (const wchar_t* name : {L"a", L"b", L"a"})
        EXPECT_TRUE(Library().Save(Library().Item(name)));
    Reload();
    EXPECT_EQ(Library().Count(), 2);
    EXPECT_EQ(MarkOf(L"a"), 1);
    EXPECT_EQ(MarkOf(L"b"), 5);
}

TEST_F(DesignSpecifications, AFailedSetAsideIsMadeGoodByTheNextSave)
{
    m_project.Write("规范/zzz.hds", Envelope(Style("m", kIdA, 1)));
    m_project.Write("规范/已删除", "no folder");
    Reload();
    At(0).BeelineLen.MaxLen = 2;
    EXPECT_FALSE(Library().Save(&At(0)));
    EXPECT_TRUE(m_project.Has("规范/zzz.hds"));
    fs::remove(m_project.Native("规范/已删除"));
    EXPECT_TRUE(Library().Save(&At(0)));
    EXPECT_FALSE(m_project.Has("规范/zzz.hds"));
    EXPECT_TRUE(m_project.Has("规范/已删除/zzz.hds"));
    Reload();
    EXPECT_EQ(Names(), L"m");
    EXPECT_EQ(MarkOf(L"m"), 2);
}

TEST_F(DesignSpecifications, SaveWithoutPlaceForTheFolderFails)
{
    m_project.Write("规范", "a file");
    EXPECT_FALSE(Library().Save(&Add(Make(L"a"))));
    EXPECT_TRUE(Traced("规范", 0, L"文件夹无法创建"));
}

TEST_F(DesignSpecifications, NamesThatLeaveTheFolderAreRefused)
{
    m_project.Write("规范/x", "");
    const CString names[] = {L"../a",           L"a/b", L"a\\b", L"..", CString(300, L'a'),
                             CString(72, L'规')};
    for (const CString& name : names) {
        CDesignSpecification& one = Add(Make(L"a"));
        one.SetName(name.c_str());
        m_trace.Clear();
        EXPECT_FALSE(Library().Save(&one));
        EXPECT_TRUE(Traced("规范", 0, L"无法保存")) << ToUtf8(name);
        EXPECT_FALSE(Library().Rename(one.Name().c_str(), L"b"));
        EXPECT_FALSE(Library().SaveRenamed(&one, L"old"));
        const int files = m_project.Count();
        Library().Remove(0, true);
        EXPECT_EQ(m_project.Count(), files);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(m_project.Native("规范")), {}), 1);
}

TEST_F(DesignSpecifications, TheLongestNameIsOneThatTheFileSystemTakes)
{
    CDesignSpecification& one = AddSaved(Make(CString(71, L'规'))); // 213 bytes
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    one.SetName(CString(213, L'a').c_str());
    EXPECT_TRUE(Library().Save(&one));
    one.SetName(CString(214, L'a').c_str());
    EXPECT_FALSE(Library().Save(&one));
}

TEST_F(DesignSpecifications, AnOddNameNeverLeadsOutOfTheFolder)
{
    m_project.Write("victim.hds", "x");
    m_project.Write(std::string("victim") + kIdA + ".hds", "x");
    m_project.Write(std::string("victim{") + kIdA + "}.hds", "x");
    m_project.Write("规范/a.hds", Envelope(Style("../victim", kIdA)));
    Reload();
    EXPECT_EQ(Names(), L"../victim");
    EXPECT_TRUE(Traced("规范/a.hds", 5, L"不能用作文件名"));
    EXPECT_FALSE(Library().Rename(L"../victim", L"b"));
    Library().Remove(0, true);
    EXPECT_TRUE(m_project.Has("victim.hds"));
    EXPECT_EQ(m_project.Read(std::string("victim") + kIdA + ".hds"), "x");
    EXPECT_EQ(m_project.Read(std::string("victim{") + kIdA + "}.hds"), "x");
}

TEST_F(DesignSpecifications, RenameWritesTheFileAnewUnderTheOldName)
{
    CDesignSpecification& one = AddSaved(Make(L"a", 1, kIdA));
    one.BeelineLen.MaxLen = 2;
    EXPECT_TRUE(Library().Rename(L"a", L"b"));
    EXPECT_EQ(one.Name(), L"a");
    EXPECT_EQ(FilesThere(), 1U);
    Reload();
    EXPECT_EQ(MarkOf(L"a"), 2);
    EXPECT_FALSE(Library().Rename(L"b", L"a"));
}

TEST_F(DesignSpecifications, RenameWithoutAnOldFileWritesTheNew)
{
    const CDesignSpecification& one = Add(Make(L"a"));
    EXPECT_TRUE(Library().Rename(L"a", nullptr));
    EXPECT_TRUE(m_project.Has(FileOf(one)));
}

TEST_F(DesignSpecifications, RenameTakesTheNameAsPassed)
{
    const CDesignSpecification& one = AddSaved(Make(L"a", 1, kIdA));
    const std::string upper = std::string("规范/A") + kIdA + ".hds";
    m_project.Write(upper, "x");
    EXPECT_TRUE(Library().Rename(L"A", L"b"));
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    EXPECT_FALSE(m_project.Has(upper));
}

TEST_F(DesignSpecifications, SaveRenamedLeavesOneFile)
{
    CDesignSpecification& one = AddSaved(Make(L"a", 1, kIdA));
    const std::string before = FileOf(one);
    one.SetName(L"b");
    EXPECT_TRUE(Library().SaveRenamed(&one, L"a"));
    EXPECT_FALSE(m_project.Has(before));
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    one.SetName(L"B"); // a change of case only
    EXPECT_TRUE(Library().SaveRenamed(&one, L"b"));
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    EXPECT_TRUE(Library().SaveRenamed(&one, L"B")); // no change at all
    EXPECT_TRUE(m_project.Has(FileOf(one)));
    EXPECT_EQ(FilesThere(), 1U);
    Reload();
    EXPECT_EQ(Names(), L"B");
}

TEST_F(DesignSpecifications, SaveRenamedKeepsTheOneFileWhenBothNamesLeadToIt)
{
    CDesignSpecification& one = AddSaved(Make(L"a", 1, kIdA));
    const fs::path upper = m_project.Native(std::string("规范/A") + kIdA + ".hds");
    one.SetName(L"A");
    ASSERT_TRUE(Library().SaveRenamed(&one, L"a"));
    // As on a file system that ignores case: the old name leads to the new file.
    const fs::path lower = m_project.Native(std::string("规范/a") + kIdA + ".hds");
    if (!fs::exists(lower)) fs::create_symlink(upper, lower);
    EXPECT_TRUE(Library().SaveRenamed(&one, L"a"));
    EXPECT_TRUE(fs::is_regular_file(upper));
}

TEST_F(DesignSpecifications, SaveRenamedOfAnUnusableOldNameDeletesNothing)
{
    m_project.Write(std::string("victim") + kIdA + ".hds", "x");
    CDesignSpecification& one = Add(Make(L"a", 1, kIdA));
    EXPECT_TRUE(Library().SaveRenamed(&one, L"../victim"));
    EXPECT_TRUE(m_project.Has(std::string("victim") + kIdA + ".hds"));
}

TEST_F(DesignSpecifications, SaveRenamedOutOfAFileOfSeveralLosesNone)
{
    m_project.Write(std::string("规范/a") + kIdA + ".hds",
                    Envelope(Style("a", kIdA, 1) + Style("b", kIdB, 5)));
    Reload();
    At(0).SetName(L"c");
    EXPECT_TRUE(Library().SaveRenamed(&At(0), L"a"));
    Reload();
    EXPECT_EQ(MarkOf(L"b"), 5);
    EXPECT_EQ(MarkOf(L"c"), 1);
    EXPECT_EQ(Library().Count(), 2);
}

TEST_F(DesignSpecifications, AFailedSaveRenamedIsMadeGoodByTheNextSave)
{
    CDesignSpecification& one = AddSaved(Make(L"m", 1, kIdA));
    one.SetName(L"a"); // sorts before the old file
    const std::string blocked = FileOf(one);
    fs::create_directories(m_project.Native(blocked) / "x");
    EXPECT_FALSE(Library().SaveRenamed(&one, L"m"));
    fs::remove_all(m_project.Native(blocked));
    one.BeelineLen.MaxLen = 2;
    EXPECT_TRUE(Library().Save(&one));
    Reload();
    EXPECT_EQ(Names(), L"a");
    EXPECT_EQ(MarkOf(L"a"), 2);
}

TEST_F(DesignSpecifications, ExportWithoutNamesWritesAll)
{
    Add(Make(L"a", 1));
    Add(Make(L"b", 2));
    const CString path = m_project.Path(L"out.hds");
    EXPECT_TRUE(Library().Export(path.c_str(), {}, nullptr));
    CDesignSpecifications::Destroy();
    EXPECT_TRUE(Library().Import(path.c_str(), {}, nullptr, false));
    EXPECT_EQ(Names(), L"a b");
}

TEST_F(DesignSpecifications, ExportByNameIgnoresCaseAndSkipsStrangers)
{
    Add(Make(L"a"));
    Add(Make(L"b"));
    const CString path = m_project.Path(L"out.hds");
    EXPECT_TRUE(Library().Export(path.c_str(), {L"B", L"nobody"}, nullptr));
    EXPECT_EQ(m_trace.Text(), L"没有名为“nobody”的样式,未导出");
    CStringArray names;
    CArray<GUID> ids;
    EXPECT_TRUE(Library().StyleNames(path.c_str(), names, ids));
    EXPECT_EQ(names, CStringArray{L"b"});
    EXPECT_TRUE(Library().Export(m_project.Path(L"none.hds").c_str(), {L"nobody"}, nullptr));
    EXPECT_TRUE(m_project.Has("none.hds"));
}

TEST_F(DesignSpecifications, ExportIntoAFileReplacesTheSameIdentityAndKeepsTheOthers)
{
    Add(Make(L"a", 2, kIdA));
    const CString path = m_project.Path(L"out.hds");
    std::string lower = kIdA;
    for (char& c : lower)
        c = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
    for (const std::string& id : {std::string(kIdA), "{" + std::string(kIdA) + "}", lower}) {
        m_project.Write("out.hds",
                        Envelope("<!-- mine -->" + Style("old", id, 1) + Style("other", kIdB, 5)));
        EXPECT_TRUE(Library().Export(path.c_str(), {}, nullptr));
        CStringArray names;
        CArray<GUID> ids;
        EXPECT_TRUE(Library().StyleNames(path.c_str(), names, ids));
        EXPECT_EQ(names, (CStringArray{L"a", L"other"})) << id;
        EXPECT_NE(m_project.Read("out.hds").find("<!-- mine -->"), std::string::npos);
        EXPECT_NE(m_project.Read("out.hds").find("MaxLen=\"2\""), std::string::npos);
    }
}

TEST_F(DesignSpecifications, ExportOverAnUnreadableFileFailsAndLeavesIt)
{
    Add(Make(L"a"));
    for (const std::string& content :
         {std::string("my diary"), std::string(), std::string("<Other/>")}) {
        const CString path = m_project.Write("out.hds", content);
        EXPECT_FALSE(Library().Export(path.c_str(), {}, nullptr));
        EXPECT_EQ(m_project.Read("out.hds"), content);
    }
    EXPECT_FALSE(Library().Export(m_project.Path(L"no/such/folder.hds").c_str(), {}, nullptr));
    EXPECT_TRUE(Traced("no/such/folder.hds", 0, L"无法写入: 不存在"));
}

TEST_F(DesignSpecifications, ImportOfAMissingFileIsFalse)
{
    EXPECT_FALSE(Library().Import(m_project.Path(L"none.hds").c_str(), {}, nullptr, true));
    EXPECT_TRUE(Traced("none.hds", 0, L"不存在"));
}

TEST_F(DesignSpecifications, ImportTakesWhatTheNamesSay)
{
    const CString path =
        m_project.Write("in.hds", Envelope(Style("a", kIdA) + "\n" + Style("b", kIdB)));
    EXPECT_TRUE(Library().Import(path.c_str(), {L"nobody", L"B"}, nullptr, false));
    EXPECT_EQ(Names(), L"b");
    EXPECT_TRUE(Traced("in.hds", 5, L"样式“a”不在所选之列"));
    EXPECT_TRUE(Library().Import(path.c_str(), {L"nobody"}, nullptr, false));
    EXPECT_EQ(Names(), L"b");
}

TEST_F(DesignSpecifications, ImportOverwritesAnEqualIdentityOnlyWhenAsked)
{
    const CDesignSpecification& one = Add(Make(L"mine", 1, kIdA));
    const CString path = m_project.Write("in.hds", Envelope(Style("theirs", kIdA, 2)));
    EXPECT_TRUE(Library().Import(path.c_str(), {}, nullptr, false));
    EXPECT_EQ(MarkOf(L"mine"), 1);
    EXPECT_TRUE(Traced("in.hds", 5, L"样式“theirs”与已有的“mine”标识相同"));
    EXPECT_TRUE(Library().Import(path.c_str(), {}, nullptr, true));
    EXPECT_EQ(Library().Count(), 1);
    EXPECT_EQ(MarkOf(L"theirs"), 2);
    EXPECT_EQ(&At(0), &one); // the same object: whoever holds it sees the new content
}

TEST_F(DesignSpecifications, ImportGivesAnEqualNameANumber)
{
    Add(Make(L"A", 1, kIdA));
    const CString path = m_project.Write("in.hds", Envelope(Style("a", kIdB, 2)));
    EXPECT_TRUE(Library().Import(path.c_str(), {}, nullptr, true));
    EXPECT_EQ(Names(), L"A a(1)");
    EXPECT_TRUE(Traced("in.hds", 5, L"样式“a”重名,改称“a(1)”"));
}

TEST_F(DesignSpecifications, ImportOfAnotherLibrarysFileTakesNothing)
{
    const CString path =
        m_project.Write("in.hds", "<StyleLibrary><Group Name='其它'><Styles Name='其它'>" +
                                      Style("a", kIdA) + "</Styles></Group></StyleLibrary>");
    EXPECT_TRUE(Library().Import(path.c_str(), {}, nullptr, true));
    EXPECT_EQ(Library().Count(), 0);
    EXPECT_TRUE(Traced("in.hds", 1, L"文件中没有“设计规范”的样式"));
}

TEST_F(DesignSpecifications, StyleNamesAppendsAndAddsNothing)
{
    const CString path = m_project.Write(
        "in.hds", Envelope(Style("a", std::string("{") + kIdA + "}") + Style("b", kIdB)));
    CStringArray names{L"x"};
    CArray<GUID> ids(1);
    EXPECT_TRUE(Library().StyleNames(path.c_str(), names, ids));
    EXPECT_EQ(names, (CStringArray{L"x", L"a", L"b"}));
    ASSERT_EQ(ids.size(), 3U);
    EXPECT_EQ(ids[1], Make(L"", 0, kIdA).ID());
    EXPECT_EQ(ids[2], Make(L"", 0, kIdB).ID());
    EXPECT_EQ(Library().Count(), 0);
    EXPECT_FALSE(Library().StyleNames(m_project.Path(L"none").c_str(), names, ids));
    m_project.Write("bad.hds", "<Other/>");
    EXPECT_FALSE(Library().StyleNames(m_project.Path(L"bad.hds").c_str(), names, ids));
    EXPECT_EQ(names.size(), 3U);
}

TEST_F(DesignSpecifications, SaveAsTemplateCopiesFilesAndSettings)
{
    AddSaved(Make(L"a", 1));
    AddSaved(Make(L"b", 2));
    Library().SetDefaultItem(1);
    m_project.Write("规范/notes.txt", "x");
    m_project.Write("规范/BROKEN.HDS", "not XML");
    m_project.Write("template/规范/" + ToUtf8(L"a" + VMRDPub::GUIDToStr(At(0).ID())) + ".hds",
                    "old");
    EXPECT_TRUE(Library().SaveAsTemplate(m_project.Path(L"template").c_str()));
    EXPECT_EQ(m_project.Read("template/规范/BROKEN.HDS"), "not XML");
    EXPECT_EQ(m_project.Read("template/规范/setting.ini"), Setting());
    EXPECT_FALSE(m_project.Has("template/规范/notes.txt"));
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(m_project.Read("template/" + FileOf(At(i))), m_project.Read(FileOf(At(i))));
}

TEST_F(DesignSpecifications, SaveAsTemplateOfNothingMakesTheFolder)
{
    EXPECT_TRUE(Library().SaveAsTemplate(m_project.Path(L"new/deep").c_str()));
    EXPECT_TRUE(fs::is_directory(m_project.Native("new/deep/规范")));
    EXPECT_TRUE(m_trace.Lines().empty());
}

TEST_F(DesignSpecifications, SaveAsTemplateTellsWhatItCouldNotCopy)
{
    AddSaved(Make(L"b", 2));
    fs::create_directory(m_project.Native("规范/a.hds"));
    EXPECT_FALSE(Library().SaveAsTemplate(m_project.Path(L"template").c_str()));
    EXPECT_TRUE(m_project.Has("template/" + FileOf(At(0)))); // the rest is copied
    m_project.Write("file", "");
    EXPECT_FALSE(Library().SaveAsTemplate(m_project.Path(L"file").c_str()));
}

TEST_F(DesignSpecifications, UpdateReadsTheFilesInOrderOfTheirNames)
{
    m_project.Write("规范/c.hds", Envelope(Style("3", kIdC)));
    m_project.Write("规范/B.HDS", Envelope(Style("2", kIdB)));
    m_project.Write("规范/a.hds", Envelope(Style("1", kIdA)));
    m_project.Write("规范/a.xml", Envelope(Style("x", kIdA)));
    m_project.Write("规范/已删除/d.hds", Envelope(Style("x", kIdA)));
    Add(Make(L"gone"));
    Library().Update();
    EXPECT_EQ(Names(), L"1 2 3");
    EXPECT_TRUE(m_trace.Lines().empty());
}

TEST_F(DesignSpecifications, UpdateWithoutAFolderLoadsNothing)
{
    Library().Update();
    EXPECT_EQ(Library().Count(), 0);
    EXPECT_TRUE(m_trace.Lines().empty());
    EXPECT_EQ(m_project.Count(), 0);
}

TEST_F(DesignSpecifications, UpdateLetsTheLaterFileOfAnIdentityWinInTheFirstsPlace)
{
    m_project.Write("规范/a.hds", Envelope(Style("first", kIdA, 1)));
    m_project.Write("规范/b.hds", Envelope(Style("middle", kIdB, 1)));
    m_project.Write("规范/c.hds", Envelope(Style("last", kIdA, 2)));
    Library().Update();
    EXPECT_EQ(Names(), L"last middle");
    EXPECT_EQ(MarkOf(L"last"), 2);
    EXPECT_TRUE(Traced("规范/c.hds", 5, L"标识相同"));
}

TEST_F(DesignSpecifications, UpdateGivesAnEqualNameANumberAndSaysSo)
{
    m_project.Write("规范/a.hds", Envelope(Style("x", kIdA, 1)));
    m_project.Write("规范/b.hds", Envelope(Style("X", kIdB, 2)));
    Library().Update();
    EXPECT_EQ(Names(), L"x X(1)");
    EXPECT_TRUE(Traced("规范/b.hds", 5, L"改称“X(1)”"));
}

TEST_F(DesignSpecifications, UpdateRestoresTheDefaultAndWritesItBack)
{
    m_project.Write("规范/a.hds", Envelope(Style("a", kIdA)));
    m_project.Write("规范/b.hds", Envelope(Style("b", kIdB)));
    const std::string text = std::string("[设置]\n默认样式 =  {") + kIdB + "} \n";
    m_project.Write("规范/setting.ini", text);
    Library().Update();
    EXPECT_EQ(Library().GetDefaultItem(), 1);
    EXPECT_NE(Setting().find(std::string("=") + kIdB), std::string::npos) << Setting();
    EXPECT_EQ(Setting().find("{"), std::string::npos);
}

TEST_F(DesignSpecifications, UpdateDoesNotWriteTheDefaultThatStandsThere)
{
    m_project.Write("规范/a.hds", Envelope(Style("a", kIdA)));
    m_project.Write("规范/setting.ini", SettingText(kIdA));
    const auto before = fs::last_write_time(m_project.Native("规范/setting.ini"));
    Library().Update();
    EXPECT_EQ(Library().GetDefaultItem(), 0);
    EXPECT_EQ(fs::last_write_time(m_project.Native("规范/setting.ini")), before);
}

TEST_F(DesignSpecifications, UpdateKeepsTheDefaultIndexForAnUnknownIdentity)
{
    m_project.Write("规范/a.hds", Envelope(Style("a", kIdA)));
    for (const std::string& value :
         {std::string(kIdB), std::string("nonsense"), std::string(400, 'x')}) {
        m_project.Write("规范/setting.ini", SettingText(value));
        m_trace.Clear();
        Library().Update();
        EXPECT_EQ(Library().GetDefaultItem(), -1);
        EXPECT_TRUE(Traced("规范/setting.ini", 0, L"不在库中")) << value;
        EXPECT_EQ(Setting(), SettingText(value));
    }
    m_project.Write("规范/setting.ini", SettingText(""));
    m_trace.Clear();
    Library().Update();
    EXPECT_TRUE(m_trace.Lines().empty());
    Library().CStyles::SetDefaultItem(0);
    Library().Update();
    EXPECT_EQ(Library().GetDefaultItem(), 0);
}

TEST_F(DesignSpecifications, UpdateReadsTheSettingsInEveryEncoding)
{
    m_project.Write("规范/a.hds", Envelope(Style("a", kIdA)));
    const std::string text = std::string("[设置]\r\n默认样式=") + kIdA + "\r\n";
    std::string gb;
    ASSERT_TRUE(EncodeText(text, TextEncoding::Gb18030, gb));
    for (const std::string& bytes : {SettingText(kIdA), text, "\xEF\xBB\xBF" + text, gb}) {
        m_project.Write("规范/setting.ini", bytes);
        Reload();
        EXPECT_EQ(Library().GetDefaultItem(), 0);
    }
}

TEST_F(DesignSpecifications, UpdateReadsFilesInEveryEncoding)
{
    const std::string body = "<StyleLibrary><Group Name='设计规范'><Styles Name='设计规范'>" +
                             Style("城市", kIdA, 3) + "</Styles></Group></StyleLibrary>";
    const struct {
        const char* declared;
        TextEncoding encoding;
        const char* mark;
    } cases[] = {
        {"UTF-8", TextEncoding::Utf8, ""},
        {"utf-8", TextEncoding::Utf8, "\xEF\xBB\xBF"},
        {"UTF-16", TextEncoding::Utf16LE, "\xFF\xFE"},
        {"UTF-16", TextEncoding::Utf16BE, "\xFE\xFF"},
        {"UTF-16", TextEncoding::Utf16LE, ""},
        {"GB2312", TextEncoding::Gb18030, ""},
        {"gbk", TextEncoding::Gb18030, ""},
        {"GB18030", TextEncoding::Gb18030, ""},
        {"GB2312", TextEncoding::Utf8, "\xEF\xBB\xBF"}, // the mark counts, not what is declared
    };
    for (const auto& one : cases) {
        std::string bytes;
        ASSERT_TRUE(EncodeText(std::string("<?xml version=\"1.0\" encoding=\"") + one.declared +
                                   "\"?>\n" + body,
                               one.encoding, bytes));
        m_project.Write("规范/a.hds", one.mark + bytes);
        Reload();
        EXPECT_EQ(MarkOf(L"城市"), 3) << one.declared << ToUtf8(m_trace.Text());
    }
    m_project.Write("规范/a.hds", body);
    Reload();
    EXPECT_EQ(MarkOf(L"城市"), 3);
    EXPECT_TRUE(m_trace.Lines().empty());
}

TEST_F(DesignSpecifications, AStyleWithoutCriteriaHasTheBuiltInOnes)
{
    m_project.Write("规范/a.hds", Envelope(std::string("<Style Name='a' ID='") + kIdA + "'/>"));
    Library().Update();
    ASSERT_EQ(Library().Count(), 1);
    EXPECT_TRUE(At(0) == Make(L"a", 20, kIdA));
}

TEST_F(DesignSpecifications, WhatIsSavedIsWhatIsLoaded)
{
    RandomSpecification random(42);
    std::vector<CDesignSpecification> made;
    for (int i = 0; i < 60; ++i) {
        made.push_back(random.Make());
        made.back().SetName(Format(L"%d &'规范", i).c_str());
        AddSaved(made.back());
    }
    Reload();
    ASSERT_EQ(Library().Count(), 60);
    for (const CDesignSpecification& one : made) {
        const auto* loaded = static_cast<const CDesignSpecification*>(Library().Item(one.ID()));
        ASSERT_NE(loaded, nullptr);
        EXPECT_TRUE(*loaded == one);
    }
}

TEST_F(DesignSpecifications, TellsOfWhatWasReadSavedOrMadeTheDefault)
{
    int told = 0;
    const Connection connection = CDesignSpecifications::ConnectChanges([&told] { ++told; });
    Library().Update();
    EXPECT_EQ(told, 1);
    CDesignSpecification& one = AddSaved(Make(L"a"));
    EXPECT_EQ(told, 2);
    Library().SetDefaultItem(0);
    EXPECT_EQ(told, 3);
    one.SetName(L"b");
    EXPECT_TRUE(Library().SaveRenamed(&one, L"a"));
    EXPECT_EQ(told, 4);
}
