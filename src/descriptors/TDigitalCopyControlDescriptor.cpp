#include "TDigitalCopyControlDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {

const char kLengthLine[] =
    "%s: TDigitalCopyControlDescriptor::parse: Longer data length is required: %u < %u. Aborting!";

} // namespace

TDigitalCopyControlDescriptor::TDigitalCopyControlDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iDigitalRecCtrlData(0), m_bMaximumBitrate(FALSE),
      m_bComponentControl(FALSE), m_iCopyControlType(0), m_iAPSControlData(0), m_iMaximumBitrate(0)
{
}

TDigitalCopyControlDescriptor::~TDigitalCopyControlDescriptor() = default;

TDigitalCopyControlDescriptor* TDigitalCopyControlDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TDigitalCopyControlDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                          nullptr);
}

TDigitalCopyControlDescriptor* TDigitalCopyControlDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode,
                                                                    const U8* limit)
{
    return parseDescriptor<TDigitalCopyControlDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                          limit);
}

BOOL TDigitalCopyControlDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // Each single byte read is checked against the descriptor (left) and the
    // buffer; a byte missing from either fails with "0 < 1".
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    if (!fits(position, limit, 1))
        return descriptorLengthFailure(kLengthLine, 0, 1, errorCode);
    const U8 flags = *position++;
    readCopyControlFlags(flags, m_iDigitalRecCtrlData, m_bMaximumBitrate, m_iCopyControlType, m_iAPSControlData);
    m_bComponentControl = (flags & 0x10) != 0;
    U32 left = dataLength - COMMON_HEADER_LENGTH - 1;

    if (m_bMaximumBitrate) {
        if (left == 0 || !fits(position, limit, 1))
            return descriptorLengthFailure(kLengthLine, 0, 1, errorCode);
        m_iMaximumBitrate = *position++;
        --left;
    }

    if (m_bComponentControl) {
        if (left == 0 || !fits(position, limit, 1))
            return descriptorLengthFailure(kLengthLine, 0, 1, errorCode);
        U8 componentCount = *position++;
        --left;
        if (componentCount > left)
            return descriptorLengthFailure(kLengthLine, left, 1, errorCode);
        // Entries are taken while the 8-bit component_control_length count
        // has not reached zero, each handed every byte left in the
        // descriptor. A count that the entry lengths step over wraps and the
        // walk goes on until an entry finds no byte left and fails; entries
        // never read past the descriptor or the buffer.
        U32 lastItemLength = 0;
        if (!parseItems<TDigitalCopyControlDescriptorItem>(
                position, left, limit, lastItemLength, errorCode,
                [&componentCount](U32) { return componentCount != 0; },
                [this, &componentCount](TDigitalCopyControlDescriptorItem* item, U32 itemLength) {
                    m_pItems.add(item);
                    componentCount = static_cast<U8>(componentCount - itemLength);
                })) {
            VURO_LOGW("%s: TDigitalCopyControlDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
            return FALSE;
        }
    }
    parsedLength = static_cast<U32>(position - (m_pData + COMMON_HEADER_LENGTH));
    return TRUE;
}

} // namespace Vuro
