#include "model/DesignSpecification.h"

#include <cstring>
#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "model/Criteria.h"
#include "model/FieldValue.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"
#include "platform/xtp/PropExchangeXMLNode.h"
#include "tests/support/Exchanged.h"
#include "tests/support/RandomSpecification.h"

using namespace designspec;

namespace {

constexpr char kId[] = "01234567-89AB-CDEF-0123-456789ABCDEF";

void ExpectSameCriteria(const CDesignSpecification& a, const CDesignSpecification& b)
{
    ForEachCriterion(
        [&](const auto& one) { EXPECT_TRUE(a.*one.member == b.*one.member) << ToUtf8(one.name); });
}

// Each criterion different from the built-in one.
CDesignSpecification Changed()
{
    CDesignSpecification changed;
    changed.SetName(L"甲");
    for (const CriterionInfo& criterion : Criteria())
        for (const Field& field : criterion.fields)
            if (field.kind == FieldKind::Text)
                field.Of<CString>(criterion.get(changed)) = criterion.name;
    return changed;
}

// Another value, or a row more.
void Change(const Field& field, void* criterion)
{
    Value value = field.HasRows() ? Value() : GetValue(field, criterion);
    if (field.HasRows())
        field.InsertRow(criterion, 0);
    else if (auto* text = std::get_if<CString>(&value))
        *text += L"1";
    else if (auto* decimal = std::get_if<double>(&value))
        *decimal += 1;
    else
        value = 1 - std::get<std::int32_t>(value);
    if (!field.HasRows()) SetValue(field, criterion, value);
}

} // namespace

TEST(DesignSpecification, ANewOneHasNoNameAndAnIdentityOfItsOwn)
{
    const CDesignSpecification one;
    const CDesignSpecification other;
    EXPECT_EQ(one.Name(), L"");
    EXPECT_FALSE(one.ID() == other.ID());
    EXPECT_FALSE(one.ID() == GUID{});
    ExpectSameCriteria(one, other);
}

TEST(DesignSpecification, HasTheRunTimeClassOfAStyle)
{
    const CRuntimeClass* const runtimeClass = RUNTIME_CLASS(CDesignSpecification);
    EXPECT_STREQ(runtimeClass->m_lpszClassName, "CDesignSpecification");
    EXPECT_EQ(runtimeClass->m_nObjectSize, static_cast<int>(sizeof(CDesignSpecification)));
    EXPECT_EQ(runtimeClass->m_wSchema, 0xFFFFU);
    EXPECT_EQ(runtimeClass->m_pfnCreateObject, nullptr);
    EXPECT_EQ(runtimeClass->CreateObject(), nullptr);
    EXPECT_EQ(runtimeClass->m_pBaseClass, RUNTIME_CLASS(CStyle));
    EXPECT_STREQ(runtimeClass->m_pBaseClass->m_lpszClassName, "CStyle");
    EXPECT_EQ(runtimeClass->m_pBaseClass->m_pBaseClass, RUNTIME_CLASS(CObject));
    const CDesignSpecification specification;
    EXPECT_EQ(specification.GetRuntimeClass(), runtimeClass);
    EXPECT_TRUE(specification.IsKindOf(RUNTIME_CLASS(CStyle)));
}

TEST(DesignSpecification, AnswersThroughItsBases)
{
    auto made = std::make_unique<CDesignSpecification>();
    made->SetName(L"甲");
    const GUID id = made->ID();
    const std::unique_ptr<CObject> object = std::move(made); // deleted through the base, too
    const auto* style = static_cast<const CStyle*>(object.get());
    EXPECT_EQ(style->Name(), L"甲");
    EXPECT_EQ(style->ID(), id);
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "CDesignSpecification");
}

// The order in which other modules find the virtual functions.
TEST(DesignSpecification, KeepsTheOrderOfItsVirtualFunctions)
{
    // A virtual function's pointer to member holds 1 + its offset in the table of functions.
    const auto slot = [](auto member) {
        std::ptrdiff_t offset = 0;
        std::memcpy(&offset, &member, sizeof offset);
        return (offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
    };
    EXPECT_EQ(slot(&CDesignSpecification::GetRuntimeClass), 0);
    // The destructor takes the next one (two here); then the base's three.
    const auto afterDestructor = slot(&CDesignSpecification::Serialize);
    EXPECT_GT(afterDestructor, 1);
    EXPECT_EQ(slot(&CDesignSpecification::AssertValid), afterDestructor + 1);
    EXPECT_EQ(slot(&CDesignSpecification::Dump), afterDestructor + 2);
    EXPECT_EQ(slot(&CDesignSpecification::Name), afterDestructor + 3);
    EXPECT_EQ(slot(&CDesignSpecification::ID), afterDestructor + 4);
}

TEST(DesignSpecification, CriteriaArePlainValuesThatLieInOrder)
{
    CDesignSpecification specification;
    const void* last = &specification;
    ForEachCriterion([&](const auto& one) {
        using Class = std::remove_reference_t<decltype(specification.*one.member)>;
        EXPECT_FALSE(std::is_polymorphic_v<Class>);
        EXPECT_TRUE(std::is_copy_constructible_v<Class>);
        EXPECT_TRUE(std::is_copy_assignable_v<Class>);
        const void* place = &(specification.*one.member);
        EXPECT_LT(last, place) << ToUtf8(one.name);
        last = place;
    });
}

TEST(DesignSpecification, ACopyIsTheSameSpecification)
{
    const CDesignSpecification source = Changed();
    const CDesignSpecification copy(source);
    EXPECT_EQ(copy.ID(), source.ID());
    EXPECT_EQ(copy.Name(), L"甲");
    ExpectSameCriteria(copy, source);
    EXPECT_TRUE(copy == source);
}

TEST(DesignSpecification, AssignmentMakesTheSameSpecification)
{
    const CDesignSpecification source = Changed();
    CDesignSpecification target;
    const CDesignSpecification& result = (target = source);
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target.ID(), source.ID());
    EXPECT_TRUE(target == source);
    EXPECT_TRUE(std::is_const_v<std::remove_reference_t<decltype(target = source)>>);
}

TEST(DesignSpecification, AssignmentToItselfChangesNothing)
{
    CDesignSpecification specification = Changed();
    const CDesignSpecification before = specification;
    const void* const buffer = specification.CircularCurveRad.SuperelevationMinRad.entries;
    const CDesignSpecification& same = specification;
    specification = same;
    EXPECT_TRUE(specification == before);
    EXPECT_EQ(specification.CircularCurveRad.SuperelevationMinRad.entries, buffer);
}

TEST(DesignSpecification, ComparesEveryPart)
{
    const CDesignSpecification plain;
    CDesignSpecification one(plain);
    EXPECT_TRUE(one == plain);
    one.SetName(L"b");
    EXPECT_FALSE(one == plain);
    for (const CriterionInfo& criterion : Criteria()) {
        for (const Field& field : criterion.fields) {
            CDesignSpecification copy(plain);
            Change(field, criterion.get(copy));
            EXPECT_FALSE(copy == plain) << ToUtf8(criterion.name) << '.' << ToUtf8(field.key);
        }
    }
    EXPECT_FALSE(CDesignSpecification() == plain); // another identity
}

TEST(DesignSpecification, CopyCriteriaLeavesNameAndIdentity)
{
    CDesignSpecification target;
    target.SetName(L"乙");
    const GUID id = target.ID();
    target.CopyCriteria(Changed());
    EXPECT_EQ(target.Name(), L"乙");
    EXPECT_EQ(target.ID(), id);
    ExpectSameCriteria(target, Changed());
}

TEST(DesignSpecification, StoresNameIdentityAndCriteriaInOrder)
{
    auto specification =
        Loaded<CDesignSpecification>(std::string("<Root Name='a' ID='") + kId + "'/>");
    const std::string xml = Stored(specification);
    const std::string start = std::string("<Root Name=\"a\" ID=\"") + kId + "\">\n";
    EXPECT_EQ(xml.substr(0, start.size()), start);
    CXTPPropExchangeXMLNode root(true, L"Root");
    ASSERT_TRUE(root.LoadFromBytes(xml, L"test.xml"));
    size_t at = 0;
    ForEachCriterion([&](const auto& one) {
        EXPECT_TRUE(root.FindSection(one.name).IsSectionExists()) << ToUtf8(one.name);
        const size_t place = xml.find("\n  <" + ToUtf8(one.name));
        ASSERT_NE(place, std::string::npos) << ToUtf8(one.name);
        EXPECT_GT(place, at) << ToUtf8(one.name);
        at = place;
    });
}

TEST(DesignSpecification, StoringReplacesTheCriteriaThatStoodThere)
{
    CXTPPropExchangeXMLNode root(false, L"Root");
    CDesignSpecification specification = Changed();
    specification.DoPropExchange(&root);
    CDesignSpecification plain(specification);
    plain.CopyCriteria(CDesignSpecification());
    plain.DoPropExchange(&root);
    const std::string xml = root.SaveToBytes();
    EXPECT_EQ(xml.substr(xml.find('\n') + 1), Stored(plain));
}

TEST(DesignSpecification, AMissingCriterionIsTheBuiltInOne)
{
    const auto loaded = Loaded(std::string("<Root Name='n' ID='") + kId + "'/>", Changed());
    ExpectSameCriteria(loaded, CDesignSpecification());
    EXPECT_EQ(loaded.Name(), L"n");
    EXPECT_EQ(VMRDPub::GUIDToStr(loaded.ID()), ToWide(kId));
}

TEST(DesignSpecification, OnlyTheMissingCriterionIsReset)
{
    CDesignSpecification changed = Changed();
    CXTPPropExchangeXMLNode root(false, L"Root");
    changed.DoPropExchange(&root);
    root.FindSection(L"LonGrad").RemoveSection();
    const auto loaded = Loaded<CDesignSpecification>(root.SaveToBytes());
    changed.LonGrad = CDSLonGrad();
    EXPECT_TRUE(loaded == changed);
}

TEST(DesignSpecification, WithoutAnIdentityItGetsAFreshOne)
{
    const CDesignSpecification before = Changed();
    for (const char* xml : {"<Root/>", "<Root ID=''/>", "<Root ID='xyz'/>"}) {
        const auto loaded = Loaded(xml, before);
        EXPECT_FALSE(loaded.ID() == before.ID()) << xml;
        EXPECT_FALSE(loaded.ID() == GUID{}) << xml;
        EXPECT_EQ(loaded.Name(), L"甲") << xml; // a missing name stays
    }
}

TEST(DesignSpecification, ReadsAnIdentityInEitherForm)
{
    for (const char* id :
         {"{01234567-89ab-cdef-0123-456789abcdef}", "01234567-89aB-cDEF-0123-456789abcdef"}) {
        const auto loaded = Loaded<CDesignSpecification>(std::string("<Root ID='") + id + "'/>");
        EXPECT_EQ(VMRDPub::GUIDToStr(loaded.ID()), ToWide(kId));
    }
}

TEST(DesignSpecification, LoadsWhatItStored)
{
    RandomSpecification random(1);
    for (int i = 0; i < 500; ++i) {
        const CDesignSpecification made = random.Make();
        const std::string xml = Stored(made);
        const auto loaded = Loaded<CDesignSpecification>(xml);
        ExpectSameCriteria(loaded, made);
        ASSERT_TRUE(loaded == made) << xml;
        ASSERT_EQ(Stored(loaded), xml);
    }
}
