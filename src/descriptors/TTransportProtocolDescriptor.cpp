#include "TTransportProtocolDescriptor.h"

#include "../utils/VuroParseSupport.h"
#include "TTransportProtocolDescriptorDC.h"
#include "TTransportProtocolDescriptorIC.h"
#include "TTransportProtocolDescriptorIP.h"
#include "TTransportProtocolDescriptorOC.h"
#include "TTransportProtocolDescriptorPC.h"

namespace Vuro {

TTransportProtocolDescriptor::TTransportProtocolDescriptor(Type type, U16 protocolId, U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length),
      m_eMyType(type),
      m_iProtocolID(protocolId),
      m_iTransportProtocolLabel(0)
{
}

TTransportProtocolDescriptor::~TTransportProtocolDescriptor() = default;

TTransportProtocolDescriptor* TTransportProtocolDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                  U32* parsedLength, U16* errorCode)
{
    return parse(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

// A descriptor whose descriptor_length runs past the buffer (limit) is read
// as far as the buffer goes: the protocol_id past it fails silently with
// ERROR_INVALID_DESCRIPTOR_LENGTH (this class has no length line), a
// selector field past it with the variant's "Item length not valid" line.
TTransportProtocolDescriptor* TTransportProtocolDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                  U32* parsedLength, U16* errorCode,
                                                                  const U8* limit)
{
    if (!parseCommonHeader(sectionData, dataLength, errorCode, static_cast<U8>(MINIMUM_DESCRIPTOR_LENGTH),
                           DESCRIPTOR_TAG))
        return nullptr;
    if (limit && !fits(sectionData, limit, COMMON_HEADER_LENGTH + 2)) {
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return nullptr;
    }
    const U16 protocolId = readU16(sectionData + COMMON_HEADER_LENGTH);
    const U32 length = dataLength - COMMON_HEADER_LENGTH;
    TTransportProtocolDescriptor* descriptor = nullptr;
    switch (protocolId) {
    case 1:
    case 5: // profile C is read as an object carousel: receivers never get a PC object from a parse
        descriptor = new TTransportProtocolDescriptorOC(sectionData, length);
        break;
    case 2:
        descriptor = new TTransportProtocolDescriptorIP(sectionData, length);
        break;
    case 4:
        descriptor = new TTransportProtocolDescriptorDC(sectionData, length);
        break;
    case 3:
        // The interactive channel is refused on purpose, silently and with
        // the header check's ERROR_OK left in errorCode; nothing is built.
        return nullptr;
    default:
        VURO_LOGW("%s: TTransportProtocolDescriptor::parse: Unknown protocol ID: 0x%04X. Aborting!",
                  VURO_LOG_ORIGIN, protocolId);
        return nullptr;
    }
    U32 read = 0;
    descriptor->m_pReadLimit = limit;
    const BOOL parsed = descriptor->parseData(sectionData + COMMON_HEADER_LENGTH, length, &read, errorCode);
    descriptor->m_pReadLimit = nullptr;
    if (!parsed) {
        delete descriptor;
        return nullptr;
    }
    if (parsedLength)
        *parsedLength = read;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return descriptor;
}

BOOL TTransportProtocolDescriptor::selectorFits(const U8* pos, U32 need) const
{
    return !m_pReadLimit || fits(pos, m_pReadLimit, need);
}

U32 TTransportProtocolDescriptor::selectorBytesLeft(const U8* pos) const
{
    return m_pReadLimit ? bytesLeft(pos, m_pReadLimit) : 0xFFFFFFFFu;
}

BOOL TTransportProtocolDescriptor::selectorStringFits(const U8* pos, U32 maxLength) const
{
    return !m_pReadLimit || stringFits(pos, m_pReadLimit, maxLength);
}

TTransportProtocolDescriptor* TTransportProtocolDescriptor::clone(TTransportProtocolDescriptor* source)
{
    if (!source)
        return nullptr;
    // A source of another class than its type names (an IC object has the
    // data carousel type) copies the fields the two share, the rest empty.
    TTransportProtocolDescriptor* copy = nullptr;
    switch (source->m_eMyType) {
    case ObjectCarousel: // an OC or a PC object: both copy as OC (protocol 1)
        copy = new TTransportProtocolDescriptorOC(static_cast<const TTransportProtocolDescriptor*>(source));
        break;
    case IP:
        copy = new TTransportProtocolDescriptorIP(dynamic_cast<TTransportProtocolDescriptorIP*>(source));
        break;
    case InteractiveChannel:
        copy = new TTransportProtocolDescriptorIC(dynamic_cast<TTransportProtocolDescriptorIC*>(source));
        break;
    case DataCarousel: // a DC or an IC object (whose type is DataCarousel): both copy as DC
        copy = new TTransportProtocolDescriptorDC(static_cast<const TTransportProtocolDescriptor*>(source));
        break;
    case ProfileC:
        copy = new TTransportProtocolDescriptorPC(static_cast<const TTransportProtocolDescriptor*>(source));
        break;
    default:
        VURO_LOGW("%s: TTransportProtocolDescriptor::clone: Unknown protocol ID: 0x%04X. Aborting!", VURO_LOG_ORIGIN,
                  static_cast<U32>(source->m_eMyType));
        return nullptr;
    }
    copy->m_iTransportProtocolLabel = source->m_iTransportProtocolLabel;
    return copy;
}

} // namespace Vuro
