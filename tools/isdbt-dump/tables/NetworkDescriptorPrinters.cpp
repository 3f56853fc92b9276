// Printers of the network and transport-stream descriptors (NIT, TOT).
#include "../Names.h"
#include "DescriptorPrinterSupport.h"

#include <algorithm>

using namespace Vuro;

namespace VuroTools {

namespace {

void networkName(const TNetworkNameDescriptor& d, TreeOut& out) { out.text("network_name", d.getNetworkName()); }

void systemManagement(const TSystemManagementDescriptor& d, TreeOut& out)
{
    out.hex("system_management_id", d.getSystemManagementID(), 4);
    printOwnedBytes("additional_identification_info", d.getAdditionalIdentificationInfo(),
                    d.getAdditionalIdentificationInfoSize(), out);
}

void serviceList(const TServiceListDescriptor& d, TreeOut& out)
{
    // The library keys its entries on the two service_id bytes ORed into 8
    // bits, so services can merge: beside each, the 16-bit ids (and types)
    // of the entries that landed on it.
    const WireBody wire = wireBody(d);
    out.beginList("services");
    for (U8 id : d.getServiceIDs()) {
        const TServiceListDescriptorItem* item = d.get(id);
        std::vector<std::uint64_t> ids, types;
        for (unsigned at = 0; wire.has(at, 3); at += 3)
            if (static_cast<U8>(wire.u8(at) | wire.u8(at + 1)) == id) {
                ids.push_back(wire.u16(at));
                types.push_back(wire.u8(at + 2));
            }
        beginKeyedItem(out, "service", id, 2);
        out.hex("service_id", item->getServiceID(), 2);
        if (ids != std::vector<std::uint64_t>{item->getServiceID()})
            out.wireNumbers("service_id", ids, 4);
        out.named("service_type", item->getServiceType(), 2, serviceTypeName(item->getServiceType()));
        if (types != std::vector<std::uint64_t>{item->getServiceType()} && !types.empty())
            out.wireNumbers("service_type", types, 2);
        out.end();
    }
    out.end();
}

void linkage(const TLinkageDescriptor& d, TreeOut& out)
{
    printServiceLocation(d, out);
    out.hex("linkage_type", d.getLinkageType(), 2);
    printOwnedBytes("private_data", d.getPrivateData(), d.getPrivateDataSize(), out);
}

void terrestrialDelivery(const TTerrestrialDeliverySystemDescriptor& d, TreeOut& out)
{
    static const char* const kGuardIntervals[] = {"1/32", "1/16", "1/8", "1/4"};
    static const char* const kModes[] = {"mode 1", "mode 2", "mode 3", "undefined"};
    out.hex("area_code", d.getAreaCode(), 3);
    out.named("guard_interval", d.getGuardInterval(), 1, nameIn(kGuardIntervals, d.getGuardInterval()));
    out.named("transmission_mode", d.getTransmissionMode(), 1, nameIn(kModes, d.getTransmissionMode()));
    out.beginList("frequencies");
    for (unsigned i = 0; d.getFrequencies() && i < d.getFrequencyCounter(); ++i) {
        // Units of 1/7 MHz.
        const unsigned frequency = d.getFrequencies()[i];
        char text[48];
        std::snprintf(text, sizeof text, "%s (%.6f MHz)", hexText(frequency, 4).c_str(), frequency / 7.0);
        out.measureValue((static_cast<std::int64_t>(frequency) * 1000000 + 3) / 7, text); // in Hz
    }
    out.end();
}

void emergencyInformation(const TEmergencyInformationDescriptor& d, TreeOut& out)
{
    out.beginList("services");
    for (U32 i = 0; i < d.size(); ++i) {
        const TEmergencyInformationDescriptorItem* item = d.get(static_cast<U8>(i));
        if (!item)
            continue;
        beginKeyedItem(out, "service", item->getServiceID(), 4);
        out.hex("service_id", item->getServiceID(), 4);
        out.flag("start_end_flag", item->isStart() != 0);
        out.number("signal_level", item->getSignalLevel());
        // The counter is area_code_length in bytes: two per 12-bit code.
        printIds("area_codes", item->getAreaCodes(), item->getAreaCodeCounter() / 2u, out);
        out.end();
    }
    out.end();
}

void partialReception(const TPartialReceptionDescriptor& d, TreeOut& out)
{
    printIds("service_ids", d.getServiceIDs(), d.getServiceIDCount(), out);
}

void transmissionType(const TTSInformationDescriptorItem& item, TreeOut& out)
{
    out.hex("transmission_type_info", item.getTransmissionTypeInfo(), 2);
    printIds("service_ids", item.getServices(), item.getNumberOfServices(), out);
}

void tsInformation(const TTSInformationDescriptor& d, TreeOut& out)
{
    out.number("remote_control_key_id", d.getRemoteControlKeyID());
    out.number("transmission_type_count", d.getTxInformation());
    out.text("ts_name", d.getTransportStreamName());
    printEntries("transmission_types", "transmission type", d.getTransmissionTypeCount(),
                 [&d](unsigned i) { return d.getTransmissionType(static_cast<U8>(i)); }, transmissionType, out);
}

// local_time_offset of a 13-byte entry in seconds: hours and minutes in BCD.
unsigned wireOffsetSeconds(const WireBody& wire, unsigned at)
{
    auto bcd = [&wire](unsigned offset) { return (wire.u8(offset) >> 4) * 10 + (wire.u8(offset) & 0x0F); };
    return bcd(at + 4) * 3600 + bcd(at + 5) * 60;
}

void localTimeOffset(const TLocalTimeOffsetDescriptor& d, TreeOut& out)
{
    const WireBody wire = wireBody(d);
    out.beginList("countries");
    for (const std::string& code : d.getCountryCodes()) {
        const TLocalTimeOffsetDescriptorItem* item = d.get(code);
        // The entry the item came from: the last one of its country.
        int entry = -1;
        for (unsigned at = 0; wire.has(at, 13); at += 13)
            if (code.size() >= 3 && std::equal(code.begin(), code.begin() + 3, wire.data + at))
                entry = static_cast<int>(at);
        out.beginItem(code);
        out.text("country_code", item->getCountryCode());
        out.number("country_region_id", item->getCountryRegionID());
        out.named("local_time_offset_polarity", item->getLocalTimeOffsetPolarity(), 1,
                  item->getLocalTimeOffsetPolarity() ? "behind UTC" : "ahead of UTC");
        out.number("local_time_offset_seconds", item->getLocalTimeOffset());
        // The library weighs each BCD tens digit as 160 and keeps 16 bits.
        if (entry >= 0)
            wireIfDiffers(out, "local_time_offset_seconds", item->getLocalTimeOffset(),
                          wireOffsetSeconds(wire, static_cast<unsigned>(entry)), 0);
        out.end();
    }
    out.end();
}

} // namespace

std::vector<DescriptorPrinterEntry> networkDescriptorPrinters()
{
    return {
        printerFor<TNetworkNameDescriptor, networkName>(),
        printerFor<TServiceListDescriptor, serviceList>(),
        printerFor<TLinkageDescriptor, linkage>(),
        printerFor<TLocalTimeOffsetDescriptor, localTimeOffset>(),
        printerFor<TTSInformationDescriptor, tsInformation>(),
        printerFor<TTerrestrialDeliverySystemDescriptor, terrestrialDelivery>(),
        printerFor<TPartialReceptionDescriptor, partialReception>(),
        printerFor<TEmergencyInformationDescriptor, emergencyInformation>(),
        printerFor<TSystemManagementDescriptor, systemManagement>(),
    };
}

} // namespace VuroTools
