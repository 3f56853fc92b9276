#include "TLCMDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kMessageLength = 15; // header bytes 0-1, then bytes 2 to 14
}

TLCMDescriptor::TLCMDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), message_id(0), message_length(0), resolution(0),
      dictionary_version(0), dph(0), dpv(0), dfw(0), dfh(0), librasContentType(0), networkId(0),
      transportStreamId(0), serviceId(0)
{
}

TLCMDescriptor::~TLCMDescriptor() = default;

TLCMDescriptor* TLCMDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16*)
{
    // The test is on the bytes after the two header bytes: 12 or fewer are
    // refused, silently. Fewer than 2 bytes (or no data) would wrap the count
    // and pass; such data is refused as well, since the fields lie beyond it.
    if (!sectionData || dataLength < kMessageLength)
        return nullptr;
    TLCMDescriptor* message = new TLCMDescriptor(sectionData, dataLength);
    const U8* d = sectionData;
    message->message_id = d[2];
    message->message_length = readU16(d + 3);
    message->resolution = static_cast<VURO_U8>(d[5] & 0x0F);
    message->dph = readU16(d + 6);
    message->dpv = readU16(d + 8);
    message->dfw = readU16(d + 10);
    message->dfh = readU16(d + 12);
    message->librasContentType = d[14];
    return message;
}

} // namespace Vuro
