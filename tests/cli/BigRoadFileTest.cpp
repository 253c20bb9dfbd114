// designspec verify on a file that is larger than the memory it may take.
#include <fstream>

#include "tests/cli/CommandTest.h"

namespace {

class BigRoadFile : public CommandTest {
protected:
    BigRoadFile() { Done({"new", "公路"}); }

    // A road behind as many MiB of terrain.
    void Write(const std::string& name, int mebibytes) const
    {
        std::string block;
        for (int i = 0; block.size() < (1 << 20); ++i)
            block += "<P id=\"" + std::to_string(i) + "\">4321098.765 " + std::to_string(i % 1000) +
                     ".125 87.654</P>\n";
        std::ofstream file(m_folder.Native(name), std::ios::binary);
        file << "<?xml version=\"1.0\"?>\n<LandXML version=\"1.2\"><Surfaces><Surface><Definition>"
                "<Pnts>\n";
        for (int i = 0; i < mebibytes; ++i)
            file << block;
        file << "</Pnts></Definition></Surface></Surfaces>"
                "<Alignments><Alignment name=\"主线\"><CoordGeom><Line length=\"500\"/>"
                "<Curve rot=\"cw\" radius=\"140\" length=\"200\"/></CoordGeom></Alignment>"
                "</Alignments></LandXML>\n";
        ASSERT_TRUE(file.flush()) << "no room for " << mebibytes << " MiB";
    }
};

TEST_F(BigRoadFile, IsReadInALittleMemory)
{
    Write("big.xml", ROAD_FILE_MEBIBYTES);
    const ProcessResult result = Call({"verify", "big.xml", "--speed", "60"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, HasSubstr("圆曲线半径 140 m, 小于设超高最小半径 150 m"));
#ifndef __SANITIZE_ADDRESS__ // which takes memory of its own
    EXPECT_LE(result.peak, 64 * 1024);
#endif
    RecordProperty("peak KiB", static_cast<int>(result.peak));
}

} // namespace
