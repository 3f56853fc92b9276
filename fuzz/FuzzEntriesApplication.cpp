#include <memory>

#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

namespace {

// A descriptor parsed as a table hands it over, then copied; the copy is
// read after the parsed object (and what it borrows) is gone.
template <class D>
void descriptorCopy(U8* data, U32 length)
{
    U16 code = 0;
    U32 own = length >= 2 && data[1] + 2u <= length ? data[1] + 2u : length;
    D* parsed = D::parse(data, own, nullptr, &code, data + length);
    if (!parsed)
        return;
    D* copy = new D(parsed);
    delete parsed;
    delete copy;
    delete new D(static_cast<D*>(nullptr)); // a copy of nothing is empty
}

void transportClone(U8* data, U32 length)
{
    U16 code = 0;
    TTransportProtocolDescriptor* parsed = TTransportProtocolDescriptor::parse(data, length, nullptr, &code);
    if (!parsed)
        return;
    TTransportProtocolDescriptor* copy = TTransportProtocolDescriptor::clone(parsed);
    delete parsed;
    delete copy;
}

// A transport protocol variant filled through parseData (the data starting
// at protocol_id), then cloned and copied (and a copy of nothing made).
template <class V>
void transportVariant(U8* data, U32 length)
{
    U32 read = 0;
    U16 code = 0;
    std::unique_ptr<V> variant(new V(data, length));
    if (variant->parseData(data, length, &read, &code)) {
        delete TTransportProtocolDescriptor::clone(variant.get());
        delete new V(variant.get());
        if constexpr (std::is_same_v<V, TTransportProtocolDescriptorIP>) {
            variant->getOriginalNetworkID();
            variant->getTransportStreamID();
            variant->addURL("http://x");
        }
    }
    delete new V(static_cast<V*>(nullptr));
}

void locationData(U8* data, U32 length)
{
    U32 read = 0;
    U16 code = 0;
    TGingaNCLApplicationLocationDescriptor location(data, length);
    location.parseData(data, length, &read, &code);
}

// The AIT, then a copy of every application with and without inherit, read
// back after the table is deleted.
void aitCopies(U8* data, U32 length)
{
    U16 code = 0;
    TAITTable* table = TAITTable::parse(data, length, 1, 1, &code, nullptr);
    if (!table)
        return;
    std::vector<std::unique_ptr<TApplication>> copies;
    for (const std::string& id : table->getApplicationsIDs()) {
        TApplication* application = table->getApplication(id);
        copies.emplace_back(new TApplication(application, TRUE));
        copies.emplace_back(new TApplication(application, FALSE));
    }
    delete table;
    for (const auto& copy : copies)
        for (U8 tag : copy->getDescriptorTags())
            copy->getDescriptor(tag);
}

} // namespace

std::vector<Entry> applicationEntries()
{
    return {
        // Application information table
        {"TAITTable", table<TAITTable>},
        {"TAITTable/copies", aitCopies},
        {"TApplication", loopEntry<TApplication>},
        {"TApplicationIdentifier", loopEntry<TApplicationIdentifier>},
        // Application descriptors
        {"TApplicationDescriptor", descriptor<TApplicationDescriptor>},
        {"TApplicationDescriptor/copy", descriptorCopy<TApplicationDescriptor>},
        {"TApplicationDescriptorProfile", item<TApplicationDescriptorProfile>},
        {"TApplicationNameDescriptor", descriptor<TApplicationNameDescriptor>},
        {"TApplicationNameDescriptor/copy", descriptorCopy<TApplicationNameDescriptor>},
        {"TApplicationNameDescriptorItem", item<TApplicationNameDescriptorItem>},
        {"TApplicationIconDescriptor", descriptor<TApplicationIconDescriptor>},
        {"TApplicationIconDescriptor/copy", descriptorCopy<TApplicationIconDescriptor>},
        {"TExternalApplicationAuthorizationDescriptor", descriptor<TExternalApplicationAuthorizationDescriptor>},
        {"TExternalApplicationAuthorizationDescriptor/copy",
         descriptorCopy<TExternalApplicationAuthorizationDescriptor>},
        {"TExternalApplicationAuthorizationDescriptorItem", item<TExternalApplicationAuthorizationDescriptorItem>},
        {"TIPSignalingDescriptor/copy", descriptorCopy<TIPSignalingDescriptor>},
        {"TPrefetchDescriptor", descriptor<TPrefetchDescriptor>},
        {"TPrefetchDescriptor/copy", descriptorCopy<TPrefetchDescriptor>},
        {"TPrefetchDescriptorItem", item<TPrefetchDescriptorItem>},
        {"TDIILocationDescriptor/copy", descriptorCopy<TDIILocationDescriptor>},
        {"TDIILocationDescriptorItem", item<TDIILocationDescriptorItem>},
        {"TGingaJavaApplicationDescriptor/copy", descriptorCopy<TGingaJavaApplicationDescriptor>},
        {"TGingaNCLApplicationDescriptor", descriptor<TGingaNCLApplicationDescriptor>},
        {"TGingaJavaApplicationLocationDescriptor/copy", descriptorCopy<TGingaJavaApplicationLocationDescriptor>},
        {"TGingaNCLApplicationLocationDescriptor", descriptor<TGingaNCLApplicationLocationDescriptor>},
        {"TGingaNCLApplicationLocationDescriptor/within", descriptorWithin<TGingaNCLApplicationLocationDescriptor>},
        {"TGingaApplicationLocationDescriptor::parseData", locationData},
        // Transport protocol descriptors
        {"TTransportProtocolDescriptor", descriptor<TTransportProtocolDescriptor>},
        {"TTransportProtocolDescriptor/clone", transportClone},
        {"TTransportProtocolDescriptorIP::parseData", transportVariant<TTransportProtocolDescriptorIP>},
        {"TTransportProtocolDescriptorIC::parseData", transportVariant<TTransportProtocolDescriptorIC>},
        {"TTransportProtocolDescriptorPC::parseData", transportVariant<TTransportProtocolDescriptorPC>},
        {"TTransportProtocolDescriptorOC::parseData", transportVariant<TTransportProtocolDescriptorOC>},
        {"TTransportProtocolDescriptorDC::parseData", transportVariant<TTransportProtocolDescriptorDC>},
    };
}

} // namespace VuroFuzz
