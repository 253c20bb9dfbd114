#include <cstdlib>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "library/DesignSpecifications.h"
#include "model/Criteria.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/windows/File.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceCapture.h"

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

// Fills every field of a specification with what may stand there, tables of 0 to 5 rows included.
class RandomFiller {
public:
    explicit RandomFiller(unsigned seed) : m_random(seed) {}

    void Fill(CDesignSpecification& specification)
    {
        for (const CriterionInfo& criterion : Criteria())
            for (const Field& field : criterion.fields)
                FillField(field, criterion.get(specification));
        if (specification.TransitionCurveMinLen.NoTCBySuperelevation)
            specification.TransitionCurveMinLen.NoTCByMinRad.RemoveAll();
        FillMaxLen(specification.LonGradMaxLen);
        FillSuperElevation(specification.SuperElevation);
        FillWidening(specification.CurveWidening);
    }

    CString Text()
    {
        static constexpr std::wstring_view kPieces[] = {
            L"规范", L"<", L"&", L"\"", L"'",   L"]]>",    L" ",      L"\t",
            L"\n",   L"a", L"é", L"𠀀", L"\x1", L"\xFFFE", L"\xDC80", L"--",
        };
        CString text;
        for (int i = Int(0, 8); i > 0; --i)
            text += kPieces[static_cast<size_t>(Int(0, std::size(kPieces) - 1))];
        return text;
    }

private:
    int Int(int least, size_t most)
    {
        return std::uniform_int_distribution<int>(least, static_cast<int>(most))(m_random);
    }

    std::int32_t AnyInt()
    {
        using Limits = std::numeric_limits<std::int32_t>;
        return std::uniform_int_distribution<std::int32_t>(Limits::min(), Limits::max())(m_random);
    }

    double AnyDouble()
    {
        using Limits = std::numeric_limits<double>;
        static constexpr double kEnds[] = {0,    -0.0, Limits::max(), Limits::lowest(),
                                           1e-5, 1e22, Limits::min(), Limits::denorm_min()};
        if (Int(0, 3) == 0) return kEnds[static_cast<size_t>(Int(0, std::size(kEnds) - 1))];
        return std::uniform_real_distribution<double>(-1e6, 1e6)(m_random);
    }

    template <class T, class Make> void Rows(GrowArray<T>& rows, Make make)
    {
        rows.RemoveAll();
        for (int i = Int(0, 5); i > 0; --i)
            rows.Add(make());
    }

    void Table(SpeedToIntValues& table)
    {
        const auto row = [this] { return SpeedEntry<std::int32_t>{AnyInt(), AnyInt()}; };
        Rows(table, row);
        SortDescending(table);
    }

    void Table(SpeedToDoubleValues& table)
    {
        Rows(table, [this] { return SpeedEntry<double>{AnyInt(), AnyDouble()}; });
        SortDescending(table);
    }

    void FillField(const Field& field, void* criterion)
    {
        switch (field.kind) {
        case FieldKind::Int:
            field.Of<std::int32_t>(criterion) = AnyInt();
            break;
        case FieldKind::Double:
            field.Of<double>(criterion) = AnyDouble();
            break;
        case FieldKind::Bool:
            field.Of<BOOL>(criterion) = Int(0, 1);
            break;
        case FieldKind::Text:
            field.Of<CString>(criterion) = Text();
            break;
        case FieldKind::IntTable:
            Table(field.Of<SpeedToIntValues>(criterion));
            break;
        case FieldKind::DoubleTable:
            Table(field.Of<SpeedToDoubleValues>(criterion));
            break;
        }
    }

    void FillMaxLen(CDSLonGradMaxLen& criterion)
    {
        Rows(criterion.rows, [this] {
            GradientRow row{AnyDouble(), {}};
            Table(row.lengths);
            return row;
        });
    }

    void FillSuperElevation(CDSSuperElevation& criterion)
    {
        Rows(criterion.definitions, [this] {
            SuperElevDefinition definition{AnyInt(), {}};
            Rows(definition.rows, [this] {
                SuperElevSpeedRow row{AnyInt(), {}};
                Rows(row.ranges, [this] { return SuperElevRange{AnyInt(), AnyInt(), AnyInt()}; });
                return row;
            });
            return definition;
        });
    }

    void FillWidening(CDSCurveWidening& criterion)
    {
        Rows(criterion.ranges, [this] {
            WideningRange range{AnyInt(), AnyInt(), {}};
            Rows(range.widenings, [this] { return Widening{Text(), AnyDouble()}; });
            return range;
        });
    }

    std::mt19937 m_random;
};

class Schema : public testing::Test {
protected:
    Schema() { VMRDPub::SetCurPrjPath(m_folder.Path()); }
    ~Schema() override { CDesignSpecifications::Destroy(); }

    CDesignSpecification& Add(const wchar_t* name)
    {
        auto* specification = new CDesignSpecification;
        specification->SetName(name);
        m_library->Add(specification);
        return *specification;
    }

    // The file that Save has written for the specification.
    CString FileOf(const CDesignSpecification& specification) const
    {
        return Format(L"%s/规范/%s%s.hds", m_folder.Path(), specification.Name(),
                      VMRDPub::GUIDToStr(specification.ID()));
    }

    // The file of a new specification, with the first `from` in it replaced.
    CString WriteChanged(const std::string& from, const std::string& to)
    {
        const CDesignSpecification& specification = Add(L"改过");
        EXPECT_TRUE(m_library->Save(&specification));
        std::string bytes;
        EXPECT_TRUE(ReadWholeFile(FileOf(specification), bytes, 1 << 20));
        const size_t at = bytes.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        if (at != std::string::npos) bytes.replace(at, from.size(), to);
        return m_folder.Write("changed.hds", bytes);
    }

    TemporaryFolder m_folder;
    TraceCapture m_trace;
    CDesignSpecifications* m_library = CDesignSpecifications::GetInstance();
};

} // namespace

TEST_F(Schema, HoldsForASavedSpecification)
{
    const CDesignSpecification& specification = Add(L"甲");
    ASSERT_TRUE(m_library->Save(&specification));
    EXPECT_TRUE(IsValid(FileOf(specification)));
}

TEST_F(Schema, HoldsForAnExportOfNoneOneAndMany)
{
    const CString file = m_folder.Path(L"out.hds");
    ASSERT_TRUE(m_library->Export(file.c_str(), {L"没有"}, nullptr));
    EXPECT_TRUE(IsValid(file));
    Add(L"甲");
    Add(L"乙");
    ASSERT_TRUE(m_library->Export(file.c_str(), {L"乙"}, nullptr));
    EXPECT_TRUE(IsValid(file));
    ASSERT_TRUE(m_library->Export(file.c_str(), {}, nullptr)); // 乙 is written over, 甲 appended
    EXPECT_TRUE(IsValid(file));
}

TEST_F(Schema, HoldsForTheExampleFilesInAllTheirEncodings)
{
    const CString folder = ToWide(SOURCE_DIR "/examples/project/规范");
    const CStringArray files = FindFiles(folder, L".hds");
    EXPECT_EQ(files.size(), 4U);
    for (const CString& file : files)
        EXPECT_TRUE(IsValid(folder + L"/" + file)) << ToUtf8(file);
}

TEST_F(Schema, HoldsForAnyContentWhichLoadsWithoutATraceLine)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        RandomFiller filler(seed);
        CDesignSpecification& specification = Add(L"任意");
        filler.Fill(specification);
        ASSERT_TRUE(m_library->Save(&specification));
        EXPECT_TRUE(IsValid(FileOf(specification))) << seed;
    }
    const int count = m_library->Count();
    EXPECT_EQ(m_trace.Text(), L"");
    m_library->Update();
    EXPECT_EQ(m_trace.Text(), L"");
    EXPECT_EQ(m_library->Count(), count);
}

TEST_F(Schema, HoldsForAnyName)
{
    const CString file = m_folder.Path(L"names.hds");
    for (unsigned seed = 0; seed < 20; ++seed) {
        Add(RandomFiller(seed).Text().c_str());
        ASSERT_TRUE(m_library->Export(file.c_str(), {}, nullptr));
        EXPECT_TRUE(IsValid(file)) << seed;
    }
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

TEST_F(Schema, RefusesMissingAndUnknownParts)
{
    EXPECT_FALSE(IsValid(WriteChanged("<MaxRad>10000</MaxRad>", "")));
    EXPECT_FALSE(IsValid(WriteChanged("<MaxRad>", "<Unknown/><MaxRad>")));
    EXPECT_FALSE(IsValid(WriteChanged(" ID=", " Id=")));
    EXPECT_FALSE(IsValid(WriteChanged("Group Name=\"设计规范\"", "Group Name=\"其它\"")));
}

TEST_F(Schema, RefusesAnIdentityThatIsNoneOrStandsTwice)
{
    const CDesignSpecification& specification = Add(L"甲");
    const std::string id = ToUtf8(VMRDPub::GUIDToStr(specification.ID()));
    ASSERT_TRUE(m_library->Save(&specification));
    std::string bytes;
    ASSERT_TRUE(ReadWholeFile(FileOf(specification), bytes, 1 << 20));

    std::string wrong = bytes;
    wrong.replace(wrong.find(id), id.size(), id.substr(1));
    EXPECT_FALSE(IsValid(m_folder.Write("wrong.hds", wrong)));

    const size_t begin = bytes.find("<Style ");
    const size_t end = bytes.find("</Styles>");
    std::string twice = bytes;
    twice.insert(end, bytes.substr(begin, end - begin));
    EXPECT_FALSE(IsValid(m_folder.Write("twice.hds", twice)));
}
