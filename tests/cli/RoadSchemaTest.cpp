// What designspec verify prints as JSON, held against its schema by another program.
#include "TreePaths.h"
#include "tests/cli/CommandTest.h"

namespace {

class RoadSchema : public CommandTest {
protected:
    RoadSchema() { Done({"new", "公路"}); }

    // Empty when the text satisfies the schema; otherwise what it does not.
    std::string Offence(const std::string& json) const
    {
        m_folder.Write("instance.json", json);
        const std::string validate =
            "import json, jsonschema, sys\n"
            "schema, instance = (json.load(open(name)) for name in sys.argv[1:])\n"
            "jsonschema.Draft7Validator.check_schema(schema)\n"
            "for error in jsonschema.Draft7Validator(schema).iter_errors(instance):\n"
            "    print(list(error.absolute_path), error.message)\n";
        const ProcessResult result =
            RunProcess({"/usr/bin/python3", "-c", validate,
                        SOURCE_DIR "/docs/roadcheck.schema.json", "instance.json"},
                       m_folder.Native());
        EXPECT_EQ(result.status, 0) << result.err;
        return result.out;
    }

    // Of the text on standard output and of the report, which are to be one.
    std::string OffenceOf(const std::filesystem::path& folder, Words words) const
    {
        const std::string report = m_folder.Native("report.json").string();
        words.insert(words.end(), {"--json", "--report", report});
        const std::string out = CallIn(folder, words).out;
        EXPECT_EQ(m_folder.Read("report.json"), out);
        return Offence(out);
    }
};

TEST_F(RoadSchema, HoldsForTheExamples)
{
    for (const char* const road : {"roads/合格.xml", "roads/违规.xml"})
        EXPECT_EQ(OffenceOf(SOURCE_DIR "/examples",
                            {"--project", "project", "verify", road, "--car", "普通汽车"}),
                  "");
}

TEST_F(RoadSchema, HoldsForFilesWithProblems)
{
    m_folder.Write("odd.xml",
                   "<LandXML version=\"1.2\"><Alignments>"
                   "<Alignment name=\"&lt;&#x202E;&#10;\" staStart=\"-50\" length=\"9\"><CoordGeom>"
                   "<Line length=\"100\"/><IrregularLine length=\"50\"/>"
                   "<Spiral length=\"50\" radiusStart=\"INF\" radiusEnd=\"50\" rot=\"cw\" "
                   "spiType=\"bloss\"/><Curve rot=\"cw\" radius=\"50\" length=\"1E-3\"/>"
                   "<Curve rot=\"ccw\" radius=\"50\" length=\"20\"/></CoordGeom>"
                   "<StaEquation staInternal=\"20\" staAhead=\"1000\"/></Alignment>"
                   "<Alignment name=\"空\"/></Alignments></LandXML>");
    m_folder.Write("text.xml", "<LandXML version=\"1.2\"><Alignments><Alignment name=\"纵\">"
                               "<Profile><ProfAlign><PVI>0 1</PVI><PVI>18 1.5</PVI></ProfAlign>"
                               "</Profile></Alignment></Alignments></LandXML>");
    m_folder.Write("broken.xml", "<LandXML><Alignments><Alignment name=\"半\"><CoordGeom>"
                                 "<Line length=\"30\"/></CoordGeom></Alignment>");
    const Words files = {"verify", "odd.xml", "broken.xml", "none.xml", "text.xml"};
    Words withSpeed = files;
    withSpeed.insert(withSpeed.end(), {"--speed", "60"});
    EXPECT_EQ(OffenceOf(m_folder.Native(), withSpeed), "");
    EXPECT_EQ(OffenceOf(m_folder.Native(), files), ""); // nothing can be checked
}

TEST_F(RoadSchema, DoesNotHoldForAnything)
{
    EXPECT_NE(Offence("{}"), "");
    EXPECT_NE(Offence("{\"files\":[],\"errors\":-1,\"warnings\":0,\"notes\":0}"), "");
    EXPECT_EQ(Offence("{\"files\":[],\"errors\":0,\"warnings\":0,\"notes\":0}"), "");
}

} // namespace
