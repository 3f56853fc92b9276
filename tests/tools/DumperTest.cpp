// Routing, CRC check, previous tables and counting of the dump, in process.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "Dumper.h"
#include "SectionBuilder.h"

using namespace VuroTools;
using VuroTest::Bytes;
using VuroTest::SectionBuilder;

namespace {

Bytes pat(std::uint8_t version, std::uint16_t pmtPid = 0x01F0)
{
    return SectionBuilder(0x00)
        .longHeader(0x0640, version)
        .u16(0x0000).u16(0xE010)
        .u16(0xE580).u16(static_cast<std::uint16_t>(0xE000 | pmtPid))
        .build();
}

struct Captured {
    std::FILE* file = std::tmpfile();
    ~Captured() { std::fclose(file); }
    std::string text()
    {
        std::fflush(file);
        std::rewind(file);
        std::string out;
        char buffer[4096];
        std::size_t got;
        while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0)
            out.append(buffer, got);
        return out;
    }
};

const TableCounts& countsOf(const Dumper& dumper, std::uint16_t pid, std::uint8_t tableId)
{
    static const TableCounts none;
    const auto found = dumper.counts().find(std::uint32_t(pid) << 8 | tableId);
    return found == dumper.counts().end() ? none : found->second;
}

TEST(DumperTest, UnchangedVersionsAreCountedAndNewOnesPrinted)
{
    Captured out;
    DumpOptions options;
    options.summary = false;
    Dumper dumper(options, out.file);
    for (Bytes section : {pat(1), pat(1), pat(2)})
        dumper.onSection(0x0000, section.data(), section.size());
    const TableCounts& counts = countsOf(dumper, 0x0000, 0x00);
    EXPECT_EQ(counts.seen, 3u);
    EXPECT_EQ(counts.parsed, 2u);
    EXPECT_EQ(counts.unchanged, 1u);
    const std::string text = out.text();
    EXPECT_NE(text.find("version_number: 1"), std::string::npos);
    EXPECT_NE(text.find("version_number: 2"), std::string::npos);
    EXPECT_NE(text.find("program 0xE580:\n      program_number: 0xE580\n      program_map_PID: 0x01F0\n"),
              std::string::npos)
        << text;
}

TEST(DumperTest, CrcErrorsAreCountedAndNotParsed)
{
    Captured out;
    DumpOptions options;
    options.summary = false;
    Dumper dumper(options, out.file);
    Bytes section = pat(1);
    section[10] ^= 0x01;
    dumper.onSection(0x0000, section.data(), section.size());
    EXPECT_EQ(countsOf(dumper, 0x0000, 0x00).crcErrors, 1u);
    EXPECT_EQ(countsOf(dumper, 0x0000, 0x00).parsed, 0u);
    EXPECT_NE(out.text().find("PAT on PID 0x0000, table_id 0x00, 20 bytes: CRC_32 error"), std::string::npos);
}

TEST(DumperTest, RefusalsAreCountedByCodeWithTheLibraryLogLines)
{
    Captured out;
    DumpOptions options;
    options.verbose = true;
    options.summary = false;
    Dumper dumper(options, out.file);
    // 9 bytes: shorter than the least PAT the library accepts.
    Bytes section = SectionBuilder(0x00).buildWithSectionLength(6);
    section.resize(9);
    dumper.onSection(0x0000, section.data(), section.size());
    const TableCounts& counts = countsOf(dumper, 0x0000, 0x00);
    ASSERT_EQ(counts.refused.size(), 1u);
    EXPECT_EQ(counts.refused.begin()->first, 0x0A03);
    EXPECT_EQ(counts.logLines, 1u);
    const std::string text = out.text();
    EXPECT_NE(text.find("error: ERROR_INVALID_DATA_LENGTH"), std::string::npos) << text;
    EXPECT_NE(text.find("W/VuRO: ISDBTUtils: TISDBTTable::parse: Longer data length is required: 9 < 10. Aborting!"),
              std::string::npos)
        << text;
}

TEST(DumperTest, PmtPidsAreLearntFromThePatAndUndecodedTablesCounted)
{
    Captured out;
    DumpOptions options;
    Dumper dumper(options, out.file);
    SectionDemux demux(dumper);
    dumper.attach(demux);
    EXPECT_TRUE(demux.hasPid(0x0000));
    EXPECT_TRUE(demux.hasPid(0x0010));
    EXPECT_TRUE(demux.hasPid(0x0014));
    EXPECT_FALSE(demux.hasPid(0x01F0));
    Bytes section = pat(1, 0x01F0);
    dumper.onSection(0x0000, section.data(), section.size());
    EXPECT_TRUE(demux.hasPid(0x01F0));
    // A table the dump has no class for.
    Bytes tdt = {0x70, 0x70, 0x05, 0xE6, 0x40, 0x12, 0x00, 0x00};
    dumper.onSection(0x0014, tdt.data(), tdt.size());
    EXPECT_EQ(countsOf(dumper, 0x0014, 0x70).notDecoded, 1u);
}

TEST(DumperTest, SectionsWithoutAPidKeepAPreviousTablePerExtension)
{
    Captured out;
    DumpOptions options;
    options.summary = false;
    Dumper dumper(options, out.file);
    Bytes data = VuroTest::concat({pat(1), {0xFF, 0xFF}, pat(1),
                                   SectionBuilder(0x00).longHeader(0x0641, 1).u16(0x0000).u16(0xE010).build()});
    std::string error;
    ASSERT_TRUE(dumper.readSections(data.data(), data.size(), error)) << error;
    const TableCounts& counts = countsOf(dumper, Dumper::NO_PID, 0x00);
    EXPECT_EQ(counts.seen, 3u);
    EXPECT_EQ(counts.parsed, 2u); // transport streams 0x0640 and 0x0641
    EXPECT_EQ(counts.unchanged, 1u);
    EXPECT_NE(out.text().find("PAT, table_id 0x00, 20 bytes"), std::string::npos);
}

} // namespace
