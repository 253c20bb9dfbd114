#include <cstdlib>

#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/File.h"
#include "base/Text.h"
#include "platform/xtp/PropExchange.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/RandomSpecification.h"

using namespace designspec;

namespace {

// Whether xmllint finds the file valid; any other outcome than yes or no fails the test.
bool IsValid(const CString& file)
{
    const std::string command = "xmllint --nonet --noout --schema '" SOURCE_DIR
                                "/docs/designspec.xsd' '" +
                                NativePath(file) + "' >/dev/null 2>&1";
    const int status = std::system(command.c_str());
    constexpr int kInvalid = 3;
    EXPECT_TRUE(WIFEXITED(status)) << command;
    EXPECT_TRUE(WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == kInvalid)
        << command << ": " << WEXITSTATUS(status);
    return status == 0;
}

class Schema : public LibraryTest {
protected:
    bool IsFileValid(const CDesignSpecification& specification) const
    {
        return IsValid(m_project.Path(ToWide(FileOf(specification))));
    }

    // The file of a specification with the built-in limits, the first `from` in it replaced.
    CString WriteChanged(const std::string& from, const std::string& to)
    {
        std::string bytes = m_project.Read(FileOf(AddSaved(Make(L"改过"))));
        const size_t at = bytes.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        if (at != std::string::npos) bytes.replace(at, from.size(), to);
        return m_project.Write("changed.hds", bytes);
    }

    // Adds the text of a specification with the built-in limits that lacks the criterion, or one
    // field of it, and what is expected of reading it.
    void AddWithout(std::string& styles, std::vector<CDesignSpecification>& expected,
                    const CriterionInfo& criterion, const Field* field)
    {
        CDesignSpecification made = Make(criterion.name + CString(field ? field->key : L""));
        CXTPPropExchangeXMLNode root(false, L"Style");
        made.DoPropExchange(&root);
        CXTPPropExchange section = root.FindSection(criterion.name);
        std::string text;
        if (!field) {
            section.RemoveSection();
        } else if (field->isAttribute) {
            const std::string value = ToUtf8(section.Attribute(field->key));
            text = " " + ToUtf8(field->key) + "=\"" + value + "\"";
        } else {
            section.FindSection(field->HasRows() ? field->element : field->key).RemoveSection();
        }
        std::string xml = root.SaveToBytes();
        if (!text.empty()) xml.erase(xml.find(text), text.size());
        styles += xml.substr(xml.find("<Style"));
        while (field && field->HasRows() && field->RowCount(criterion.get(made)) > 0)
            field->RemoveRow(criterion.get(made), 0);
        expected.push_back(made);
    }
};

} // namespace

TEST_F(Schema, HoldsForASavedSpecification)
{
    EXPECT_TRUE(IsFileValid(AddSaved(Make(L"甲"))));
}

TEST_F(Schema, HoldsForAnExportOfNoneOneAndMany)
{
    const CString file = m_project.Path(L"out.hds");
    ASSERT_TRUE(Library().Export(file.c_str(), {L"没有"}, nullptr));
    EXPECT_TRUE(IsValid(file));
    Add(Make(L"甲"));
    Add(Make(L"乙"));
    ASSERT_TRUE(Library().Export(file.c_str(), {L"乙"}, nullptr));
    EXPECT_TRUE(IsValid(file));
    ASSERT_TRUE(Library().Export(file.c_str(), {}, nullptr)); // 乙 is written over, 甲 appended
    EXPECT_TRUE(IsValid(file));
}

TEST_F(Schema, HoldsForTheExampleFilesInAllTheirEncodings)
{
    const CString folder = ToWide(SOURCE_DIR "/examples/project/规范");
    Problems problems;
    const CStringArray files = FindFiles(folder, L".hds", problems);
    EXPECT_EQ(files.size(), 4U);
    for (const CString& file : files)
        EXPECT_TRUE(IsValid(folder + L"/" + file)) << ToUtf8(file);
}

TEST_F(Schema, HoldsForAnyContentWhichLoadsWithoutATraceLine)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        CDesignSpecification& specification = Add(Make(L"任意"));
        specification.CopyCriteria(RandomSpecification(seed).Make());
        ASSERT_TRUE(Library().Save(&specification));
        EXPECT_TRUE(IsFileValid(specification)) << seed;
    }
    EXPECT_EQ(Reload().Count(), 60);
    EXPECT_EQ(m_trace.Text(), L"");
}

TEST_F(Schema, HoldsForAnyName)
{
    for (unsigned seed = 0; seed < 20; ++seed)
        Add(Make(RandomSpecification(seed).Text()));
    const CString file = m_project.Path(L"names.hds");
    ASSERT_TRUE(Library().Export(file.c_str(), {}, nullptr));
    EXPECT_TRUE(IsValid(file));
}

TEST_F(Schema, HoldsForTextsThatXmlHasNoPlaceFor)
{
    CDesignSpecification specification = Make(L"甲");
    specification.LonGrad.Criterion = L"\x1 ]]> \xFFFE \xDC80";
    specification.CurveWidening.ranges[0].widenings[0].carType = L"\x2<&\"\n";
    EXPECT_TRUE(IsFileValid(AddSaved(specification)));
}

TEST_F(Schema, HoldsForTheUnchangedFileOfTheTestsBelow)
{
    EXPECT_TRUE(IsValid(WriteChanged("<CurveWidening>", "<CurveWidening>")));
}

TEST_F(Schema, RefusesWrongNumbers)
{
    for (const char* wrong : {"12abc", "1e999", "NaN", "INF", "０", "", "1,5"}) {
        const std::string attribute = "MaxLen=\"" + std::string(wrong) + "\"";
        EXPECT_FALSE(IsValid(WriteChanged("MaxLen=\"20\"", attribute))) << wrong;
    }
    EXPECT_FALSE(IsValid(WriteChanged("<MaxRad>10000<", "<MaxRad>10000.5<")));
    EXPECT_FALSE(IsValid(WriteChanged("<MaxRad>10000<", "<MaxRad>3000000000<")));
}

// One file with a specification for each criterion and each field, which lacks it.
TEST_F(Schema, HoldsForOlderFilesWhichLoadWithTheDefaults)
{
    std::string styles;
    std::vector<CDesignSpecification> expected;
    for (const CriterionInfo& criterion : Criteria()) {
        AddWithout(styles, expected, criterion, nullptr);
        for (const Field& field : criterion.fields)
            if (!field.skipEmpty) AddWithout(styles, expected, criterion, &field);
    }
    EXPECT_TRUE(IsValid(m_project.Write("规范/older.hds", Envelope(styles))));
    const int count = Reload().Count();
    EXPECT_EQ(m_trace.Text(), L"");
    ASSERT_EQ(static_cast<size_t>(count), expected.size());
    for (int i = 0; i < count; ++i)
        EXPECT_TRUE(At(i) == expected[static_cast<size_t>(i)]) << ToUtf8(At(i).Name());
}

TEST_F(Schema, RefusesUnknownPartsAndIncompleteRows)
{
    EXPECT_FALSE(
        IsValid(WriteChanged("<Item speed=\"80\" value=\"1000\" />", "<Item speed=\"80\"/>")));
    EXPECT_FALSE(IsValid(WriteChanged("<MaxRad>", "<Unknown/><MaxRad>")));
    EXPECT_FALSE(IsValid(WriteChanged(" ID=", " Id=")));
    EXPECT_FALSE(IsValid(WriteChanged("Group Name=\"设计规范\"", "Group Name=\"其它\"")));
}

TEST_F(Schema, RefusesAnIdentityThatIsNoneOrStandsTwice)
{
    const std::string id = kIdA;
    const std::string bytes = m_project.Read(FileOf(AddSaved(Make(L"甲", 20, kIdA))));

    std::string wrong = bytes;
    wrong.replace(wrong.find(id), id.size(), id.substr(1));
    EXPECT_FALSE(IsValid(m_project.Write("wrong.hds", wrong)));

    const size_t begin = bytes.find("<Style ");
    const size_t end = bytes.find("</Styles>");
    std::string twice = bytes;
    twice.insert(end, bytes.substr(begin, end - begin));
    EXPECT_FALSE(IsValid(m_project.Write("twice.hds", twice)));
}
