// Event information table: present/following (0x4E actual, 0x4F other) and
// schedule (0x50-0x5F actual, 0x60-0x6F other) sections on PIDs 0x12, 0x26
// and 0x27, with every event field and event descriptor.
#include <map>
#include <tuple>

#include "../Guide.h"
#include "../Names.h"
#include "DescriptorPrinter.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

constexpr std::size_t kHeaderLength = 14;

class EitHandler : public TableHandler {
public:
    const char* name() const override { return "EIT"; }
    PidRole role() const override { return ROLE_EIT; }
    bool accepts(std::uint8_t tableId) const override { return tableId >= 0x4E && tableId <= 0x6F; }

    TISDBTTable* parse(U8* section, U32 length, TISDBTTable* previous, U16* errorCode) const override
    {
        // The library takes no version decision for this table (it ignores
        // `previous`), so the dump makes the receiver's own: a section whose
        // table, service, section number and version were seen before is
        // unchanged. Without a previous table (the first on the PID, or
        // --all) every section is parsed.
        if (length >= kHeaderLength) {
            const Key key{section[0], readU16(section + 3), readU16(section + 8), readU16(section + 10), section[6]};
            const std::uint8_t version = (section[5] & 0x3E) >> 1;
            const auto seen = m_versions.find(key);
            const bool same = seen != m_versions.end() && seen->second == version;
            m_versions[key] = version;
            if (previous && same) {
                ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_TABLE_NOT_UPDATED);
                return nullptr;
            }
        }
        // Flag order of this table: checkCRC32, then parseDescriptors.
        TEITTable* eit = TEITTable::parse(section, length, TRUE, TRUE, errorCode, nullptr);
        if (eit && Guide::active())
            Guide::active()->note(*eit);
        return eit;
    }

    void print(const TISDBTTable& table, TreeOut& out) const override
    {
        const auto& eit = static_cast<const TEITTable&>(table);
        out.hex("service_id", eit.getServiceId(), 4);
        out.number("version_number", eit.getVersion());
        out.number("section_number", eit.getSectionNumber());
        out.number("last_section_number", eit.getLastSectionNumber());
        out.hex("transport_stream_id", eit.getTransportStreamId(), 4);
        out.hex("original_network_id", eit.getOriginalNetworkId(), 4);
        out.number("segment_last_section_number", eit.getSegmentLastSectionNumber());
        out.hex("last_table_id", eit.getLastTableId(), 2);
        int offset = 0;
        const bool local = Guide::active() && Guide::active()->localOffset(offset);
        out.beginList("events");
        for (U16 id : eit.getEventsIDs()) {
            const TEventItemDescriptor* event = eit.getEvent(id);
            if (!event)
                continue;
            beginKeyedItem(out, "event", id, 4);
            out.hex("event_id", event->getEventId(), 4);
            out.number("start_time", event->getStartTime());
            out.label("start_time_utc", utcText(event->getStartTime()));
            if (local)
                out.label("start_time_local", localText(event->getStartTime(), offset));
            out.number("duration", event->getDuration());
            out.label("duration_text", durationText(event->getDuration()));
            out.named("running_status", event->getRunningStatus(), 1, runningStatusName(event->getRunningStatus()));
            // free_CA_mode is not read by the library; it always reports 0.
            // The event's copy holds the byte: running_status, free_CA_mode.
            const U8* bytes = event->getData();
            out.number("free_CA_mode", event->getFreeCAMode());
            if (bytes && event->getDataLength() > 10)
                wireIfDiffers(out, "free_CA_mode", event->getFreeCAMode() ? 1 : 0, (bytes[10] >> 4) & 0x01, 0);
            printDescriptorsOf(*event, out);
            noteAtSectionPositions(eit, *event);
            out.end();
        }
        out.end();
    }

private:
    // An event's descriptors lie in the event's own copy, which runs from the
    // event to the end of the section: the same bytes of the table's copy
    // are the ones the section holds, so they count as printed.
    static void noteAtSectionPositions(const TEITTable& eit, const TEventItemDescriptor& event)
    {
        const U8* copy = event.getData();
        const U8* table = eit.getData();
        const U32 length = eit.getDataLength();
        if (!copy || !table || event.getDataLength() > length)
            return;
        const U8* eventInTable = table + (length - event.getDataLength());
        for (U8 tag : event.getDescriptorTags())
            if (const TISDBTDescriptor* descriptor = event.getDescriptor(tag))
                if (descriptor->getData() >= copy && descriptor->getData() < copy + event.getDataLength())
                    PrintedDescriptors::noteData(eventInTable + (descriptor->getData() - copy));
    }

    static U16 readU16(const U8* p) { return static_cast<U16>((p[0] << 8) | p[1]); }

    // table_id, service_id, transport_stream_id, original_network_id, section_number.
    using Key = std::tuple<std::uint8_t, std::uint16_t, std::uint16_t, std::uint16_t, std::uint8_t>;
    mutable std::map<Key, std::uint8_t> m_versions;
};

} // namespace

std::unique_ptr<TableHandler> makeEitHandler() { return std::make_unique<EitHandler>(); }

} // namespace VuroTools
