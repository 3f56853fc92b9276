#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

std::vector<Entry> networkEntries()
{
    return {
        // Network and transport-stream descriptors
        {"TNetworkNameDescriptor", descriptor<TNetworkNameDescriptor>},
        {"TNetworkNameDescriptor/within", descriptorWithin<TNetworkNameDescriptor>},
        {"TSystemManagementDescriptor", descriptor<TSystemManagementDescriptor>},
        {"TSystemManagementDescriptor/within", descriptorWithin<TSystemManagementDescriptor>},
        {"TLinkageDescriptor", descriptor<TLinkageDescriptor>},
        {"TLinkageDescriptor/within", descriptorWithin<TLinkageDescriptor>},
        {"TTerrestrialDeliverySystemDescriptor", descriptor<TTerrestrialDeliverySystemDescriptor>},
        {"TTerrestrialDeliverySystemDescriptor/within", descriptorWithin<TTerrestrialDeliverySystemDescriptor>},
        {"TEmergencyInformationDescriptor", descriptor<TEmergencyInformationDescriptor>},
        {"TEmergencyInformationDescriptor/within", descriptorWithin<TEmergencyInformationDescriptor>},
        {"TEmergencyInformationDescriptorItem", item<TEmergencyInformationDescriptorItem>},
        {"TPartialReceptionDescriptor", descriptor<TPartialReceptionDescriptor>},
        {"TPartialReceptionDescriptor/within", descriptorWithin<TPartialReceptionDescriptor>},
        {"TTSInformationDescriptor", descriptor<TTSInformationDescriptor>},
        {"TTSInformationDescriptor/within", descriptorWithin<TTSInformationDescriptor>},
        {"TTSInformationDescriptorItem", item<TTSInformationDescriptorItem>},
        // Network information table
        {"TTransportStreamInfo", loopEntry<TTransportStreamInfo>},
        {"TNITTable", table<TNITTable>},
    };
}

} // namespace VuroFuzz
