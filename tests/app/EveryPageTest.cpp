// The whole editor, from the file to the pages and back.
#include "app/DSMainDialog.h"

#include <map>

#include <QLayout>

#include "TreePaths.h"
#include "base/Text.h"
#include "model/Criteria.h"
#include "model/FieldValue.h"
#include "tests/app/AppTest.h"
#include "tests/app/PageEdits.h"

using namespace designspec;

namespace {

constexpr char kGiven[] = SOURCE_DIR "/tests/app/EveryPage.hds";

class EveryPage : public AppTest {
protected:
    EveryPage()
    {
        std::ifstream given(kGiven, std::ios::binary);
        m_given = {std::istreambuf_iterator<char>(given), {}};
        m_project.Write(File(), m_given);
        Reload();
    }

    static std::string File() { return std::string("规范/甲") + kIdA + ".hds"; }
    std::string FileText() const { return m_project.Read(File()); }

    // Opens 甲 in the editor; `action` must close it.
    int Edit(const ModalAction& action)
    {
        CDSMainDialog dialog(L"甲", false, nullptr, &m_frame);
        const ExpectModal modal(action);
        return dialog.DoModal();
    }

    // Clicks the page's item in the tree.
    static QWidget* GoTo(QWidget* window, const PageEdit& edit)
    {
        ClickItem(window, edit.page);
        const QLayout* const pages =
            window->findChild<QWidget*>(QStringLiteral("pageArea"))->layout();
        for (int i = 0; i < pages->count(); ++i)
            if (pages->itemAt(i)->widget()->isVisible()) return pages->itemAt(i)->widget();
        ADD_FAILURE() << "no page " << edit.page;
        return window;
    }

    std::string m_given;
};

// What a specification holds besides keys, by the names of its fields; all rows in one text.
void AddTexts(std::map<CString, CString>& texts, const CString& before,
              std::span<const Field> fields, const void* object)
{
    for (const Field& field : fields) {
        if (field.isKey) continue;
        const CString name = before + L"." + field.key;
        if (!field.HasRows()) texts[name] += ValueText(field, object) + L";";
        for (std::int32_t i = 0; field.HasRows() && i < field.RowCount(object); ++i)
            AddTexts(texts, name, field.RowFields(), field.Row(object, i));
        if (field.IsTable()) texts[name + L".value"]; // be it empty
    }
}

std::map<CString, CString> TextsOf(CDesignSpecification& specification)
{
    std::map<CString, CString> texts;
    for (const CriterionInfo& criterion : Criteria())
        AddTexts(texts, criterion.name, criterion.fields, criterion.get(specification));
    return texts;
}

// Fields that the edits leave as they are, for a reason.
bool IsLeftAlone(const CString& field)
{
    for (const wchar_t* one :
         {L"TransitionCurveMinLen.NoTCBySuperelevation",       // takes the radii with it
          L"MaxSuperElev.Criterion",                           // its page does not store it
          L"SuperElevation.definitions.rows.ranges.superElev", // the caption of a line
          // Come and go as the first class of highways does.
          L"MaxResultantGrad.HighwayClass2.value", L"MaxResultantGrad.HighwayClass3.value",
          L"MaxResultantGrad.HighwayClass4.value", L"MaxResultantGrad.OtherRoad.value"})
        if (field == one) return true;
    return false;
}

class EachPage : public EveryPage, public testing::WithParamInterface<PageEdit> {};

} // namespace

TEST_F(EveryPage, AnEditOnEachReachesItsPlaceInTheFileAndChangesNothingElse)
{
    EXPECT_EQ(Edit([](QWidget* window) {
                  for (const PageEdit& edit : PageEdits())
                      edit.edit(GoTo(window, edit));
                  Click(window, IDOK);
              }),
              IDOK);
    std::string expected = m_given;
    for (const PageEdit& edit : PageEdits())
        expected = Changed(expected, edit.changes);
    EXPECT_EQ(FileText(), expected);
    EXPECT_EQ(SpecificationFiles(), 1);
}

// A field without a place on a page stays as it was.
TEST_F(EveryPage, HasAPlaceForEachField)
{
    const auto before = TextsOf(At(0));
    std::string changed = m_given;
    for (const PageEdit& edit : PageEdits())
        changed = Changed(changed, edit.changes);
    m_project.Write(File(), changed);
    ASSERT_EQ(Reload().Count(), 1);
    const auto after = TextsOf(At(0));
    ASSERT_EQ(before.size(), after.size());
    for (const auto& [name, text] : before)
        EXPECT_EQ(after.at(name) == text, IsLeftAlone(name)) << ToUtf8(name);
}

TEST_F(EveryPage, HasAnEdit)
{
    AddSaved(Make(L"乙"));
    Edit([](QWidget* window) {
        std::vector<std::string> pages;
        for (const std::string& line : TreeLines(window))
            if (line.starts_with("  ")) pages.push_back(line.substr(2));
        std::vector<std::string> edited;
        for (const PageEdit& edit : PageEdits())
            edited.push_back(edit.page);
        EXPECT_EQ(edited, pages);
        Click(window, IDCANCEL);
    });
}

TEST_P(EachPage, ShowsItsEditAfterTheFileIsReadAnew)
{
    const PageEdit& edit = GetParam();
    EXPECT_EQ(Edit([&edit](QWidget* window) {
                  edit.edit(GoTo(window, edit));
                  Click(window, IDOK);
              }),
              IDOK);
    const std::string stored = FileText();
    EXPECT_EQ(stored, Changed(m_given, edit.changes));
    ASSERT_EQ(Reload().Count(), 1);
    EXPECT_EQ(Edit([&edit](QWidget* window) {
                  edit.look(GoTo(window, edit));
                  Click(window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(FileText(), stored);
}

TEST_P(EachPage, CancelLeavesFileAndLibraryAsTheyWere)
{
    const PageEdit& edit = GetParam();
    const CDesignSpecification before = At(0);
    EXPECT_EQ(Edit([&edit](QWidget* window) {
                  edit.edit(GoTo(window, edit));
                  Click(window, IDCANCEL);
              }),
              IDCANCEL);
    EXPECT_EQ(FileText(), m_given);
    EXPECT_EQ(SpecificationFiles(), 1);
    ASSERT_EQ(Library().Count(), 1);
    EXPECT_TRUE(At(0) == before);
}

INSTANTIATE_TEST_SUITE_P(Criterion, EachPage, testing::ValuesIn(PageEdits()),
                         [](const auto& edit) { return edit.param.criterion; });
