#include <gtest/gtest.h>

#include "TreePaths.h"
#include "base/File.h"
#include "base/Text.h"
#include "library/DesignSpecifications.h"
#include "library/LibraryCheck.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "tests/support/TraceCapture.h"

using namespace designspec;

namespace {

CString ProjectFolder()
{
    return ToWide(SOURCE_DIR "/examples/project");
}

std::string FileBytes(const wchar_t* name)
{
    std::string bytes;
    Problems problems;
    EXPECT_TRUE(ReadWholeFile(ProjectFolder() + L"/规范/" + name, bytes, 1 << 20, problems));
    return bytes;
}

class ExampleProject : public testing::Test {
protected:
    ExampleProject()
    {
        VMRDPub::SetCurPrjPath(ProjectFolder());
        m_library->Update();
    }
    ~ExampleProject() override { CDesignSpecifications::Destroy(); }

    const CDesignSpecification& Named(const wchar_t* name) const
    {
        const CDesignSpecification* found = m_library->Item(name);
        if (!found) throw std::runtime_error("no " + ToUtf8(name));
        return *found;
    }

    TraceCapture m_trace;
    CDesignSpecifications* m_library = CDesignSpecifications::GetInstance();
};

} // namespace

TEST_F(ExampleProject, HasNothingWrongOrOdd)
{
    for (const LibraryFinding& finding : CheckLibrary(m_library->Folder()))
        ADD_FAILURE() << ToUtf8(finding.Text());
}

TEST_F(ExampleProject, LoadsInFileOrderWithoutATraceLine)
{
    EXPECT_EQ(m_trace.Text(), L"");
    ASSERT_EQ(m_library->Count(), 4);
    const wchar_t* kNames[] = {L"公路二级", L"城市道路", L"山区道路", L"高速公路"};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(m_library->Item(i)->Name(), kNames[i]) << i;
}

TEST_F(ExampleProject, FilesAreNamedAsTheLibraryNamesThem)
{
    CStringArray expected;
    for (int i = 0; i < m_library->Count(); ++i) {
        const CStyle* item = m_library->Item(i);
        expected.push_back(item->Name() + VMRDPub::GUIDToStr(item->ID()) + L".hds");
    }
    Problems problems;
    EXPECT_EQ(FindFiles(ProjectFolder() + L"/规范", L".hds", problems), expected);
}

TEST_F(ExampleProject, DefaultIsTheCityRoad)
{
    ASSERT_NE(m_library->DefaultItem(), nullptr);
    EXPECT_EQ(m_library->DefaultItem()->Name(), L"城市道路");
}

TEST_F(ExampleProject, CityRoadHoldsTheBuiltInLimits)
{
    CDesignSpecification expected = Named(L"城市道路");
    expected.CopyCriteria(CDesignSpecification());
    EXPECT_TRUE(Named(L"城市道路") == expected);
}

TEST_F(ExampleProject, Utf16FileIsReadWhole)
{
    const std::string bytes = FileBytes(L"高速公路019151A2-19D3-41ED-AF7A-EB1FE4070144.hds");
    EXPECT_EQ(bytes.substr(0, 4), std::string("\xFF\xFE<\0", 4));

    const CDesignSpecification& freeway = Named(L"高速公路");
    EXPECT_EQ(freeway.LonGrad.Criterion, L"《公路路线设计规范》,高速公路");
    int radius = 0;
    EXPECT_TRUE(QueryValue::QueryIntValBySpeed(&freeway.CircularCurveRad.SuperelevationMinRad, 120,
                                               QueryValue::Exact, radius));
    EXPECT_EQ(radius, 650);
}

TEST_F(ExampleProject, Gb18030FileIsReadWhole)
{
    const std::string bytes = FileBytes(L"山区道路2CFCDA1C-1E9A-48F2-9AAD-791CC590BC00.hds");
    EXPECT_NE(bytes.find("encoding=\"GB18030\""), std::string::npos);
    size_t offset = 0;
    EXPECT_FALSE(IsUtf8(bytes, offset));

    const CDesignSpecification& mountain = Named(L"山区道路");
    EXPECT_EQ(mountain.LonGrad.Criterion, L"山区道路,按城市道路规定放宽");
    EXPECT_EQ(mountain.BeelineLen.MinLenInOneDir, 0);
    double widening = 0;
    EXPECT_EQ(mountain.CurveWidening.QueryWidening(L"铰接车", 15, widening), 0);
    EXPECT_EQ(widening, 3.5);
}
