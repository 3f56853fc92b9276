// DSM-CC sections on the PIDs the PMTs announce (stream types 0x0B-0x0D):
// stream descriptor sections (0x3D) with their NPT times, stream modes and
// stream events, and a one-line summary of each DSI/DII (0x3B) and DDB
// (0x3C) section, which the library keeps whole for a carousel engine; and
// the entries of datacaster carousel tables (0x99) found there.
#include "DescriptorPrinter.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

// A stream descriptor section parsed from a copy of its bytes. The table
// rewrites an old stream event tag (26) in the buffer it walks and its
// descriptors point into that buffer, so the dump hands it this copy, which
// lives as long as the table, and the capture stays as it was.
class DsmccSectionCopy : public TISDBTTable {
public:
    DsmccSectionCopy(U8* section, U32 length) : TISDBTTable(DSMCC_SECTION, 0, 0x3D, section, length) {}
    ~DsmccSectionCopy() override { delete m_table; }

    U8* bytes() const { return m_pData; }
    void hold(TDSMCCSectionTable* table) { m_table = table; }
    TDSMCCSectionTable* table() const { return m_table; }

private:
    TDSMCCSectionTable* m_table = nullptr;
};

class DsmccSectionHandler : public TableHandlerOf<DsmccSectionCopy> {
public:
    DsmccSectionHandler() : TableHandlerOf("DSM-CC stream events", ROLE_DSMCC, 0x3D) {}

protected:
    DsmccSectionCopy* parseTable(U8* section, U32 length, DsmccSectionCopy* previous, U16* errorCode) const override
    {
        std::unique_ptr<DsmccSectionCopy> copy = std::make_unique<DsmccSectionCopy>(section, length);
        TDSMCCSectionTable* table = TDSMCCSectionTable::parse(copy->bytes(), length, TRUE, TRUE, errorCode,
                                                              previous ? previous->table() : nullptr);
        if (!table)
            return nullptr;
        copy->hold(table);
        return copy.release();
    }

    void printTable(const DsmccSectionCopy& copy, TreeOut& out) const override
    {
        const TDSMCCSectionTable& table = *copy.table();
        printVersionedHeader(table, "table_id_extension", out);
        out.number("data_event_id", table.getDataEventID());
        out.hex("event_msg_group_id", table.getEventMsgGroupID(), 3);
        // The table's own copy was taken before the walk: it still shows the
        // tag the stream carries where the walk rewrote an old one.
        if (const TStreamEventDescriptor* event = table.getStreamEventDescriptor()) {
            const U8 sent = table.getData()[event->getData() - copy.bytes()];
            if (sent == TStreamEventDescriptor::DESCRIPTOR_TAG_OLD)
                out.named("stream_event_tag_sent", sent, 2, "old stream event tag");
        }
        printDescriptorsOf(table, out, dsmccDescriptorTagName);
    }
};

// Big-endian fields of a section the dump reads itself, never past its end.
class Reader {
public:
    Reader(const U8* data, U32 length) : m_data(data), m_length(length) {}
    bool has(U32 position, U32 count) const { return position <= m_length && m_length - position >= count; }
    U32 u8(U32 position) const { return m_data[position]; }
    U32 u16(U32 position) const { return (u8(position) << 8) | u8(position + 1); }
    U32 u32(U32 position) const { return (u16(position) << 16) | u16(position + 2); }

private:
    const U8* m_data;
    U32 m_length;
};

// dsmccMessageHeader / dsmccDownloadDataHeader from byte 8 of the section:
// protocolDiscriminator, dsmccType, messageId, transactionId (downloadId in
// a DDB), reserved, adaptationLength, messageLength.
const U32 kMessageHeader = 8;
const U32 kMessageHeaderLength = 12;

const char* messageName(U32 messageId)
{
    switch (messageId) {
    case 0x1002: return "DownloadInfoIndication";
    case 0x1003: return "DownloadDataBlock";
    case 0x1006: return "DownloadServerInitiate";
    default: return nullptr;
    }
}


// The message fields the summary names; empty when the section ends first.
std::string summary(const Reader& r, U32 messageId, U32 body)
{
    switch (messageId) {
    case 0x1002: { // downloadId, blockSize, windowSize, ackPeriod, tCDownloadWindow, tCDownloadScenario
        if (!r.has(body, 18))
            break;
        U32 position = body + 16;
        const U32 compatibility = r.u16(position);
        position += 2 + compatibility;
        if (!r.has(position, 2))
            break;
        const U32 modules = r.u16(position);
        position += 2;
        std::string text = "download " + hexText(r.u32(body), 8) + ", block size " + std::to_string(r.u16(body + 4)) +
                           ", " + std::to_string(modules) + " module" + (modules == 1 ? "" : "s");
        for (U32 i = 0; i < modules && r.has(position, 8); ++i) {
            // moduleId, moduleSize, moduleVersion, moduleInfoLength, moduleInfo
            text += std::string(i ? ", " : ": ") + "module " + hexText(r.u16(position), 4) + " v" +
                    std::to_string(r.u8(position + 6)) + " " + std::to_string(r.u32(position + 2)) + " bytes";
            position += 8 + r.u8(position + 7);
        }
        return text;
    }
    case 0x1003: { // moduleId, moduleVersion, reserved, blockNumber, blockData
        if (!r.has(body, 6))
            break;
        return "module " + hexText(r.u16(body), 4) + " v" + std::to_string(r.u8(body + 2)) + ", block " +
               std::to_string(r.u16(body + 4));
    }
    case 0x1006: { // serverId (20 bytes), compatibilityDescriptor, privateDataLength
        if (!r.has(body, 22))
            break;
        const U32 compatibility = r.u16(body + 20);
        const U32 position = body + 22 + compatibility;
        if (!r.has(position, 2))
            break;
        return "private data " + std::to_string(r.u16(position)) + " bytes";
    }
    default:
        break;
    }
    return "";
}

// One line for a DSI/DII or DDB section: its message, its transaction or
// download id and what the message carries.
void printCarouselMessage(const TISDBTTable& table, TreeOut& out)
{
    const Reader r(table.getData(), table.getDataLength());
    if (!r.has(kMessageHeader, kMessageHeaderLength)) {
        out.label("summary", "too short for a DSM-CC message header");
        return;
    }
    const U32 messageId = r.u16(kMessageHeader + 2);
    const U32 id = r.u32(kMessageHeader + 4);
    const U32 body = kMessageHeader + kMessageHeaderLength + r.u8(kMessageHeader + 9);
    const U32 messageLength = r.u16(kMessageHeader + 10);
    const char* name = messageName(messageId);
    std::string line = std::string(name ? name : "message " + hexText(messageId, 4)) +
                       (messageId == 0x1003 ? ", download " : ", transaction ") + hexText(id, 8) + ", " +
                       std::to_string(messageLength) + " bytes";
    const std::string fields = summary(r, messageId, body);
    if (!fields.empty())
        line += ", " + fields;
    out.label("summary", line);
}

// DSI/DII and DDB sections: the library only keeps them (no header check).
template <class T>
class CarouselMessageHandler : public TableHandlerOf<T> {
public:
    CarouselMessageHandler(const char* name, U8 tableId) : TableHandlerOf<T>(name, ROLE_DSMCC, tableId) {}

protected:
    T* parseTable(U8* section, U32 length, T* previous, U16* errorCode) const override
    {
        return T::parse(section, length, TRUE, TRUE, errorCode, previous);
    }

    void printTable(const T& table, TreeOut& out) const override { printCarouselMessage(table, out); }
};

// A datacaster carousel table section: the library offers its entries
// only, so the dump reads the long header with the library's check and
// hands the entries, back to back up to the CRC_32, to the entry parse.
class DatacasterTable : public TISDBTVersionedTable {
public:
    DatacasterTable(U8* section, U32 length) : TISDBTVersionedTable(DCT, 12, 0x99, section, length) {}
    std::vector<std::unique_ptr<TDatacasterCarousel>> entries;
};

class DatacasterHandler : public TableHandlerOf<DatacasterTable> {
public:
    DatacasterHandler() : TableHandlerOf("DCT", ROLE_DSMCC, 0x99) {}

protected:
    DatacasterTable* parseTable(U8* section, U32 length, DatacasterTable* previous, U16* errorCode) const override
    {
        std::unique_ptr<DatacasterTable> table = std::make_unique<DatacasterTable>(section, length);
        U16 bodyLength = 0;
        if (!table->parseCommonHeader(section, length, TRUE, errorCode, &bodyLength, previous))
            return nullptr;
        const U32 header = TISDBTVersionedTable::COMMON_HEADER_LENGTH;
        const U32 available = length - header - TISDBTTable::CRC_LENGTH;
        U8* position = table->getData() + header;
        const U8* end = position + (bodyLength < available ? bodyLength : available);
        while (position < end) {
            U32 itemLength = 0;
            TDatacasterCarousel* entry = TDatacasterCarousel::parse(position, static_cast<U32>(end - position), TRUE,
                                                                    &itemLength, errorCode, end);
            if (!entry)
                return nullptr;
            table->entries.emplace_back(entry);
            position += itemLength;
        }
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
        return table.release();
    }

    void printTable(const DatacasterTable& table, TreeOut& out) const override
    {
        printVersionedHeader(table, "table_id_extension", out);
        out.beginList("carousels");
        for (const auto& entry : table.entries) {
            beginKeyedItem(out, "carousel", entry->getCarouselID(), 8);
            out.hex("PID", entry->getPID(), 4);
            out.number("version", entry->getVersion());
            out.hex("carousel_id", entry->getCarouselID(), 8);
            out.hex("component_tag", entry->getComponentTag(), 2);
            out.text("application_name", entry->getApplicationName());
            out.end();
        }
        out.end();
    }
};

} // namespace

std::unique_ptr<TableHandler> makeDatacasterHandler() { return std::make_unique<DatacasterHandler>(); }

std::unique_ptr<TableHandler> makeDsmccSectionHandler() { return std::make_unique<DsmccSectionHandler>(); }

std::unique_ptr<TableHandler> makeDsiDiiHandler()
{
    return std::make_unique<CarouselMessageHandler<TDsiDiiTable>>("DSM-CC DSI/DII", 0x3B);
}

std::unique_ptr<TableHandler> makeDdbHandler()
{
    return std::make_unique<CarouselMessageHandler<TDDBTable>>("DSM-CC DDB", 0x3C);
}

} // namespace VuroTools
