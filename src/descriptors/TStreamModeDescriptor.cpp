#include "TStreamModeDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TStreamModeDescriptor::TStreamModeDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iStreamMode(0)
{
}

TStreamModeDescriptor::~TStreamModeDescriptor() = default;

TStreamModeDescriptor* TStreamModeDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16* errorCode)
{
    return parseDescriptor<TStreamModeDescriptor>(sectionData, dataLength, nullptr, errorCode, nullptr);
}

TStreamModeDescriptor* TStreamModeDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16* errorCode,
                                                    const U8* limit)
{
    return parseDescriptor<TStreamModeDescriptor>(sectionData, dataLength, nullptr, errorCode, limit);
}

BOOL TStreamModeDescriptor::parseBody(U32 dataLength, const U8* limit, U32&, U16* errorCode)
{
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    m_iStreamMode = m_pData[2];
    return TRUE;
}

} // namespace Vuro
