#include "TDIILocationDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TDIILocationDescriptor::TDIILocationDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iTransportProtocolLabel(0)
{
}

TDIILocationDescriptor::TDIILocationDescriptor(TDIILocationDescriptor* source) : TDIILocationDescriptor(nullptr, 0)
{
    if (!source)
        return;
    m_iTransportProtocolLabel = source->m_iTransportProtocolLabel;
    for (TDIILocationDescriptorItem* item : source->m_pItems.items())
        m_pItems.add(item ? new TDIILocationDescriptorItem(*item) : nullptr);
}

TDIILocationDescriptor::~TDIILocationDescriptor() = default;

TDIILocationDescriptor* TDIILocationDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TDIILocationDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TDIILocationDescriptor* TDIILocationDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                        const U8* limit)
{
    return parseDescriptor<TDIILocationDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TDIILocationDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // transport_protocol_label, then the items to the end. Handed more bytes
    // than the outer buffer holds, the label byte itself may lie past it: the
    // class has no length line, so it fails with the code alone.
    if (!descriptorBytesInBuffer(m_pData + COMMON_HEADER_LENGTH, limit, 1, errorCode))
        return FALSE;
    m_iTransportProtocolLabel = m_pData[COMMON_HEADER_LENGTH];
    U8* position = m_pData + COMMON_HEADER_LENGTH + 1;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH - 1;
    if (!parseItemsToEnd<TDIILocationDescriptorItem>(position, remaining, limit, parsedLength, errorCode,
                                              [this](TDIILocationDescriptorItem* item, U32) { m_pItems.add(item); })) {
        VURO_LOGW("%s: TDIILocationDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
