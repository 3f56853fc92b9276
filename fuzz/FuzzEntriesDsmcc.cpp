#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

namespace {

// The Libras messages take no error code and report no length.
template <class D>
void message(U8* data, U32 length)
{
    delete D::parse(data, length, nullptr, nullptr);
}

// A datacaster entry handed the first byte as its dataLength, inside the
// rest of the input (the admission test lets it read past its own length).
void datacasterWithin(U8* data, U32 length)
{
    if (length == 0)
        return;
    U32 itemLength = 0;
    U16 code = 0;
    delete TDatacasterCarousel::parse(data + 1, data[0], 1, &itemLength, &code, data + length);
}

} // namespace

std::vector<Entry> dsmccEntries()
{
    return {
        // Datacaster carousel entry
        {"TDatacasterCarousel", loopEntry<TDatacasterCarousel>},
        {"TDatacasterCarousel/within", datacasterWithin},
        // DSM-CC stream descriptors and sections
        {"TNPTReferenceDescriptor", descriptor<TNPTReferenceDescriptor>},
        {"TNPTEndpointDescriptor", descriptor<TNPTEndpointDescriptor>},
        {"TStreamModeDescriptor", descriptor<TStreamModeDescriptor>},
        {"TStreamEventDescriptor", descriptor<TStreamEventDescriptor>},
        {"TStreamEventDescriptor/within", descriptorWithin<TStreamEventDescriptor>},
        {"TGeneralEventDescriptor", descriptor<TGeneralEventDescriptor>},
        {"TGeneralEventDescriptor/within", descriptorWithin<TGeneralEventDescriptor>},
        {"TDSMCCSectionTable", table<TDSMCCSectionTable>},
        {"TDsiDiiTable", table<TDsiDiiTable>},
        {"TDDBTable", table<TDDBTable>},
        // Sign-language descriptors
        {"TLCMDescriptor", message<TLCMDescriptor>},
        {"TLDMDescriptor", message<TLDMDescriptor>},
    };
}

} // namespace VuroFuzz
