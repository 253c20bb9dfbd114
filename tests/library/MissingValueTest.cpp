// A file of an older program lacks some values: each has its built-in one then.
#include "model/Criteria.h"
#include "tests/support/LibraryTest.h"

using namespace designspec;

namespace {

class MissingValue : public LibraryTest {
protected:
    // Another value than the built-in one.
    static void Change(const Field& field, void* criterion)
    {
        if (field.kind == FieldKind::Int) field.Of<std::int32_t>(criterion) = 77;
        if (field.kind == FieldKind::Double) field.Of<double>(criterion) = 12.5;
        if (field.kind == FieldKind::Bool) field.Of<BOOL>(criterion) = !field.Of<BOOL>(criterion);
        if (field.kind == FieldKind::Text) field.Of<CString>(criterion) = L"来源";
    }

    static void Copy(const Field& field, void* from, void* to)
    {
        if (field.kind == FieldKind::Int) field.Of<std::int32_t>(to) = field.Of<std::int32_t>(from);
        if (field.kind == FieldKind::Double) field.Of<double>(to) = field.Of<double>(from);
        if (field.kind == FieldKind::Bool) field.Of<BOOL>(to) = field.Of<BOOL>(from);
        if (field.kind == FieldKind::Text) field.Of<CString>(to) = field.Of<CString>(from);
    }

    // A specification of which no scalar has its built-in value.
    static CDesignSpecification Changed()
    {
        CDesignSpecification changed = Make(L"m", 20, kIdA);
        for (const CriterionInfo& criterion : Criteria())
            for (const Field& field : criterion.fields)
                Change(field, criterion.get(changed));
        changed.TransitionCurveMinLen.NoTCByMinRad.RemoveAll(); // out of use
        return changed;
    }

    // The file without the criterion's value, which is an attribute or an element.
    static std::string Without(std::string file, const std::string& criterion,
                               const std::string& key)
    {
        const size_t begin = file.find("<" + criterion);
        const size_t attribute = file.find(" " + key + "=\"", begin);
        const size_t element = file.find("<" + key + ">", begin);
        const std::string end = attribute < element ? "\"" : "</" + key + ">";
        const size_t at = std::min(attribute, element);
        const size_t behind = file.find(end, at + key.size() + 3) + end.size();
        return file.erase(at, behind - at);
    }
};

} // namespace

TEST_F(MissingValue, HasTheBuiltInOneAndTheOthersAreAsStored)
{
    const CDesignSpecification given = Changed();
    const std::string file = FileOf(AddSaved(given));
    const std::string stored = m_project.Read(file);
    int scalars = 0;
    for (const CriterionInfo& criterion : Criteria()) {
        for (const Field& field : criterion.fields) {
            if (field.HasRows()) continue;
            SCOPED_TRACE(ToUtf8(criterion.name) + "." + ToUtf8(field.key));
            m_project.Write(file, Without(stored, ToUtf8(criterion.name), ToUtf8(field.key)));
            Reload();
            ASSERT_EQ(Library().Count(), 1);
            CDesignSpecification builtIn;
            CDesignSpecification expected = given;
            Copy(field, criterion.get(builtIn), criterion.get(expected));
            EXPECT_TRUE(At(0) == expected);
            EXPECT_FALSE(At(0) == given);
            ++scalars;
        }
    }
    EXPECT_GT(scalars, 25);
}
