#include "model/UnknownContent.h"

#include <regex>

#include <gtest/gtest.h>

#include "model/DesignSpecification.h"
#include "tests/support/Exchanged.h"

using namespace designspec;

namespace {

constexpr char kId[] = "01234567-89AB-CDEF-0123-456789ABCDEF";

CDesignSpecification Plain()
{
    return Loaded<CDesignSpecification>(std::string("<Root Name='甲' ID='") + kId + "'/>");
}

// Without the blanks between elements.
std::string Joined(const std::string& xml)
{
    return std::regex_replace(xml, std::regex(">\\s+<"), "><");
}

// The first `from` replaced.
std::string With(std::string xml, const std::string& from, const std::string& to)
{
    const size_t at = xml.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? xml : xml.replace(at, from.size(), to);
}

// Gives every element an unknown attribute and an unknown last child, numbered.
std::string WithUnknownEverywhere(const std::string& xml, int& count)
{
    static const std::regex tag("<(/?)([A-Za-z]+)([^>]*?)(/?)>");
    std::string made;
    size_t at = 0;
    for (std::sregex_iterator one(xml.begin(), xml.end(), tag), end; one != end; ++one) {
        const std::smatch& match = *one;
        made += xml.substr(at, static_cast<size_t>(match.position()) - at);
        at = static_cast<size_t>(match.position() + match.length());
        const std::string name = match[2];
        const std::string child =
            "<Later n=\"" + std::to_string(++count) + "\"><Deep /> &lt;text&gt; </Later>";
        if (match.length(1) > 0) {
            made += child + match.str();
            continue;
        }
        const std::string attributes =
            match[3].str().substr(0, match[3].str().find_last_not_of(' ') + 1);
        made += "<" + name + attributes + " later=\"" + std::to_string(count) + "\">";
        if (match.length(4) > 0) made += child + "</" + name + ">";
    }
    return made + xml.substr(at);
}

// What a file of that text holds once it was read and written.
std::string Rewritten(const std::string& xml)
{
    return Stored(Loaded<CDesignSpecification>(xml));
}

} // namespace

TEST(UnknownContent, SurvivesAtEachDepthWhenAnotherValueIsChanged)
{
    int count = 0;
    const std::string given = WithUnknownEverywhere(Stored(Plain()), count);
    EXPECT_GT(count, 200);
    auto changed = Loaded<CDesignSpecification>(given);
    changed.CircularCurveRad.MaxRad = 9000;
    const std::string stored = Stored(changed);
    EXPECT_EQ(Joined(stored), Joined(With(given, ">10000<", ">9000<")));
    EXPECT_EQ(Rewritten(stored), stored);
}

TEST(UnknownContent, IsNoticedWhereverItStandsAlone)
{
    const std::string plain = Stored(Plain());
    static const std::regex tag("<[A-Za-z0-9]+");
    for (std::sregex_iterator one(plain.begin(), plain.end(), tag), end; one != end; ++one) {
        std::string given = plain;
        given.insert(static_cast<size_t>(one->position() + one->length()), " later='1'");
        EXPECT_NE(Rewritten(given).find(" later=\"1\""), std::string::npos) << one->position();
    }
}

TEST(UnknownContent, IsThatOfOneSpecificationAmongSeveral)
{
    CXTPPropExchangeXMLNode root(true, L"Root");
    ASSERT_TRUE(root.LoadFromBytes("<Root><Style Name='a'/><Style Name='b' later='1'/>"
                                   "<Style Name='c'/></Root>",
                                   L"test.xml"));
    CString names;
    for (CXTPPropExchange style = root.FindSection(L"Style"); style.IsSectionExists();
         style.MoveToNext()) {
        CDesignSpecification specification;
        specification.DoPropExchange(&style);
        const bool keeps = Stored(specification).find("later") != std::string::npos;
        names += specification.Name() + (keeps ? L"+" : L"");
    }
    EXPECT_EQ(names, L"ab+c");
}

TEST(UnknownContent, IsFoundAgainByTheKeysOfItsRow)
{
    const std::string xml =
        std::string("<Root Name='甲' ID='") + kId +
        "'><CircularCurveRad><SuperelevationMinRad><Item speed='60' value='2'/>"
        "<Item value='1' speed=' +80 ' later='a'/></SuperelevationMinRad></CircularCurveRad>"
        "<LonGradMaxLen><maxLens><Item Grad='7'><Item speed='60' value='1'/></Item>"
        "<Item Grad='5.50' later='b'><Item speed='60' value='1'/></Item></maxLens></LonGradMaxLen>"
        "<CurveWidening><Radiuses><Radius max='9' later='c'/></Radiuses></CurveWidening></Root>";
    const std::string stored = Rewritten(xml);
    EXPECT_NE(stored.find("<Item speed=\"80\" value=\"1\" later=\"a\" />"), std::string::npos);
    EXPECT_NE(stored.find("<Item Grad=\"5.5\" later=\"b\">"), std::string::npos);
    EXPECT_NE(stored.find("<Radius min=\"0\" max=\"9\" later=\"c\" />"), std::string::npos);
    EXPECT_EQ(Rewritten(stored), stored);
}

TEST(UnknownContent, GoesWithItsRow)
{
    std::string xml = Stored(Plain());
    xml = With(xml, "<Item Grad=\"5.5\">", "<Item Grad=\"5.5\" later=\"1\"><Later/>");
    xml = With(xml, "<Item superElev=\"6\" ", "<Item later=\"1\" superElev=\"6\" ");
    auto changed = Loaded<CDesignSpecification>(xml);
    changed.LonGradMaxLen.rows.RemoveAt(1);
    changed.SuperElevation.definitions[0].rows[0].ranges[0].maxRadius = 299; // another row
    const std::string stored = Stored(changed);
    EXPECT_EQ(stored.find("ater"), std::string::npos);
    CDesignSpecification plain = Plain();
    plain.LonGradMaxLen.rows.RemoveAt(1);
    plain.SuperElevation.definitions[0].rows[0].ranges[0].maxRadius = 299;
    EXPECT_EQ(stored, Stored(plain));
}

TEST(UnknownContent, KnownNamesWhereTheyCannotBeReadAreNone)
{
    const std::string plain = Stored(Plain());
    for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
             {"</LonGrad>", "<MinGrad>7</MinGrad></LonGrad>"}, // the second one
             {"<LonGrad>", "<LonGrad MinGrad='7'>"},           // an attribute for an element
             {"</BeelineLen>", "<MaxLen>7</MaxLen></BeelineLen>"},
             {"</Root>", "<LonGrad><Later/></LonGrad></Root>"},
             {"</Root>", "<!-- 注 --></Root>"}})
        EXPECT_EQ(Rewritten(With(plain, from, to)), plain) << to;
    auto changed = Plain();
    changed.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    changed.TransitionCurveMinLen.NoTCByMinRad.RemoveAll();
    EXPECT_EQ(Rewritten(With(Stored(changed), "</TransitionCurveMinLen>",
                             "<NoTCByMinRad><Item speed='80' value='7'/></NoTCByMinRad>"
                             "</TransitionCurveMinLen>")),
              Stored(changed));
}

TEST(UnknownContent, NamesThatAreKnownElsewhereOnlyAreUnknownHere)
{
    const std::string given =
        With(Stored(Plain()), "</BeelineLen>", "<MinGrad>7</MinGrad></BeelineLen>");
    EXPECT_EQ(Joined(Rewritten(given)), Joined(given));
}

TEST(UnknownContent, IsCopiedAndCompared)
{
    const std::string given = With(Stored(Plain()), "<LonGrad>", "<LonGrad later=\"1\">");
    const auto source = Loaded<CDesignSpecification>(given);
    const CDesignSpecification copy(source);
    CDesignSpecification assigned;
    assigned = source;
    CDesignSpecification other = Plain();
    EXPECT_FALSE(other == source);
    other.CopyCriteria(source);
    for (const CDesignSpecification& one : {copy, assigned, other}) {
        EXPECT_EQ(Stored(one), given);
        EXPECT_TRUE(one == source);
    }
}

TEST(UnknownContent, IsGoneWithTheNextContentThatIsLoaded)
{
    const std::string plain = Stored(Plain());
    const auto given =
        Loaded<CDesignSpecification>(With(plain, "<LonGrad>", "<LonGrad later='1'>"));
    EXPECT_EQ(Stored(Loaded(plain, given)), plain);
}

TEST(UnknownContent, TakesThePlaceOfWhatStoodThere)
{
    const auto specification = Loaded<CDesignSpecification>(With(
        With(Stored(Plain()), "<Root ", "<Root later='2' "), "</Root>", "<Later>2</Later></Root>"));
    CXTPPropExchangeXMLNode root(false, L"Root");
    CXTPPropExchange old = root.AppendSection(L"Later");
    for (int i = 0; i < 2; ++i)
        CDesignSpecification(specification).DoPropExchange(&root);
    const std::string xml = root.SaveToBytes();
    EXPECT_EQ(Joined(xml.substr(xml.find('\n') + 1)), Joined(Stored(specification)));
}

// Of rows, of rows in rows, of criteria and beside them; the file has them in an order of its own.
TEST(UnknownContent, IsTheSameAfterOneSaveInWhateverOrderItCame)
{
    const std::string given = "<Root Name='甲' ID='" + std::string(kId) + R"('><Z/><A a='1'/>
        <LonGradMaxLen><Y/><maxLens><Item Grad='8' later='8'><Item speed='40' value='200'/></Item>
        <Item Grad='5'><Item speed='60' value='1' x='1'/><Item speed='80' value='2' x='2'/><X/></Item>
        </maxLens></LonGradMaxLen><BeelineLen later='1'/><A a='2'/></Root>)";
    const auto first = Loaded<CDesignSpecification>(given);
    const std::string stored = Stored(first);
    for (const char* kept : {"<Z", "<A a=\"1\"", "<Y", "later=\"8\"", "x=\"1\"", "<X"})
        EXPECT_NE(stored.find(kept), std::string::npos) << kept;
    const auto second = Loaded<CDesignSpecification>(stored);
    EXPECT_EQ(second.Unknown(), first.Unknown());
    EXPECT_TRUE(second == first);
    EXPECT_EQ(Stored(second), stored);
}
