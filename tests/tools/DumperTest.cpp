// Routing, CRC check, previous tables and counting of the dump, in process.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <nlohmann/json.hpp>

#include "DescriptorLoops.h"
#include "Dumper.h"
#include "SectionBuilder.h"
#include "tables/DescriptorPrinter.h"

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

// Output kept in memory.
struct Captured {
    char* buffer = nullptr;
    std::size_t size = 0;
    std::FILE* file = open_memstream(&buffer, &size);
    ~Captured()
    {
        std::fclose(file);
        std::free(buffer);
    }
    std::string text() { return std::fflush(file) == 0 ? std::string(buffer, size) : std::string(); }
};

DumpOptions options(bool json = false, bool verbose = false)
{
    DumpOptions result;
    result.json = json;
    result.verbose = verbose;
    result.summary = false;
    return result;
}

// A dumper printing to a temporary file.
struct Session {
    explicit Session(const DumpOptions& options = DumpOptions()) : dumper(options, out.file) {}
    void feed(std::uint16_t pid, Bytes section) { dumper.onSection(pid, section.data(), section.size()); }
    const TableCounts& counts(std::uint16_t pid, std::uint8_t tableId) const
    {
        static const TableCounts none;
        const auto found = dumper.counts().find(std::uint32_t(pid) << 8 | tableId);
        return found == dumper.counts().end() ? none : found->second;
    }
    Captured out;
    Dumper dumper;
};

TEST(DumperTest, UnchangedVersionsAreCountedNewOnesPrintedAndCrcErrorsNotParsed)
{
    Session run(options());
    Bytes corrupt = pat(1);
    corrupt[10] ^= 0x01;
    for (const Bytes& section : {pat(1), pat(1), pat(2), corrupt})
        run.feed(0x0000, section);
    const TableCounts& counts = run.counts(0x0000, 0x00);
    EXPECT_EQ(counts.seen, 4u);
    EXPECT_EQ(counts.parsed, 2u);
    EXPECT_EQ(counts.unchanged, 1u);
    EXPECT_EQ(counts.crcErrors, 1u);
    const std::string text = run.out.text();
    EXPECT_NE(text.find("version_number: 1"), std::string::npos);
    EXPECT_NE(text.find("version_number: 2"), std::string::npos);
    EXPECT_NE(text.find("program 0xE580:\n      program_number: 0xE580\n      program_map_PID: 0x01F0\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("PAT on PID 0x0000, table_id 0x00, 20 bytes: CRC_32 error"), std::string::npos);
}

TEST(DumperTest, RefusalsAreCountedByCodeWithTheLibraryLogLines)
{
    Session run(options(false, true));
    // 9 bytes: shorter than the least PAT the library accepts.
    Bytes section = SectionBuilder(0x00).buildWithSectionLength(6);
    section.resize(9);
    run.feed(0x0000, section);
    const TableCounts& counts = run.counts(0x0000, 0x00);
    ASSERT_EQ(counts.refused.size(), 1u);
    EXPECT_EQ(counts.refused.begin()->first, 0x0A03);
    EXPECT_EQ(counts.logLines, 1u);
    const std::string text = run.out.text();
    EXPECT_NE(text.find("error: ERROR_INVALID_DATA_LENGTH"), std::string::npos) << text;
    EXPECT_NE(text.find("W/VuRO: ISDBTUtils: TISDBTTable::parse: Longer data length is required: 9 < 10. Aborting!"),
              std::string::npos)
        << text;
}

TEST(DumperTest, PmtPidsAreLearntFromThePatAndUndecodedTablesCounted)
{
    Session run;
    SectionDemux demux(run.dumper);
    run.dumper.attach(demux);
    EXPECT_TRUE(demux.hasPid(0x0000));
    EXPECT_TRUE(demux.hasPid(0x0010));
    EXPECT_TRUE(demux.hasPid(0x0014));
    EXPECT_FALSE(demux.hasPid(0x01F0));
    run.feed(0x0000, pat(1, 0x01F0));
    EXPECT_TRUE(demux.hasPid(0x01F0));
    // A table the dump has no class for.
    run.feed(0x0014, {0x70, 0x70, 0x05, 0xE6, 0x40, 0x12, 0x00, 0x00});
    EXPECT_EQ(run.counts(0x0014, 0x70).notDecoded, 1u);
}

TEST(DumperTest, SectionsWithoutAPidKeepAPreviousTablePerExtension)
{
    Session run(options());
    Bytes data = VuroTest::concat({pat(1), {0xFF, 0xFF}, pat(1),
                                   SectionBuilder(0x00).longHeader(0x0641, 1).u16(0x0000).u16(0xE010).build()});
    std::string error;
    ASSERT_TRUE(run.dumper.readSections(data.data(), data.size(), error)) << error;
    const TableCounts& counts = run.counts(Dumper::NO_PID, 0x00);
    EXPECT_EQ(counts.seen, 3u);
    EXPECT_EQ(counts.parsed, 2u); // transport streams 0x0640 and 0x0641
    EXPECT_EQ(counts.unchanged, 1u);
    EXPECT_NE(run.out.text().find("PAT, table_id 0x00, 20 bytes"), std::string::npos);
}

// Service 0xE580 running and free, with the copy-control, logo, content
// availability and CA descriptors; service 0xE598 (first in the section)
// not running and scrambled.
Bytes sdt(std::uint8_t tableId = 0x42)
{
    const Bytes full = VuroTest::concat({
        VuroTest::descriptor(0x48, {0x01, 0x04, 'V', 'u', 'r', 'o', 0x02, 'H', 'D'}),
        VuroTest::descriptor(0x53, {0x05, 0x01}),
        // recording control 2, bitrate and component flags, copy type 1; one entry with its bitrate.
        VuroTest::descriptor(0xC1, {0xB4, 0x30, 0x02, 0x60, 0x20}),
        VuroTest::descriptor(0xDE, {0xC7}),
        VuroTest::descriptor(0xCF, {0x01, 0xFE, 0x05, 0xF0, 0x02, 0x00, 0x10}),
    });
    const Bytes oneSeg = VuroTest::descriptor(0x48, {0xC0, 0x00, 0x04, '1', 's', 'e', 'g'});
    return SectionBuilder(tableId)
        .longHeader(0x0640, 3)
        .u16(0x0641).u8(0xFF)
        .u16(0xE598).u8(0xFC).u16(static_cast<std::uint16_t>(0x3000 | oneSeg.size())).bytes(oneSeg)
        .u16(0xE580).u8(0xFF).u16(static_cast<std::uint16_t>(0x8000 | full.size())).bytes(full)
        .build();
}

TEST(DumperTest, SdtServicesPrintInServiceIdOrderWithTheirDescriptorsInTextAndJson)
{
    Session run(options());
    run.feed(0x0011, sdt());
    // The other-stream SDT is refused by the library: not decoded, as NIT other.
    run.feed(0x0011, sdt(0x46));
    EXPECT_EQ(run.counts(0x0011, 0x42).parsed, 1u);
    EXPECT_EQ(run.counts(0x0011, 0x46).notDecoded, 1u);

    const std::string text = run.out.text();
    EXPECT_NE(text.find("  transport_stream_id: 0x0640\n  version_number: 3\n"), std::string::npos) << text;
    EXPECT_NE(text.find("  original_network_id: 0x0641\n  services:\n    service 0xE580:\n"
                        "      service_id: 0xE580\n"
                        "      EIT_schedule_flag: yes\n"
                        "      EIT_present_following_flag: yes\n"
                        "      running_status: 0x4 (running)\n"
                        "      free_CA_mode: 0x0 (not scrambled)\n"
                        "      descriptors:\n"
                        "        descriptor 0x48 service:\n"
                        "          descriptor_tag: 0x48 (service)\n"
                        "          service_type: 0x01 (digital television)\n"
                        "          service_provider_name: \"Vuro\"\n"
                        "          service_name: \"HD\"\n"
                        "        descriptor 0xC1 digital copy control:\n"
                        "          descriptor_tag: 0xC1 (digital copy control)\n"
                        "          digital_recording_control_data: 0x2 (one generation copy)\n"
                        "          maximum_bitrate_flag: yes\n"
                        "          copy_control_type: 0x1\n"
                        "          APS_control_data: 0x0\n"
                        "          maximum_bitrate: 48\n"
                        "          component_control_flag: yes\n"
                        "          components:\n"
                        "            component 0:\n"
                        "              digital_recording_control_data: 0x1 (defined by the service provider)\n"
                        "              maximum_bitrate_flag: yes\n"
                        "              copy_control_type: 0x0\n"
                        "              APS_control_data: 0x0\n"
                        "              maximum_bitrate: 32\n"
                        "          components_wire:\n"
                        "            component 0x60:\n"
                        "              component_tag: 0x60\n"
                        "              digital_recording_control_data: 0x0\n"
                        "              maximum_bitrate_flag: yes\n"
                        "              copy_control_type: 0x0\n"
                        "              APS_control_data: 0x0\n"
                        "        descriptor 0xCF logo transmission:\n"
                        "          descriptor_tag: 0xCF (logo transmission)\n"
                        "          logo_transmission_type: 0x01 (CDT scheme 1)\n"
                        "          logo_id: 0x005\n"
                        "          logo_version: 0x002\n"
                        "          download_data_id: 0x0010\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("          retention_state: 0x3 (1 day)\n"), std::string::npos) << text;
    EXPECT_NE(text.find("          CA_system_ids:\n            0x0501\n"), std::string::npos) << text;
    EXPECT_NE(text.find("      running_status: 0x1 (not running)\n      free_CA_mode: 0x1 (scrambled)\n"),
              std::string::npos)
        << text;

    // In JSON the codes carry their names.
    Session json(options(true));
    json.feed(0x0011, sdt());
    const std::string line = json.out.text();
    ASSERT_TRUE(nlohmann::json::accept(line)) << line;
    const nlohmann::json record = nlohmann::json::parse(line);
    EXPECT_EQ(record.at("table"), "SDT");
    EXPECT_EQ(record.at("transport_stream_id"), 0x0640);
    EXPECT_EQ(record.at("original_network_id"), 0x0641);
    const nlohmann::json& services = record.at("services");
    ASSERT_EQ(services.size(), 2u);
    EXPECT_EQ(services[0].at("service_id"), 0xE580);
    EXPECT_EQ(services[0].at("running_status_name"), "running");
    EXPECT_EQ(services[1].at("EIT_schedule_flag"), false);
    EXPECT_EQ(services[1].at("free_CA_mode_name"), "scrambled");
    std::vector<int> tags;
    for (const auto& descriptor : services[0].at("descriptors"))
        tags.push_back(descriptor.at("descriptor_tag").get<int>());
    EXPECT_EQ(tags, (std::vector<int>{0x48, 0xC1, 0xCF, 0xDE, 0x53}));
    const nlohmann::json& name = services[1].at("descriptors")[0];
    EXPECT_EQ(name.at("service_type_name"), "data (one-seg)");
    EXPECT_EQ(name.at("service_name"), "1seg");
}

// A descriptor parsed by its class and printed as JSON (null when the class
// refuses the bytes). The trailing bytes stand for the rest of a loop.
template <class D>
nlohmann::json printedJson(std::uint8_t tag, const Bytes& body, std::size_t trailing = 0)
{
    Bytes bytes = VuroTest::descriptor(tag, body);
    bytes.resize(bytes.size() + trailing, 0x00);
    Vuro::U16 error = 0;
    std::unique_ptr<D> descriptor(D::parse(bytes.data(), static_cast<Vuro::U32>(bytes.size()), nullptr, &error));
    if (!descriptor)
        return nlohmann::json();
    Captured out;
    std::unique_ptr<TreeOut> json = makeJsonOut(out.file);
    json->beginRecord("");
    json->beginList("descriptors");
    PrintedDescriptors printed;
    printed.addSpan(bytes.data(), bytes.data() + bytes.size());
    printDescriptor(*descriptor, *json);
    json->end();
    json->endRecord();
    return nlohmann::json::parse(out.text()).at("descriptors").at(0);
}

// Any table printer reaches every descriptor class through printDescriptor:
// each one parsed from realistic bytes prints fields, not raw data.
template <class D>
void expectFieldsPrinted(std::uint8_t tag, const Bytes& body, std::size_t trailing = 0)
{
    const nlohmann::json printed = printedJson<D>(tag, body, trailing);
    ASSERT_TRUE(printed.is_object()) << std::hex << int(tag);
    EXPECT_FALSE(printed.contains("data")) << printed.dump();
    EXPECT_GT(printed.size(), 1u) << printed.dump();
}

TEST(DumperTest, EveryDescriptorClassHasAFieldPrinter)
{
    using namespace Vuro;
    expectFieldsPrinted<TServiceDescriptor>(0x48, {0x01, 0x00, 0x00});
    expectFieldsPrinted<TBouquetNameDescriptor>(0x47, {'B'});
    expectFieldsPrinted<TCountryAvailabilityDescriptor>(0x49, {0x80, 'B', 'R', 'A'});
    expectFieldsPrinted<TNVODReferenceDescriptor>(0x4B, {0x06, 0x40, 0x06, 0x40, 0xE5, 0x80});
    expectFieldsPrinted<TTimeShiftedServiceDescriptor>(0x4C, {0xE5, 0x80});
    expectFieldsPrinted<TMosaicDescriptor>(
        0x51, {0x19, 0x17, 0xF9, 0x01, 0x02, 0x02, 0x06, 0x40, 0x06, 0x40, 0xE5, 0x80});
    expectFieldsPrinted<TParentalRatingDescriptor>(0x55, {'B', 'R', 'A', 0x24});
    expectFieldsPrinted<TComponentDescriptor>(0x50, {0xF1, 0xB3, 0x00, 'p', 'o', 'r'});
    expectFieldsPrinted<TShortEventDescriptor>(0x4D, {'p', 'o', 'r', 0x02, 'N', 'e', 0x01, 'T'}, 4);
    expectFieldsPrinted<TAudioComponentDescriptor>(0xC4, {0xF2, 0x03, 0x10, 0x0F, 0x01, 0x2F, 'p', 'o', 'r', 0x41},
                                                   4);
    expectFieldsPrinted<TContentDescriptor>(0x54, {0x30, 0x00});
    expectFieldsPrinted<TCAIdentifierDescriptor>(0x53, {0x05, 0x01});
    expectFieldsPrinted<TContentAvailabilityDescriptor>(0xDE, {0xC7});
    expectFieldsPrinted<TCopyrightDescriptor>(0x0D, {0xFF, 0xE1, 0x00});
    expectFieldsPrinted<TStreamIdentifierDescriptor>(0x52, {0x81});
    expectFieldsPrinted<THierarchicalTransmissionDescriptor>(0xC0, {0xFF, 0xE1, 0x00});
    expectFieldsPrinted<TDataComponentDescriptor>(0xFD, {0x00, 0x0C, 0x01});
    expectFieldsPrinted<TTargetRegionDescriptor>(0xC6, {0x01, 0xAA});
    expectFieldsPrinted<TVideoDecodeControlDescriptor>(0xC8, {0x4F});
    expectFieldsPrinted<TConditionalPlaybackDescriptor>(0xF8, {0x00, 0x05, 0xE1, 0x00});
    expectFieldsPrinted<TAVCVideoDescriptor>(0x28, {0x42, 0xC0, 0x0D, 0x3F});
    expectFieldsPrinted<TAVCTimingAndHRDDescriptor>(
        0x2A, {0x81, 0x80, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 3, 0xE0});
    expectFieldsPrinted<TAACDescriptor>(0x7C, {0x2E, 0x80, 0x01});
    expectFieldsPrinted<TCarouselIdentifierDescriptor>(0x13, {0x00, 0x00, 0x00, 0x01});
    expectFieldsPrinted<TISO639LanguageDescriptor>(0x0A, {'p', 'o', 'r', 0x00});
    expectFieldsPrinted<TLogoTransmissionDescriptor>(0xCF, {0x03, 'V', 'u'});
    expectFieldsPrinted<TDigitalCopyControlDescriptor>(0xC1, {0xB4, 0x30, 0x02, 0x60, 0x20});
    expectFieldsPrinted<TCarouselCompatibleCompositeDescriptor>(0xF7, {0x00, 0x00, 0x00, 0x00});
}

} // namespace

TEST(DumperTest, PmtAnnouncesItsApplicationAndCarouselPids)
{
    Session run(options());
    SectionDemux demux(run.dumper);
    run.dumper.attach(demux);
    run.feed(0x0000, pat(1, 0x01F0));
    // Video, a private-section stream (the AIT) and a DSM-CC carousel with a
    // content availability descriptor, which the PMT keeps out of its tag list.
    run.feed(0x01F0, SectionBuilder(0x02)
                         .longHeader(0xE580, 3)
                         .u16(0xE111)
                         .u16(0xF000)
                         .bytes({0x1B, 0xE1, 0x11, 0xF0, 0x03, 0x52, 0x01, 0x00})
                         .bytes({0x05, 0xE1, 0x20, 0xF0, 0x00})
                         .bytes({0x0D, 0xE1, 0x30, 0xF0, 0x03, 0xDE, 0x01, 0xFF})
                         .build());
    EXPECT_EQ(run.counts(0x01F0, 0x02).parsed, 1u);
    EXPECT_TRUE(demux.hasPid(0x0120));
    EXPECT_TRUE(demux.hasPid(0x0130));
    EXPECT_FALSE(demux.hasPid(0x0111));
    const std::string text = run.out.text();
    EXPECT_NE(text.find("    stream 0x0130:\n      stream_type: 0x0D (DSM-CC sections)\n      elementary_PID: 0x0130\n"
                        "      descriptors:\n        descriptor 0xDE content availability:\n"),
              std::string::npos)
        << text;
}

namespace {

TEST(DumperTest, ValuesTheLibraryKeepsCarryTheBytesValueBesideThem)
{
    using namespace Vuro;
    using nlohmann::json;
    // Two services whose ids OR into one byte: both wire ids under the one entry.
    json services = printedJson<TServiceListDescriptor>(0x41, {0x5C, 0x20, 0x01, 0x5C, 0x38, 0xC0}).at("services");
    ASSERT_EQ(services.size(), 1u);
    EXPECT_EQ(services[0].at("service_id"), 0x7C);
    EXPECT_EQ(services[0].at("service_id_wire"), json({0x5C20, 0x5C38}));
    EXPECT_EQ(services[0].at("service_type_wire"), json({0x01, 0xC0}));
    // One service whose id fits in a byte is not annotated.
    EXPECT_FALSE(printedJson<TServiceListDescriptor>(0x41, {0x00, 0x12, 0x01}).at("services")[0].contains("service_id_wire"));

    const json video = printedJson<TVideoDecodeControlDescriptor>(0xC8, {0x53});
    EXPECT_EQ(video.at("video_encode_format"), 0);
    EXPECT_EQ(video.at("video_encode_format_wire"), 4);
    EXPECT_EQ(video.at("video_encode_format_wire_name"), "480i");
    EXPECT_FALSE(printedJson<TVideoDecodeControlDescriptor>(0xC8, {0x4F}).contains("video_encode_format_wire"));

    const json availability = printedJson<TContentAvailabilityDescriptor>(0xDE, {0xC7});
    EXPECT_EQ(availability.at("image_constraint_token"), true);
    EXPECT_EQ(availability.at("image_constraint_token_wire"), false);
    EXPECT_EQ(availability.at("retention_mode_wire"), false);
    EXPECT_EQ(availability.at("encryption_mode"), false);
    EXPECT_EQ(availability.at("encryption_mode_wire"), true);

    // JPN, offset +10:30 in BCD: the library weighs tens digits as 160.
    const json offset = printedJson<TLocalTimeOffsetDescriptor>(
        0x58, {'J', 'P', 'N', 0x00, 0x10, 0x30, 0xE6, 0x40, 0x00, 0x00, 0x00, 0x09, 0x00});
    EXPECT_EQ(offset.at("countries")[0].at("local_time_offset_seconds_wire"), 10 * 3600 + 30 * 60);

    const json audio =
        printedJson<TAudioComponentDescriptor>(0xC4, {0xF2, 0x03, 0x10, 0x0F, 0x01, 0x2F, 'p', 'o', 'r', 0x41}, 4);
    EXPECT_EQ(audio.at("component_tag_wire"), 0x10);
    EXPECT_EQ(audio.at("stream_type"), 0x10);
    EXPECT_EQ(audio.at("stream_type_wire"), 0x0F);
    EXPECT_EQ(audio.at("simulcast_group_wire"), 0x01);

    const json copyright = printedJson<TCopyrightDescriptor>(0x0D, {0xFF, 0xE1, 0x00, 0x05});
    EXPECT_TRUE(copyright.at("reference_PID_wire").is_null());
    EXPECT_EQ(copyright.at("copyright_identifier_wire"), 0xFFE10005u);

    // 90kHz_flag set: the bytes carry no N and K and num_units_in_tick first.
    const json timing =
        printedJson<TAVCTimingAndHRDDescriptor>(0x2A, {0x81, 0x80, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 3, 0xE0});
    EXPECT_TRUE(timing.at("N_wire").is_null());
    EXPECT_EQ(timing.at("num_units_in_tick"), 3);
    EXPECT_EQ(timing.at("num_units_in_tick_wire"), 1);

    const json copy = printedJson<TDigitalCopyControlDescriptor>(0xC1, {0xB4, 0x30, 0x02, 0x60, 0x20});
    EXPECT_EQ(copy.at("components_wire")[0].at("component_tag"), 0x60);
    EXPECT_EQ(copy.at("components_wire")[0].at("maximum_bitrate_flag"), true);

    // The text tree marks the annotation on the field's own line.
    Session text(options());
    text.feed(0x0010, SectionBuilder(0x40)
                          .longHeader(0x02E1, 1)
                          .loop({})
                          .loop(VuroTest::concat({{0x02, 0xE1, 0x02, 0xE1},
                                                  {0xF0, 0x08},
                                                  VuroTest::descriptor(0x41, {0x5C, 0x20, 0x01, 0x5C, 0x38, 0xC0})}))
                          .build());
    EXPECT_NE(text.out.text().find("service_id: 0x7C  [wire: 0x5C20, 0x5C38]\n"), std::string::npos)
        << text.out.text();
}

TEST(DumperTest, DescriptorsNoObjectHoldsAreListedWhereTheyOccur)
{
    // A NIT with two network names (the later one is kept) and a satellite
    // delivery descriptor in the transport stream loop, which has no class.
    const Bytes transport = VuroTest::concat({{0x40, 0x10, 0x00, 0x04},
                                              {0xF0, 0x0D},
                                              VuroTest::descriptor(0x43, {0x01, 0x17, 0x27, 0x48, 0x00, 0x45, 0x02,
                                                                          0x88, 0x60, 0x01, 0x01})});
    const Bytes nit = SectionBuilder(0x40)
                          .longHeader(0x0004, 1)
                          .loop(VuroTest::concat({VuroTest::descriptor(0x40, {'A'}), VuroTest::descriptor(0x40, {'B'})}))
                          .loop(transport)
                          .build();
    Session json(options(true, true));
    json.feed(0x0010, nit);
    const nlohmann::json record = nlohmann::json::parse(json.out.text());
    const nlohmann::json& undecoded = record.at("undecoded_descriptors");
    ASSERT_EQ(undecoded.size(), 2u) << record.dump();
    EXPECT_EQ(undecoded[0].at("descriptor_tag"), 0x40);
    EXPECT_EQ(undecoded[0].at("location"), "network");
    EXPECT_EQ(undecoded[0].at("data"), "40 01 41");
    EXPECT_EQ(undecoded[1].at("descriptor_tag_name"), "satellite delivery system");
    EXPECT_EQ(undecoded[1].at("descriptor_length"), 11);
    EXPECT_EQ(undecoded[1].at("location"), "transport stream 0x4010");

    Session text(options());
    text.feed(0x0010, nit);
    EXPECT_NE(text.out.text().find("  undecoded_descriptors:\n    descriptor 0x40 network name in network:\n"),
              std::string::npos)
        << text.out.text();
    EXPECT_EQ(text.out.text().find("data: 43"), std::string::npos); // bytes only with --verbose
}

Bytes pmt(std::uint16_t program)
{
    return SectionBuilder(0x02).longHeader(program, 1).u16(0xE111).loop({}).bytes({0x1B, 0xE1, 0x11, 0xF0, 0x00}).build();
}

TEST(DumperTest, SectionsBeforeTheirAnnouncementAreHeldThenDecodedOrCountedAsUnannounced)
{
    Session run(options());
    run.feed(0x01F0, pmt(0xE580)); // before the PAT
    run.feed(0x0777, pmt(0x0777)); // never announced
    EXPECT_EQ(run.dumper.sections(), 0u);
    EXPECT_TRUE(run.out.text().empty());
    run.feed(0x0000, pat(1, 0x01F0));
    EXPECT_EQ(run.counts(0x01F0, 0x02).parsed, 1u);
    const std::string text = run.out.text();
    EXPECT_LT(text.find("PAT on PID 0x0000"), text.find("PMT on PID 0x01F0"));
    run.dumper.writeSummary(nullptr, nullptr);
    EXPECT_EQ(run.counts(0x0777, 0x02).unannounced, 1u);
    EXPECT_EQ(run.counts(0x0777, 0x02).seen, 1u);
    EXPECT_EQ(run.dumper.sections(), 3u);

    // Past the bound a PID's sections are counted at once.
    Session bounded(options());
    for (std::size_t i = 0; i <= Dumper::HELD_SECTIONS_PER_PID; ++i)
        bounded.feed(0x0777, pmt(0x0777));
    EXPECT_EQ(bounded.counts(0x0777, 0x02).unannounced, 1u);

    // --all-pids decodes them by their table_id straight away.
    DumpOptions all = options();
    all.allPids = true;
    Session decoded(all);
    decoded.feed(0x0777, pmt(0x0777));
    EXPECT_EQ(decoded.counts(0x0777, 0x02).parsed, 1u);
}

// Stands for an EIT class (taking the range 0x4E to 0x6F): a table on every
// first section of its key, "not updated" whenever a previous table is
// handed in.
class KeyProbeHandler : public TableHandlerOf<Vuro::TISDBTTable> {
public:
    KeyProbeHandler() : TableHandlerOf("EIT", ROLE_EIT, 0x4E, 0x6F) {}

protected:
    Vuro::TISDBTTable* parseTable(Vuro::U8* section, Vuro::U32 length, Vuro::TISDBTTable* previous,
                                  Vuro::U16* errorCode) const override
    {
        if (previous) {
            *errorCode = Vuro::TISDBTTable::ERROR_TABLE_NOT_UPDATED;
            return nullptr;
        }
        return new Vuro::TISDBTTable(Vuro::TISDBTTable::HEIT, 0, section[0], section, length);
    }
    void printTable(const Vuro::TISDBTTable&, TreeOut&) const override {}
};

Bytes eit(std::uint8_t tableId, std::uint16_t service, std::uint8_t section, std::uint16_t stream, std::uint16_t network)
{
    return SectionBuilder(tableId).longHeader(service, 1, true, section, 1).u16(stream).u16(network).u8(1).u8(tableId).build();
}

TEST(DumperTest, PreviousTablesAreKeptPerTableIdExtensionAndForTheEitPerSectionKey)
{
    // Two SDTs of different transport streams, same version, on one PID.
    Session sdts(options());
    const Bytes other = SectionBuilder(0x42).longHeader(0x0641, 3).u16(0x0641).u8(0xFF).build();
    for (const Bytes& section : {sdt(), other, sdt(), other})
        sdts.feed(0x0011, section);
    EXPECT_EQ(sdts.counts(0x0011, 0x42).parsed, 2u);
    EXPECT_EQ(sdts.counts(0x0011, 0x42).unchanged, 2u);

    // The EIT: service, section_number, transport stream and network each
    // keep a previous table of their own, in stream and section mode alike.
    const std::vector<Bytes> sections = {eit(0x4E, 1, 0, 1, 1), eit(0x4E, 1, 1, 1, 1), eit(0x4E, 1, 0, 2, 1),
                                         eit(0x4E, 1, 0, 1, 2), eit(0x4E, 2, 0, 1, 1), eit(0x50, 1, 0, 1, 1),
                                         eit(0x4E, 1, 0, 1, 1), eit(0x4E, 1, 1, 1, 1)};
    Session stream(options());
    stream.dumper.addHandler(std::make_unique<KeyProbeHandler>());
    for (const Bytes& section : sections)
        stream.feed(0x0012, section);
    EXPECT_EQ(stream.counts(0x0012, 0x4E).parsed, 5u);
    EXPECT_EQ(stream.counts(0x0012, 0x4E).unchanged, 2u);
    EXPECT_EQ(stream.counts(0x0012, 0x50).parsed, 1u);

    Session file(options());
    file.dumper.addHandler(std::make_unique<KeyProbeHandler>());
    Bytes data;
    for (const Bytes& section : sections)
        data.insert(data.end(), section.begin(), section.end());
    std::string error;
    ASSERT_TRUE(file.dumper.readSections(data.data(), data.size(), error)) << error;
    EXPECT_EQ(file.counts(Dumper::NO_PID, 0x4E).parsed, 5u);
    EXPECT_EQ(file.counts(Dumper::NO_PID, 0x4E).unchanged, 2u);
}

Bytes tot(const Bytes& offsets = {})
{
    return SectionBuilder(0x73).u16(0xE640).bytes({0x12, 0x00, 0x00}).loop(offsets).build();
}

TEST(DumperTest, TheTotTimeIsLabelledByTheNetworksZoneOrByTz)
{
    const Bytes japanese = SectionBuilder(0x42).longHeader(0x7ED0, 1).u16(0x7ED0).u8(0xFF).build();
    // A local time offset for Japan decides only while no network is known.
    const Bytes japan = VuroTest::descriptor(0x58, {'J', 'P', 'N', 0x02, 0x09, 0x00, 0xE6, 0x40, 0, 0, 0, 0x09, 0x00});
    struct Case {
        Bytes before;
        const char* tz;
        Bytes offsets;
        const char* label;
    } cases[] = {{japanese, "", {}, "JST"}, {sdt(), "", {}, "UTC"},   {{}, "", {}, "UTC"},      {{}, "", japan, "JST"},
                 {sdt(), "", japan, "UTC"}, {sdt(), "JST", {}, "JST"}, {japanese, "UTC", {}, "UTC"}};
    for (const Case& c : cases) {
        DumpOptions json = options(true);
        json.timeZone = c.tz;
        Session run(json);
        if (!c.before.empty())
            run.feed(0x0011, c.before);
        run.feed(0x0014, tot(c.offsets));
        const std::string out = run.out.text();
        const nlohmann::json record = nlohmann::json::parse(out.substr(out.rfind("{\"pid\"")));
        EXPECT_EQ(record.at("time_zone"), c.label) << c.tz;
        EXPECT_EQ(record.at("time_text").get<std::string>().substr(20), c.label);
    }
}

} // namespace

namespace {

TEST(DumperTest, DescriptorLoopsStayInsideAnySection)
{
    // Every table layout the loops know, on bytes whose lengths say anything:
    // each loop and descriptor lies inside the section (exact-size buffers,
    // so the sanitizer sees any read past them).
    std::uint32_t seed = 0x1234567u;
    auto next = [&seed] { return static_cast<std::uint8_t>((seed = seed * 1103515245u + 12345u) >> 16); };
    for (std::uint8_t tableId : {0x01, 0x02, 0x40, 0x41, 0x42, 0x46, 0x4A, 0x4E, 0x60, 0x73, 0x74, 0x7F, 0xC4})
        for (std::size_t length = 0; length < 64; ++length)
            for (int round = 0; round < 8; ++round) {
                std::vector<std::uint8_t> section(length);
                for (std::uint8_t& byte : section)
                    byte = next();
                if (length)
                    section[0] = tableId;
                for (const DescriptorLoop& loop : descriptorLoops(section.data(), length)) {
                    ASSERT_LE(loop.begin, loop.end);
                    ASSERT_LE(loop.end, length);
                    for (const RawDescriptor& raw : descriptorsIn(section.data(), loop))
                        ASSERT_LE(raw.offset + raw.size, loop.end);
                }
                (void)networkOf(section.data(), length);
            }
}

} // namespace
