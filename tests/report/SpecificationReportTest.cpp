#include "report/SpecificationReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include "base/Text.h"
#include "model/Criteria.h"
#include "tests/support/RandomSpecification.h"

using testing::HasSubstr;
using testing::Not;

namespace {

std::string ReportOf(const CDesignSpecification& one, const CDesignSpecification* other = nullptr)
{
    ReportOptions options;
    options.comparedWith = other;
    return HtmlReport({&one}, options);
}

int Count(const std::string& text, const std::string& what)
{
    int count = 0;
    for (size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += what.size())
        ++count;
    return count;
}

} // namespace

TEST(SpecificationReport, HasEveryPageInContentsAndText)
{
    CDesignSpecification one;
    one.SetName(L"城市");
    const std::string html = ReportOf(one);
    for (const CriterionInfo& criterion : Criteria()) {
        const std::string label = ToUtf8(criterion.label);
        EXPECT_THAT(html, HasSubstr("<h3>" + label + "</h3>"));
        EXPECT_EQ(Count(html, label + "</a>"), 1) << label;
    }
    EXPECT_THAT(html, HasSubstr("<tr><td>设超高最小半径(m)</td><td>250</td><td>150</td>"));
    EXPECT_THAT(html, HasSubstr("<th>设计车速(km/h)</th><th>80</th>"));
    EXPECT_THAT(html, HasSubstr("<h4>最大超高 6%</h4>"));
    EXPECT_THAT(html, HasSubstr("<td>200~300</td>"));
    EXPECT_THAT(html, HasSubstr("<tr><td>数据来源</td><td>(未填)</td></tr>"));
}

// A name cannot make markup, and nothing is fetched from elsewhere.
TEST(SpecificationReport, TakesAnyTextAsText)
{
    CDesignSpecification one;
    one.SetName(L"<script>alert(1)</script>&\"\n");
    one.LonGrad.Criterion = L"<img src=x>";
    const std::string html = ReportOf(one);
    EXPECT_THAT(html, Not(HasSubstr("<script")));
    EXPECT_THAT(html, Not(HasSubstr("<img")));
    EXPECT_THAT(html, HasSubstr("&lt;script&gt;alert(1)"));
    EXPECT_THAT(html, Not(HasSubstr("http")));
}

TEST(SpecificationReport, IsWellFormedWhateverAFileHolds)
{
    for (unsigned seed = 1; seed <= 30; ++seed) {
        const CDesignSpecification one = RandomSpecification(seed).Make();
        const CDesignSpecification other = RandomSpecification(seed + 1000).Make();
        std::string html = ReportOf(one, &other);
        html = html.substr(html.find("<body>"), html.find("</html>") - html.find("<body>"));
        pugi::xml_document document;
        const auto result = document.load_buffer(html.data(), html.size());
        EXPECT_TRUE(result) << seed << ": " << result.description();
    }
}

// No sheet is wide enough for 120 speeds.
TEST(SpecificationReport, AWideTableGoesOnBelow)
{
    CDesignSpecification one;
    one.LonGradMinLen.MinLens.RemoveAll();
    for (int speed = 1; speed <= 120; ++speed)
        one.LonGradMinLen.MinLens.Add({speed, 1000 + speed});
    std::string html = ReportOf(one);
    html = html.substr(html.find("<h3>纵坡最小坡长</h3>"));
    html = html.substr(0, html.find("</section>"));
    EXPECT_GE(Count(html, "<thead>"), 6);
    EXPECT_EQ(Count(html, "<td>最小坡长(m)</td>"), Count(html, "<thead>"));
    for (int speed = 1; speed <= 120; ++speed)
        EXPECT_EQ(Count(html, "<td>" + std::to_string(1000 + speed) + "</td>"), 1);
}

TEST(SpecificationReport, MarksDeviations)
{
    CDesignSpecification one;
    CDesignSpecification other = one;
    other.SetName(L"国标");
    one.LonGrad.MinGrad = 0.5;
    one.LonGradMinLen.MinLens = {{80, 290}};
    other.LonGradMinLen.MinLens = {{60, 170}};
    const std::string html = ReportOf(one, &other);
    EXPECT_THAT(html, HasSubstr("<td class=\"differs\">0.5 <small>[0.3]</small></td>"));
    EXPECT_THAT(html, HasSubstr("<td class=\"differs\">290 <small>[–]</small></td>"
                                "<td class=\"differs\">– <small>[170]</small></td>"));
    EXPECT_THAT(html, HasSubstr("纵坡最小坡长</a> <small>2 处不同</small>"));
    EXPECT_THAT(html, HasSubstr("与“国标”比较"));
}
