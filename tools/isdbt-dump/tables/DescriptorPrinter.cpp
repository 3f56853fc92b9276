#include "DescriptorPrinter.h"

#include <string>

#include "../Names.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

std::string hex4(unsigned value)
{
    char text[8];
    std::snprintf(text, sizeof text, "0x%04X", value & 0xFFFF);
    return text;
}

void printIds(const char* key, const U16* ids, unsigned count, TreeOut& out)
{
    out.beginList(key);
    for (unsigned i = 0; ids && i < count; ++i)
        out.value(hex4(ids[i]));
    out.end();
}

void networkName(const TNetworkNameDescriptor& d, TreeOut& out) { out.text("network_name", d.getNetworkName()); }

void systemManagement(const TSystemManagementDescriptor& d, TreeOut& out)
{
    out.hex("system_management_id", d.getSystemManagementID(), 4);
    out.bytes("additional_identification_info", d.getAdditionalIdentificationInfo(),
              d.getAdditionalIdentificationInfo() ? d.getAdditionalIdentificationInfoSize() : 0);
}

void serviceList(const TServiceListDescriptor& d, TreeOut& out)
{
    out.beginList("services");
    for (U8 id : d.getServiceIDs()) {
        const TServiceListDescriptorItem* item = d.get(id);
        char title[24];
        std::snprintf(title, sizeof title, "service 0x%02X", id);
        out.beginItem(title);
        out.hex("service_id", item->getServiceID(), 2);
        out.named("service_type", item->getServiceType(), 2, serviceTypeName(item->getServiceType()));
        out.end();
    }
    out.end();
}

void linkage(const TLinkageDescriptor& d, TreeOut& out)
{
    out.hex("transport_stream_id", d.getTransportStreamID(), 4);
    out.hex("original_network_id", d.getOriginalNetworkID(), 4);
    out.hex("service_id", d.getServiceID(), 4);
    out.hex("linkage_type", d.getLinkageType(), 2);
    out.bytes("private_data", d.getPrivateData(), d.getPrivateData() ? d.getPrivateDataSize() : 0);
}

void terrestrialDelivery(const TTerrestrialDeliverySystemDescriptor& d, TreeOut& out)
{
    static const char* const kGuardIntervals[] = {"1/32", "1/16", "1/8", "1/4"};
    static const char* const kModes[] = {"mode 1", "mode 2", "mode 3", "undefined"};
    out.hex("area_code", d.getAreaCode(), 3);
    out.named("guard_interval", d.getGuardInterval(), 1, d.getGuardInterval() < 4 ? kGuardIntervals[d.getGuardInterval()] : nullptr);
    out.named("transmission_mode", d.getTransmissionMode(), 1,
              d.getTransmissionMode() < 4 ? kModes[d.getTransmissionMode()] : nullptr);
    out.beginList("frequencies");
    for (unsigned i = 0; d.getFrequencies() && i < d.getFrequencyCounter(); ++i) {
        // Units of 1/7 MHz.
        const unsigned frequency = d.getFrequencies()[i];
        char text[48];
        std::snprintf(text, sizeof text, "%s (%.6f MHz)", hex4(frequency).c_str(), frequency / 7.0);
        out.value(text);
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
        out.beginItem("service " + hex4(item->getServiceID()));
        out.hex("service_id", item->getServiceID(), 4);
        out.flag("start_end_flag", item->isStart() != 0);
        out.number("signal_level", item->getSignalLevel());
        out.beginList("area_codes");
        for (unsigned k = 0; item->getAreaCodes() && k < item->getAreaCodeCounter(); ++k)
            out.value(hex4(item->getAreaCodes()[k]));
        out.end();
        out.end();
    }
    out.end();
}

void partialReception(const TPartialReceptionDescriptor& d, TreeOut& out)
{
    printIds("service_ids", d.getServiceIDs(), d.getServiceIDCount(), out);
}

void tsInformation(const TTSInformationDescriptor& d, TreeOut& out)
{
    out.number("remote_control_key_id", d.getRemoteControlKeyID());
    out.number("transmission_type_count", d.getTxInformation());
    out.text("ts_name", d.getTransportStreamName());
    out.beginList("transmission_types");
    for (U32 i = 0; i < d.getTransmissionTypeCount(); ++i) {
        const TTSInformationDescriptorItem* item = d.getTransmissionType(static_cast<U8>(i));
        if (!item)
            continue;
        out.beginItem("transmission type " + std::to_string(i));
        out.hex("transmission_type_info", item->getTransmissionTypeInfo(), 2);
        printIds("service_ids", item->getServices(), item->getNumberOfServices(), out);
        out.end();
    }
    out.end();
}

void localTimeOffset(const TLocalTimeOffsetDescriptor& d, TreeOut& out)
{
    out.beginList("countries");
    for (const std::string& code : d.getCountryCodes()) {
        const TLocalTimeOffsetDescriptorItem* item = d.get(code);
        out.beginItem(code);
        out.text("country_code", item->getCountryCode());
        out.number("country_region_id", item->getCountryRegionID());
        out.named("local_time_offset_polarity", item->getLocalTimeOffsetPolarity(), 1,
                  item->getLocalTimeOffsetPolarity() ? "behind UTC" : "ahead of UTC");
        out.number("local_time_offset_seconds", item->getLocalTimeOffset());
        out.end();
    }
    out.end();
}

// One printer per descriptor class: the class to cast to and its fields.
template <class D>
bool as(const TISDBTDescriptor& descriptor, void (*print)(const D&, TreeOut&), TreeOut& out)
{
    const D* typed = dynamic_cast<const D*>(&descriptor);
    if (!typed)
        return false;
    print(*typed, out);
    return true;
}

bool printFields(const TISDBTDescriptor& d, TreeOut& out)
{
    switch (d.getDescriptorTag()) {
    case TNetworkNameDescriptor::DESCRIPTOR_TAG: return as(d, networkName, out);
    case TServiceListDescriptor::DESCRIPTOR_TAG: return as(d, serviceList, out);
    case TLinkageDescriptor::DESCRIPTOR_TAG: return as(d, linkage, out);
    case TLocalTimeOffsetDescriptor::DESCRIPTOR_TAG: return as(d, localTimeOffset, out);
    case TTSInformationDescriptor::DESCRIPTOR_TAG: return as(d, tsInformation, out);
    case TTerrestrialDeliverySystemDescriptor::DESCRIPTOR_TAG: return as(d, terrestrialDelivery, out);
    case TPartialReceptionDescriptor::DESCRIPTOR_TAG: return as(d, partialReception, out);
    case TEmergencyInformationDescriptor::DESCRIPTOR_TAG: return as(d, emergencyInformation, out);
    case TSystemManagementDescriptor::DESCRIPTOR_TAG: return as(d, systemManagement, out);
    default: return false;
    }
}

} // namespace

void printDescriptor(const TISDBTDescriptor& descriptor, TreeOut& out)
{
    const U8 tag = descriptor.getDescriptorTag();
    const char* name = descriptorTagName(tag);
    char title[64];
    std::snprintf(title, sizeof title, "descriptor 0x%02X%s%s", tag, name ? " " : "", name ? name : "");
    out.beginItem(title);
    out.named("descriptor_tag", tag, 2, name);
    if (!printFields(descriptor, out))
        out.bytes("data", descriptor.getData(), descriptor.getDataLength());
    out.end();
}

} // namespace VuroTools
